#include "console/console_traffic.h"

namespace kelvane {

namespace {

constexpr int AtOnce = 1;  // interval of TxTimer; a second after a time-out

}  // namespace

ConsoleTraffic::ConsoleTraffic(RequestScheduler& scheduler) : link(scheduler) {
    connect(&link, &RequestScheduler::cycleEnded, this, &ConsoleTraffic::onCycleEnded);
    connect(&link, &RequestScheduler::consoleLineStarted, this, &ConsoleTraffic::onSent);
}

bool ConsoleTraffic::free() const { return link.TaskQueue.empty() && !exchangeInHand(); }

void ConsoleTraffic::send(quint8 task, const QString& command) {
    link.push(task, command);
    if (!exchangeInHand()) link.TxTimer.setEnabled(true);
}

void ConsoleTraffic::sendStop(const QString& command) {
    m_stop = command;
    m_stopTried = false;
    m_dropResend = true;
    exchangeInHand() ? keepFrontOnly() : link.emptyQueues();
    link.push(ConsoleWriteTask, command);
    if (!exchangeInHand()) sendNow();
}

void ConsoleTraffic::beginRun() {
    m_stale = m_dropResend = exchangeInHand();
    endRun();
}

void ConsoleTraffic::endRun() {
    if (stopWaits()) return;
    if (exchangeInHand()) {
        m_dropResend = true;
        return keepFrontOnly();
    }
    dropAll();
}

void ConsoleTraffic::cutOff() {
    link.RxTimer.setEnabled(false);
    link.Notice.LinkAction = 0;
    m_stale = m_dropResend = false;
    dropAll();
    if (!stopWaits()) return;
    link.push(ConsoleWriteTask, m_stop);
    sendNow();
}

void ConsoleTraffic::dropAll() {
    link.emptyQueues();
    link.TxTimer.setEnabled(false);
    link.Notice.TCEmessageForm = false;
    link.TimeoutCount = 0;
    link.ConsoleLog.CanSend = 1;
    link.ParamRead.ReadDone = link.ParamRead.WriteDone = 1;
    link.notifyChanged();
}

void ConsoleTraffic::keepFrontOnly() {
    if (link.TaskQueue.size() > 1) link.TaskQueue.resize(1);
    if (link.CommandQueue.size() > 1) link.CommandQueue.resize(1);
}

void ConsoleTraffic::keepBackOnly() {
    while (link.TaskQueue.size() > 1) link.TaskQueue.pop_front();
    while (link.CommandQueue.size() > 1) link.CommandQueue.pop_front();
}

void ConsoleTraffic::sendNow() {
    m_stopTried = stopWaits();
    link.TxTimer.setInterval(AtOnce);
    link.TxTimer.setEnabled(true);
}

void ConsoleTraffic::onSent() {
    if (!stopWaits() || link.CommandQueue.empty() || link.CommandQueue.front() != m_stop) return;
    leaveStop();
}

void ConsoleTraffic::leaveStop() {
    m_stop.clear();
    m_dropResend = false;
    Q_EMIT stopLeft();
}

void ConsoleTraffic::onCycleEnded() {
    if (link.ActiveFunction != OwnerAdvance) return;
    m_stale = false;
    // It could not be sent, which the link tells and repeats like any other failure.
    if (stopWaits() && m_stopTried) leaveStop();
    if (stopWaits()) {
        if (link.TaskQueue.empty()) link.push(ConsoleWriteTask, m_stop);  // the failure before it ended in giving up
        keepBackOnly();
        return sendNow();
    }
    const bool resend = link.TxTimer.Enabled();
    if (std::exchange(m_dropResend, false) && resend) {
        const std::deque<quint8> tasks(link.TaskQueue.begin() + 1, link.TaskQueue.end());
        const std::deque<QString> commands(link.CommandQueue.begin() + 1, link.CommandQueue.end());
        dropAll();
        link.TaskQueue = tasks;
        link.CommandQueue = commands;
    }
    if (!link.TaskQueue.empty()) return link.TxTimer.setEnabled(true);
    link.ConsoleLog.CanSend = 1;
    Q_EMIT becameFree();
}

}  // namespace kelvane
