#include "shell/main_form.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QThread>

#include "shell/shell_bench.h"
#include "shell/single_instance.h"
#include "ui/lamp.h"

namespace kelvane {
namespace {

class MainFormOfFamily : public testing::TestWithParam<Family> {};

TEST_P(MainFormOfFamily, GoesOnLineAndShowsWhoTheDriveIs) {
    ShellBench bench;
    bench.goOnLine(GetParam());
    EXPECT_EQ(bench.text("ComStatusAbLED"), "On Line");
    EXPECT_EQ(bench.text("DriveVrLabel"), familyName(GetParam()));
    EXPECT_FALSE(bench.text("VersionVrLabel").isEmpty());
    EXPECT_TRUE(bench.text("RatedVoltageVrLabel").endsWith('V'));
    EXPECT_FALSE(bench.find<QAction>("PracticeLarch")->isEnabled());
    EXPECT_TRUE(bench.text("PracticePanel").contains(familyName(GetParam())));
    const QString history = bench.find<QPlainTextEdit>("MessageMemo")->toPlainText();
    EXPECT_TRUE(history.endsWith(" > " + bench.text("DriveVrLabel") + ' ' + bench.text("VersionVrLabel") +
                                 " on line"))
        << history.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Nine, MainFormOfFamily, testing::ValuesIn(AllFamilies),
                         [](const auto& row) { return familyName(row.param); });

TEST(MainForm, TakesTheLinkOffLineByADoubleClickOnTheLamp) {
    ShellBench bench;
    bench.goOnLine();
    auto* lamp = bench.find<AbLED>("ComStatusAbLED");
    bench.person.expectBox(bench.language.table.MsgStr(Message::LeaveLineForComSetup), "Cofirm",
                           BoxAnswer::No);
    bench.trigger("ComSetup");
    EXPECT_FALSE(bench.windows->comSetupForm.isVisible());
    const QString question = "Do you want to change status to Off - Line now ?";
    bench.person.expectBox(question, "Cofirm", BoxAnswer::No);
    Q_EMIT lamp->doubleClicked();
    EXPECT_EQ(lamp->text(), "On Line");
    bench.person.expectBox(question, "Cofirm", BoxAnswer::Yes);
    Q_EMIT lamp->doubleClicked();
    EXPECT_EQ(lamp->text(), "Off Line");
    EXPECT_TRUE(bench.text("DriveVrLabel").isEmpty());
    EXPECT_EQ(bench.text("StatusLinePanel1"), "Off - Line");
    bench.clock.advance(5000);
    EXPECT_FALSE(bench.tool->linkPort.Open());
    Q_EMIT lamp->doubleClicked();  // off line it opens com setup
    EXPECT_TRUE(bench.windows->comSetupForm.isVisible());
}

TEST(MainForm, EndsWhileTheNoticeLiesOverAnotherWindow) {
    for (const bool closedByHand : {false, true}) {
        ShellBench bench;
        bench.windows->showModal(bench.windows->comSetupForm);
        bench.tool->link.Notice.TCEmessageFormShown = true;
        bench.tool->link.notifyChanged();
        TCEmessageForm& notice = bench.windows->ceMessageForm;
        ASSERT_TRUE(notice.isVisible());
        ASSERT_EQ(notice.parentWidget(), &bench.windows->comSetupForm);
        if (closedByHand) notice.close();
        int gone = 0;
        QObject::connect(&notice, &QObject::destroyed, [&gone] { ++gone; });
        // Com setup goes first, and alone.
        QObject::connect(&bench.windows->comSetupForm, &QObject::destroyed, [&gone] { EXPECT_EQ(gone, 0); });
        bench.windows.reset();
        EXPECT_EQ(gone, 1);
    }
}

TEST(MainForm, KeepsItsSetupOverARestart) {
    QByteArray written;
    {
        ShellBench bench;
        ComSetup& setup = bench.tool->comSetup;
        setup.ComPortComboBoxChange("3");
        setup.ModeComboBoxChange("RTU");
        setup.BaudComboBoxChange("19200");
        setup.ParityComboBoxChange("E");
        bench.mainForm->close();
        written = readWhole(bench.folder.file("default.prj")).bytes;
    }
    ShellBench bench(written);
    const ComSetup::Shown& boxes = bench.tool->comSetup.shown;
    EXPECT_EQ(boxes.ModeComboBox, "RTU");
    EXPECT_FALSE(boxes.dataBitsEnabled);
    EXPECT_EQ(bench.tool->link.BaudTimeoutTicks, 6U);
    EXPECT_EQ(bench.tool->linkPort.settings(), (PortSettings{3, 19200, 8, ComParity::Even, 2}));
}

TEST(MainForm, LeavesNoWindowBehindWhenItCloses) {
    ShellBench bench;
    bench.goOnLine();
    bench.practice.lineOf(Family::Larch).faults().setChance(drive::LineFault::Silent, 100);
    bench.clock.advanceUntil([&] { return bench.windows->ceMessageForm.isVisible(); }, 5000);
    ASSERT_TRUE(bench.windows->ceMessageForm.isVisible());
    bench.mainForm->close();
    for (QWidget* window : bench.windows->all())
        EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
    bench.clock.advance(5000);
    EXPECT_FALSE(bench.windows->ceMessageForm.isVisible());
    EXPECT_FALSE(bench.tool->linkPort.Open());
}

TEST(MainForm, ClosesWithNowhereToSaveTo) {
    ShellBench bench;
    ASSERT_TRUE(bench.dir.remove());
    EXPECT_TRUE(bench.mainForm->close());
    EXPECT_FALSE(bench.tool->SaveProject().ok);
}

// The box of the failure is answered before Initial runs, and Initial is not the last word.
TEST(MainForm, GivesTheLinkBackToTheParameterWindowAfterAFailedIdentification) {
    ShellBench bench;
    RequestScheduler& link = bench.tool->link;
    bench.windows->openWindow(OwnerParameter);
    bench.practice.lineOf(Family::Larch).faults().setChance(drive::LineFault::Exception, 100);
    quint8 ownerThen = 0;
    bench.windows->openComSetup([&] { ownerThen = link.ActiveFunction; });
    bench.tool->comSetup.TestButtonClick();
    bench.clock.advance(400);
    bench.person.expectBox("Do you want to On - Line now ?", "Cofirm", BoxAnswer::Yes);
    bench.tool->comSetup.OKBitBtnClick();
    bench.person.expectBox("Initial drive failed !!", "Error", BoxAnswer::Ok, [&] {
        EXPECT_FALSE(bench.windows->initialForm.isVisible()) << "nobody is locked in";
    });
    bench.clock.advanceUntil([&] { return bench.person.allAsked(); }, 20000);
    EXPECT_EQ(ownerThen, OwnerParameter);
    EXPECT_EQ(link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(link.TaskQueue.empty());
    EXPECT_FALSE(link.TxTimer.Enabled());
}

TEST(MainForm, SavesAndOpensANamedProject) {
    ShellBench bench;
    const QString path = bench.dir.filePath("site.prj");
    bench.person.expectSave("Project File(*.prj)|*.prj", "prj", path);
    bench.trigger("FileSaveItem");
    bench.tool->comSetup.BaudComboBoxChange("1200");
    bench.person.expectOpen("Project File(*.prj)|*.prj", path);
    bench.trigger("FileOpenItem");
    EXPECT_EQ(bench.tool->comSetup.shown.BaudComboBox, "9600");
    EXPECT_EQ(bench.text("StatusLinePanel0"), "Open " + path);
    const QString damaged = bench.dir.filePath("damaged.prj");
    writeWhole(damaged, readWhole(path).bytes.replace("Stopbits     = 2", "Stopbits     = two"));
    bench.person.expectOpen("Project File(*.prj)|*.prj", damaged);
    bench.person.expectBox(damaged + ": Line 10 cannot be read: \"two\"", "Error");
    bench.trigger("FileOpenItem");
    EXPECT_EQ(bench.text("StatusLinePanel0"), "Open " + path);
}

// Mode and reply wait of a running link are not a project's to change; they follow when it is at rest.
TEST(MainForm, HoldsTheSettingsOfAProjectBackWhileOnLine) {
    ShellBench bench;
    ComSetup& setup = bench.tool->comSetup;
    setup.ModeComboBoxChange("RTU");
    setup.BaudComboBoxChange("115200");
    const QString path = bench.dir.filePath("fast.prj");
    bench.person.expectSave("Project File(*.prj)|*.prj", "prj", path);
    bench.trigger("FileSaveItem");
    setup.ModeComboBoxChange("ASCII");
    setup.BaudComboBoxChange("9600");
    setup.DataBitsComboBoxChange("7");
    bench.goOnLine();
    bench.person.expectOpen("Project File(*.prj)|*.prj", path);
    bench.trigger("FileOpenItem");
    RequestScheduler& link = bench.tool->link;
    EXPECT_EQ(link.ComMode, 0);
    bench.clock.advance(5000);
    EXPECT_TRUE(link.Lamp.onLine());
    bench.tool->SaveProject();  // the project's, as the boxes would have them
    EXPECT_TRUE(readWhole(bench.folder.file("default.prj")).bytes.contains("Modbus Mode =RTU"));
    link.Initial();
    EXPECT_EQ(setup.shown.BaudComboBox, "115200");
    EXPECT_EQ(link.ComMode, 1);
}

// A file made by hand may say anything; the line has bytes of eight bits all the same.
TEST(MainForm, TakesEightDataBitsForRtuFromAnyProjectAndSaysWhyAPortDoesNotOpen) {
    DefaultProject made;
    made.ComSetup.ComPortComboBox = "1";  // of no use on this bench
    made.ComSetup.ModeComboBox = "RTU";
    made.ComSetup.DataBitsComboBox = "7";
    ShellBench bench(defaultProjectBytes(made));
    EXPECT_EQ(bench.tool->linkPort.settings().DataBits, 8);
    EXPECT_EQ(bench.tool->comSetup.shown.DataBitsComboBox, "8");
    EXPECT_FALSE(bench.tool->linkPort.open());
    ASSERT_FALSE(bench.tool->linkPort.openError().isEmpty());
    EXPECT_TRUE(
        bench.find<QPlainTextEdit>("MessageMemo")->toPlainText().contains(bench.tool->linkPort.openError()));
}

TEST(MainForm, StartsWithTheInstalledProjectUntilItHasOneOfItsOwn) {
    DefaultProject installed;
    installed.ComSetup.ComPortComboBox = "20";
    ShellBench bench(defaultProjectBytes(installed), "../share/kelvane/default.prj");
    EXPECT_EQ(bench.tool->comSetup.shown.ComPortComboBox, "20");
    ShellBench workshop("19=practice:Tilia\n", "../share/kelvane/serial_ports.txt");
    EXPECT_EQ(workshop.tool->ports.target(19).family, Family::Tilia) << "and with the workshop's ports";
}

TEST(MainForm, SetsTheMarkOfTheLanguageMenuBackWhenTheFileIsMissing) {
    ShellBench bench;
    bench.person.expectBox("Can't open the file !", "Error");
    bench.trigger("Russian");
    EXPECT_TRUE(bench.find<QAction>("English")->isChecked());
    EXPECT_FALSE(bench.find<QAction>("Russian")->isChecked());
}

TEST(MainForm, RestsWhileTheParameterWindowIsOpenAndGoesOnWithoutIdentification) {
    ShellBench bench;
    bench.goOnLine(Family::Willow);
    bench.trigger("ParameterManagement");
    ASSERT_TRUE(bench.windows->parameterForm.isVisible());
    const qsizetype before = bench.port().transcript().size();
    bench.clock.advance(5000);
    EXPECT_EQ(bench.port().transcript().size(), before);
    bench.windows->parameterForm.close();
    EXPECT_EQ(bench.tool->link.ActiveFunction, OwnerMain);
    bench.clock.advance(1000);
    const QStringList after = bench.port().transcript().mid(before);
    EXPECT_TRUE(after.contains("FF032100000B"));
    EXPECT_FALSE(after.contains("FF0321100003"));
    // A keypad that was read as the drive is no drive to go on with.
    bench.trigger("ParameterManagement");
    bench.tool->link.DriveStatus.DriveFamily = static_cast<quint8>(Family::Keypad);
    bench.windows->parameterForm.close();
    EXPECT_EQ(bench.text("ComStatusAbLED"), "Off Line");
    EXPECT_EQ(bench.tool->link.DriveStatus.DriveReady, 0);
}

TEST(ShellOperator, GivesASuffixToANameThatHasNone) {
    EXPECT_EQ(withSuffix("/home/anna/mine", "prj"), "/home/anna/mine.prj");
    EXPECT_EQ(withSuffix("/home/anna.b/mine", "prj"), "/home/anna.b/mine.prj");
    EXPECT_EQ(withSuffix("mine.prj", "prj"), "mine.prj");
}

struct Instances : testing::Test {
    QTemporaryDir dir;
    const QString path = dir.filePath("socket");
};

TEST_F(Instances, TheSecondBringsTheFirstForward) {
    // The answer comes from the event loop of the first, which is another process; here, another thread.
    QThread thread;
    auto* running = new SingleInstance(path);
    ASSERT_EQ(running->start(), SingleInstance::Start::First);
    QSignalSpy raised(running, &SingleInstance::raiseWanted);
    running->moveToThread(&thread);
    QObject::connect(&thread, &QThread::finished, running, &QObject::deleteLater);
    thread.start();
    SingleInstance second(path);
    EXPECT_EQ(second.start(), SingleInstance::Start::Second);
    EXPECT_TRUE(second.problem().isEmpty());
    thread.quit();
    thread.wait();
    EXPECT_EQ(raised.count(), 1);
}

TEST_F(Instances, ANeighboursSocketOrLockDoesNotEndTheProgramInSilence) {
    QLocalServer foreign;
    ASSERT_TRUE(foreign.listen(path));
    QLockFile lock(path + ".lock");
    ASSERT_TRUE(lock.tryLock());
    SingleInstance instance(path);
    EXPECT_EQ(instance.start(), SingleInstance::Start::Unclear);
    EXPECT_TRUE(instance.problem().contains(path + ".lock")) << instance.problem().toStdString();
    SingleInstance nowhere(dir.filePath("absent/socket"));
    EXPECT_EQ(nowhere.start(), SingleInstance::Start::Unclear);
    EXPECT_TRUE(nowhere.problem().contains(dir.filePath("absent/socket")));
    SingleInstance deaf(dir.filePath(QString(150, 'x')));  // longer than the name of a socket may be
    EXPECT_EQ(deaf.start(), SingleInstance::Start::Unclear);
    EXPECT_FALSE(deaf.problem().isEmpty());
}

// Every row that is built is found under its name, in the order of the table; every entry has its item, and
// what is not built cannot be asked for.
TEST(Windows, FollowTheirTable) {
    ShellBench bench;
    QStringList built;
    for (const WindowRow& row : windowTable()) {
        if (row.built() || row.rule.ActiveFunction == OwnerMain) built << row.form;
        if (!row.entry.menuItem) continue;
        auto* item = bench.find<QAction>(row.entry.menuItem);
        EXPECT_EQ(item->isEnabled(), row.built() && !row.entry.offered) << row.form;
        EXPECT_FALSE(item->icon().isNull()) << row.form;
        if (row.entry.button) {
            EXPECT_EQ(bench.text(row.entry.button), row.entry.caption);
        }
    }
    QStringList found;
    for (const QWidget* window : bench.windows->all()) found << window->objectName();
    EXPECT_EQ(found, built);
}

TEST(Windows, GiveTheLinkBackToTheOwnerThatAskedForComSetup) {
    for (const WindowRow& row : windowTable()) {
        if (!row.rule.ownsLink()) continue;
        ShellBench bench;
        RequestScheduler& link = bench.tool->link;
        link.TxTimer.setEnabled(true);
        link.push(8, "FF0620050006");
        bench.tool->rules.giveBack(row.rule);
        EXPECT_EQ(link.ActiveFunction, row.rule.ActiveFunction);
        EXPECT_EQ(link.TxTimer.Enabled(), !row.rule.takesLine()) << row.form;
        EXPECT_EQ(link.TaskQueue.empty(), row.rule.takesLine()) << row.form;
    }
}

TEST(Windows, KeepTheRulesOfTheirOpenings) {
    const char* const offLine = "The status is Off-Line now ! Please On-Line first.";
    const struct {
        quint8 owner;
        bool onLine;
        const char* message = nullptr;  // where it does not open
        const char* title = "Cofirm";
    } rows[] = {{OwnerParameter, false},
                {OwnerParameter, true},
                {OwnerQuickSetup, false, "Please On - Line first !!", "Warning Message"},
                {OwnerQuickSetup, true},
                {OwnerAdvance, false},
                {OwnerAutoTuning, false, offLine},
                {OwnerPid, false, offLine},
                {OwnerPid, true},
                {OwnerTrend, false},
                {OwnerMonitor, true},
                {OwnerKeypad, false, offLine},
                {OwnerKeypad, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << int(row.owner) << (row.onLine ? " on line" : " off line"));
        ShellBench bench;
        RequestScheduler& link = bench.tool->link;
        if (row.onLine) bench.goOnLine();
        if (row.message) bench.person.expectBox(row.message, row.title);
        link.push(8, "FF0620050006");
        const WindowRule* rule = &windowRow(row.owner)->rule;
        EXPECT_EQ(bench.tool->rules.begin(*rule), !row.message);
        EXPECT_EQ(link.TaskQueue.empty(), rule->prelude);
        EXPECT_EQ(link.ActiveFunction,
                  row.message || row.owner == OwnerKeypad ? quint8(OwnerMain) : row.owner);
        if (!row.message) bench.tool->rules.finished(*rule);
        EXPECT_EQ(link.ActiveFunction, OwnerMain);
        EXPECT_TRUE(!rule->prelude || link.TxTimer.Enabled() == row.onLine);
    }
}

}  // namespace
}  // namespace kelvane
