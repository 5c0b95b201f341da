#include "parameters/dialogs/progress_form.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

Icon iconOf(ProgressGlyph glyph) {
    switch (glyph) {
        case ProgressGlyph::ReadFile: return Icon::ReadFile;
        case ProgressGlyph::Save: return Icon::Save;
        case ProgressGlyph::ReadDrive: break;
    }
    return Icon::ReadDrive;
}

QString countText(const ProgressDialog& progress) {
    if (progress.total <= 0) return {};
    return QStringLiteral("%1 of %2").arg(progress.count).arg(progress.total);
}

QString timeLeftText(qint64 ms) {
    if (ms < 0) return {};
    const qint64 seconds = (ms + 999) / 1000;
    if (seconds < 60) return QStringLiteral("about %1 s left").arg(seconds);
    const QString rest = QString::number(seconds % 60).rightJustified(2, QLatin1Char('0'));
    return QStringLiteral("about %1 min %2 s left").arg(seconds / 60).arg(rest);
}

}  // namespace

TProgressForm::TProgressForm(ProgressDialog& progress, QWidget* parent)
    : QDialog(parent),
      m_progress(progress),
      m_appearing(progress.clock(), TickKind::RealTime, AppearsAfterMs, [this] { appear(); }),
      TransparentButton1(new TransparentButton(this)),
      InfoLabel(plainLabel("InfoLabel", {}, this)),
      ParaLabel(plainLabel("ParaLabel", {}, this)),
      CountLabel(plainLabel("CountLabel", {}, this)),
      LeftLabel(plainLabel("LeftLabel", {}, this)),
      ReadingProgressBar(new QProgressBar(this)),
      NoAnswerLabel(plainLabel("NoAnswerLabel", {}, this)),
      StopWaitingTransparentButton(
          framedButton("StopWaitingTransparentButton", Icon::Stop, QStringLiteral("Stop waiting"), this)),
      CancelTransparentButton(
          framedButton("CancelTransparentButton", Icon::Cancel, QStringLiteral("Cancel"), this)) {
    setObjectName(QStringLiteral("TProgressForm"));
    setWindowTitle(m_progress.Caption);
    setWindowModality(Qt::ApplicationModal);
    build();
    connect(CancelTransparentButton, &QToolButton::clicked, &m_progress,
            &ProgressDialog::CancelTransparentButtonClick);
    connect(StopWaitingTransparentButton, &QToolButton::clicked, &m_progress,
            &ProgressDialog::StopWaitingTransparentButtonClick);
    connect(&m_progress, &ProgressDialog::changed, this, &TProgressForm::showRecordSoon);
    connect(&m_progress, &ProgressDialog::shownChanged, this, &TProgressForm::follow);
    showRecord();
}

void TProgressForm::build() {
    TransparentButton1->setObjectName(QStringLiteral("TransparentButton1"));
    TransparentButton1->setFocusPolicy(Qt::NoFocus);
    TransparentButton1->setAttribute(Qt::WA_TransparentForMouseEvents);
    TransparentButton1->setAccessibleName(QStringLiteral("Kind of work"));
    TransparentButton1->setToolButtonStyle(Qt::ToolButtonIconOnly);
    ReadingProgressBar->setObjectName(QStringLiteral("ReadingProgressBar"));
    ReadingProgressBar->setAccessibleName(QStringLiteral("Progress"));
    NoAnswerLabel->setWordWrap(true);
    NoAnswerLabel->hide();
    StopWaitingTransparentButton->hide();
    ParaLabel->setMinimumWidth(fontMetrics().averageCharWidth() * 44);

    auto* texts = new QVBoxLayout;
    texts->addWidget(InfoLabel);
    texts->addWidget(ParaLabel);
    auto* head = new QHBoxLayout;
    head->addWidget(TransparentButton1);
    head->addLayout(texts, 1);
    auto* foot = new QHBoxLayout;
    foot->addWidget(CountLabel);
    foot->addSpacing(fontMetrics().height());
    foot->addWidget(LeftLabel, 1);
    foot->addWidget(StopWaitingTransparentButton);
    foot->addWidget(CancelTransparentButton);
    auto* column = new QVBoxLayout(this);
    column->addLayout(head);
    column->addWidget(ReadingProgressBar);
    column->addWidget(NoAnswerLabel);
    column->addLayout(foot);
}

// The next request goes out first: the record is shown in the next turn of the event loop, whatever changed
// until then.
void TProgressForm::showRecordSoon() {
    if (std::exchange(m_showing, true)) return;
    QMetaObject::invokeMethod(this, &TProgressForm::showRecord, Qt::QueuedConnection);
}

void TProgressForm::showRecord() {
    m_showing = false;
    setMinimumWidth(m_progress.width);
    InfoLabel->setText(m_progress.InfoLabel);
    ParaLabel->setText(m_progress.ParaLabel);
    // A bar without a length would run for ever: one step of it stands for nothing to do.
    ReadingProgressBar->setRange(0, std::max(1, m_progress.maximum));
    ReadingProgressBar->setValue(m_progress.position);
    CountLabel->setText(countText(m_progress));
    const bool stuck = !m_progress.noAnswer.isEmpty();
    LeftLabel->setText(stuck ? QString() : timeLeftText(m_progress.msLeft()));
    if (stuck == StopWaitingTransparentButton->isVisibleTo(this)) return;
    NoAnswerLabel->setText(m_progress.noAnswer);
    NoAnswerLabel->setVisible(stuck);
    StopWaitingTransparentButton->setVisible(stuck);
    if (stuck) StopWaitingTransparentButton->setFocus();
    adjustSize();
}

void TProgressForm::follow(bool shown) {
    qApp->removeEventFilter(this);
    m_appearing.setEnabled(false);
    if (shown) {
        m_below = QApplication::activeModalWidget();
        qApp->installEventFilter(this);
        m_appearing.setEnabled(true);
        return;
    }
    setVisible(false);
}

void TProgressForm::appear() {
    m_appearing.setEnabled(false);
    qApp->removeEventFilter(this);
    TransparentButton1->setIcon(icon(iconOf(m_progress.glyph)));
    showRecord();
    adjustSize();
    CancelTransparentButton->setFocus();
    setVisible(true);
}

// A question that stands over the window below is answered as ever.
bool TProgressForm::eventFilter(QObject* watched, QEvent* event) {
    if (!m_below || QApplication::activeModalWidget() != m_below) return QDialog::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::Shortcut:
        case QEvent::ContextMenu:
        case QEvent::Wheel:
        case QEvent::Drop: return true;
        case QEvent::Close:
            if (!event->spontaneous()) break;
            event->ignore();
            return true;
        default: break;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace kelvane
