#include "shell/input_form.h"

#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

TInputForm::TInputForm(ComSetup& setup, QWidget* parent)
    : QDialog(parent), m_setup(setup), InputEdit(new QLineEdit(this)) {
    setObjectName(QStringLiteral("TInputForm"));
    setWindowTitle(QStringLiteral("Test Command"));
    setModal(true);
    InputEdit->setObjectName(QStringLiteral("InputEdit"));
    InputEdit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    InputEdit->setMinimumWidth(InputEdit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 28);
    auto* label =
        captionFor(InputEdit, "Label1", QStringLiteral("&Command of the test, in hexadecimal digits"), this);
    auto* OKTransparentButton = framedButton("OKTransparentButton", Icon::Accept, QStringLiteral("OK"), this);
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(InputEdit);
    auto* cancel = framedButton("CancelTransparentButton", Icon::Cancel, tr("Cancel"), this);
    connect(cancel, &QToolButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(OKTransparentButton);
    row->addWidget(cancel);
    column->addLayout(row);
    connect(OKTransparentButton, &QToolButton::clicked, this, &TInputForm::OKTransparentButtonClick);
    connect(InputEdit, &QLineEdit::returnPressed, this, &TInputForm::OKTransparentButtonClick);
}

void TInputForm::showEvent(QShowEvent* event) {
    InputEdit->setText(m_setup.TestCommand);
    InputEdit->setFocus();
    InputEdit->selectAll();
    QDialog::showEvent(event);
}

void TInputForm::OKTransparentButtonClick() {
    m_setup.TestCommand = InputEdit->text();
    accept();
}

}  // namespace kelvane
