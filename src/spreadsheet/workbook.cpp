#include "spreadsheet/workbook.h"

#include <algorithm>

namespace kelvane {

namespace {

auto cellPlace(std::vector<SheetCell>& cells, int column) {
    if (cells.empty() || cells.back().column < column) return cells.end();
    return std::lower_bound(cells.begin(), cells.end(), column,
                            [](const SheetCell& cell, int wanted) { return cell.column < wanted; });
}

}  // namespace

const SheetCell* Sheet::find(int row, int column) const {
    const auto found = rows.find(row);
    if (found == rows.end()) return nullptr;
    const auto& cells = found->second.cells;
    const auto cell = std::lower_bound(cells.begin(), cells.end(), column,
                                       [](const SheetCell& c, int wanted) { return c.column < wanted; });
    return cell != cells.end() && cell->column == column ? &*cell : nullptr;
}

SheetCell& Sheet::at(int row, int column) {
    auto& cells = rows[row].cells;
    auto place = cellPlace(cells, column);
    if (place == cells.end() || place->column != column)
        place = cells.insert(place, SheetCell{.column = column, .format = {}, .text = {}});
    return *place;
}

bool isCellPlace(int row, int column) {
    return row >= 1 && row <= MaxSheetRow && column >= 1 && column <= MaxSheetColumn;
}

QString sheetNameFault(const QString& name) {
    if (name.isEmpty()) return QStringLiteral("a sheet has no name");
    if (name.size() > 31)
        return QStringLiteral("the sheet name \"%1\" is longer than 31 characters").arg(name);
    const bool forbidden = std::any_of(name.begin(), name.end(), [](QChar c) {
        return c.unicode() < 0x20 || QStringLiteral("[]:*?/\\").contains(c);
    });
    if (forbidden || name.startsWith(u'\'') || name.endsWith(u'\''))
        return QStringLiteral("the sheet name \"%1\" has a character that is not allowed").arg(name);
    return {};
}

}  // namespace kelvane
