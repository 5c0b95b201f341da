// TSelParaSourceForm, which of two open tables is meant: the one from drive or the one from file.
#pragma once

#include <optional>

#include "parameters/dialogs/sel_form.h"
#include "parameters/table/sub_table.h"

namespace kelvane {

class VrLabel;

class TSelParaSourceForm : public SelForm {
    Q_OBJECT
   public:
    explicit TSelParaSourceForm(QWidget* parent = nullptr);

    // Shows the question under its text; nothing comes back unless OK was pressed.
    void ask(const QString& text, std::function<void(std::optional<TableSide>)> then);
    // The lit lamp stays from one question to the next; closing a table sets it too.
    void light(TableSide side);
    TableSide lit() const;

   private:
    VrLabel* VrLabel1;
    AbLED* DriveAbLED;
    AbLED* FileAbLED;
};

}  // namespace kelvane
