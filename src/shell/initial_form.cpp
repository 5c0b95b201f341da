#include "shell/initial_form.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

TInitialForm::TInitialForm(RequestScheduler& link, QWidget* parent)
    : WaitForm(QStringLiteral("Please wait"), parent), m_link(link) {
    setObjectName(QStringLiteral("TInitialForm"));
    auto* Label1 =
        plainLabel("Label1", QStringLiteral("Config the settings. Please wait a moment ..."), this);
    auto* leave = named<TransparentButton>("CloseTransparentButton", icon(Icon::Close), tr("Close"), this,
                                           TransparentButton::Layout::IconLeft);
    leave->setToolTip(tr("Wait no longer; what has not been read or written stays as it is"));
    m_leave = leave;
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, 2 * room, 2 * room, room);
    column->addWidget(Label1);
    m_trouble = plainLabel("TroubleLabel", {}, this);
    m_trouble->hide();
    column->addWidget(m_trouble);
    column->addSpacing(room / 2);
    column->addWidget(leave, 0, Qt::AlignRight);
    connect(leave, &QToolButton::clicked, this, &TInitialForm::reject);
    connect(&m_link, &RequestScheduler::changed, this, &TInitialForm::showNotice);
}

void TInitialForm::showNotice() {
    const bool wanted = m_link.Notice.TInitialForm;
    if (wanted && !isVisible()) {
        m_leave->setVisible(m_link.Notice.waitMayBeLeft);
        setWindowFlag(Qt::WindowCloseButtonHint, m_link.Notice.waitMayBeLeft);
        adjustSize();
    }
    if (wanted && m_trouble->text() != m_link.Notice.waitTrouble) {
        m_trouble->setText(m_link.Notice.waitTrouble);
        m_trouble->setVisible(!m_trouble->text().isEmpty());
        adjustSize();
    }
    setVisible(wanted);
}

void TInitialForm::reject() {
    if (!m_link.Notice.waitMayBeLeft) return;
    m_link.Notice.TInitialForm = false;
    m_link.notifyChanged();
}

}  // namespace kelvane
