// What an exchange that got no answer of its own does: it is tried again, and behind the fifth silence a
// person is asked.
#include "link/request_scheduler.h"

namespace kelvane {

namespace {

constexpr int PauseAfterTimeout = 1000;  // ms
constexpr quint8 MaxSilentRepeats = 4;

}  // namespace

void RequestScheduler::askOnceMore() {
    ShowHistoryMsg(QStringLiteral("An answer to another request came. The request is sent again."));
    TxTimer.setInterval(StepInterval);
    m_trust.lostTrack();
    m_trust.oweSilence(SilenceAfterResend);
    Notice.LinkAction = 1;
}

// Not counted as a time-out: the request was not waited for as long as it may be.
void RequestScheduler::yieldToStop() {
    keepStop();
    if (inConsole()) Console.noResponse();
    m_trust.lostTrack();
    m_trust.oweSilence(SilenceAfterResend);
    Notice.LinkAction = 1;
}

void RequestScheduler::handleTimeout() {
    m_silentSince = true;
    if (!inConsole()) {
        m_trust.lostTrack();
        m_trust.oweSilence(BaudTimeoutTicks);
        Q_EMIT timedOut();
    } else if (!Console.timedOut()) {
        return;
    }
    ++TimeoutCount;
    if (TimeoutCount <= MaxSilentRepeats) {
        announceRetry();
    } else {
        askAfterFifthTimeout();
    }
    if (!inConsole()) {
        ShowHistoryMsg(QStringLiteral("Communication Timeout"));
        Q_EMIT timeoutTold();
    }
    TxTimer.setInterval(PauseAfterTimeout);
}

void RequestScheduler::announceRetry() {
    Notice.TCEmessageFormShown = true;
    Notice.CEmessageText = QStringLiteral("Can not get any response from derive. Try to communicate ...");
    Notice.CEmessageTitle = QStringLiteral("Communication TimeOut");
    Notice.LinkAction = 1;
    ReplyTimeoutTicks = TimeoutCount == 1 ? 50 : LongestWait;
    notifyChanged();
}

void RequestScheduler::askAfterFifthTimeout() {
    Notice.TCEmessageFormShown = false;
    inConsole() ? notifyChanged() : setLamp(LampState::Silent);
    Notice.LinkAction = static_cast<quint8>(
        operatorAsked().linkFailure(QStringLiteral("Communication Timeout"), !readIsRunning()));
    TimeoutCount = 0;
    if (inConsole()) Console.Log.CanSend = 1;
}

}  // namespace kelvane
