#include "parameters/table/table_edit.h"

#include "catalogue/value_edit.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

namespace {

void toggleHeaderCheckBox(StringGrid& grid) {
    const bool set = !grid.checkBox(0);
    grid.setCheckBox(0, set);
    for (int row = 1; row < grid.RowCount(); ++row)
        if (isWritable(grid, row)) grid.setCheckBox(row, set);
}

ValueTexts valueTextsOf(const StringGrid& grid, int row) {
    return {.number = grid.cell(column::PrNo, row),
            .name = grid.cell(column::Description, row),
            .unit = grid.cell(column::Unit, row),
            .value = grid.cell(column::Data, row),
            .defaultValue = grid.cell(column::Default, row),
            .min = grid.cell(column::Min, row),
            .max = grid.cell(column::Max, row),
            .places = dotOf(grid, row)};
}

}  // namespace

void ProcessAdvStringGridDblClickCell(StringGrid& grid, int column, int row, Operator& person) {
    if (column == column::Check && row == 0) toggleHeaderCheckBox(grid);
    if (column <= column::Check || !isWritable(grid, row)) return;
    const ValueTexts texts = valueTextsOf(grid, row);
    const std::optional<QString> text = askValue(texts, person);
    if (grid.cell(column::PrNo, row) != texts.number) return;  // the table went while the editor was open
    if (text) grid.setCell(column::Data, row, *text);
    grid.setCheckBox(row, true);  // Kept: also when the editor was cancelled
}

bool clickCheckBox(StringGrid& grid, int row) {
    if (row == 0) {
        toggleHeaderCheckBox(grid);
        return true;
    }
    if (!isWritable(grid, row)) return false;
    grid.setCheckBox(row, !grid.checkBox(row));
    return true;
}

std::vector<int> setCheckBoxes(StringGrid& grid, const std::vector<int>& rows, bool set) {
    std::vector<int> changed;
    for (const int row : rows) {
        if (!isWritable(grid, row) || grid.checkBox(row) == set) continue;
        grid.setCheckBox(row, set);
        changed.push_back(row);
    }
    return changed;
}

std::optional<ValueEdit> valueEditOf(const StringGrid& grid, int row) {
    if (!isWritable(grid, row)) return std::nullopt;
    return valueEditOf(valueTextsOf(grid, row));
}

}  // namespace kelvane
