#include "parameters/dialogs/progress_dialog.h"

#include <algorithm>

namespace kelvane {

void ProgressDialog::show(const QString& info, int barMaximum, int parameters, int dialogWidth) {
    InfoLabel = info;
    maximum = std::max(barMaximum, 0);
    position = 0;
    cancelMark = false;
    noAnswer.clear();
    width = dialogWidth;
    count = 0;
    total = parameters;
    m_startedUs = m_clock.nowUs();
    setShown(true);
    Q_EMIT changed();
}

void ProgressDialog::showAgain() {
    cancelMark = false;
    setShown(true);
    Q_EMIT changed();
}

void ProgressDialog::close() {
    setShown(false);
    Q_EMIT changed();
}

void ProgressDialog::setShown(bool on) {
    m_link.Notice.TProgressFormShown = on;
    m_link.notifyChanged();
    if (shown == on) return;
    shown = on;
    Q_EMIT shownChanged(on);
}

void ProgressDialog::setPosition(int barPosition) {
    position = std::clamp(barPosition, 0, maximum);
    Q_EMIT changed();
}

void ProgressDialog::parameterDone(const QString& text) {
    ParaLabel = text;
    noAnswer.clear();
    ++count;
    Q_EMIT changed();
}

void ProgressDialog::CancelTransparentButtonClick() {
    cancelMark = true;
    Q_EMIT changed();
    Q_EMIT cancelled();
}

void ProgressDialog::tellNoAnswer(const QString& text) {
    noAnswer = text;
    Q_EMIT changed();
}

void ProgressDialog::StopWaitingTransparentButtonClick() {
    if (shown && !noAnswer.isEmpty()) Q_EMIT stopWaiting();
}

qint64 ProgressDialog::msLeft() const {
    if (!shown || count <= 0 || total < count) return -1;
    return (m_clock.nowUs() - m_startedUs) / count * (total - count) / 1000;
}

}  // namespace kelvane
