#include "localisation/startup_language.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "base/whole_file.h"
#include "bench/scripted_operator.h"

using namespace kelvane;

namespace {

class StartupLanguage : public testing::Test {
   protected:
    void writeProject(const QByteArray& bytes) {
        ASSERT_TRUE(writeWhole(m_folder.filePath(QStringLiteral("default.prj")), bytes).ok);
    }
    void writeLanguageFile(quint8 index, const QByteArray& bytes) {
        ASSERT_TRUE(writeWhole(m_folder.filePath(languageFileName(index)), bytes).ok);
    }
    void expectNoProject() {
        m_person.expectBox(
            QStringLiteral("Can't open default Project !\nThe software will be set English interface."),
            QStringLiteral("Error"));
    }
    void expectNoLanguage() {
        m_person.expectBox(
            QStringLiteral("Can't open the file !\nThe software will be set English interface."),
            QStringLiteral("Error"));
    }
    void start() {
        startLanguage(m_language, m_folder.filePath(QStringLiteral("default.prj")), m_folder.path(),
                      m_person);
    }

    QTemporaryDir m_folder;
    ScriptedOperator m_person;
    Language m_language;
};

const QByteArray SourceDialog = "[QSource Form]\r\nCaption=Source\r\n" + QByteArray("\r\n").repeated(8);

TEST_F(StartupLanguage, TakesTheLanguageOfTheProject) {
    writeProject("[Language]\r\nLangID=9\r\n\r\n[ComSetup Form]\r\nCom port    =4\r\n");
    writeLanguageFile(9, SourceDialog);
    start();
    EXPECT_EQ(m_language.LanguageIndex, 9);
    EXPECT_EQ(m_language.table.form(FormSection::QSource).Caption, QStringLiteral("Source"));
}

// Boxes have texts whatever a file leaves out, and no file is looked for where there is no folder.
TEST_F(StartupLanguage, HasTheBuiltInMessagesBeforeAnyFile) {
    writeProject("[Language]\r\nLangID=4\r\n");
    writeLanguageFile(4, SourceDialog);
    start();
    EXPECT_EQ(m_language.table.MsgStr(Message::OnLineFail), QStringLiteral("On-Line Fail !!"));
    m_person.expectBox(QStringLiteral("Can't open the file !"), QStringLiteral("Error"));
    EXPECT_FALSE(chooseLanguage(m_language, 4, {}, m_person));
}

TEST_F(StartupLanguage, KeepsLangIDToEightBits) {
    quint8 LanguageIndex = 0;
    EXPECT_TRUE(takeLangID(QStringLiteral("LangID=260"), LanguageIndex));
    EXPECT_EQ(LanguageIndex, 4);
    EXPECT_FALSE(takeLangID(QStringLiteral("LangID="), LanguageIndex));
    EXPECT_FALSE(takeLangID(QStringLiteral("LangID 9"), LanguageIndex));
    EXPECT_EQ(LanguageIndex, 4);
}

TEST_F(StartupLanguage, FallsBackToEnglishWithOneBoxForEachFailure) {
    expectNoProject();
    expectNoLanguage();
    start();
    EXPECT_EQ(m_language.LanguageIndex, 4);
    EXPECT_EQ(m_language.table.MsgStr(Message::OnLineFail), QStringLiteral("On-Line Fail !!"));
    writeLanguageFile(4, SourceDialog);
    for (const char* project : {"", "[Language]", "[Language]\r\nLangID=x\r\n"}) {
        if (*project != 0) writeProject(project);
        expectNoProject();
        start();
        EXPECT_TRUE(m_person.allAsked()) << project;
        EXPECT_EQ(m_language.LanguageIndex, 4);
    }
}

// A file that ends too early leaves no window half translated.
TEST_F(StartupLanguage, LanguageFileCutShortLeavesTheWindowsTheirOwnTexts) {
    writeProject("[Language]\r\nLangID=3\r\n");
    writeLanguageFile(3, SourceDialog + "[Message]\r\nMsgStr01=eins\r\n");
    expectNoLanguage();
    start();
    EXPECT_EQ(m_language.LanguageIndex, 4);
    EXPECT_FALSE(m_language.table.form(FormSection::QSource).captionFilled);
    EXPECT_EQ(m_language.table.MsgStr(Message::ResetDrive),
              QStringLiteral("\nWould you want to reset the drive?"));
}

TEST_F(StartupLanguage, KeepsAFileNameWithoutSuffixForWrongNumbers) {
    const char* codes[] = {"CHT", "CHS", "DE", "EN", "FR", "JA", "KO", "PO", "RU", "SP"};
    for (quint8 index = 1; index <= 10; ++index)
        EXPECT_EQ(languageFileName(index),
                  QStringLiteral("Lang_%1.txt").arg(QLatin1String(codes[index - 1])));
    for (const int index : {0, 11, 255})
        EXPECT_EQ(languageFileName(static_cast<quint8>(index)), QStringLiteral("Lang_ENxt"));

    writeProject("[Trend Form]\r\n");
    writeLanguageFile(4, SourceDialog);
    expectNoLanguage();
    start();
}

TEST_F(StartupLanguage, MenuChoiceFollowsTheFile) {
    writeLanguageFile(9, "[Language]\r\nLangID=9\r\n" + SourceDialog);
    EXPECT_TRUE(chooseLanguage(m_language, 9, m_folder.path(), m_person));
    EXPECT_EQ(m_language.LanguageIndex, 9);
    m_person.expectBox(QStringLiteral("Can't open the file !"), QStringLiteral("Error"));
    EXPECT_FALSE(chooseLanguage(m_language, 2, m_folder.path(), m_person));
    EXPECT_EQ(m_language.LanguageIndex, 9);
    EXPECT_EQ(m_language.table.form(FormSection::QSource).Caption, QStringLiteral("Source"));
}

TEST(BuiltInEnglish, KeepsTheCommonNamesOnePlaceLateByKey) {
    const LangTable table = LangTable::builtInEnglish();
    const TextGroup& label = table.form(FormSection::Trend).Label;
    EXPECT_EQ(table.commonItemNames[0], QStringLiteral("Frequency command F"));
    EXPECT_EQ(label.at(14), QString());
    EXPECT_EQ(label.at(15), QStringLiteral("Frequency command F"));
    EXPECT_EQ(label.at(19), QStringLiteral("Output Voltage E"));
    EXPECT_EQ(label.filled, 0);  // nothing of it goes to a control
}

}  // namespace
