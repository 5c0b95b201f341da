// The console's window over the practice drive: what a person finds and does there.
#include "console/advance_form.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "console/connection/input_time_out_form.h"
#include "shell/shell_bench.h"
#include "ui/editable_grid_view.h"

namespace kelvane {
namespace {

struct AdvanceForm : ShellBench, testing::Test {
    TAdvanceForm& form = windows->form<TAdvanceForm>();
    AdvanceConsole& console = tool->console;

    AdvanceForm() {
        windows->openWindow(OwnerAdvance);
        clock.advance(50);
    }
    ~AdvanceForm() override {
        form.close();
        clock.advance(3000);
        EXPECT_FALSE(form.isVisible()) << "the window closes whatever goes on";
    }
    template <class T>
    T* in(const char* name) {
        return find<T>(name, &form);
    }
    void click(const char* button) {
        QTest::mouseClick(in<QAbstractButton>(button), Qt::LeftButton);
        clock.advance(5);
    }
    bool on(const char* name) { return in<QWidget>(name)->isEnabled(); }
    QString log() { return in<QPlainTextEdit>("MsgRichEdit")->toPlainText(); }
    QString panel(int number) {
        return in<QLabel>(("StatusLinePanel" + std::to_string(number)).c_str())->text();
    }
};

TEST_F(AdvanceForm, OpensOffLineAndStaysSilent) {
    EXPECT_EQ(form.windowTitle(), "Advance - Com 20 , BaudRate 9600 , Protocol < ASCII , 7 , N , 2 >");
    EXPECT_EQ(form.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(panel(0) + panel(1) + panel(7), "Total  Records0default");
    for (const char* off : {"NewTransparentButton", "ErrorCheckBox", "STOPTransparentButton"})
        EXPECT_FALSE(on(off)) << off;
    EXPECT_FALSE(in<QAction>("Flasher")->isVisible());
    clock.advance(20000);
    EXPECT_EQ(log(), "");

    // On line the poll rests while the window is open, and comes back.
    form.close();
    goOnLine();
    int cycles = 0;
    const QObject counting;
    QObject::connect(&tool->link, &RequestScheduler::cycleEnded, &counting, [&cycles] { ++cycles; });
    windows->openWindow(OwnerAdvance);
    clock.advance(20000);
    EXPECT_EQ(cycles, 0);
    form.close();
    clock.advance(3000);
    EXPECT_GT(cycles, 3);
}

TEST_F(AdvanceForm, SendsFromFieldsAndText) {
    click("SendFixTransparentButton");
    clock.advance(500);
    EXPECT_TRUE(log().contains("] Send > :010321000001DA\\x0D\\x0A .......  Receive > :010302"));
    EXPECT_EQ(panel(1), "1");
    auto* address = in<QLineEdit>("AddressLabeledEdit");
    address->clear();
    QTest::keyClicks(address, "2g1.0f");
    EXPECT_EQ(address->text() + console.AddressLabeledEdit, "21.0F21.0F");
    in<QComboBox>("OptionComboBox")->setCurrentIndex(1);
    Q_EMIT in<QComboBox>("OptionComboBox")->activated(1);
    EXPECT_EQ(in<QLabel>("DataLabel")->text(), "&Data");

    auto* text = in<QLineEdit>("InputDataEdit");
    QTest::keyClicks(text, "ff0399990001");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(text->selectedText(), "FF0399990001");
    clock.advance(500);
    EXPECT_EQ(panel(3), "1") << "the drive refuses it";
    auto* sent = in<QComboBox>("InputDataComboBox");
    EXPECT_EQ(sent->currentText(), "FF0399990001");
    text->clear();
    Q_EMIT sent->textActivated(sent->currentText());
    EXPECT_EQ(text->text(), "FF0399990001");
    auto* messages = in<QPlainTextEdit>("MsgRichEdit");
    EXPECT_EQ(messages->blockCount(), 2);
    EXPECT_TRUE(in<QPlainTextEdit>("ExplainMemo")->toPlainText().contains("Refused: exception 2"));
    QTextCursor top = messages->textCursor();
    top.movePosition(QTextCursor::Right);
    EXPECT_EQ(top.charFormat().foreground().color(), QColor(0x80, 0, 0x80));
    in<QCheckBox>("ErrorsOnlyCheckBox")->setChecked(true);
    EXPECT_EQ(messages->blockCount(), 1);
    click("ClearTransparentButton");
    EXPECT_EQ(log() + panel(1), "0");
}

TEST_F(AdvanceForm, RunsAListThatWasTyped) {
    in<QTabWidget>("ConnectionPageControl")->setCurrentIndex(1);
    click("NewTransparentButton");
    auto* grid = in<EditableGridView>("CmdAdvStringGrid");
    grid->setCurrentCell(CommandList::CommandColumn, 1);
    for (const char* command : {"ff0321020001", "ff0620010bb8"}) {
        QTest::keyClicks(grid, QString(command).left(1));
        auto* edit = grid->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        QTest::keyClicks(edit, QString(command).mid(1));
        QTest::keyClick(edit, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(console.list.CmdAdvStringGrid.cell(1, 2), "FF0620010BB8");
    in<QLineEdit>("RepeatLabeledEdit")->clear();
    QTest::keyClicks(in<QLineEdit>("RepeatLabeledEdit"), "2");
    click("RUNTransparentButton");
    for (const char* off : {"RUNTransparentButton", "ProtocolTransparentButton", "DelTransparentButton",
                            "ErrorCheckBox", "RepeatLabeledEdit", "CheckRuleCheckBox",
                            "SendAnyTransparentButton", "InputDataEdit", "CmdAdvStringGrid"})
        EXPECT_FALSE(on(off)) << off;
    EXPECT_FALSE(in<QAction>("Monitor")->isEnabled());
    EXPECT_TRUE(on("STOPTransparentButton"));
    clock.advance(2000);
    EXPECT_TRUE(on("RUNTransparentButton") && on("CmdAdvStringGrid"));
    EXPECT_EQ(panel(1), "4");
    EXPECT_EQ(console.list.CmdAdvStringGrid.cell(CommandList::DataColumn, 2), "0BB8H");
    Q_EMIT grid->horizontalHeader()->sectionClicked(CommandList::DataColumn);
    EXPECT_EQ(console.list.CmdAdvStringGrid.cell(CommandList::DataColumn, 0), "Replied Data (Dec)");
}

TEST_F(AdvanceForm, DrivesTheMotorFromPageA) {
    Q_EMIT in<QComboBox>("SelDriveComboBox")->activated(2);
    EXPECT_EQ(in<QLineEdit>("DefCmdLabeledEdit")->text(), "FF0321000010");
    click("FigButton");
    EXPECT_EQ(in<QAbstractButton>("FigButton")->text(), "<<");
    Q_EMIT in<QComboBox>("Ch2ComboBox")->activated(0);
    click("RUNTransparentButton");
    EXPECT_FALSE(on("SelDriveComboBox") || on("Ch1ComboBox") || on("monitorIDLabeledEdit"));
    clock.advance(500);
    click("RUNButton");
    clock.advance(2000);
    EXPECT_TRUE(in<QAbstractButton>("RUNAbLED")->isChecked());
    QTest::keyClick(form.windowHandle(), Qt::Key_F12);
    clock.advance(30000);
    EXPECT_FALSE(in<QAbstractButton>("RUNAbLED")->isChecked());
    click("STOPTransparentButton");
    EXPECT_FALSE(in<QAbstractButton>("STOPAbLED")->isChecked());
}

TEST_F(AdvanceForm, ListensAndAsksForTimeOutAndComSetup) {
    click("TimeOutTransparentButton");
    auto& dialog = windows->form<TInputTimeOutForm>();
    ASSERT_TRUE(dialog.isVisible());
    auto* edit = dialog.findChild<QLineEdit*>("TimeOutEdit");
    EXPECT_EQ(edit->text(), "20");
    QTest::keyClicks(edit, "1500");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(in<QAbstractButton>("TimeOutTransparentButton")->text(), "1.500");
    click("ProtocolTransparentButton");
    ASSERT_TRUE(windows->comSetupForm.isVisible());
    EXPECT_TRUE(windows->comSetupForm.findChild<QWidget*>("OKBitBtn")->isEnabled());
    tool->comSetup.BaudComboBoxChange("19200");
    QTest::mouseClick(windows->comSetupForm.findChild<QAbstractButton*>("OKBitBtn"), Qt::LeftButton);
    EXPECT_TRUE(form.windowTitle().contains("BaudRate 19200"));
    EXPECT_EQ(tool->link.ActiveFunction, OwnerAdvance);

    in<QAction>("Monitor")->trigger();
    EXPECT_EQ(in<QTabWidget>("PageControl1")->currentIndex(), 1);
    click("RUNmonitorTransparentButton");
    EXPECT_FALSE(on("WordCntLabeledEdit") || on("MprotocolTransparentButton"));
    EXPECT_FALSE(in<QAction>("Connection")->isEnabled());
    click("STOPmonitorTransparentButton");
    QTest::keyClicks(in<QLineEdit>("WordCntLabeledEdit"), "1");
    EXPECT_TRUE(in<QAbstractButton>("LengthLimitRadioButton")->isChecked());
    in<QAction>("BreakLength2")->trigger();
    EXPECT_TRUE(console.listener.BreakAdvStringGrid.columnHidden(2));
}

TEST_F(AdvanceForm, ClosesInTheMiddleOfARun) {
    click("RUNTransparentButton");
    clock.advance(5);
    EXPECT_TRUE(console.running());
    form.close();
    EXPECT_FALSE(console.running());
    clock.advance(2000);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(tool->link.ActiveFunction, OwnerMain);
    EXPECT_TRUE(tool->link.TaskQueue.empty());
    EXPECT_TRUE(QFile::exists(folder.file("default.cml")));
}

}  // namespace
}  // namespace kelvane
