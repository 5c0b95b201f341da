// Editing of a table or of the write list by hand: double click, Enter and clicks on check boxes.
#pragma once

#include <optional>
#include <vector>

#include "base/operator.h"
#include "base/string_grid.h"

namespace kelvane {

// Double click on a cell, or Enter on it. Row 0, column 0 toggles the header's check box and with it those of
// all writable rows; a cell of a writable row runs the editor and sets the row's check box, also on cancel.
void ProcessAdvStringGridDblClickCell(StringGrid& grid, int column, int row, Operator& person);

// Click on a check box: toggles that of a writable row or of the header, others stay. Tells whether it did.
bool clickCheckBox(StringGrid& grid, int row);

// Sets or clears the boxes of these rows where they may be; gives the rows that changed.
std::vector<int> setCheckBoxes(StringGrid& grid, const std::vector<int>& rows, bool set);

// What the editor is given for a row; nothing for a row that is not writable.
std::optional<ValueEdit> valueEditOf(const StringGrid& grid, int row);

}  // namespace kelvane
