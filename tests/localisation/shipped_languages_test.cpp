// The language files that go with the program.
#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>

#include "base/whole_file.h"
#include "localisation/language_file.h"
#include "localisation/language_sections.h"

using namespace kelvane;

namespace {

const QString ProjectFolder = QStringLiteral(KELVANE_SOURCE_DIR "/");
const QString LanguageFolder = ProjectFolder + QStringLiteral("Language file/");

class ShippedLanguage : public testing::TestWithParam<quint8> {
   protected:
    void SetUp() override {
        const QString path = LanguageFolder + languageFileName(GetParam());
        m_bytes = readWhole(path).bytes;
        ASSERT_TRUE(LoadLanguage(path, m_language).ok());
    }

    void expectFilled(const TextGroup& group, const KeyGroup& keys, const char* header) {
        EXPECT_EQ(group.filled, keys.count());
        for (int number = 1; number <= keys.count(); ++number)
            EXPECT_FALSE(group.at(number).trimmed().isEmpty()) << header << ' ' << number;
    }

    QByteArray m_bytes;
    Language m_language;
};

TEST_P(ShippedLanguage, FillsEveryText) {
    EXPECT_EQ(m_language.LanguageIndex, GetParam());
    const LangTable english = LangTable::builtInEnglish();
    const LangTable& table = m_language.table;
    for (const FormSectionRow& row : formSections()) {
        EXPECT_FALSE(table.form(row.section).Caption.isEmpty());
        expectFilled(table.form(row.section).Button, row.Button, row.header);
        expectFilled(table.form(row.section).Hint, row.Hint, row.header);
        expectFilled(table.form(row.section).Label, row.Label, row.header);
    }
    for (size_t i = 0; i < table.Type.size(); ++i)
        EXPECT_EQ(table.Type[i].isEmpty(), english.Type[i].isEmpty()) << "type entry " << i;
    for (const QString& name : table.commonItemNames) EXPECT_FALSE(name.isEmpty());
    for (int number = 1; number <= LangTable::MessageCount; ++number)
        EXPECT_FALSE(table.messageOfKey(number).isEmpty()) << "message " << number;
}

TEST_P(ShippedLanguage, IsWhollyInItsCodePage) {
    const QByteArray page = languageCodePage({}, GetParam());
    const QString text = decodeLanguage(m_bytes, page);
    EXPECT_FALSE(text.contains(QChar::ReplacementCharacter));
    EXPECT_EQ(encodeLanguage(text, page), m_bytes);
    EXPECT_EQ(text.count(u'\n'), text.count(QStringLiteral("\r\n")));
    EXPECT_EQ(text.count(u'\r'), text.count(u'\n'));
}

INSTANTIATE_TEST_SUITE_P(Localisation, ShippedLanguage, testing::Values<quint8>(1, 2, 3, 4, 9),
                         [](const auto& language) { return languageCode(language.param).toStdString(); });

TEST(ShippedLanguages, EnglishSaysWhatIsBuiltIn) {
    Language language;
    ASSERT_TRUE(LoadLanguage(LanguageFolder + languageFileName(4), language).ok());
    const LangTable english = LangTable::builtInEnglish();
    EXPECT_EQ(language.table.Type, english.Type);
    EXPECT_EQ(language.table.commonItemNames, english.commonItemNames);
    for (int number = 1; number <= LangTable::MessageCount; ++number)
        EXPECT_EQ(language.table.messageOfKey(number),
                  english.messageOfKey(number).replace(u'\n', u' ').trimmed());
}

TEST(ShippedLanguages, AreWhatTheScriptMakes) {
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty()) GTEST_SKIP() << "python3 is not installed";
    const QTemporaryDir made;
    const QString script = ProjectFolder + QStringLiteral("scripts/make_language_files.py");
    ASSERT_EQ(QProcess::execute(python, {script, made.path()}), 0);
    const QStringList names = QDir(LanguageFolder).entryList({QStringLiteral("Lang_*.txt")});
    EXPECT_EQ(names, QDir(made.path()).entryList({QStringLiteral("Lang_*.txt")}));
    for (const QString& name : names)
        EXPECT_EQ(readWhole(LanguageFolder + name).bytes, readWhole(made.filePath(name)).bytes)
            << qPrintable(name) << " is not what the tables say: run scripts/make_language_files.py";
}

}  // namespace
