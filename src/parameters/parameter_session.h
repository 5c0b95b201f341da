// What the Parameter window shows and does, without the window: its tables, sub-tables and comparison, the
// screen around them, and the engines that read, write and compare. The window passes the operator's hand on
// to it.
#pragma once

#include <QHash>
#include <QObject>
#include <functional>

#include "parameters/exchange/keypad_source.h"
#include "parameters/exchange/parameter_reader.h"
#include "parameters/exchange/parameter_writer.h"
#include "parameters/files/comparison.h"
#include "parameters/table/sub_table.h"

namespace kelvane {

class ParameterSession : public QObject {
    Q_OBJECT
   public:
    ParameterSession(RequestScheduler& link, TickClock& clock, const GroupNameTable& names);

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
    ParameterBench bench;
    ProgressDialog progress;
    ParameterReader reader;
    KeypadSource keypad;
    ParameterWriter writer;
    ComparisonEngine comparisonEngine;

    // The main window is about to show the window.
    void opened();
    // The window has closed: all tables go.
    void FormClose();

    // A file or a comparison has been loaded into its grids: its tab, its tree.
    void fileLoaded();
    void comparisonLoaded() { show(ParameterTab::Compare); }
    // False when there is no table: a box has told so.
    bool anyTableOpen();
    // One of compareKinds(); its tab opens when there is a result.
    ComparisonOutcome compare(const QString& kind);

    // Selection of a child of a root of the tree: 0 is "All Parameters", then the groups.
    void ParaTreeViewChange(TableSide side, int index);
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

    // Saves a table before its tab closes. then goes on closing: it runs once the table is saved or the
    // person has let it be, and not at all when it could not be written.
    std::function<void(TableSide side, std::function<void()> then)> saveTable;

    // Value text that the drive held when it was last read; nothing for a parameter that was not.
    std::optional<QString> heldByDrive(const QString& PrNo) const;

   Q_SIGNALS:
    void screenChanged();                             // tabs, tree, lamp, menu items
    void writeSourceWanted(const QString& VrLabel1);  // TSelParaSourceForm
    void sourceLit(TableSide side);                   // its lamp, by a table that is saved as its tab closes

   private:
    void mirrorModel();
    void startWrite(WriteMode mode);
    void chooseWriteSource(WriteMode mode);
    void write(TableSide side, WriteMode mode, bool useDefaults);
    void refreshSubTables();
    void closeTab(ParameterTab tab);
    void closeSide(TableSide side);
    void rememberHeld(const StringGrid& grid, int row);
    Family driveFamily() const { return static_cast<Family>(bench.link.DriveStatus.DriveFamily); }

    WriteMode m_wantedMode = WriteMode::Selected;
    Family m_writeFamily = Family::Rowan;  // of the table that the write list came from
    QString m_linkModel;                   // model label of the link, as last taken over
    int m_driveNode = -1;                  // selected child of each root
    int m_fileNode = -1;
    QHash<QString, QString> m_held;  // value texts that the drive held when last read, by number
};

}  // namespace kelvane
