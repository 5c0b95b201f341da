// TSelFileFormatForm, in which format a table is saved.
#pragma once

#include <optional>

#include "parameters/dialogs/sel_form.h"
#include "parameters/files/table_file.h"

namespace kelvane {

class TSelFileFormatForm : public SelForm {
    Q_OBJECT
   public:
    explicit TSelFileFormatForm(QWidget* parent = nullptr);

    // The format last chosen is lit; nothing comes back unless OK was pressed.
    void ask(std::function<void(std::optional<TableFileKind>)> then);

   private:
    TableFileKind lit() const;
    AbLED* ExcelAbLED;
    AbLED* TxtAbLED;
    AbLED* CsvAbLED;
};

}  // namespace kelvane
