#include "localisation/language_file.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "base/whole_file.h"
#include "localisation/language_sections.h"

using namespace kelvane;

namespace {

// Lines "1=1", "2=2" and so on behind the header, so that each text says from which line it was taken.
QString numbered(const char* header, int count) {
    QString text = QString::fromLatin1(header) + u'\n';
    for (int i = 1; i <= count; ++i) text += QStringLiteral("%1=%1\n").arg(i);
    return text;
}

Language read(const QString& text, LanguageStatus expected = LanguageStatus::Ok) {
    Language language;
    const LanguageResult result = readLanguage(text, language);
    EXPECT_EQ(result.status, expected);
    EXPECT_EQ(result.error.isEmpty(), result.ok());
    return language;
}

TEST(LanguageFile, TextIsWhatStandsBehindTheFirstEqualSign) {
    const FormTexts form =
        read(QStringLiteral("[QSource Form]\r\nplain\r\n\r\nzzz=B=b\r\ny=C=D\r\nHint01=\r\n"
                            "=\r\n\r\nLabel02= two "))
            .table.form(FormSection::QSource);
    EXPECT_EQ(form.Caption, QStringLiteral("plain"));
    EXPECT_EQ(form.Button.at(1), QStringLiteral("B=b"));
    EXPECT_EQ(form.Hint.at(1), QString());
    EXPECT_EQ(form.Label.at(1), QString());
    EXPECT_EQ(form.Label.at(2), QStringLiteral(" two "));
}

TEST(LanguageFile, KeepsShiftingAGroupByAnExtraLine) {
    const FormTexts form =
        read(
            QStringLiteral("[ComSetup Form]\nCaption=c\n\nButton01=a\n\nButton02=b\n\nHint01=x\nHint02=y\n") +
            QStringLiteral("\n").repeated(10))
            .table.form(FormSection::ComSetup);
    EXPECT_EQ(form.Button.at(2), QString());
    EXPECT_EQ(form.Hint.at(1), QString());
    EXPECT_EQ(form.Hint.at(2), QStringLiteral("x"));
}

TEST(LanguageFile, SectionsComeInAnyOrderAndMissingOnesLeaveTheirTexts) {
    Language language = read(numbered("[Message]", 37) + QStringLiteral("[Language]\nLangID=9\n") +
                             numbered("[QSource Form]", 8));
    EXPECT_EQ(language.table.MsgStr(Message::MotorWillRun), QStringLiteral("37"));
    EXPECT_EQ(language.LanguageIndex, 9);
    ASSERT_TRUE(readLanguage(numbered("[PID Form]", 29), language).ok());
    EXPECT_EQ(language.LanguageIndex, 9);
    EXPECT_EQ(language.table.form(FormSection::QSource).Label.at(2), QStringLiteral("8"));
    EXPECT_EQ(language.table.form(FormSection::PID).Label.at(15), QStringLiteral("29"));
    EXPECT_FALSE(language.table.form(FormSection::Main).captionFilled);
}

TEST(LanguageFile, WhatWasReadBeforeTheDamageStaysInForce) {
    const Language cut =
        read(numbered("[QSource Form]", 8) + numbered("[Message]", 36), LanguageStatus::CutShort);
    EXPECT_EQ(cut.table.MsgStr(Message::ResetDrive), QStringLiteral("36"));
    EXPECT_EQ(cut.table.MsgStr(Message::MotorWillRun), QString());
    EXPECT_EQ(cut.table.form(FormSection::QSource).Label.filled, 2);

    const Language trend = read(numbered("[Trend Form]", 49), LanguageStatus::CutShort);
    EXPECT_EQ(trend.table.form(FormSection::Trend).Label.filled, 15);
    EXPECT_EQ(trend.table.commonItemNames[1], QStringLiteral("49"));
    EXPECT_EQ(trend.table.commonItemNames[2], QString());

    EXPECT_EQ(read(QStringLiteral("[Language]\nLangID=English"), LanguageStatus::WrongNumber).LanguageIndex,
              0);
    read(QStringLiteral("[Language]"), LanguageStatus::CutShort);
}

TEST(LanguageFile, CodePageFollowsTheNameAndElseTheIndex) {
    EXPECT_EQ(languageCodePage(QStringLiteral("/a/Lang_CHT.txt"), 9), "Big5");
    EXPECT_EQ(languageCodePage(QStringLiteral("lang_ru.TXT"), 4), "windows-1251");
    EXPECT_EQ(languageCodePage(QStringLiteral("mine.txt"), 2), "GBK");
    EXPECT_EQ(languageCodePage(QStringLiteral("mine.txt"), 6), "Shift_JIS");
    EXPECT_EQ(languageCodePage(QStringLiteral("mine.txt"), 200), "windows-1252");

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Lang_RU.txt"));
    ASSERT_TRUE(writeWhole(path, "[Language]\r\nLangID=9\r\n[QSource Form]\r\nCaption=\xC4\xE0" +
                                     QByteArray("\r\n").repeated(9))
                    .ok);
    Language language;
    ASSERT_TRUE(LoadLanguage(path, language).ok());
    EXPECT_EQ(language.table.form(FormSection::QSource).Caption, QStringLiteral("Да"));
}

// Bytes by the pages' published tables.
TEST(LanguageFile, EveryPageIsKnownAndMarksWhatItLacks) {
    const std::tuple<int, const char16_t*, const char*> samples[] = {
        {1, u"設定", "\xB3\x5D\xA9\x77"},      {2, u"设置", "\xC9\xE8\xD6\xC3"},
        {6, u"設定", "\x90\xDD\x92\xE8"},      {7, u"설정", "\xBC\xB3\xC1\xA4"},
        {9, u"Связь", "\xD1\xE2\xFF\xE7\xFC"},
    };
    for (const auto& [index, text, bytes] : samples) {
        const QByteArray page = languageCodePage({}, static_cast<quint8>(index));
        EXPECT_EQ(decodeLanguage(bytes, page), QString::fromUtf16(text)) << page.constData();
        EXPECT_EQ(encodeLanguage(QString::fromUtf16(text) + QStringLiteral("😀!"), page),
                  QByteArray(bytes) + "?!");
    }
    EXPECT_EQ(decodeLanguage("\xEF\xBB\xBF[Message]", "GBK"), QStringLiteral("[Message]"));
}

}  // namespace
