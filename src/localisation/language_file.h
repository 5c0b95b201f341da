// Language files: their names, their code pages and the reader. A file is read by position, not by key: what
// stands behind the first "=" of a line counts, and the line's distance from its section's header says what
// it sets. Called at start and by the language menu.
#pragma once

#include <QByteArray>
#include <QString>

#include "localisation/lang_table.h"

namespace kelvane {

// What the splash holds for the life of the program.
struct Language {
    LangTable table;
    quint8 LanguageIndex = 0;  // 1 to 10, see languageCode()
};

enum class LanguageStatus : quint8 {
    Ok,
    CannotOpen,   // nothing was changed
    CutShort,     // a section is longer than the rest of the file; what was read before stays in force
    WrongNumber,  // "LangID=" without a number; likewise
};

struct LanguageResult {
    bool ok() const { return status == LanguageStatus::Ok; }

    LanguageStatus status = LanguageStatus::Ok;
    QString error;  // plain words for a person, empty when ok
};

// "CHT", "CHS", "DE", "EN", "FR", "JA", "KO", "PO", "RU", "SP" for 1 to 10; empty outside.
QString languageCode(quint8 LanguageIndex);

// "Lang_EN.txt"; outside 1 to 10 "Lang_ENxt", a name that no file has.
QString languageFileName(quint8 LanguageIndex);

// Code page of a file ("windows-1251"): by a name like "Lang_RU.txt", whatever its case and folder; with any
// other name by LanguageIndex.
QByteArray languageCodePage(const QString& path, quint8 LanguageIndex);

// Bytes that the page does not have become the replacement character. A UTF-8 byte order mark is taken off,
// and says that the file is UTF-8.
QString decodeLanguage(const QByteArray& bytes, const QByteArray& codePage);

// Characters that the page does not have become "?".
QByteArray encodeLanguage(const QString& text, const QByteArray& codePage);

// Takes the number behind the "=" of "LangID=" into LanguageIndex, of which it keeps the low 8 bits; false
// when there is none, and LanguageIndex stays.
bool takeLangID(const QString& line, quint8& LanguageIndex);

// Lines of a text whatever its line ends; a line end at the very end begins no further line.
QStringList languageLines(const QString& text);

// Fills the table from the text of a file. A missing section leaves its texts as they were.
LanguageResult readLanguage(const QString& text, Language& language);

// The same from a file.
LanguageResult LoadLanguage(const QString& path, Language& language);

}  // namespace kelvane
