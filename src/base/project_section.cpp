#include "base/project_section.h"

#include <algorithm>

#include "base/text_8bit.h"

namespace kelvane {

namespace {

constexpr int ValueOffsets[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

// Kept: the key is for the reader's eye and is not compared; a line without the sign is taken whole.
QString behindKey(const QString& line, int keyWidth) {
    return line.mid(keyWidth == CutAtEqualSign ? line.indexOf(QLatin1Char('=')) + 1 : keyWidth);
}

QString lineError(qsizetype line, const QString& what) {
    return QStringLiteral("Line %1 %2").arg(QString::number(line + 1), what);
}

QString valueError(qsizetype line, Taken result, const QString& value) {
    if (result == Taken::TooFew) return lineError(line, QStringLiteral("has too few values."));
    return lineError(line, QStringLiteral("cannot be read: \"") % value.left(60) % QStringLiteral("\""));
}

}  // namespace

void SectionWriter::line(const QString& text) { m_bytes += to8Bit(text) + "\r\n"; }
void SectionWriter::line(const char* key, const QString& value) { line(QLatin1String(key) % value); }

std::span<const int> firstLines(std::size_t count) { return std::span(ValueOffsets).first(count); }

SectionRead readSection(const QStringList& lines, const char* header, std::span<const int> offsets,
                        int keyWidth, const TakeValue& take) {
    SectionRead read;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (lines[at] != QLatin1String(header)) continue;
        read.found = true;
        for (int place = 0; place < static_cast<int>(offsets.size()); ++place) {
            const qsizetype line = at + offsets[place];
            if (line >= lines.size()) {
                read.error = lineError(line, QStringLiteral("is missing."));
                return read;
            }
            const QString value = behindKey(lines[line], keyWidth);
            const Taken result = take(place, value);
            if (result != Taken::Yes) {
                read.error = valueError(line, result, value);
                return read;
            }
            read.taken = std::max(read.taken, place + 1);
        }
    }
    return read;
}

Taken takeNumber(const QString& value, int& into) {
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok) return Taken::NotReadable;
    into = number;
    return Taken::Yes;
}

Taken takeBoolean(const QString& value, bool& into) {
    const bool isTrue = value.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
    if (!isTrue && value.compare(QLatin1String("False"), Qt::CaseInsensitive) != 0) return Taken::NotReadable;
    into = isTrue;
    return Taken::Yes;
}

QStringList splitAt(char separator, const QString& value) {
    return value.isEmpty() ? QStringList() : value.split(QLatin1Char(separator));
}

}  // namespace kelvane
