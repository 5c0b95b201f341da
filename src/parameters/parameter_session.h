// What the Parameter window shows and does, without the window: its tables, sub-tables and comparison, the
// screen around them, and the engines that read, write and compare. The window passes the operator's hand on
// to it.
#pragma once

#include <QObject>
#include <functional>

#include "base/wall_clock.h"
#include "parameters/exchange/keypad_source.h"
#include "parameters/exchange/parameter_reader.h"
#include "parameters/exchange/parameter_writer.h"
#include "parameters/files/table_backup.h"
#include "parameters/files/table_loader.h"
#include "parameters/files/table_saver.h"
#include "parameters/table/sub_table.h"

namespace kelvane {

// Where a session keeps its files. Without a folder it backs nothing up.
struct ParameterFiles {
    QString programFolder = {};
    const WallClock* wallClock = nullptr;
    SpreadsheetBackend spreadsheet = builtInSpreadsheet();
};

class ParameterSession : public QObject {
    Q_OBJECT
   public:
    ParameterSession(RequestScheduler& link, TickClock& clock, const GroupNameTable& names,
                     const Voice& voice, const ParameterFiles& files = {});

    ParameterTable driveTable;
    ParameterTable fileTable;
    EditHistory driveHistory{driveTable.grid};
    EditHistory fileHistory{fileTable.grid};
    SubTable driveSub{driveTable, TableSide::Drive, driveHistory};
    SubTable fileSub{fileTable, TableSide::File, fileHistory};
    ComparisonSheet comparison;

    StringGrid& DriveAdvStringGrid = driveTable.grid;
    StringGrid& FileAdvStringGrid = fileTable.grid;
    StringGrid& SubDriveAdvStringGrid = driveSub.grid;
    StringGrid& SubFileAdvStringGrid = fileSub.grid;
    StringGrid& CompareAdvStringGrid = comparison.CompareAdvStringGrid;
    StringGrid& CompInfoAdvStringGrid = comparison.CompInfoAdvStringGrid;

    ColumnHiding columns;
    ParameterScreen screen;
    ParameterSite site;
    ProgressDialog progress;
    ParameterReader reader;
    KeypadSource keypad;
    ParameterWriter writer;
    ComparisonEngine comparisonEngine;
    TableChoices choices;  // set by the shell
    FileWork fileWork;
    TableSaver saver;
    TableLoader loader;
    TableBackup backup;

    // The main window is about to show the window.
    void opened();
    // The window has closed: all tables go.
    void FormClose();

    // A file has been loaded into its grid: its tab, its tree.
    void fileLoaded();
    // False when there is no table: a box has said so.
    bool anyTableOpen();
    // One of compareKinds(); its tab opens when there is a result.
    ComparisonOutcome compare(const QString& kind);

    // Selection of a child of a root of the tree: 0 is "All Parameters", then the groups.
    void ParaTreeViewChange(TableSide side, int index);
    // What was changed in the tables shows in the groups that stand beside them.
    void refreshSubTables();
    // A tab was chosen by hand.
    void show(ParameterTab tab);

    // Write Select, Write All, and the factory values. With both tables open the first two ask for the source
    // by writeSourceWanted() and go on in writeSourceChosen().
    void WriteCheckTransparentButtonClick() { startWrite(WriteMode::Selected); }
    void WriteAllTransparentButtonClick() { startWrite(WriteMode::All); }
    void ResetParameterClick();
    void writeSourceChosen(TableSide side);
    // A line for the write list: how many rows differ, are read-only, or of another family.
    QString writeSummaryLine() const;

    // Closing of the active tab, and closeTable of the tree's menu. then runs when the tab has closed.
    void CloseTab(const std::function<void()>& then = {});
    void closeTableClick(TableSide side, const std::function<void()>& then = {});

    // Value text that the drive on line held when it was last asked for the parameter of a row of the write
    // list; nothing for a parameter that was not read from this drive.
    std::optional<QString> heldByDrive(int listRow) const;
    QDateTime now() const { return m_files.wallClock ? m_files.wallClock->now() : QDateTime(); }

   Q_SIGNALS:
    void screenChanged();                             // tabs, tree, lamp, menu items
    void historyChanged();                            // what can be undone or redone
    void told(const QString& result);                 // of the last action; empty when a new one has begun
    void writeSourceWanted(const QString& VrLabel1);  // TSelParaSourceForm
    void sourceLit(TableSide side);                   // its lamp, which stands for the tab in front

   private:
    void connectGrids();
    void connectEngines();
    void mirrorModel();
    void startWrite(WriteMode mode);
    void chooseWriteSource(WriteMode mode);
    void write(TableSide side, WriteMode mode, bool useDefaults);
    void closeTab(ParameterTab tab);
    void closeSide(TableSide side);
    void backUp();
    Family driveFamily() const { return static_cast<Family>(site.link.DriveStatus.DriveFamily); }

    WriteMode m_wantedMode = WriteMode::Selected;
    Family m_writeFamily = Family::Rowan;  // of the table that the write list came from
    QString m_linkModel;                   // model label of the link, as last taken over
    ParameterFiles m_files;
    std::optional<RowIndex> m_driveRows;  // of the table from drive, while the write list stands
    bool m_tableOfDriveOnLine = false;    // the table was read since the last identification
    bool m_backedUp = false;              // likewise
};

}  // namespace kelvane
