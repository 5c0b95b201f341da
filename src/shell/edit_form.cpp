#include "shell/edit_form.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QVBoxLayout>
#include <utility>

#include "ui/named.h"

namespace kelvane {

TEditForm::TEditForm(QWidget* parent) : QDialog(parent), UpdateEdit(named<QLineEdit>("UpdateEdit")) {
    constexpr int Characters = 48;
    setObjectName(QStringLiteral("TEditForm"));
    setWindowTitle(QStringLiteral("Edit Box"));
    UpdateEdit->setMinimumWidth(fontMetrics().averageCharWidth() * Characters);
    auto* column = new QVBoxLayout(this);
    column->addWidget(
        captionFor(UpdateEdit, "Label1", QStringLiteral("Input the string what you want to replace.")));
    column->addWidget(UpdateEdit);
    auto* buttons = named<QDialogButtonBox>("ButtonBox", QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TEditForm::ask(const QString& caption, std::function<void(const QString&)> replace) {
    m_replace = std::move(replace);
    UpdateEdit->clear();
    UpdateEdit->setPlaceholderText(caption);
    UpdateEdit->setFocus();
}

void TEditForm::done(int result) {
    const auto replace = std::exchange(m_replace, {});
    const QString text = UpdateEdit->text();
    UpdateEdit->clear();
    QDialog::done(result);
    if (result == Accepted && !text.isEmpty() && replace) replace(text);
}

}  // namespace kelvane
