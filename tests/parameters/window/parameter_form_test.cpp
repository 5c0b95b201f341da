// The Parameter window by its object names, over a practice drive on a hand-driven clock.
#include "parameters/window/parameter_form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "base/manual_tick_clock.h"
#include "bench/scripted_operator.h"
#include "catalogue/identification.h"
#include "drive/practice_port.h"
#include "parameters/dialogs/folder_browser_form.h"
#include "parameters/files/table_text_file.h"
#include "parameters/sample_table.h"
#include "parameters/window/parameter_pages_form.h"
#include "ui/display_label.h"
#include "ui/find_bar.h"
#include "ui/lamp.h"
#include "ui/path_label.h"

namespace kelvane {
namespace {

// On line in the Parameter window with a practice drive, as the shell leaves it.
class ParameterWindow : public testing::Test {
   protected:
    ParameterWindow()
        : station(clock, drive::familyData(Family::Larch), line()),
          link({clock, wall, person, station.port, lang}) {
        link.Initial();
        link.emptyQueues();
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = 5;
        link.ComMode = 1;
        station.port.setSettings(line().wire);
        link.ActiveFunction = OwnerParameter;
        link.ParamRead.fixedParaName = fixedParaName;
        beOnLine(Family::Larch);
        session.choices.chooseTab = [this](const QString& title, const std::vector<ParameterTab>& tabs,
                                           int selected, const TableChoices::ThenTab& then) {
            asked << title;
            for (const ParameterTab tab : tabs) asked << form.tabCaption(tab);
            asked << QString::number(selected);
            then(chosen ? std::optional(tabs[size_t(*chosen)]) : std::nullopt);
        };
        session.choices.chooseFormat = [this](const TableChoices::ThenKind& then) { then(kind); };
        session.choices.chooseCompareKind = [this](const QStringList& items,
                                                   const TableChoices::ThenIndex& then) {
            asked << items;
            then(chosen);
        };
        session.opened();
        form.show();
        QApplication::processEvents();
    }
    static drive::LineOptions line() {
        drive::LineOptions options{.mode = drive::LineMode::Rtu};
        options.wire = {.Baud = 38400, .DataBits = 8};
        return options;
    }
    void beOnLine(Family family) {
        link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        link.Labels = {QString::fromLatin1(familyName(family)), "2.05", "150A", "460V", "75 ( 100 )"};
        DriveStatusRecord& status = link.DriveStatus;
        status.DriveReady = 1;
        status.DriveFamily = static_cast<quint8>(family);
        const int groups = station.drive.parameters().groupCount();
        status.GroupCount = static_cast<quint8>(groups);
        for (int G = 0; G <= groups; ++G) {
            status.GroupParamCount[size_t(G)] = station.drive.parameters().highestNumber(G).value_or(0);
            names.storeReportedName(status.DriveFamily, G, QStringLiteral("Group%1          ").arg(G));
        }
        link.notifyChanged();
    }
    void readTable() {
        trigger("ReadfromDrive");
        clock.advanceUntil([&] { return !session.progress.shown; }, 3600 * 1000);
        ASSERT_EQ(session.reader.DriveTableComplete, 1);
    }
    // The sample table as the table from file.
    void loadSample() {
        ParameterTable table;
        test::fillSample(table);
        const QString path = folder.filePath("t.txt");
        writeWhole(path, writeTableText(table, false, TextFormat::Txt));
        ASSERT_TRUE(session.loader.load(path));
    }
    template <typename T>
    T* named(const char* name) {
        T* found = form.findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void trigger(const char* name) { named<QAction>(name)->trigger(); }
    StringGridView* view(const char* name) { return named<StringGridView>(name); }
    QTreeWidgetItem* node(int root, int child) {
        return named<QTreeWidget>("ParaTreeView")->topLevelItem(root)->child(child);
    }
    void select(int root, int child) {
        named<QTreeWidget>("ParaTreeView")->setCurrentItem(node(root, child));
    }
    QString panel(int index) {
        return named<QLabel>(index ? "StatusLinePanel1" : "StatusLinePanel0")->text();
    }

    QTemporaryDir folder;
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    ScriptedOperator person;
    LangTable lang = LangTable::builtInEnglish();
    drive::PracticeStation station;
    RequestScheduler link;
    GroupNameTable names;
    ParameterSession session{
        link, clock, names, {person, lang}, {.programFolder = folder.path(), .wallClock = &wall}};
    LooksInMemory looks;
    TParameterForm form{session, looks};
    QStringList asked;
    std::optional<int> chosen = 0;
    std::optional<TableFileKind> kind = TableFileKind::Text;
};

TEST_F(ParameterWindow, OpensBareAndTellsThatNoTableIsOpen) {
    EXPECT_EQ(form.windowTitle(), "Parameter Management");
    const QTabWidget* pages = named<QTabWidget>("PageControl1");
    for (int i = 0; i < pages->count(); ++i) EXPECT_FALSE(pages->isTabVisible(i)) << i;
    EXPECT_EQ(named<TabSheet>("DriveTabSheet")->text(), "Table from Drive");
    EXPECT_FALSE(named<QAction>("ResetParameter")->isEnabled());
    EXPECT_EQ(named<QTreeWidget>("ParaTreeView")->topLevelItem(0)->text(0), "Drive");
    for (const char* name : {"Save", "Print", "CompareParameter", "WriteSelect", "WriteAll"}) {
        person.expectBox("There is no parameter table be opened !", "Cofirm");
        trigger(name);
    }
    EXPECT_TRUE(asked.isEmpty());
    for (const char* name : {"DriveAdvStringGrid", "SubFileAdvStringGrid"})
        for (int c = column::Address; c < TableColumns; ++c) EXPECT_TRUE(view(name)->isColumnHidden(c));
    EXPECT_TRUE(station.port.writes().isEmpty());
}

TEST_F(ParameterWindow, NoNameStandsTwice) {
    QSet<QString> seen;
    for (const QObject* object : form.findChildren<QObject*>()) {
        const QString name = object->objectName();
        const bool ofQt =
            name.startsWith("qt_") || name.startsWith('_') || qobject_cast<QTabBar*>(object->parent());
        if (name.isEmpty() || ofQt) continue;
        EXPECT_FALSE(seen.contains(name)) << name.toStdString();
        seen.insert(name);
    }
    EXPECT_TRUE(seen.contains("HideAttribute") && seen.contains("RparaAbLED") &&
                seen.contains("CompKindLabel"));
}

TEST_F(ParameterWindow, ReadsATableIntoTabAndTree) {
    readTable();
    EXPECT_TRUE(named<TabSheet>("DriveTabSheet")->tabVisible());
    EXPECT_TRUE(named<TabSheet>("DriveTabSheet")->highlighted());
    EXPECT_TRUE(view("DriveAdvStringGrid")->isVisible());
    EXPECT_EQ(named<VrLabel>("ModelVrLabel")->text(), "Larch");
    EXPECT_EQ(named<VrLabel>("RatedCurrentVrLabel")->text(), "150A");
    const QTreeWidgetItem* root = named<QTreeWidget>("ParaTreeView")->topLevelItem(0);
    EXPECT_EQ(root->text(0), "Drive [ Larch ]");
    EXPECT_TRUE(root->isExpanded());
    ASSERT_EQ(root->childCount(), station.drive.parameters().groupCount() + 1);
    EXPECT_EQ(root->child(0)->text(0), "All Parameters");
    EXPECT_EQ(root->child(2)->data(0, Qt::UserRole).toInt(), TreeChildImage);
    EXPECT_TRUE(named<QAction>("ResetParameter")->isEnabled());

    // Idle, the window sends nothing.
    station.port.clearTranscript();
    clock.advance(5000);
    EXPECT_TRUE(station.port.writes().isEmpty());
}

TEST_F(ParameterWindow, EditsInASubTableReachTheWholeTableAndCanBeUndone) {
    readTable();
    select(0, 2);
    StringGridView* sub = view("SubDriveAdvStringGrid");
    ASSERT_TRUE(sub->isVisible());
    EXPECT_FALSE(view("DriveAdvStringGrid")->isVisible());
    StringGrid& all = session.DriveAdvStringGrid;
    const int row = rowOfNumber(all, "01-00");
    const QString old = all.cell(column::Data, row);
    ASSERT_EQ(sub->grid()->cell(column::PrNo, 1), "01-00");
    person.expectEdit([](ValueEdit& edit) {
        EXPECT_EQ(edit.PrInforVrLabel.left(6), "01-00:");
        edit.Text = "55.00";
        edit.InputAccepted = true;
    });
    sub->setCurrentCell(column::Data, 1);
    QTest::keyClick(sub, Qt::Key_Return);
    EXPECT_EQ(all.cell(column::Data, row), "55.00");
    EXPECT_TRUE(all.checkBox(row) && all.edited(row));

    QTest::keyClick(sub, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(all.cell(column::Data, row), old);
    EXPECT_EQ(sub->grid()->cell(column::Data, 1), old);
    EXPECT_FALSE(all.checkBox(row) || sub->grid()->checkBox(1));
    QTest::keyClick(sub, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(sub->grid()->cell(column::Data, 1), "55.00");

    Q_EMIT sub->cellMenuRequested(column::Data, 1, QPoint(1, 1));
    EXPECT_TRUE(named<QAction>("ToDefault")->isEnabled());
    trigger("BackToReadValue");
    EXPECT_EQ(sub->grid()->cell(column::Data, 1), old);
    EXPECT_FALSE(all.edited(row));
    named<QMenu>("RowPopupMenu")->close();

    // The group in front follows the table whatever the tree has selected.
    QTest::keyClick(sub, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(sub->grid()->cell(column::Data, 1), "55.00");
    named<QTreeWidget>("ParaTreeView")->setCurrentItem(named<QTreeWidget>("ParaTreeView")->topLevelItem(0));
    QTest::keyClick(sub, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(all.cell(column::Data, row), old);
    EXPECT_EQ(sub->grid()->cell(column::Data, 1), old);
    EXPECT_FALSE(sub->grid()->checkBox(1));
    QTest::keyClick(sub, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(sub->isVisible()) << "inner pages are turned by the tree";
    select(0, 0);
    EXPECT_TRUE(view("DriveAdvStringGrid")->isVisible());
    view("DriveAdvStringGrid")->setFocus();
    QTest::keyClick(view("DriveAdvStringGrid"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(view("DriveAdvStringGrid")->isVisible());
}

TEST_F(ParameterWindow, SpaceOnManyRowsIsOneStep) {
    readTable();
    for (const char* name : {"DriveAdvStringGrid", "SubDriveAdvStringGrid"}) {
        StringGridView* table = view(name);
        select(0, QByteArray(name).startsWith("Sub") ? 2 : 0);
        table->setFocus();
        int writable = 1;
        while (!isWritable(*table->grid(), writable)) ++writable;
        table->setCurrentCell(column::Data, writable);
        table->selectionModel()->select(
            QItemSelection(table->grid()->index(0, 0),
                           table->grid()->index(table->grid()->RowCount() - 2, 3)),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QTest::keyClick(table, Qt::Key_Space);
        const auto checked = [](const StringGrid& grid) {
            int count = 0;
            for (int row = 1; row < grid.RowCount(); ++row) {
                count += grid.checkBox(row);
                EXPECT_FALSE(grid.checkBox(row) && !isWritable(grid, row)) << row;
            }
            return count;
        };
        const int set = checked(*table->grid());
        EXPECT_GT(set, 5) << name;
        EXPECT_EQ(checked(session.DriveAdvStringGrid), set) << name;
        QTest::keyClick(table, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(checked(session.DriveAdvStringGrid), 0) << name;
        EXPECT_EQ(checked(*table->grid()), 0) << name;
        EXPECT_FALSE(session.driveHistory.canUndo()) << name;
    }
    // What a keypad holds has no defaults to go back to.
    Q_EMIT view("DriveAdvStringGrid")->cellMenuRequested(column::Data, 4, QPoint(1, 1));
    EXPECT_TRUE(named<QAction>("ToDefault")->isEnabled());
    session.driveTable.identity.family = Family::Keypad;
    Q_EMIT view("DriveAdvStringGrid")->cellMenuRequested(column::Data, 4, QPoint(1, 1));
    EXPECT_FALSE(named<QAction>("ToDefault")->isEnabled());
    named<QMenu>("RowPopupMenu")->close();
}

TEST_F(ParameterWindow, SavesAsTextAndLoadsItAgain) {
    loadSample();
    EXPECT_EQ(named<QTreeWidget>("ParaTreeView")->topLevelItem(1)->text(0), "File [ Larch ]");
    EXPECT_EQ(named<PathLabel>("FileNameLabel")->path(), folder.filePath("t.txt"));
    EXPECT_EQ(named<VrLabel>("HPFVrLabel")->text(), "75 ( 100 )");
    const QString copy = folder.filePath("u.txt");
    person.expectSave("Text Fiels(*.txt)|*.txt", ".txt", copy);
    trigger("Save");
    EXPECT_EQ(asked, (QStringList{"Select Parameter Source to Save", "Table from File", "0"}));
    const QByteArray saved = readWhole(copy).bytes;
    EXPECT_TRUE(saved.startsWith("Larch|2.05|150A|460V|75 ( 100 )|2|2|1|0|\r\n")) << saved.toStdString();
    EXPECT_TRUE(saved.endsWith(
        "V        |01-00    |0100H    |Max. Output Freq|Hz       |50.00    |60.00    |50.00    "
        "|400.00   |Writable |0100     |2        |false    |\r\n"));
    person.expectOpen(openTableFilter(), copy);
    trigger("ReadfromFile");
    EXPECT_EQ(session.FileAdvStringGrid.cell(column::Data, 5), "50.00");
    EXPECT_EQ(form.recent.list(), (QStringList{copy, folder.filePath("t.txt")}));

    // What cannot be read or written leaves the table.
    writeWhole(folder.filePath("bad.txt"), "");
    person.expectBox("File format not support !", "Warning");
    EXPECT_FALSE(session.loader.load(folder.filePath("x.doc")));
    const QString missing = folder.filePath("no.txt");
    person.expectBox(readWhole(missing).error, "Error");
    EXPECT_FALSE(session.loader.load(missing));
    const QString nowhere = folder.filePath("no/u.txt");
    person.expectSave("Text Fiels(*.txt)|*.txt", ".txt", nowhere);
    person.expectBox(writeWhole(nowhere, "x").error, "Error");
    trigger("Save");
    EXPECT_EQ(session.FileAdvStringGrid.RowCount(), 6);
}

TEST_F(ParameterWindow, SavesSpreadsheetsBehindTheProgressRecord) {
    loadSample();
    kind = TableFileKind::Spreadsheet;
    const QString path = folder.filePath("t.xls");
    QStringList infos;
    QObject::connect(&session.progress, &ProgressDialog::shownChanged, [&](bool shown) {
        if (shown) infos << session.progress.InfoLabel;
    });
    person.expectSave("Microsoft Excel Fiels(*.xls)|*.xls", ".xls", path);
    trigger("Save");
    ASSERT_TRUE(session.loader.load(path));
    EXPECT_EQ(infos, (QStringList{"Saving parameters from Larch ...", "Reading parameters from Larch ..."}));
    EXPECT_FALSE(session.progress.shown);
    EXPECT_EQ(session.FileAdvStringGrid.cell(column::PrNo, 5), "01-00");
    EXPECT_TRUE(session.FileAdvStringGrid.checkBox(5));
}

TEST_F(ParameterWindow, ClosingATabSavesThatTableAndFailureKeepsIt) {
    readTable();
    loadSample();
    person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::Yes);
    chosen = 1;
    const QString nowhere = folder.filePath("no/u.txt");
    person.expectSave("Text Fiels(*.txt)|*.txt", ".txt", nowhere);
    person.expectBox(writeWhole(nowhere, "x").error, "Error");
    trigger("CloseTab");
    EXPECT_EQ(asked.last(), "1");
    EXPECT_TRUE(session.screen.FileAbLEDLit);
    EXPECT_TRUE(named<TabSheet>("FileTabSheet")->tabVisible());

    // Only No discards: not a choice that was left, nor the box that was.
    chosen.reset();
    person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::Yes);
    trigger("CloseTab");
    EXPECT_TRUE(named<TabSheet>("FileTabSheet")->tabVisible());
    asked.clear();
    person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::Cancel);
    trigger("CloseTab");
    EXPECT_TRUE(asked.isEmpty()) << "nor is anything saved";
    EXPECT_EQ(person.lastButtons, BoxButtons::YesNoOrLeave);
    EXPECT_TRUE(named<TabSheet>("FileTabSheet")->tabVisible());
    person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::No);
    trigger("CloseTab");
    EXPECT_FALSE(named<TabSheet>("FileTabSheet")->tabVisible());
    const QTreeWidgetItem* root = named<QTreeWidget>("ParaTreeView")->topLevelItem(1);
    EXPECT_EQ(root->text(0), "File");
    EXPECT_EQ(root->childCount(), 0);
    EXPECT_TRUE(named<TabSheet>("DriveTabSheet")->highlighted());
}

TEST_F(ParameterWindow, ComparesAndTellsWhatCouldNotBeCompared) {
    readTable();
    loadSample();
    chosen = 2;
    trigger("CompareParameter");
    EXPECT_EQ(asked, (QStringList{"Drive vs. default", "File vs. default", "Drive vs. File"}));
    EXPECT_TRUE(view("CompareAdvStringGrid")->isVisible());
    EXPECT_EQ(named<VrLabel>("CompKindLabel")->text(), "Drive vs. File");
    EXPECT_TRUE(panel(0).contains("could not be compared")) << panel(0).toStdString();

    std::vector<PrintRecord> records;
    QObject::connect(&form, &TParameterForm::reportWanted,
                     [&](const Report& report) { records = report.records; });
    asked.clear();
    trigger("Print");
    EXPECT_EQ(asked, (QStringList{"Select Parameter Source to Print", "Table from Drive", "Table from File",
                                  "Comparison Result", "0"}));
    EXPECT_EQ(int(records.size()), session.CompareAdvStringGrid.RowCount() - 1);
    EXPECT_EQ(records.front()[9], "Drive");
}

TEST_F(ParameterWindow, TreeMenuActsOnTheSideOfItsRoot) {
    loadSample();
    QTreeWidget* tree = named<QTreeWidget>("ParaTreeView");
    const auto menuAt = [&](QTreeWidgetItem* item) {
        named<QMenu>("TreeViewParaPopupMenu")->hide();
        Q_EMIT tree->customContextMenuRequested(tree->visualItemRect(item).center());
        return named<QMenu>("TreeViewParaPopupMenu")->isVisible();
    };
    EXPECT_TRUE(menuAt(tree->topLevelItem(0)));
    EXPECT_FALSE(named<QAction>("closeTable")->isEnabled());
    EXPECT_FALSE(menuAt(node(1, 1)));
    EXPECT_TRUE(menuAt(tree->topLevelItem(1)));
    EXPECT_TRUE(named<QAction>("closeTable")->isEnabled());
    named<QMenu>("TreeViewParaPopupMenu")->hide();
    person.expectOpen(openTableFilter(), std::nullopt);
    trigger("loadPara");
    person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::No);
    trigger("closeTable");
    EXPECT_FALSE(named<TabSheet>("FileTabSheet")->tabVisible());
}

TEST_F(ParameterWindow, StatusLineKeepsLinkAndNumInOnePanel) {
    EXPECT_EQ(panel(1), "Off - Line");
    QKeyEvent num(QEvent::KeyPress, Qt::Key_NumLock, Qt::NoModifier, 77, 0xff7f, 0);
    QApplication::sendEvent(&form, &num);
    EXPECT_EQ(panel(1), "NUM ");
    QKeyEvent off(QEvent::KeyPress, Qt::Key_NumLock, Qt::NoModifier, 77, 0xff7f, 0x10);
    QApplication::sendEvent(&form, &off);
    EXPECT_EQ(panel(1), "");
    link.Lamp.parameterPanel1 = "On - Line";
    link.notifyChanged();
    EXPECT_EQ(panel(1), "On - Line");
    const QString before = named<QLabel>("StatusLineDateTime")->text();
    wall.set(wall.now().addSecs(1));
    clock.advance(1000);
    EXPECT_NE(named<QLabel>("StatusLineDateTime")->text(), before);
    form.hide();
    EXPECT_FALSE(form.SystemTimer.Enabled());
}

TEST_F(ParameterWindow, FindLooksInTheGridInFront) {
    readTable();
    QTest::keyClick(view("DriveAdvStringGrid"), Qt::Key_F, Qt::ControlModifier);
    FindBar* bar = form.findChild<FindBar*>();
    ASSERT_TRUE(bar->isVisible());
    bar->setSearchText("01-0");
    EXPECT_EQ(bar->hitCount(), 10);
    select(0, 1);
    bar->setSearchText("00-00");
    EXPECT_EQ(bar->hitCount(), 1);
}

TEST_F(ParameterWindow, LoadsFilesThatAreDroppedOrDoubleClicked) {
    loadSample();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/x.doc"), QUrl::fromLocalFile(folder.filePath("t.txt"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&form, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    session.fileTable.TableFileName.clear();
    QApplication::sendEvent(&form, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(session.fileTable.TableFileName, "");
    QApplication::processEvents();
    EXPECT_EQ(session.fileTable.TableFileName, folder.filePath("t.txt"));

    QFile::copy(folder.filePath("t.txt"), folder.filePath("other.doc"));
    QFile::copy(folder.filePath("t.txt"), folder.filePath("A.CSV"));
    FolderBrowser* browser = form.findChild<FolderBrowser*>();
    browser->setFolder(folder.path());
    QAbstractItemModel* files = browser->LsFilelistView->model();
    // The folder is read and sorted by the window system in its own time.
    const auto shown = [&] {
        QStringList texts;
        const QModelIndex root = browser->LsFilelistView->rootIndex();
        for (int i = 0; i < files->rowCount(root); ++i) texts << files->index(i, 0, root).data().toString();
        return texts;
    };
    const QStringList expected{" Up one level", "A.CSV", "t.txt"};
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() == expected; }, 5000))
        << shown().join(", ").toStdString();
    session.fileTable.TableFileName.clear();
    Q_EMIT browser->LsFilelistView->doubleClicked(files->index(2, 0, browser->LsFilelistView->rootIndex()));
    EXPECT_EQ(QFileInfo(session.fileTable.TableFileName).fileName(), "t.txt");
    EXPECT_EQ(session.loader.OpenFromBrowser, 0);
    Q_EMIT browser->LsFilelistView->doubleClicked(files->index(0, 0, browser->LsFilelistView->rootIndex()));
    EXPECT_EQ(browser->folder(), QFileInfo(folder.path()).path());
}

TEST_F(ParameterWindow, BacksUpTheTableAsReadBeforeTheFirstWrite) {
    QStringList history;
    QObject::connect(&link, &RequestScheduler::historyLine, [&](const QString& line) { history += line; });
    Q_EMIT session.writer.writesBegin();  // no table yet: tried again before the next write
    EXPECT_TRUE(history.last().endsWith(" > No backup: the table of this drive has not been read."));
    readTable();
    const int row = rowOfNumber(session.DriveAdvStringGrid, "01-00");
    const QString read = session.DriveAdvStringGrid.cell(column::Data, row);
    session.DriveAdvStringGrid.setCell(column::Data, row, "55.00");
    session.DriveAdvStringGrid.setCheckBox(row, true);
    trigger("WriteSelect");
    person.expectBox("Do you want to write the parameter(s) to drive ?", "Cofirm", BoxAnswer::Yes);
    session.writer.OKTransparentButtonClick();
    clock.advanceUntil([&] { return !session.writer.form.shown; }, 60 * 1000);
    const QString path = folder.filePath("backup/2026-03-02_09-08-07_Larch.txt");
    ASSERT_TRUE(QFile::exists(path));
    ASSERT_TRUE(session.loader.load(path));
    EXPECT_EQ(session.FileAdvStringGrid.cell(column::Data, row), read);
    EXPECT_EQ(session.DriveAdvStringGrid.cell(column::Data, row), "55.00");

    // One a drive, not one a run of the program; what another drive held is no backup of this one.
    const auto backups = [&] { return QDir(session.backup.folder()).entryList(QDir::Files).size(); };
    Q_EMIT session.writer.writesBegin();
    EXPECT_EQ(backups(), 1);
    Q_EMIT link.initialRun();
    session.WriteAllTransparentButtonClick();
    EXPECT_TRUE(session.writeSummaryLine().contains("with no value read from the drive"));
    session.writer.CancelTransparentButtonClick();
    Q_EMIT session.writer.writesBegin();
    EXPECT_EQ(backups(), 1);
    readTable();
    Q_EMIT session.writer.writesBegin();
    EXPECT_EQ(backups(), 2);
}

TEST_F(ParameterWindow, ABackupThatFailsIsTold) {
    readTable();
    writeWhole(folder.filePath("backup"), "a file in the place of the folder");
    person.expectBox("The drive's table could not be backed up: The folder " + folder.filePath("backup") +
                         " cannot be made.",
                     "Error");
    Q_EMIT session.writer.writesBegin();
}

TEST(TableBackup, KeepsTheLastTwentyAndTellsAFailure) {
    QTemporaryDir folder;
    TableBackup backup(folder.path());
    ParameterTable table;
    test::fillSample(table);
    const auto read = [](int) { return std::nullopt; };
    QDateTime now(QDate(2026, 3, 2), QTime(9, 0));
    for (int i = 0; i < TableBackup::Kept + 2; ++i)
        ASSERT_TRUE(backup.write(table, false, now.addSecs(i / 2), read).ok);
    const QStringList files = QDir(backup.folder()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), TableBackup::Kept);
    EXPECT_EQ(files.first(), "2026-03-02_09-00-01_Larch.txt");
    EXPECT_TRUE(QFile::exists(backup.path()));
    TableBackup nowhere(folder.filePath("backup/") + files.first());
    EXPECT_FALSE(nowhere.write(table, false, now, read).ok);
}

}  // namespace
}  // namespace kelvane
