#include "commissioning/motor_sel_form.h"

#include <QBoxLayout>
#include <QEvent>
#include <utility>

#include "ui/icons.h"
#include "ui/mark_panel.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

TMotorSelForm::TMotorSelForm(QWidget* parent)
    : QDialog(parent), Motor1Panel(panel(1)), Motor2Panel(panel(2)) {
    setObjectName(QStringLiteral("TMotorSelForm"));
    setWindowTitle(tr("Motor Selection"));
    setWindowModality(Qt::ApplicationModal);
    auto* ok = framedButton("OKTransparentButton", Icon::Accept, tr("OK"), this);
    auto* motors = new QHBoxLayout;
    motors->addWidget(Motor1Panel);
    motors->addWidget(Motor2Panel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(tr("Which motor do you work on?"), this));
    column->addLayout(motors, 1);
    column->addWidget(ok, 0, Qt::AlignRight);
    connect(ok, &QToolButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [this](int result) {
        const auto then = std::exchange(m_then, {});
        const int marked = Motor1Panel->marked() ? 1 : 2;
        if (then) then(result == Accepted ? std::optional(marked) : std::nullopt);
    });
}

void TMotorSelForm::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) setWindowTitle(tr("Motor Selection"));
    QDialog::changeEvent(event);
}

MarkPanel* TMotorSelForm::panel(int motor) {
    const bool first = motor == 1;
    auto* made = named<MarkPanel>(first ? "Motor1Panel" : "Motor2Panel", this);
    auto* button =
        named<TransparentButton>(first ? "Motor1TransparentButton" : "Motor2TransparentButton",
                                 icon(first ? Icon::Motor1 : Icon::Motor2), tr("Motor %1").arg(motor), made);
    button->setIconSize(QSize(64, 64));
    button->setCheckable(true);
    auto* room = new QVBoxLayout(made);
    room->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, motor] { mark(motor); });
    return made;
}

void TMotorSelForm::mark(int motor) {
    Motor1Panel->setMarked(motor == 1);
    Motor2Panel->setMarked(motor != 1);
    for (MarkPanel* panel : {Motor1Panel, Motor2Panel})
        panel->findChild<TransparentButton*>()->setChecked(panel->marked());
}

void TMotorSelForm::ask(int marked, std::function<void(std::optional<int>)> then) {
    m_then = std::move(then);
    mark(marked);
    (marked == 1 ? Motor1Panel : Motor2Panel)->findChild<TransparentButton*>()->setFocus();
    show();
}

}  // namespace kelvane
