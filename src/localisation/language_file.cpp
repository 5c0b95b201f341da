#include "localisation/language_file.h"

#include <QFileInfo>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringList>
#include <algorithm>
#include <optional>
#include <utility>

#include "base/whole_file.h"
#include "localisation/language_sections.h"

namespace kelvane {

namespace {

constexpr qint64 LargestFile = 4 * 1024 * 1024;

struct LanguageRow {
    const char* code;
    const char* codePage;
};

constexpr const char* WesternPage = "windows-1252";

constexpr std::array<LanguageRow, 10> Languages{{
    {.code = "CHT", .codePage = "Big5"},
    {.code = "CHS", .codePage = "GBK"},
    {.code = "DE", .codePage = WesternPage},
    {.code = "EN", .codePage = WesternPage},
    {.code = "FR", .codePage = WesternPage},
    {.code = "JA", .codePage = "Shift_JIS"},
    {.code = "KO", .codePage = "windows-949"},
    {.code = "PO", .codePage = WesternPage},
    {.code = "RU", .codePage = "windows-1251"},
    {.code = "SP", .codePage = WesternPage},
}};

QString behindEqualSign(const QString& line) { return line.mid(line.indexOf(u'=') + 1); }

// Puts the lines of a file into the table. Each step returns false when the file ends before it.
class LanguageReader {
   public:
    LanguageReader(const QStringList& lines, Language& language) : m_lines(lines), m_language(language) {}

    LanguageStatus read() {
        for (m_header = 0; m_header < m_lines.size(); ++m_header) {
            const LanguageStatus status = takeSection(m_lines[m_header]);
            if (status != LanguageStatus::Ok) return status;
        }
        return LanguageStatus::Ok;
    }

   private:
    LanguageStatus takeSection(const QString& header) {
        if (header == QLatin1String(LanguageHeader)) return takeLanguage();
        bool whole = true;
        if (header == QLatin1String(MessageHeader)) whole = takeMessages();
        for (const FormSectionRow& row : formSections())
            if (header == QLatin1String(row.header)) whole = takeForm(row);
        for (const TypeSectionRow& row : typeSections())
            if (header == QLatin1String(row.header)) whole = takeTypes(row.section);
        return whole ? LanguageStatus::Ok : LanguageStatus::CutShort;
    }

    bool takeValue(qsizetype offset, QString& value) {
        if (m_header + offset >= m_lines.size()) return false;
        value = behindEqualSign(m_lines[m_header + offset]);
        return true;
    }

    LanguageStatus takeLanguage() {
        if (m_header + 1 >= m_lines.size()) return LanguageStatus::CutShort;
        return takeLangID(m_lines[m_header + 1], m_language.LanguageIndex) ? LanguageStatus::Ok
                                                                           : LanguageStatus::WrongNumber;
    }

    bool takeForm(const FormSectionRow& row) {
        FormTexts& form = m_language.table.form(row.section);
        if (!takeValue(CaptionOffset, form.Caption)) return false;
        form.captionFilled = true;
        return takeGroup(row.Button, form.Button) && takeGroup(row.Hint, form.Hint) && takeLabels(row, form);
    }

    bool takeGroup(const KeyGroup& keys, TextGroup& group) {
        for (int i = 0; i < keys.count(); ++i) {
            if (!takeValue(keys.offset + i, group.Text[static_cast<size_t>(i)])) return false;
            group.filled = std::max(group.filled, i + 1);
        }
        return true;
    }

    bool takeLabels(const FormSectionRow& row, FormTexts& form) {
        const bool whole = takeGroup(row.Label, form.Label);
        if (row.section == FormSection::Trend) takeCommonItemNames(form.Label);
        return whole;
    }

    // The grid's rows are the common item names.
    void takeCommonItemNames(const TextGroup& label) {
        constexpr int Label14 = 14;
        for (int i = 0; i < 5 && Label14 + i <= label.filled; ++i)
            m_language.table.commonItemNames[static_cast<size_t>(i)] = label.at(Label14 + i);
    }

    bool takeTypes(TypeSection section) {
        const size_t first = static_cast<size_t>(section) * LangTable::TypeSetSize;
        for (int i = 0; i < LangTable::TypeSetSize; ++i)
            if (!takeValue(1 + i, m_language.table.Type[first + static_cast<size_t>(i)])) return false;
        return true;
    }

    bool takeMessages() {
        for (int i = 0; i < LangTable::MessageCount; ++i)
            if (!takeValue(1 + i, m_language.table.Message[static_cast<size_t>(i)])) return false;
        return true;
    }

    const QStringList& m_lines;
    Language& m_language;
    qsizetype m_header = 0;  // index of the line looked at
};

// The page, or Latin-1 on a system that does not know it.
QByteArray knownPage(const QByteArray& codePage) {
    return QStringDecoder(codePage.constData()).isValid() ? codePage : QByteArray("ISO-8859-1");
}

QString inWords(LanguageStatus status) {
    switch (status) {
        case LanguageStatus::CutShort: return QStringLiteral("the file ends inside a section");
        case LanguageStatus::WrongNumber: return QStringLiteral("the language number is not a number");
        default: return {};
    }
}

}  // namespace

QString languageCode(quint8 LanguageIndex) {
    if (LanguageIndex < 1 || LanguageIndex > Languages.size()) return {};
    return QString::fromLatin1(Languages[LanguageIndex - 1U].code);
}

QString languageFileName(quint8 LanguageIndex) {
    const QString code = languageCode(LanguageIndex);
    // Kept: the name for a wrong number lacks ".t", so that no such file is found.
    if (code.isEmpty()) return QStringLiteral("Lang_ENxt");
    return QStringLiteral("Lang_") % code % QStringLiteral(".txt");
}

QByteArray languageCodePage(const QString& path, quint8 LanguageIndex) {
    const QString name = QFileInfo(path).fileName();
    for (const LanguageRow& row : Languages)
        if (name.compare(QStringLiteral("Lang_") % QLatin1String(row.code) % QStringLiteral(".txt"),
                         Qt::CaseInsensitive) == 0)
            return row.codePage;
    return languageCode(LanguageIndex).isEmpty() ? WesternPage : Languages[LanguageIndex - 1U].codePage;
}

QString decodeLanguage(const QByteArray& bytes, const QByteArray& codePage) {
    static const QByteArray mark("\xEF\xBB\xBF");
    if (bytes.startsWith(mark)) return QString::fromUtf8(bytes.mid(mark.size()));
    QStringDecoder decoder(knownPage(codePage).constData());
    return decoder.decode(bytes);
}

QByteArray encodeLanguage(const QString& text, const QByteArray& codePage) {
    const QByteArray page = knownPage(codePage);
    std::optional<QStringEncoder> encoder(std::in_place, page.constData());
    QByteArray whole = encoder->encode(text);
    if (!encoder->hasError()) return whole;
    // Each page has a sign of its own for what it lacks, so the characters are tried one by one. An encoder
    // never forgets an error and must not be moved, so a new one takes its place.
    QByteArray bytes;
    for (const char32_t character : text.toUcs4()) {
        if (encoder->hasError()) encoder.emplace(page.constData());
        const QByteArray encoded = encoder->encode(QString::fromUcs4(&character, 1));
        bytes += encoder->hasError() ? QByteArray("?") : encoded;
    }
    return bytes;
}

bool takeLangID(const QString& line, quint8& LanguageIndex) {
    bool isNumber = false;
    const int number = behindEqualSign(line).toInt(&isNumber);
    if (isNumber) LanguageIndex = static_cast<quint8>(number);
    return isNumber;
}

QStringList languageLines(const QString& text) {
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (plain.endsWith(u'\n')) plain.chop(1);
    return plain.split(u'\n');
}

LanguageResult readLanguage(const QString& text, Language& language) {
    const QStringList lines = languageLines(text);
    const LanguageStatus status = LanguageReader(lines, language).read();
    return {status, inWords(status)};
}

LanguageResult LoadLanguage(const QString& path, Language& language) {
    const FileContent file = readWhole(path, LargestFile);
    if (!file.ok) return {LanguageStatus::CannotOpen, file.error};
    return readLanguage(decodeLanguage(file.bytes, languageCodePage(path, language.LanguageIndex)), language);
}

}  // namespace kelvane
