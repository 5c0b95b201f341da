#include "shell/initial_form.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int PatienceMs = 5000;

}  // namespace

TInitialForm::TInitialForm(RequestScheduler& link, TickClock& clock, QWidget* parent)
    : WaitForm(tr("Please wait"), parent),
      m_link(link),
      m_progress(named<QProgressBar>("ProgressBar1", this)),
      m_patience(clock, TickKind::RealTime, PatienceMs, [this] { offerToLeave(true); }),
      m_trouble(plainLabel("TroubleLabel", {}, this)),
      m_waitsFor(plainLabel("WaitsForLabel", {}, this)),
      m_stop(framedButton("CloseTransparentButton", Icon::Cancel, tr("Stop waiting"), this)) {
    setObjectName(QStringLiteral("TInitialForm"));
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, 2 * room, 2 * room, 2 * room);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(
        plainLabel("Label1", QStringLiteral("Config the settings. Please wait a moment ..."), this));
    column->addWidget(m_progress);
    column->addWidget(m_trouble);
    column->addWidget(m_waitsFor);
    column->addWidget(m_stop, 0, Qt::AlignRight);
    m_trouble->hide();
    m_waitsFor->setWordWrap(true);
    m_progress->setFormat(QStringLiteral("%v / %m"));
    showProgress(0, 0);
    offerToLeave(false);
    connect(m_stop, &QAbstractButton::clicked, this, &TInitialForm::leave);
    connect(&m_link, &RequestScheduler::changed, this, &TInitialForm::follow);
}

void TInitialForm::follow() {
    const bool wanted = m_link.Notice.TInitialFormShown;
    m_trouble->setText(m_link.Notice.waitTrouble);
    m_trouble->setVisible(!m_link.Notice.waitTrouble.isEmpty());
    if (wanted == isVisible()) return;
    offerToLeave(false);
    m_stop->setVisible(m_link.Notice.waitMayBeLeft);
    m_patience.setEnabled(wanted);
    setWindowTitle(tr("Please wait"));
    setVisible(wanted);
}

void TInitialForm::offerToLeave(bool offered) {
    m_patience.setEnabled(false);
    m_waitsFor->setText(
        m_link.Notice.waitMayBeLeft
            ? tr("Still waiting for the drive. If the line is disturbed, this may never end.")
            : tr("Still waiting for the drive to say who it is. If the line is disturbed, this "
                 "may never end."));
    m_waitsFor->setVisible(offered);
    m_stop->setVisible(offered);
    if (offered) m_stop->setFocus();
}

// Escape leaves as the button does, once it is there.
void TInitialForm::reject() {
    if (m_stop->isVisible()) leave();
}

void TInitialForm::leave() {
    if (!m_link.Notice.waitMayBeLeft) m_link.Initial();
    m_link.Notice.TInitialFormShown = false;
    m_link.notifyChanged();
    Q_EMIT left();
}

void TInitialForm::showProgress(int done, int total) {
    m_progress->setVisible(total > 0);
    m_progress->setRange(0, total);
    m_progress->setValue(done);
}

}  // namespace kelvane
