#include "parameters/table/value_edit.h"

#include "link/number_text.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

namespace {

int limitOf(const StringGrid& grid, int column, int row) {
    return withoutSeparatorToInt(grid.cell(column, row)).value_or(0);
}

void toggleHeaderCheckBox(StringGrid& grid) {
    const bool set = !grid.checkBox(0);
    grid.setCheckBox(0, set);
    for (int row = 1; row < grid.RowCount(); ++row)
        if (isWritable(grid, row)) grid.setCheckBox(row, set);
}

InputVerdict refuse(ValueEdit& edit, Operator& person, const QString& text, const char* title,
                    InputVerdict verdict) {
    edit.Text = edit.InputOldText;
    person.box(text, QString::fromLatin1(title), BoxIcon::Stop, BoxButtons::Ok);
    return verdict;
}

}  // namespace

void ProcessAdvStringGridDblClickCell(StringGrid& grid, int column, int row, Operator& person) {
    if (column == column::Check && row == 0) toggleHeaderCheckBox(grid);
    if (column <= column::Check) return;
    std::optional<ValueEdit> edit = valueEditOf(grid, row);
    if (!edit) return;
    const QString PrNo = grid.cell(column::PrNo, row);
    person.editValue(*edit);
    if (grid.cell(column::PrNo, row) != PrNo) return;  // the table went while the editor was open
    if (edit->InputAccepted) grid.setCell(column::Data, row, edit->Text);
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

std::optional<ValueEdit> valueEditOf(const StringGrid& grid, int row) {
    if (!isWritable(grid, row)) return std::nullopt;
    const auto cell = [&](int c) { return grid.cell(c, row); };
    ValueEdit edit;
    edit.PrInforVrLabel = cell(column::PrNo) % QStringLiteral(": ") % cell(column::Description) %
                          QStringLiteral(" (") % cell(column::Min) % QStringLiteral(" ~ ") %
                          cell(column::Max) % QStringLiteral(" )");
    edit.UnitVrLabel = cell(column::Unit);
    edit.InputOldText = cell(column::Data);
    edit.Text = edit.InputOldText;
    edit.InputDot = dotOf(grid, row);
    edit.InputDefault = limitOf(grid, column::Default, row);
    edit.InputMin = limitOf(grid, column::Min, row);
    edit.InputMax = limitOf(grid, column::Max, row);
    edit.fromList = edit.InputDot == 0 && edit.InputMax < 10 && edit.InputMin >= 0;
    return edit;
}

QStringList inputItems(const ValueEdit& edit) {
    if (!edit.fromList) return {};
    QStringList items;
    for (int value = edit.InputMin; value <= edit.InputMax; ++value) items << QString::number(value);
    return items;
}

int inputItemIndex(const ValueEdit& edit) {
    const std::optional<int> value = withoutSeparatorToInt(edit.InputOldText);
    if (!value || *value < edit.InputMin || *value > edit.InputMax) return -1;
    return *value - edit.InputMin;
}

InputKey inputKey(QChar key) {
    constexpr char16_t Backspace = 8;
    constexpr char16_t Enter = 13;
    const char16_t code = key.unicode();
    if (code == Enter) return InputKey::Check;
    const bool digit = code >= u'0' && code <= u'9';
    return digit || code == u'-' || code == u'.' || code == u',' || code == Backspace ? InputKey::Type
                                                                                      : InputKey::Drop;
}

InputVerdict CheckInputValue(ValueEdit& edit, Operator& person, const LangTable& lang) {
    // Kept: the two refusals of an illegal text bear different titles.
    if (edit.Text.isEmpty()) return refuse(edit, person, lang.MsgStr(23), "Error", InputVerdict::Stay);
    bool ok = false;
    const int v = ScaleDecimalText(edit.Text, edit.InputDot).toInt(&ok);
    if (!ok) return refuse(edit, person, lang.MsgStr(23), "Error Message", InputVerdict::SelectAll);
    if (v < edit.InputMin) return refuse(edit, person, lang.MsgStr(28), "Error", InputVerdict::SelectAll);
    if (v > edit.InputMax) return refuse(edit, person, lang.MsgStr(29), "Error", InputVerdict::SelectAll);
    edit.InputAccepted = true;
    edit.Text = InsertDecimalPoint(QString::number(v), edit.InputDot);
    return InputVerdict::Close;
}

}  // namespace kelvane
