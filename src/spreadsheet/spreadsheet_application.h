// The operations by which the tool makes and reads spreadsheets, as an installed spreadsheet program would
// offer them: application, workbook, sheets, cells. Parameter files and comparisons use them and know nothing
// else of the format; another backend can stand in. The built-in one needs no program and writes and reads
// .xls itself.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "base/whole_file.h"
#include "spreadsheet/workbook.h"

namespace kelvane {

// Operations on a workbook act on the selected sheet. Sheets, rows and columns count from 1. An operation
// that cannot be done (no workbook, place outside the sheet, unknown colour, text too long) changes nothing
// and is remembered: error() tells the first one and close(true) then writes nothing and tells it too.
class SpreadsheetApplication {
   public:
    virtual ~SpreadsheetApplication() = default;

    // A new workbook with one empty sheet, selected, which close(true) saves at this path; the name is taken
    // as it stands. A workbook that was open before is left without saving.
    virtual FileResult addWorkbook(const QString& path) = 0;
    // Opens a workbook for reading, first sheet selected. Errors in plain words.
    virtual FileResult openWorkbook(const QString& path) = 0;
    // Leaves the workbook, with save by writing the file whole or not at all. A workbook that was opened for
    // reading is never written back.
    virtual FileResult close(bool save) = 0;
    virtual void quit() = 0;  // leaves without saving what is still open

    virtual int sheetCount() const = 0;
    virtual void addSheet() = 0;  // behind the last one, selection stays
    virtual void selectSheet(int sheet) = 0;
    virtual void nameSheet(int sheet, const QString& name) = 0;
    virtual QString sheetName(int sheet) const = 0;  // empty if there is none

    virtual QString value(int row, int column) const = 0;  // empty where nothing was written
    // The cell holds a number: its value is given with "." and without trailing zeros, whatever it is shown
    // as.
    virtual bool isNumber(int row, int column) const = 0;
    virtual void setValue(int row, int column, const QString& text) = 0;
    virtual void setTextFormat(int row, int column) = 0;                 // NumberFormat "@"
    virtual void setInteriorColour(int row, int column, int index) = 0;  // Interior.ColorIndex 1..56, 0 none
    virtual void setFontColour(int row, int column, int index) = 0;      // Font.ColorIndex, 0 automatic
    virtual void setBold(int row, int column, bool bold) = 0;
    virtual void setColumnWidth(int column, double characters) = 0;  // up to 255
    virtual void setColumnHidden(int column, bool hidden) = 0;
    virtual void setRowHidden(int row, bool hidden) = 0;
    virtual void merge(const CellRange& range) = 0;

    virtual QString error() const = 0;  // of the first operation since the workbook was made that failed
};

// How the tool comes to a spreadsheet application: present() is asked before anything else is shown or done.
struct SpreadsheetBackend {
    std::function<bool()> present;
    std::function<std::unique_ptr<SpreadsheetApplication>()> create;
};

SpreadsheetBackend builtInSpreadsheet();  // always present

}  // namespace kelvane
