#include "parameters/dialogs/input_value_form.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "catalogue/value_edit.h"
#include "ui/display_label.h"
#include "ui/icons.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int UnitCharacters = 5;

// Keys that the window or the edit itself acts on: none of them puts a character in.
bool isEditingKey(const QKeyEvent& event) {
    if (event.text().isEmpty() || event.modifiers().testFlag(Qt::ControlModifier)) return true;
    return event.key() == Qt::Key_Escape || event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab ||
           event.key() == Qt::Key_Delete;
}

}  // namespace

TInputValueForm::TInputValueForm(Operator& person, const LangTable& lang, QWidget* parent)
    : QDialog(parent),
      m_person(person),
      m_lang(lang),
      PrInforVrLabel(new VrLabel(this)),
      UnitVrLabel(new VrLabel(this)),
      ValueLabel(new QLabel(QStringLiteral("&Value"), this)),
      InputEdit(new QLineEdit(this)),
      InputComboBox(new QComboBox(this)),
      OKTransparentButton(framedButton("OKTransparentButton", Icon::Accept, QStringLiteral("OK"), this)),
      CancelTransparentButton(
          framedButton("CancelTransparentButton", Icon::Cancel, QStringLiteral("Cancel"), this)) {
    setObjectName(QStringLiteral("TInputValueForm"));
    setWindowTitle(QStringLiteral("Input Value"));
    setWindowModality(Qt::ApplicationModal);
    build();
    InputEdit->setAccessibleName(tr("Value"));
    InputComboBox->setAccessibleName(tr("Value"));
    InputEdit->installEventFilter(this);
    InputComboBox->installEventFilter(this);
    connect(OKTransparentButton, &QToolButton::clicked, this, &TInputValueForm::OKTransparentButtonClick);
    connect(CancelTransparentButton, &QToolButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [this] { m_edit = nullptr; });
}

void TInputValueForm::build() {
    PrInforVrLabel->setObjectName(QStringLiteral("PrInforVrLabel"));
    UnitVrLabel->setObjectName(QStringLiteral("UnitVrLabel"));
    UnitVrLabel->setCharacters(UnitCharacters);
    ValueLabel->setObjectName(QStringLiteral("ValueLabel"));
    InputEdit->setObjectName(QStringLiteral("InputEdit"));
    // What is pasted or dropped has to pass the filter of the keys too.
    InputEdit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[-0-9.,]*")), InputEdit));
    InputComboBox->setObjectName(QStringLiteral("InputComboBox"));

    ValueLabel->setBuddy(InputEdit);
    InputComboBox->hide();
    auto* row = new QHBoxLayout;
    row->addWidget(ValueLabel);
    row->addWidget(InputEdit, 1);
    row->addWidget(InputComboBox, 1);
    row->addWidget(UnitVrLabel);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(fontMetrics().height() / 2);
    column->addWidget(PrInforVrLabel);
    column->addLayout(row);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(OKTransparentButton);
    foot->addWidget(CancelTransparentButton);
    column->addLayout(foot);
}

QDialog* TInputValueForm::prepare(ValueEdit& edit) {
    m_edit = &edit;
    edit.InputAccepted = false;
    edit.Text = edit.InputOldText;
    PrInforVrLabel->setText(edit.PrInforVrLabel);
    UnitVrLabel->setText(edit.UnitVrLabel);
    InputEdit->setText(edit.InputOldText);
    InputComboBox->clear();
    InputComboBox->addItems(inputItems(edit));
    InputComboBox->setCurrentIndex(inputItemIndex(edit));
    InputEdit->setVisible(!edit.fromList);
    InputComboBox->setVisible(edit.fromList);
    QWidget* field = edit.fromList ? static_cast<QWidget*>(InputComboBox) : InputEdit;
    ValueLabel->setBuddy(field);
    field->setAccessibleName(edit.PrInforVrLabel);
    InputEdit->selectAll();
    field->setFocus();
    adjustSize();
    return this;
}

bool TInputValueForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (watched == InputComboBox) {
        if (enter) acceptChosen();
        return enter;
    }
    if (enter) {
        check();
        return true;
    }
    return !isEditingKey(key) && inputKey(key.text().front()) == InputKey::Drop;
}

// Kept: Enter on the list counts as accepted before the value is looked at.
void TInputValueForm::acceptChosen() {
    if (m_edit) m_edit->InputAccepted = true;
    OKTransparentButtonClick();
}

void TInputValueForm::OKTransparentButtonClick() {
    if (InputComboBox->isVisibleTo(this)) InputEdit->setText(InputComboBox->currentText());
    check();
}

void TInputValueForm::check() {
    if (!m_edit) return;
    m_edit->Text = InputEdit->text();
    const InputVerdict verdict = CheckInputValue(*m_edit, m_person, m_lang);
    if (!m_edit) return;  // the window closed while a box stood over it
    InputEdit->setText(m_edit->Text);
    if (verdict == InputVerdict::SelectAll) {  // to type another one, also if OK was clicked
        InputEdit->setFocus();
        InputEdit->selectAll();
    }
    if (verdict == InputVerdict::Close) accept();
}

}  // namespace kelvane
