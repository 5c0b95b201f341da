// TSelCompKindForm, which comparison is wanted of those that the open tables allow.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "parameters/dialogs/sel_form.h"

namespace kelvane {

class TSelCompKindForm : public SelForm {
    Q_OBJECT
   public:
    explicit TSelCompKindForm(QWidget* parent = nullptr);

    // kinds as compareKinds() gives them, the first one selected. The chosen one comes back, or nothing
    // unless OK was pressed.
    void ask(const QStringList& kinds, std::function<void(std::optional<QString>)> then);

   private:
    QComboBox* ParameterComboBox;
};

}  // namespace kelvane
