#include "shell/initial_form.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

TInitialForm::TInitialForm(RequestScheduler& link, QWidget* parent)
    : WaitForm(QStringLiteral("Please wait"), parent),
      m_link(link),
      m_progress(named<QProgressBar>("ProgressBar1", this)),
      m_stop(named<TransparentButton>("StopTransparentButton", icon(Icon::Stop), tr("Stop"), this,
                                      TransparentButton::Layout::IconLeft)) {
    setObjectName(QStringLiteral("TInitialForm"));
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, 2 * room, 2 * room, 2 * room);
    column->addWidget(
        plainLabel("Label1", QStringLiteral("Config the settings. Please wait a moment ..."), this));
    column->addWidget(m_progress);
    column->addWidget(m_stop, 0, Qt::AlignHCenter);
    m_progress->setFormat(QStringLiteral("%v / %m"));
    m_stop->setToolTip(tr("Do not wait any longer"));
    showProgress(0, 0);
    connect(m_stop, &QToolButton::clicked, this, &TInitialForm::reject);
    connect(&m_link, &RequestScheduler::changed, this, &TInitialForm::showNotice);
}

void TInitialForm::showProgress(int done, int total) {
    m_progress->setVisible(total > 0);
    m_stop->setVisible(total > 0);
    m_progress->setRange(0, total);
    m_progress->setValue(done);
}

void TInitialForm::showNotice() {
    const bool wanted = m_link.Notice.TInitialForm;
    if (wanted && !isVisible()) {
        m_stop->setVisible(m_link.Notice.waitMayBeLeft || m_progress->maximum() > 0);
        setWindowFlag(Qt::WindowCloseButtonHint, m_link.Notice.waitMayBeLeft);
        adjustSize();
    }
    setVisible(wanted);
}

void TInitialForm::reject() {
    if (m_link.Notice.waitMayBeLeft) {
        m_link.Notice.TInitialForm = false;
        m_link.notifyChanged();
    } else if (m_progress->maximum() > 0) {
        Q_EMIT leaveWanted();
    }
}

}  // namespace kelvane
