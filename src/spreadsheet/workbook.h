// A workbook as an office program shows it: sheets of text cells with the few looks that the tool's files use
// (text format, bold, two colours, column widths, hidden rows and columns, merged titles). The built-in
// spreadsheet fills it, biff_writer stores it and biff_reader makes it from a file. Rows and columns count
// from 1.
#pragma once

#include <QString>
#include <cstddef>
#include <map>
#include <vector>

namespace kelvane {

// Colour indexes of the standard palette; 0 is "none" of an interior and "automatic" of a font.
inline constexpr int WhiteIndex = 2;
inline constexpr int YellowIndex = 6;
inline constexpr int TealIndex = 14;
inline constexpr int LightGrayIndex = 15;

// What one sheet and one workbook of the format can hold.
inline constexpr int MaxSheetRow = 65536;
inline constexpr int MaxSheetColumn = 256;
inline constexpr int MaxCellText = 32767;
inline constexpr int MaxColourIndex = 56;
inline constexpr int MaxColumnWidth = 255;
inline constexpr std::size_t MaxSheets = 4096;  // our own bound, as are the cells of a workbook
inline constexpr std::size_t MaxWorkbookCells = 2'000'000;

struct CellFormat {
    bool text = false;  // NumberFormat "@"
    bool bold = false;
    int interiorColour = 0;
    int fontColour = 0;
    auto operator<=>(const CellFormat&) const = default;
};

struct SheetCell {
    int column = 0;
    CellFormat format;
    QString text;
    bool number = false;  // the file holds a number, which the text shows without its number format
    bool operator==(const SheetCell&) const = default;
};

struct SheetRow {
    bool hidden = false;
    std::vector<SheetCell> cells;  // by rising column
    bool operator==(const SheetRow&) const = default;
};

struct SheetColumn {
    double width = 0;  // in characters of the standard font, 0 for the standard width
    bool hidden = false;
    bool operator==(const SheetColumn&) const = default;
};

struct CellRange {
    int firstRow = 0, firstColumn = 0, lastRow = 0, lastColumn = 0;
    bool operator==(const CellRange&) const = default;
};

struct Sheet {
    QString name;
    std::map<int, SheetRow> rows;
    std::map<int, SheetColumn> columns;
    std::vector<CellRange> merged;

    const SheetCell* find(int row, int column) const;  // null where nothing was written
    SheetCell& at(int row, int column);                // makes the cell
    bool operator==(const Sheet&) const = default;
};

struct Workbook {
    std::vector<Sheet> sheets;
    std::size_t selected = 0;  // index of the sheet in front
    bool operator==(const Workbook&) const = default;
};

bool isCellPlace(int row, int column);
// What is wrong with a sheet's name in plain words (empty, too long, a forbidden character); empty if
// nothing.
QString sheetNameFault(const QString& name);

}  // namespace kelvane
