#include "shell/main_form.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QThread>

#include "localisation/language_sections.h"
#include "shell/shell_bench.h"
#include "shell/single_instance.h"
#include "ui/in_language.h"
#include "ui/lamp.h"

namespace kelvane {
namespace {

TEST(MainForm, StartsOffLineAndSendsNothing) {
    ShellBench bench;
    bench.clock.advance(5000);
    EXPECT_EQ(bench.mainForm->windowTitle(), "Orlan Kelvane");
    EXPECT_EQ(bench.text("ComStatusAbLED"), "Off Line");
    EXPECT_EQ(bench.text("StatusLinePanel1"), "Off - Line");
    EXPECT_FALSE(bench.tool->linkPort.Open());
    EXPECT_FALSE(bench.find<QAction>("PIDControl")->isEnabled());
    EXPECT_FALSE(bench.find<QAction>("MultiStep")->isVisible());
    EXPECT_FALSE(bench.find<QWidget>("LangTransparentButton")->isVisible());
    EXPECT_TRUE(bench.find<QAction>("English")->isChecked());
}

class MainFormOfFamily : public testing::TestWithParam<Family> {};

TEST_P(MainFormOfFamily, GoesOnLineAndShowsWhoTheDriveIs) {
    ShellBench bench;
    bench.goOnLine(GetParam());
    EXPECT_EQ(bench.text("ComStatusAbLED"), "On Line");
    EXPECT_EQ(bench.text("StatusLinePanel1"), "ASCII 9600 < 7, N, 2 >");
    EXPECT_EQ(bench.text("DriveVrLabel"), familyName(GetParam()));
    EXPECT_FALSE(bench.text("VersionVrLabel").isEmpty());
    EXPECT_TRUE(bench.text("RatedVoltageVrLabel").endsWith('V'));
    EXPECT_FALSE(bench.windows->initialForm.isVisible());
    EXPECT_FALSE(bench.find<QAction>("PracticeLarch")->isEnabled());
    EXPECT_TRUE(bench.text("PracticePanel").contains(familyName(GetParam())));
    const QString history = bench.find<QPlainTextEdit>("MessageMemo")->toPlainText();
    EXPECT_TRUE(history.contains(" > Setup the Com port and protocol"));
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
    const QString question = "Do you want to change status to Off - Line now ?";
    bench.person.expectBox(question, "Cofirm", BoxAnswer::No);
    Q_EMIT lamp->doubleClicked();
    EXPECT_EQ(lamp->text(), "On Line");
    bench.person.expectBox(question, "Cofirm", BoxAnswer::Yes);
    Q_EMIT lamp->doubleClicked();
    EXPECT_EQ(lamp->text(), "Off Line");
    EXPECT_TRUE(bench.text("DriveVrLabel").isEmpty());
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
    EXPECT_EQ(boxes.DataBitsComboBox, "8");
    EXPECT_FALSE(boxes.dataBitsEnabled);
    EXPECT_EQ(bench.tool->link.ComMode, 1);
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
    bench.person.expectBox("Initial drive failed !!", "Error");
    bench.clock.advanceUntil([&] { return bench.person.allAsked(); }, 20000);
    EXPECT_EQ(ownerThen, OwnerParameter);
    EXPECT_EQ(link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(link.TaskQueue.empty());
    EXPECT_FALSE(link.TxTimer.Enabled());
    EXPECT_FALSE(bench.windows->initialForm.isVisible());
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
    bench.person.expectOpen("Project File(*.prj)|*.prj", std::nullopt);
    bench.trigger("FileOpenItem");
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
    EXPECT_EQ(link.BaudTimeoutTicks, 7U);
    bench.clock.advance(5000);
    EXPECT_TRUE(link.Lamp.onLine());
    bench.tool->SaveProject();  // the project's, as the boxes would have them
    EXPECT_TRUE(readWhole(bench.folder.file("default.prj")).bytes.contains("Modbus Mode =RTU"));
    link.Initial();
    EXPECT_EQ(setup.shown.ModeComboBox, "RTU");
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

// What a file or a drive says is shown as it stands, mark-up and all.
TEST(MainForm, ShowsHintsWithMarkUpAsPlainText) {
    ShellBench bench;
    FormTexts& texts = bench.language.table.form(FormSection::Main);
    texts.Hint.Text[0] = "<h1>Com</h1>";
    texts.Hint.filled = 1;
    bench.windows->showLanguage();
    EXPECT_EQ(bench.find<QWidget>("ComSetupTransparentButton")->toolTip(), "<p>&lt;h1&gt;Com&lt;/h1&gt;");
}

// Texts without a key in the language file, and Qt's own, follow the language and come back.
TEST(Translations, TranslateWhatNoKeyNamesAndComeBackToEnglish) {
    Translations translations;
    QWidget window;
    QLabel stop("Stop bits", &window);
    QAction find("&Find...", &window);
    QLabel value("12.50", &window);
    const QString folder = QStringLiteral(KELVANE_SOURCE_DIR) + "/Language file";
    translations.choose(9, folder);
    translations.show({&window});
    EXPECT_EQ(stop.text(), QString::fromUtf8("Стоп-биты"));
    EXPECT_EQ(find.text(), QString::fromUtf8("&Найти..."));
    EXPECT_EQ(value.text(), "12.50");
    stop.setText("Parity");  // set by code meanwhile
    translations.choose(2, folder);
    translations.show({&window});
    EXPECT_EQ(stop.text(), QString::fromUtf8("校验"));
    EXPECT_EQ(find.text(), QString::fromUtf8("查找(&F)..."));
    translations.choose(4, folder);
    translations.show({&window});
    EXPECT_EQ(stop.text(), "Parity");
    EXPECT_EQ(find.text(), "&Find...");
}

// What engines say is English with values in it; a catalogue knows it by its words, and the values in turn.
TEST(Translations, FindTextsOfEnginesByTheirWords) {
    const QString folder = QStringLiteral(KELVANE_SOURCE_DIR) + "/Language file";
    Translations translations;
    translations.choose(3, folder);
    EXPECT_EQ(inLanguage("Reading stopped: 7 of 198 parameters read."),
              QString::fromUtf8("Lesen abgebrochen: 7 von 198 Parametern gelesen."));
    EXPECT_EQ(inLanguage("/mnt/x.txt: the disk is full"),
              QString::fromUtf8("/mnt/x.txt: der Datenträger ist voll"));
    EXPECT_EQ(inLanguage("1 difference. Rows that could not be compared: 2 of the drive, 0 of the file."),
              QString::fromUtf8("1 Unterschied. Nicht vergleichbare Zeilen: 2 des Umrichters, 0 der Datei."));
    EXPECT_EQ(inLanguage("7 of 198"), "7 von 198");
    for (const char* whole : {"Initial drive failed !!", "Please Check the Parameter(s) You want to Write",
                              "The red color font of parameter(s) means that can't be set in running."})
        EXPECT_EQ(inLanguage(whole), whole);
    translations.choose(4, folder);
    EXPECT_EQ(inLanguage("1 difference."), "1 difference.");
    EXPECT_EQ(inLanguage(""), "");

    // All catalogues have the same texts, with the same places for values.
    const auto places = [](QString text) {
        QStringList found;
        for (int i = 1; i <= 9; ++i)
            if (text.contains(QStringLiteral("%%1").arg(i))) found += QString::number(i);
        return found.join(' ');
    };
    QStringList first;
    for (const char* code : {"CHT", "CHS", "DE", "RU"}) {
        QStringList texts;
        const QByteArray bytes = readWhole(folder + "/Texts_" + code + ".txt").bytes;
        for (const QString& line : QString::fromUtf8(bytes).split('\n', Qt::SkipEmptyParts)) {
            if (line.startsWith('#')) continue;
            texts += line.section('=', 0, 0);
            EXPECT_EQ(places(texts.last()), places(line.section('=', 1))) << line.toStdString();
            EXPECT_FALSE(line.section('=', 1).isEmpty()) << line.toStdString();
        }
        texts.sort();
        EXPECT_EQ(texts.removeDuplicates(), 0) << code;
        if (first.isEmpty()) first = texts;
        EXPECT_EQ(texts, first) << code;
    }
    EXPECT_GT(first.size(), 150);
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

TEST(MainForm, ShowsALanguageByTheOneTable) {
    ShellBench bench;
    const QString folder = QStringLiteral(KELVANE_SOURCE_DIR) + "/Language file/";
    ASSERT_TRUE(LoadLanguage(folder + languageFileName(9), bench.language).ok());
    bench.windows->showLanguage();
    const FormTexts& texts = bench.language.table.form(FormSection::Main);
    EXPECT_EQ(bench.text("ComSetupTransparentButton"), texts.Button.at(1));
    EXPECT_EQ(bench.find<QAction>("ComSetup")->text(), texts.Button.at(1));
    EXPECT_EQ(bench.find<QMenu>("FilesMenu")->title(), texts.Label.at(7));
    EXPECT_EQ(bench.find<QMenu>("SetupLanguage")->title(), texts.Label.at(15));
    EXPECT_EQ(bench.text("HistMsgLabel"), texts.Label.at(6));
    EXPECT_EQ(bench.tool->trend.InfoAdvStringGrid.cell(0, 5),
              bench.language.table.form(FormSection::Trend).Label.at(18));
    for (const CopiedLabel& label : copiedLabels()) {
        if (label.window != QByteArray("TParameterForm")) continue;
        EXPECT_EQ(bench.find<QLabel>(label.copy, &bench.windows->parameterForm)->text(),
                  bench.text(label.control));
    }
}

// Every name that the language table uses in a window that exists, exactly once.
TEST(Windows, HaveEveryNameOfTheLanguageTableOnce) {
    ShellBench bench;
    for (const FormSectionRow& section : formSections()) {
        QWidget* window = nullptr;
        for (QWidget* candidate : bench.windows->all())
            if (candidate->objectName() == QLatin1String(section.window)) window = candidate;
        if (!window) continue;
        for (const KeyGroup* group : {&section.Button, &section.Label})
            for (const KeyTarget& target : group->targets)
                if (target.kind == TargetKind::Control) {
                    EXPECT_EQ(window->findChildren<QObject*>(QString::fromLatin1(target.control)).size(), 1)
                        << section.window << " " << target.control;
                }
    }
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
        if (!row.ownsLink()) continue;
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

// ---- Rules of the openings ----

struct RuleRow {
    quint8 owner;
    bool onLine;
    bool opens;
    const char* message;
    const char* title;
};
class OpeningRules : public testing::TestWithParam<RuleRow> {};

TEST_P(OpeningRules, AreKept) {
    const RuleRow& row = GetParam();
    ShellBench bench;
    RequestScheduler& link = bench.tool->link;
    if (row.onLine) bench.goOnLine();
    if (*row.message) bench.person.expectBox(row.message, row.title);
    link.push(8, "FF0620050006");
    const WindowRule* rule = &windowRow(row.owner)->rule;
    EXPECT_EQ(bench.tool->rules.begin(*rule), row.opens);
    EXPECT_EQ(link.TaskQueue.empty(), rule->prelude);
    EXPECT_EQ(link.ActiveFunction, row.opens && row.owner != OwnerKeypad ? row.owner : quint8(OwnerMain));
    if (row.opens) bench.tool->rules.finished(*rule);
    EXPECT_EQ(link.ActiveFunction, OwnerMain);
    if (rule->prelude) {
        EXPECT_EQ(link.TxTimer.Enabled(), row.onLine);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OpeningRules,
    testing::Values(
        RuleRow{OwnerParameter, false, true, "", ""}, RuleRow{OwnerParameter, true, true, "", ""},
        RuleRow{OwnerQuickSetup, false, false, "Please On - Line first !!", "Warning Message"},
        RuleRow{OwnerQuickSetup, true, true, "", ""}, RuleRow{OwnerAdvance, false, true, "", ""},
        RuleRow{OwnerAutoTuning, false, false, "The status is Off-Line now ! Please On-Line first.",
                "Cofirm"},
        RuleRow{OwnerPid, false, false, "The status is Off-Line now ! Please On-Line first.", "Cofirm"},
        RuleRow{OwnerPid, true, true, "", ""}, RuleRow{OwnerTrend, false, true, "", ""},
        RuleRow{OwnerMonitor, true, true, "", ""},
        RuleRow{OwnerKeypad, false, false, "The status is Off-Line now ! Please On-Line first.", "Cofirm"}));

}  // namespace
}  // namespace kelvane
