#include "parameters/dialogs/sel_para_print_form.h"

#include <QComboBox>

namespace kelvane {

TSelParaPrintForm::TSelParaPrintForm(QWidget* parent)
    : SelForm("TSelParaPrintForm", QString(), parent),
      ParameterComboBox(addBox("ParameterComboBox", QStringLiteral("&Table"))) {}

void TSelParaPrintForm::ask(const QString& title, const QStringList& tables, int selected,
                            std::function<void(std::optional<QString>)> then) {
    setWindowTitle(title);
    ParameterComboBox->clear();
    ParameterComboBox->addItems(tables);
    ParameterComboBox->setCurrentIndex(selected);
    ParameterComboBox->setFocus();
    begin([this, then = std::move(then)](bool byOk) {
        then(byOk ? std::optional(ParameterComboBox->currentText()) : std::nullopt);
    });
}

}  // namespace kelvane
