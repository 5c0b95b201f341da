// Editing a value of a table or of the write list: what the editor is given for a row, which keys it takes,
// and its check of the typed text. The windows call it on double click, Enter and clicks on check boxes.
#pragma once

#include <QChar>
#include <optional>

#include "base/operator.h"
#include "base/string_grid.h"
#include "localisation/lang_table.h"

namespace kelvane {

// Double click on a cell, or Enter on it. Row 0, column 0 toggles the header's check box and with it those of
// all writable rows; a cell of a writable row runs the editor and sets the row's check box, also on cancel.
void ProcessAdvStringGridDblClickCell(StringGrid& grid, int column, int row, Operator& person);

// Click on a check box: toggles that of a writable row or of the header, others stay. Tells whether it did.
bool clickCheckBox(StringGrid& grid, int row);

// What the editor is given for a row; nothing for a row that is not writable.
std::optional<ValueEdit> valueEditOf(const StringGrid& grid, int row);

// Items of InputComboBox and the one that is selected at first (Data less InputMin; -1 when it is none of
// them).
QStringList inputItems(const ValueEdit& edit);
int inputItemIndex(const ValueEdit& edit);

// Keys of InputEdit.
enum class InputKey { Type, Check, Drop };
InputKey inputKey(QChar key);

// Check of edit.Text. Close: the text is accepted and brought to its places. Otherwise a box has told why,
// the old text is back, and SelectAll asks for it to be selected.
enum class InputVerdict { Close, Stay, SelectAll };
InputVerdict CheckInputValue(ValueEdit& edit, Operator& person, const LangTable& lang);

}  // namespace kelvane
