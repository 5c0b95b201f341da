#include "console/flasher/motorola_file.h"

#include "base/text_8bit.h"

namespace kelvane {

QString flashLine(const QString& record) {
    if (record.size() < 2 || record[0] != QLatin1Char('S')) return {};
    const char16_t digit = record[1].unicode();
    if (digit < u'0' || digit > u'9') return {};
    return QStringLiteral("53") % QString::number(digit - u'0' + 30) % record.mid(2).trimmed();
}

MotorolaFile readMotorolaFile(const QByteArray& bytes) {
    MotorolaFile file;
    for (qsizetype at = 0; at < bytes.size();) {
        qsizetype end = at;
        while (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r') ++end;
        const QString line = flashLine(from8Bit(bytes.mid(at, end - at)));
        at = end + 1;
        if (line.isEmpty()) continue;
        if (file.lines.size() == FlashLinesRoom) return {{}, true};
        file.lines += line;
    }
    return file;
}

}  // namespace kelvane
