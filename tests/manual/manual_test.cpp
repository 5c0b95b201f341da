// The manual against the program: every window, every message and every box has its place in it; its links
// lead somewhere; the PDF can be searched; F1 opens the chapter.
#include <gtest/gtest.h>

#include <QDirIterator>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include "diagnostics/trend/scope_form.h"
#include "manual/help_form.h"
#include "manual/manual_pages.h"
#include "shell/help_windows.h"
#include "shell/session_report.h"
#include "shell/session_report_form.h"
#include "tests/shell/shell_bench.h"

namespace kelvane {
namespace {

class EveryManual : public testing::TestWithParam<QString> {
   protected:
    const ManualText manual = ManualText::of(GetParam());
    QString all() const {
        QString text;
        for (const ManualChapter& chapter : manual.chapters()) text += chapter.text;
        return text.simplified();
    }
};

TEST_P(EveryManual, HasEveryWindowAndLinksThatLeadSomewhere) {
    ASSERT_EQ(manual.chapters().size(), ManualText::of(QStringLiteral("Eng")).chapters().size());
    QStringList windows;
    for (const ManualChapter& chapter : manual.chapters()) windows += chapter.windows;
    for (const WindowRow& row : windowTable())
        EXPECT_EQ(windows.count(QLatin1String(row.form)), row.make == makeHelp ? 0 : 1) << row.form;
    const QRegularExpression link(QStringLiteral(R"(\]\(([^)]+\.md)\))"));
    for (auto it = link.globalMatch(all()); it.hasNext();) {
        const QString name = it.next().captured(1);
        EXPECT_GE(manual.chapterNamed(name), 0) << name.toStdString();
    }
}

// By its English text, and by the one that its box shows in the manual's language.
TEST_P(EveryManual, HasEveryMessage) {
    const QString text = all();
    Language language;
    for (const auto index : std::array<quint8, 5>{1, 2, 3, 4, 9}) {
        if (ManualText::codeOf(index) != GetParam()) continue;
        const QString file = QStringLiteral(KELVANE_SOURCE_DIR "/Language file/") + languageFileName(index);
        ASSERT_TRUE(LoadLanguage(file, language).ok());
    }
    const ManualText english = ManualText::of(QStringLiteral("Eng"));
    const QRegularExpression row(QStringLiteral("\\| (\"[^\"]+\") \\|"));
    const QString messages = english.chapters().at(static_cast<size_t>(english.chapterOf("messages"))).text;
    for (const QRegularExpressionMatch& message : row.globalMatch(messages))
        EXPECT_TRUE(text.contains(message.captured(1))) << message.captured(1).toStdString();
    const LangTable builtIn = LangTable::builtInEnglish();
    for (int number = 1; number <= LangTable::MessageCount; ++number)
        for (const LangTable& table : {builtIn, language.table})
            EXPECT_TRUE(text.contains(table.messageOfKey(number).simplified()))
                << table.messageOfKey(number).toStdString();
}

// Boxes whose text stands in the code, beside the table of messages.
TEST(Manual, HasTheTextsOfTheBoxesInTheCode) {
    const ManualText manual = ManualText::of(QStringLiteral("Eng"));
    const QString text =
        manual.chapters().at(static_cast<size_t>(manual.chapterOf("messages"))).text.simplified();
    const QRegularExpression box(
        QStringLiteral(R"rx(\.(?:tell|yes|box)\(\s*QStringLiteral\("((?:[^"\\]|\\.)*)")rx"));
    int boxes = 0;
    for (QDirIterator files(QStringLiteral(KELVANE_SOURCE_DIR "/src"), {"*.cpp"}, QDir::Files,
                            QDirIterator::Subdirectories);
         files.hasNext();) {
        const QString code = QString::fromUtf8(readWhole(files.next()).bytes);
        for (auto it = box.globalMatch(code); it.hasNext(); ++boxes) {
            const QString said = it.next().captured(1).replace(QStringLiteral("\\n"), " ").simplified();
            EXPECT_TRUE(text.contains(said)) << said.toStdString();
        }
    }
    EXPECT_GT(boxes, 10);
}

TEST_P(EveryManual, MakesAPdfWithPagesAndLinksInside) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("manual.pdf"));
    ASSERT_TRUE(writeManualPdf(manual, {}, path).ok);
    const QByteArray pdf = readWhole(path).bytes;
    EXPECT_GE(pdf.count("/Type /Page\n"), static_cast<int>(manual.chapters().size()));
    EXPECT_GE(pdf.count("/S/GoTo/D["), static_cast<int>(manual.chapters().size()));
    EXPECT_FALSE(pdf.contains("/URI"));
    EXPECT_FALSE(writeManualPdf(manual, {}, folder.filePath(QStringLiteral("absent/manual.pdf"))).ok);
}

INSTANTIATE_TEST_SUITE_P(Languages, EveryManual, testing::ValuesIn(ManualText::languages()),
                         [](const auto& code) { return code.param.toStdString(); });

TEST(Help, OpensTheChapterOfTheWindowInFrontAndFindsWords) {
    ShellBench bench;
    auto& help = bench.windows->form<THelpForm>();
    auto* page = help.findChild<QTextBrowser*>(QStringLiteral("ManualBrowser"));
    const auto heading = [&] { return page->document()->firstBlock().text(); };
    bench.windows->openComSetup();
    QWidget& setup = bench.windows->comSetupForm;
    setup.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&setup));
    QTest::keyClick(&setup, Qt::Key_F1);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    EXPECT_TRUE(setup.isVisible());
    EXPECT_EQ(heading(), QStringLiteral("Connecting"));

    auto* words = help.findChild<QLineEdit*>(QStringLiteral("SearchEdit"));
    auto* list = help.findChild<QListWidget*>(QStringLiteral("ContentsListBox"));
    QTest::keyClicks(words, QStringLiteral("no SAFETY function"));
    ASSERT_EQ(list->count(), 1);
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(heading(), QStringLiteral("Safety first"));
    help.findChild<QAbstractButton*>(QStringLiteral("BackToolButton"))->click();
    EXPECT_EQ(heading(), QStringLiteral("Connecting"));
    words->clear();
    EXPECT_EQ(list->count(), static_cast<int>(ManualText::of("Eng").chapters().size()));

    QMessageBox box(QMessageBox::Warning, QStringLiteral("Warning"),
                    QStringLiteral("Communication Time-Out !!"), QMessageBox::Ok, &setup);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_F1);
    EXPECT_EQ(heading(), QStringLiteral("Messages"));
    EXPECT_EQ(page->textCursor().selectedText(), QStringLiteral("Communication Time-Out !!"));
}

// Over an open table: by Ctrl+R, as the menu of the main window cannot be reached then.
TEST(SessionReport, HoldsDriveLineNotesAndTheOpenTable) {
    ShellBench bench;
    bench.goOnLine(Family::Osier);
    EXPECT_TRUE(sessionReport(*bench.tool, {}, false).contains(QStringLiteral("Osier")));
    // The run is over and its window closed: its picture is in the report all the same.
    bench.windows->openWindow(OwnerTrend);
    QWidget& trend = bench.windows->form<TScopeForm>();
    bench.find<QAbstractButton>("StartVrPowerButton", &trend)->click();
    bench.clock.advanceUntil([&] { return bench.tool->trend.AbTrend1.TotalRecords() > 5; }, 20000);
    bench.find<QAbstractButton>("StartVrPowerButton", &trend)->click();
    trend.close();
    EXPECT_EQ(bench.tool->trend.AbTrend1.TotalRecords(), 0);
    bench.windows->openWindow(OwnerParameter);
    StringGrid& table = bench.tool->parameters.DriveAdvStringGrid;
    table.setCell(1, 1, QStringLiteral("01-00"));
    table.setCell(3, 1, QStringLiteral("Max <Freq>"));
    QWidget& parameters = bench.windows->parameterForm;
    parameters.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parameters));
    QTest::keyClick(&parameters, Qt::Key_R, Qt::ControlModifier);
    auto& form = bench.windows->form<TSessionReportForm>();
    ASSERT_TRUE(form.isVisible());
    form.findChild<QPlainTextEdit*>(QStringLiteral("NotesMemo"))
        ->setPlainText(QStringLiteral("belt & brake"));
    const QString html = sessionReport(*bench.tool, QStringLiteral("belt & brake"), true);
    for (const char* part : {"belt &amp; brake", "ASCII, 9600, 7, N, 2", "practice drive Osier",
                             "Table from Drive", "Max &lt;Freq&gt;", "src=\"trend\"", "None was seen"})
        EXPECT_TRUE(html.contains(QLatin1String(part))) << part;
    const QString path = bench.dir.filePath(QStringLiteral("report.pdf"));
    bench.person.expectSave(QStringLiteral("PDF Files(*.pdf)|*.pdf"), QStringLiteral("pdf"), path);
    form.findChild<QAbstractButton*>(QStringLiteral("SaveReportButton"))->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(readWhole(path).bytes.count("/Subtype /Image"), 1);
}

}  // namespace
}  // namespace kelvane
