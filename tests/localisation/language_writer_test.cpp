#include "localisation/language_writer.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>
#include <map>

using namespace kelvane;

namespace {

// Windows that show each control's own name.
class NamedTexts : public LiveTexts {
   public:
    QString caption(const FormSectionRow& form) const override {
        return shown(QString::fromLatin1(form.window));
    }
    QString text(const FormSectionRow&, const KeyTarget& target) const override {
        return shownText(target, shown(QString::fromLatin1(target.control)));
    }
    QString hint(const FormSectionRow&, const KeyTarget& target) const override {
        return QStringLiteral("hint ") + QString::fromLatin1(target.control);
    }

    std::map<QString, QString> edited;

   private:
    QString shown(const QString& name) const {
        const auto found = edited.find(name);
        return found == edited.end() ? name : found->second;
    }
};

LangTable oneLineTable() {
    LangTable table = LangTable::builtInEnglish();
    for (QString& message : table.Message) message.replace(u'\n', u' ');
    return table;
}

TEST(LanguageWriter, SectionsStandOnTheLinesTold) {
    const QString text = writeLanguage(oneLineTable(), NamedTexts());
    EXPECT_EQ(text.count(u'\n'), text.count(QStringLiteral("\r\n")));
    const QStringList lines = languageLines(text);
    const std::pair<const char*, int> headers[] = {
        {"[Main Form]", 1},        {"[ComSetup Form]", 33},    {"[QSource Form]", 52},
        {"[QuickSetup Form]", 62}, {"[Parameter Form]", 89},   {"[Trend Form]", 116},
        {"[Mtype]", 170},          {"[Stype]", 181},           {"[VLtype]", 258},
        {"[Monitor Form]", 269},   {"[AutoTuning Form]", 286}, {"[PID Form]", 319},
        {"[Message]", 350}};
    for (const auto& [header, line] : headers) EXPECT_EQ(lines.indexOf(QLatin1String(header)) + 1, line);
    EXPECT_EQ(lines.size(), 350 + 37);
    EXPECT_EQ(lines.last(),
              QStringLiteral("MsgStr37=Motor will run after press OK !! Are you ready to AutoTuning ?"));
    EXPECT_EQ(lines[178], QStringLiteral("Label09=PID Target Value"));
}

TEST(LanguageWriter, WritesWhatIsShown) {
    NamedTexts live;
    live.edited = {{QStringLiteral("OpenTransparentButton"), QStringLiteral("Ouvrir")},
                   {QStringLiteral("Case4Memo"), QStringLiteral("first\n\nsecond")}};
    Language loaded;
    ASSERT_TRUE(readLanguage(writeLanguage(oneLineTable(), live), loaded).ok());
    const LangTable& table = loaded.table;
    EXPECT_EQ(table.form(FormSection::Main).Button.at(2), QStringLiteral("Ouvrir"));
    EXPECT_EQ(table.form(FormSection::Main).Hint.at(2), QStringLiteral("hint OpenTransparentButton"));
    EXPECT_EQ(table.form(FormSection::PID).Label.at(15), QStringLiteral("first second"));
    EXPECT_EQ(table.form(FormSection::AutoTuning).Label.filled, 17);
    // The blanks around three labels are the windows' and do not grow with each saving.
    EXPECT_EQ(table.form(FormSection::Trend).Label.at(5), QStringLiteral("ChSelGroupBox"));
    EXPECT_EQ(table.form(FormSection::Trend).Label.at(8), QStringLiteral("StatusGroupBox"));
}

TEST(LanguageWriter, KeepsOmittingTheMenusWhichTheReaderThenFillsFromComSetup) {
    Language loaded{.table = {}, .LanguageIndex = 9};
    ASSERT_TRUE(readLanguage(writeLanguage(oneLineTable(), NamedTexts()), loaded).ok());
    EXPECT_EQ(loaded.LanguageIndex, 9);  // nor is the language's number written
    const char* shown[] = {"", "[ComSetup Form]", "TComSetupForm", "", "TestButton", "OKBitBtn",
                           "", "hint TestButton", "hint OKBitBtn"};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(loaded.table.form(FormSection::Main).Label.at(7 + i), QLatin1String(shown[i]));
}

TEST(LanguageWriter, KeepsLineEndsOfMessagesWhichShiftThoseBehind) {
    Language loaded;
    ASSERT_TRUE(readLanguage(writeLanguage(LangTable::builtInEnglish(), NamedTexts()), loaded).ok());
    EXPECT_EQ(loaded.table.MsgStr(Message::LeaveLineForComSetup),
              QStringLiteral("The status is On-Line now !"));
    EXPECT_EQ(loaded.table.MsgStr(Message::OffLineNow),
              QStringLiteral("Do you want to change status to Off-Line then set COM setting ?"));
    EXPECT_EQ(loaded.table.MsgStr(Message::ChecksumError),
              QStringLiteral("The status is Off-Line now ! Please On-Line first."));
}

TEST(LanguageWriter, SavesInThePageOfTheNameOrOfTheLanguage) {
    const QTemporaryDir folder;
    NamedTexts live;
    live.edited = {{QStringLiteral("TMainForm"), QStringLiteral("Связь 設")}};
    const Language russian{.table = oneLineTable(), .LanguageIndex = 9};
    const QString path = folder.filePath(QStringLiteral("mine.prj"));
    ASSERT_TRUE(saveLanguage(path, russian, live).ok);
    EXPECT_TRUE(
        readWhole(path).bytes.startsWith("[Main Form]\r\nCaption=\xD1\xE2\xFF\xE7\xFC ?\r\n\r\nButton01="));
    EXPECT_FALSE(saveLanguage(folder.filePath(QStringLiteral("none/Lang_RU.txt")), russian, live).ok);
}

}  // namespace
