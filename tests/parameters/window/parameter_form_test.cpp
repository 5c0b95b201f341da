// The Parameter window by its object names, over a practice drive on a hand-driven clock.
#include "parameters/window/parameter_form.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "bench/scripted_operator.h"
#include "parameters/dialogs/folder_browser_form.h"
#include "parameters/files/table_text_file.h"
#include "parameters/sample_table.h"
#include "parameters/station_bench.h"
#include "parameters/window/parameter_pages_form.h"
#include "ui/display_label.h"
#include "ui/find_bar.h"
#include "ui/lamp.h"
#include "ui/path_label.h"

namespace kelvane {
namespace {

struct WindowPerson {
    QTemporaryDir folder;
    ScriptedOperator person;
};

class ParameterWindow : public testing::Test, protected WindowPerson, protected StationBench {
   protected:
    ParameterWindow() : StationBench(person, Family::Larch, folder.path()) {
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
        form.show();
        QApplication::processEvents();
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

    LooksInMemory looks;
    TParameterForm form{session, looks};
    QStringList asked;
    std::optional<int> chosen = 0;
    std::optional<TableFileKind> kind = TableFileKind::Text;
};

TEST_F(ParameterWindow, OpensBareAndReadsATableIntoTabAndTree) {
    const QTabWidget* pages = named<QTabWidget>("PageControl1");
    for (int i = 0; i < pages->count(); ++i) EXPECT_FALSE(pages->isTabVisible(i)) << i;
    EXPECT_FALSE(named<QAction>("ResetParameter")->isEnabled());
    for (const char* name : {"Save", "Print", "CompareParameter", "WriteSelect", "WriteAll"}) {
        person.expectBox("There is no parameter table be opened !", "Cofirm");
        trigger(name);
    }
    EXPECT_TRUE(asked.isEmpty() && station.port.writes().isEmpty());

    readTable();
    EXPECT_TRUE(named<TabSheet>("DriveTabSheet")->highlighted());
    EXPECT_TRUE(view("DriveAdvStringGrid")->isVisible());
    const QTreeWidgetItem* root = named<QTreeWidget>("ParaTreeView")->topLevelItem(0);
    EXPECT_EQ(root->text(0), "Drive [ Larch ]");
    EXPECT_TRUE(root->isExpanded() && session.reader.DriveTableComplete);
    ASSERT_EQ(root->childCount(), station.drive.parameters().groupCount() + 1);
    EXPECT_EQ(root->child(0)->text(0), "All Parameters");
    EXPECT_TRUE(named<QAction>("ResetParameter")->isEnabled());

    // Find looks in the grid in front.
    QTest::keyClick(view("DriveAdvStringGrid"), Qt::Key_F, Qt::ControlModifier);
    FindBar* bar = form.findChild<FindBar*>();
    ASSERT_TRUE(bar->isVisible());
    bar->findChild<QLineEdit*>()->setText("01-0");
    EXPECT_EQ(bar->hitCount(), 10);
    select(0, 1);
    EXPECT_EQ(bar->hitCount(), 0);

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
        QTest::keyClick(table, Qt::Key_Space);
        EXPECT_EQ(checked(*table->grid()), 0) << name;
        for (int step = 0; step < 2; ++step) QTest::keyClick(table, Qt::Key_Z, Qt::ControlModifier);
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

TEST_F(ParameterWindow, SavesWhatIsWholeAndLoadsItAgain) {
    test::fillSample(session.driveTable);
    session.show(ParameterTab::Drive);
    person.expectBox("Parameter table is not completed !", "Cofirm");
    trigger("Save");
    EXPECT_TRUE(asked.isEmpty());
    loadSample();
    EXPECT_EQ(named<QTreeWidget>("ParaTreeView")->topLevelItem(1)->text(0), "File [ Larch ]");
    EXPECT_EQ(named<PathLabel>("FileNameLabel")->path(), folder.filePath("t.txt"));
    EXPECT_EQ(named<VrLabel>("HPFVrLabel")->text(), "75 ( 100 )");
    const QString copy = folder.filePath("u.txt");
    person.expectSave("Text Fiels(*.txt)|*.txt", ".txt", copy);
    trigger("Save");
    EXPECT_EQ(asked, (QStringList{"Select Parameter Source to Save", "Table from File", "0"}));
    person.expectOpen(openTableFilter(), copy);
    trigger("ReadfromFile");
    EXPECT_EQ(form.recent.list(), (QStringList{copy, folder.filePath("t.txt")}));
    EXPECT_EQ(session.FileAdvStringGrid.cell(column::Data, 5), "50.00");

    chosen.reset();
    bool wentOn = false;
    session.saver.save(ParameterTab::Drive, [&] { wentOn = true; });
    EXPECT_FALSE(wentOn) << "nothing was saved";
    chosen = 0;
    session.reader.DriveTableComplete = 1;
    kind = TableFileKind::Csv;
    person.expectSave("CSV Fiels(*.csv)|*.CSV", ".CSV", std::nullopt);
    trigger("Save");
    EXPECT_EQ(person.suggestedName, "Larch");
    EXPECT_EQ(session.saver.SaveMemo, writeTableText(session.driveTable, false, TextFormat::Csv));

    // What cannot be read or written leaves the table; without a spreadsheet program no file dialog comes.
    person.expectBox("File format not support !", "Warning");
    EXPECT_FALSE(session.loader.load(folder.filePath("x.doc")));
    const QString missing = folder.filePath("no.txt");
    person.expectBox(readWhole(missing).error, "Error");
    EXPECT_FALSE(session.loader.load(missing));
    session.fileWork.spreadsheet.present = [] { return false; };
    kind = TableFileKind::Spreadsheet;
    person.expectBox("Please install the Microsoft Excel first !!", "Error");
    trigger("Save");
    person.expectBox("Please install the Microsoft Excel first !!", "Error");
    EXPECT_FALSE(session.loader.load("t.xls"));
    EXPECT_EQ(session.FileAdvStringGrid.RowCount(), 6);
}

TEST_F(ParameterWindow, ASavedComparisonComesBackAndLeavesTheTableFromFile) {
    test::fillSample(session.driveTable);
    session.reader.DriveTableComplete = 1;
    session.show(ParameterTab::Drive);
    loadSample();
    session.compare(QLatin1String(DriveVsDefault));
    chosen = 2;
    for (const TableFileKind each : {TableFileKind::Text, TableFileKind::Csv, TableFileKind::Spreadsheet}) {
        kind = each;
        const QString path = folder.filePath("c" + saveSuffix(each));
        person.expectSave(saveFilter(each), saveSuffix(each), path);
        trigger("Save");
        session.screen.CompareTabSheetVisible = false;
        session.CompareAdvStringGrid.setRowCount(1);
        person.expectOpen(openTableFilter(), path);
        trigger("ReadfromFile");
        EXPECT_TRUE(session.screen.CompareTabSheetVisible);
        EXPECT_EQ(session.CompareAdvStringGrid.RowCount(), 3) << path.toStdString();
        EXPECT_EQ(session.CompareAdvStringGrid.cell(column::Note, 2), "Drive");
        EXPECT_EQ(session.fileTable.TableFileName, folder.filePath("t.txt"));
        EXPECT_EQ(session.FileAdvStringGrid.RowCount(), 6);
    }
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

    // By the menu of the tree, which acts on the side of its root.
    QTreeWidget* tree = named<QTreeWidget>("ParaTreeView");
    const auto menuAt = [&](QTreeWidgetItem* item) {
        named<QMenu>("TreeViewParaPopupMenu")->hide();
        Q_EMIT tree->customContextMenuRequested(tree->visualItemRect(item).center());
        return named<QMenu>("TreeViewParaPopupMenu")->isVisible();
    };
    EXPECT_FALSE(menuAt(node(1, 1)));
    EXPECT_TRUE(menuAt(tree->topLevelItem(1)));
    named<QMenu>("TreeViewParaPopupMenu")->hide();
    person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::No);
    trigger("closeTable");
    EXPECT_FALSE(named<TabSheet>("FileTabSheet")->tabVisible());
    EXPECT_TRUE(menuAt(tree->topLevelItem(1)));
    EXPECT_FALSE(named<QAction>("closeTable")->isEnabled());
    named<QMenu>("TreeViewParaPopupMenu")->hide();
    const QTreeWidgetItem* root = tree->topLevelItem(1);
    EXPECT_EQ(root->text(0), "File");
    EXPECT_EQ(root->childCount(), 0);
    EXPECT_TRUE(named<TabSheet>("DriveTabSheet")->highlighted());
}

TEST_F(ParameterWindow, ComparesAndTellsWhatCouldNotBeCompared) {
    readTable();
    loadSample();
    std::vector<Report> reports;
    QObject::connect(&form, &TParameterForm::reportWanted,
                     [&](const Report& report) { reports.push_back(report); });
    trigger("Print");
    EXPECT_EQ(reports.front().head.drive.texts, CompInfoRow{}) << "kept: blank before any comparison";
    asked.clear();
    chosen = 2;
    trigger("CompareParameter");
    EXPECT_EQ(asked, (QStringList{"Drive vs. default", "File vs. default", "Drive vs. File"}));
    EXPECT_TRUE(view("CompareAdvStringGrid")->isVisible());
    EXPECT_EQ(named<VrLabel>("CompKindLabel")->text(), "Drive vs. File");
    EXPECT_TRUE(panel(0).contains("could not be compared")) << panel(0).toStdString();

    asked.clear();
    trigger("Print");
    EXPECT_EQ(asked, (QStringList{"Select Parameter Source to Print", "Table from Drive", "Table from File",
                                  "Comparison Result", "0"}));
    const Report& report = reports.back();
    EXPECT_EQ(int(report.records.size()), session.CompareAdvStringGrid.RowCount() - 1);
    EXPECT_EQ(report.records.front()[9], "Drive");
    EXPECT_TRUE(report.head.noteShown && report.head.drive.texts[0] == "drive");
    EXPECT_EQ(report.head.file.texts[0], folder.filePath("t.txt"));
}

TEST_F(ParameterWindow, StatusLineKeepsLinkAndNumInOnePanel) {
    EXPECT_EQ(panel(1), "On - Line");
    QKeyEvent num(QEvent::KeyPress, Qt::Key_NumLock, Qt::NoModifier, 77, 0xff7f, 0);
    QApplication::sendEvent(&form, &num);
    EXPECT_EQ(panel(1), "NUM ");
    QKeyEvent off(QEvent::KeyPress, Qt::Key_NumLock, Qt::NoModifier, 77, 0xff7f, 0x10);
    QApplication::sendEvent(&form, &off);
    EXPECT_EQ(panel(1), "");
    link.setLamp(LampState::OffLine);
    EXPECT_EQ(panel(1), "Off - Line");
    form.hide();
    EXPECT_FALSE(form.SystemTimer.Enabled());
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
    QApplication::processEvents();
    EXPECT_EQ(session.fileTable.TableFileName, folder.filePath("t.txt"));

    QFile::copy(folder.filePath("t.txt"), folder.filePath("other.doc"));
    QFile::copy(folder.filePath("t.txt"), folder.filePath("A.CSV"));
    FolderBrowser* browser = form.findChild<FolderBrowser*>();
    browser->setFolder(folder.path());
    form.findChild<QTabWidget*>("PageControl2")->setCurrentIndex(0);
    QAbstractItemModel* files = browser->LsFilelistView->model();
    ASSERT_NE(files, nullptr);
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
    form.hide();
    EXPECT_EQ(browser->LsFilelistView->model(), nullptr) << "a folder that nobody sees is not watched";
}

TEST_F(ParameterWindow, BacksUpTheTableAsReadBeforeTheFirstWrite) {
    QStringList history;
    QObject::connect(&link, &RequestScheduler::historyLine, [&](const QString& line) { history += line; });
    Q_EMIT session.writer.writesBegin();  // no table yet: tried again before the next write
    EXPECT_TRUE(history.last().endsWith(" > No backup: the table of this drive has not been read."));
    readTable();
    writeWhole(folder.filePath("backup"), "a file in the place of the folder");
    person.expectBox("The drive's table could not be backed up: The folder " + folder.filePath("backup") +
                         " cannot be made.",
                     "Error");
    Q_EMIT session.writer.writesBegin();
    QFile::remove(folder.filePath("backup"));
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

// Only what is seen changes, and what is hidden is said; an edit that waits to be written is always in sight.
TEST_F(ParameterWindow, ViewsHideRowsAndSayHowMany) {
    readTable();
    StringGrid& all = session.DriveAdvStringGrid;
    const auto* bar = named<QWidget>("RowViewNotice");
    const auto shown = [](const StringGrid& grid) {
        QStringList numbers;
        for (int row = 1; row < grid.RowCount(); ++row)
            if (!grid.rowHidden(row)) numbers += grid.cell(column::PrNo, row);
        return numbers;
    };
    const int row = rowOfNumber(all, "01-00");
    const qsizetype parameters = shown(all).size() - shown(all).count("*****");
    EXPECT_TRUE(bar->isHidden());
    trigger("OnlyCheckedRows");
    EXPECT_EQ(shown(all), QStringList());
    EXPECT_TRUE(bar->accessibleName().startsWith(
        QStringLiteral("Only checked rows: 0 shown, %1 hidden.").arg(parameters)));
    session.driveHistory.edit({row}, [&] { all.setCheckBox(row, true); });
    EXPECT_EQ(shown(all), (QStringList{"*****", "01-00"}));
    EXPECT_TRUE(view("DriveAdvStringGrid")->isRowHidden(row) &&
                !view("DriveAdvStringGrid")->isRowHidden(row - 1));
    select(0, 2);
    EXPECT_EQ(shown(session.SubDriveAdvStringGrid), QStringList{"01-00"});
    session.WriteAllTransparentButtonClick();
    const int writable = session.writer.AdvStringGrid1.RowCount() - 1;
    EXPECT_GT(writable, 50) << "all rows, seen or not";
    EXPECT_TRUE(session.writeSummaryLine().contains(
        QStringLiteral("; %1 not in sight in the table").arg(writable - 1)));
    session.writer.CancelTransparentButtonClick();

    trigger("OnlyDifferingRows");
    for (int each = 1; each < all.RowCount(); ++each) {
        if (isGroupRow(all, each)) continue;
        EXPECT_EQ(all.rowHidden(each), all.cell(column::Data, each) == all.cell(column::Default, each))
            << each;
    }
    select(0, 0);
    all.setCell(column::Default, row, "55.00");
    session.driveHistory.edit({row}, [&] { all.setCell(column::Data, row, "55.00"); });
    EXPECT_FALSE(all.rowHidden(row)) << "at its default, and not yet written";
    QTest::keyClick(view("DriveAdvStringGrid"), Qt::Key_Z, Qt::ControlModifier);
    bar->findChild<QAbstractButton*>()->click();
    EXPECT_TRUE(bar->isHidden() && named<QAction>("AllRows")->isChecked());
    EXPECT_EQ(shown(all).size(), all.RowCount() - 1);
}

// Nobody is asked at closing, and nothing is lost: the copy waits for the next opening.
TEST_F(ParameterWindow, EditsThatWereNeverWrittenOutliveTheWindow) {
    readTable();
    StringGrid& all = session.DriveAdvStringGrid;
    const int row = rowOfNumber(all, "01-00");
    const auto* bar = named<QWidget>("KeptEditsNotice");
    const auto edit = [&](const char* text) {
        session.driveHistory.edit({row}, [&] {
            all.setCell(column::Data, row, text);
            all.setCheckBox(row, true);
        });
    };
    const auto openAgain = [&] {
        session.opened();
        form.show();
    };
    const auto copies = [&] { return QDir(session.unwritten.folder()).entryList(QDir::Files).size(); };
    edit("55.00");
    kind = TableFileKind::Text;
    person.expectSave("Text Fiels(*.txt)|*.txt", ".txt", folder.filePath("saved.txt"));
    trigger("Save");
    form.close();
    EXPECT_EQ(copies(), 0) << "what was saved is not lost";

    openAgain();
    EXPECT_TRUE(bar->isHidden());
    readTable();
    edit("56.00");
    writeWhole(session.unwritten.folder(), "a file in the place of the folder");
    person.expectBox(
        "The edits that are not written yet could not be kept: The folder " + session.unwritten.folder() +
            " cannot be made.\nSave the table to another place. Closing the window once more gives "
            "them up.",
        "Error");
    form.close();
    EXPECT_TRUE(form.isVisible());
    QFile::remove(session.unwritten.folder());
    edit("57.00");
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(copies(), 1);

    openAgain();
    EXPECT_TRUE(bar->accessibleName().startsWith("Edits of Larch that were not written are kept from "))
        << bar->accessibleName().toStdString();
    bar->findChildren<QAbstractButton*>()[0]->click();
    EXPECT_TRUE(bar->isHidden());
    EXPECT_EQ(session.FileAdvStringGrid.cell(column::Data, row), "57.00");
    session.WriteCheckTransparentButtonClick();
    ASSERT_EQ(session.writer.AdvStringGrid1.RowCount(), 2) << "the box tells which row was edited";
    form.close();
    EXPECT_EQ(copies(), 1) << "not yet written";

    openAgain();
    bar->findChildren<QAbstractButton*>()[0]->click();
    session.WriteCheckTransparentButtonClick();
    person.expectBox("Do you want to write the parameter(s) to drive ?", "Cofirm", BoxAnswer::Yes);
    session.writer.OKTransparentButtonClick();
    clock.advanceUntil([&] { return !session.writer.form.shown; }, 60 * 1000);
    EXPECT_EQ(copies(), 0) << "the drive has them";
    session.fileHistory.edit({row}, [&] { session.FileAdvStringGrid.setCell(column::Data, row, "58.00"); });
    form.close();
    openAgain();
    ASSERT_EQ(copies(), 1);
    bar->findChildren<QAbstractButton*>()[1]->click();
    EXPECT_EQ(copies(), 0);
    EXPECT_TRUE(bar->isHidden());
}

TEST(TableCopies, AreTheLastOnes) {
    constexpr int Kept = 20;
    QTemporaryDir folder;
    TableCopies copies(folder.filePath("backup"), Kept);
    ParameterTable table;
    test::fillSample(table);
    const QDateTime now(QDate(2026, 3, 2), QTime(9, 0));
    for (int i = 0; i < Kept + 2; ++i) ASSERT_TRUE(copies.write(table, false, now.addSecs(i / 2)).ok);
    const QStringList files = QDir(copies.folder()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), Kept);
    EXPECT_EQ(files.first(), "2026-03-02_09-00-01_Larch.txt");
    EXPECT_TRUE(QFile::exists(copies.path()));
    EXPECT_EQ(copies.newest(), copies.path());
}

}  // namespace
}  // namespace kelvane
