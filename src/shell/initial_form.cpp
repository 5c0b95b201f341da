#include "shell/initial_form.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kelvane {

TInitialForm::TInitialForm(RequestScheduler& link, QWidget* parent)
    : WaitForm(QStringLiteral("Please wait"), parent), m_link(link) {
    setObjectName(QStringLiteral("TInitialForm"));
    auto* Label1 = new QLabel(QStringLiteral("Config the settings. Please wait a moment ..."), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, 2 * room, 2 * room, 2 * room);
    column->addWidget(Label1);
    connect(&m_link, &RequestScheduler::changed, this, [this] { setVisible(m_link.Notice.TInitialForm); });
}

}  // namespace kelvane
