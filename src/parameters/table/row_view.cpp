#include "parameters/table/row_view.h"

#include <vector>

namespace kelvane {

namespace {

bool wanted(const StringGrid& grid, int row, RowView view) {
    if (view == RowView::All || grid.edited(row)) return true;
    if (view == RowView::Checked) return grid.checkBox(row);
    return grid.cell(column::Data, row) != grid.cell(column::Default, row);
}

}  // namespace

bool hasDefaults(Family family) { return family != Family::Hazel && family != Family::Keypad; }

RowsInSight showRows(StringGrid& grid, Family family, RowView view) {
    if (view == RowView::Differing && !hasDefaults(family)) view = RowView::All;
    RowsInSight rows;
    std::vector<bool> hidden(static_cast<size_t>(grid.RowCount()), false);
    bool groupInSight = view == RowView::All;
    for (int row = grid.RowCount() - 1; row > 0; --row) {
        if (grid.cell(column::PrNo, row).isEmpty()) continue;
        bool inSight = groupInSight;
        if (isGroupRow(grid, row)) {
            groupInSight = view == RowView::All;
        } else {
            inSight = wanted(grid, row, view);
            groupInSight |= inSight;
            ++(inSight ? rows.shown : rows.hidden);
        }
        hidden[static_cast<size_t>(row)] = !inSight;
    }
    grid.setRowsHidden(hidden);
    return rows;
}

}  // namespace kelvane
