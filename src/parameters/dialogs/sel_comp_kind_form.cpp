#include "parameters/dialogs/sel_comp_kind_form.h"

#include <QComboBox>

namespace kelvane {

TSelCompKindForm::TSelCompKindForm(QWidget* parent)
    : SelForm("TSelCompKindForm", QStringLiteral("Select Compare Kind"), parent),
      ParameterComboBox(addBox("ParameterComboBox", QStringLiteral("&Compare"))) {}

void TSelCompKindForm::ask(const QStringList& kinds, std::function<void(std::optional<QString>)> then) {
    ParameterComboBox->clear();
    ParameterComboBox->addItems(kinds);
    ParameterComboBox->setFocus();
    begin([this, then = std::move(then)](bool byOk) {
        then(byOk ? std::optional(ParameterComboBox->currentText()) : std::nullopt);
    });
}

}  // namespace kelvane
