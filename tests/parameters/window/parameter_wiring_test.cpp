// The windows that the whole tool opens for the Parameter window, and what their answers lead to.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

#include "parameters/files/table_text_file.h"
#include "parameters/sample_table.h"
#include "shell/shell_bench.h"

namespace kelvane {
namespace {

struct ParameterWiring : ShellBench, testing::Test {
    ParameterSession& session = tool->parameters;
    TParameterForm& form = windows->parameterForm;

    ParameterWiring() {
        goOnLine();
        windows->openWindow(OwnerParameter);
    }
    QAction* item(const char* name) { return find<QAction>(name, &form); }
    void readTable() {
        item("ReadfromDrive")->trigger();
        clock.advance(300);
        EXPECT_TRUE(windows->progressForm.isVisible());
        ASSERT_TRUE(clock.advanceUntil([this] { return session.reader.DriveTableComplete == 1; }, 600000));
    }
};

TEST_F(ParameterWiring, KeypadPasswordSetsTheMarkAndTheReadStartsOnce) {
    item("ReadfromKeypad")->trigger();
    ASSERT_TRUE(windows->passwordForm.isVisible());
    EXPECT_FALSE(item("ReadfromKeypad")->isChecked());
    auto* edit = find<QLineEdit>("PasswordEdit", &windows->passwordForm);
    edit->setText("mirto");
    person.expectBox("Read keypad function enable .", "Success");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_FALSE(windows->passwordForm.isVisible());
    EXPECT_TRUE(item("ReadfromKeypad")->isChecked());

    QSignalSpy started(&session.reader, &ParameterReader::started);
    Q_EMIT tool->link.keypadTableReady();
    EXPECT_EQ(started.count(), 1);
}

TEST_F(ParameterWiring, SourceOfAWriteIsAskedForAndGivesTheList) {
    readTable();
    ParameterTable table;
    test::fillSample(table);
    const QString path = dir.filePath("t.txt");
    writeWhole(path, writeTableText(table, false, TextFormat::Txt));
    ASSERT_TRUE(session.loader.load(path));
    item("WriteSelect")->trigger();
    ASSERT_TRUE(windows->selParaSourceForm.isVisible());
    press("OKTransparentButton", windows->selParaSourceForm);
    ASSERT_TRUE(windows->writeCheckForm.isVisible());
    EXPECT_EQ(session.writer.AdvStringGrid1.RowCount(), 2) << "the one checked row of the file in front";
    windows->writeCheckForm.close();
}

TEST(ShellBoxes, EscapeLeavesTheQuestionWhereNothingMayBeLost) {
    const LangTable lang;
    ShellOperator person{lang};
    const auto answerTo = [&](BoxButtons buttons, Qt::Key key) {
        QMetaObject::invokeMethod(
            qApp,
            [key] {
                QWidget* box = QApplication::activeModalWidget();
                ASSERT_NE(box, nullptr);
                QTest::keyClick(box, key);
            },
            Qt::QueuedConnection);
        return person.box("text", "title", BoxIcon::Question, buttons);
    };
    EXPECT_EQ(answerTo(BoxButtons::YesNo, Qt::Key_Escape), BoxAnswer::No);
    EXPECT_EQ(answerTo(BoxButtons::YesNoOrLeave, Qt::Key_Escape), BoxAnswer::Cancel);
    EXPECT_EQ(answerTo(BoxButtons::YesNoOrLeave, Qt::Key_N), BoxAnswer::No);
}

// By the name that the file will have, and a file that was just saved is in sight when one is opened.
TEST(ShellBoxes, AsksAboutTheFinalNameAndOpensWithTheLastKind) {
    const LangTable lang = LangTable::builtInEnglish();
    ShellOperator person{lang};
    QTemporaryDir folder;
    person.lastFolder = folder.path();
    writeWhole(folder.filePath("mine.xls"), "old");
    QString name = "mine";
    QStringList seen;
    QTimer hand;
    hand.callOnTimeout([&] {
        QWidget* asking = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(asking)) {
            seen << files->selectedNameFilter();
            files->findChild<QLineEdit*>("fileNameEdit")->setText(name);
            static_cast<QDialog*>(files)->accept();
        } else if (auto* box = qobject_cast<QMessageBox*>(asking)) {
            seen << box->windowTitle();
            box->button(QMessageBox::Yes)->click();
        }
    });
    hand.start(0);
    EXPECT_EQ(person.saveFile(saveFilter(TableFileKind::Spreadsheet), ".xls"), folder.filePath("mine.xls"));
    name = "mine.xls";
    EXPECT_EQ(person.openFile(openTableFilter()), folder.filePath("mine.xls"));
    EXPECT_EQ(seen, (QStringList{"Microsoft Excel Fiels(*.xls)", "Cofirm", "Microsoft Excel Files(*.xls)"}));
}

TEST_F(ParameterWiring, ComSetupAfterAnAbortedWriteGivesTheLineBackToTheWindow) {
    readTable();
    const int row = rowOfNumber(session.DriveAdvStringGrid, "01-00");
    session.DriveAdvStringGrid.setCheckBox(row, true);
    port().unplug();
    item("WriteSelect")->trigger();
    person.expectBox("Do you want to write the parameter(s) to drive ?", "Cofirm", BoxAnswer::Yes);
    person.expectLinkFailure("Communication Timeout", true, LinkAnswer::Abort);
    press("OKTransparentButton", windows->writeCheckForm);
    clock.advanceUntil([this] { return windows->writeCheckErrRecordForm.isVisible(); }, 600000);
    ASSERT_TRUE(windows->writeCheckErrRecordForm.isVisible());
    windows->writeCheckErrRecordForm.close();

    // The read-back runs all the same; nobody is locked in behind it.
    ASSERT_TRUE(session.progress.shown);
    person.expectLinkFailure("Communication Timeout", false, LinkAnswer::Abort);
    person.expectBox("On-Line Fail !!", "Error");
    clock.advanceUntil([this] { return person.allAsked(); }, 600000);
    EXPECT_FALSE(session.progress.shown);
    EXPECT_EQ(tool->link.ActiveFunction, OwnerParameter);
    windows->writeCheckForm.close();
    EXPECT_TRUE(tool->link.idle());

    port().plugIn();
    person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    item("ReadfromDrive")->trigger();
    ASSERT_TRUE(windows->comSetupForm.isVisible());
    tool->comSetup.TestButtonClick();
    clock.advance(400);
    person.expectBox("Do you want to On - Line now ?", "Cofirm", BoxAnswer::Yes);
    tool->comSetup.OKBitBtnClick();
    ASSERT_TRUE(clock.advanceUntil([this] { return session.progress.shown; }, 20000));
    EXPECT_EQ(tool->link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(clock.advanceUntil([this] { return session.reader.DriveTableComplete == 1; }, 600000));
}

}  // namespace
}  // namespace kelvane
