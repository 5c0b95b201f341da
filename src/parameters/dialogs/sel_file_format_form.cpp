#include "parameters/dialogs/sel_file_format_form.h"

#include "ui/lamp.h"

namespace kelvane {

TSelFileFormatForm::TSelFileFormatForm(QWidget* parent)
    : SelForm("TSelFileFormatForm", QStringLiteral("Select File Format"), parent) {
    ExcelAbLED = addLed("ExcelAbLED", QStringLiteral("EXCEL Format"));
    TxtAbLED = addLed("TxtAbLED", QStringLiteral("TXT Format"));
    CsvAbLED = addLed("CsvAbLED", QStringLiteral("CSV Format"));
    ExcelAbLED->setChecked(true);
}

TableFileKind TSelFileFormatForm::lit() const {
    if (TxtAbLED->isChecked()) return TableFileKind::Text;
    return CsvAbLED->isChecked() ? TableFileKind::Csv : TableFileKind::Spreadsheet;
}

void TSelFileFormatForm::ask(std::function<void(std::optional<TableFileKind>)> then) {
    for (AbLED* lamp : {ExcelAbLED, TxtAbLED, CsvAbLED})
        if (lamp->isChecked()) lamp->setFocus();
    begin([this, then = std::move(then)](bool byOk) { then(byOk ? std::optional(lit()) : std::nullopt); });
}

}  // namespace kelvane
