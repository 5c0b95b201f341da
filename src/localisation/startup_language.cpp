#include "localisation/startup_language.h"

#include <QStringList>

#include "base/text_8bit.h"
#include "base/whole_file.h"
#include "localisation/language_sections.h"

namespace kelvane {

namespace {

constexpr qint64 LargestProject = 4 * 1024 * 1024;

// Empty without a folder: its name alone would be looked for at the root of the file system.
QString inFolder(const QString& folder, const QString& name) {
    return folder.isEmpty() ? QString() : folder % QStringLiteral("/") % name;
}

void tellEnglish(Operator& person, const QString& reason) {
    person.tell(reason % QStringLiteral("\nThe software will be set English interface."),
                QStringLiteral("Error"));
}

LanguageResult readProject(const QStringList& lines, quint8& LanguageIndex) {
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i] != QLatin1String(LanguageHeader)) continue;
        if (i + 1 == lines.size())
            return {LanguageStatus::CutShort, QStringLiteral("the file ends inside a section")};
        if (!takeLangID(lines[i + 1], LanguageIndex))
            return {LanguageStatus::WrongNumber, QStringLiteral("the language number is not a number")};
    }
    return {};
}

}  // namespace

LanguageResult LoadProject(const QString& path, quint8& LanguageIndex) {
    const FileContent file = readWhole(path, LargestProject);
    if (!file.ok) return {LanguageStatus::CannotOpen, file.error};
    return readProject(languageLines(from8Bit(file.bytes)), LanguageIndex);
}

void startLanguage(Language& language, const QString& project, const QString& languageFolder,
                   Operator& person) {
    language.table = LangTable::builtInEnglish();
    if (!LoadProject(project, language.LanguageIndex).ok()) {
        tellEnglish(person, QStringLiteral("Can't open default Project !"));
        language.LanguageIndex = EnglishIndex;
    }
    const QString name = languageFileName(language.LanguageIndex);
    if (LoadLanguage(inFolder(languageFolder, name), language).ok()) return;
    tellEnglish(person, QStringLiteral("Can't open the file !"));
    language = {.table = LangTable::builtInEnglish(), .LanguageIndex = EnglishIndex};
}

bool chooseLanguage(Language& language, quint8 index, const QString& languageFolder, Operator& person) {
    if (LoadLanguage(inFolder(languageFolder, languageFileName(index)), language).ok()) return true;
    person.tell(QStringLiteral("Can't open the file !"), QStringLiteral("Error"));
    return false;
}

}  // namespace kelvane
