#include "console/console_traffic.h"

namespace kelvane {

ConsoleTraffic::ConsoleTraffic(RequestScheduler& scheduler) : link(scheduler) {
    connect(&link, &RequestScheduler::cycleEnded, this, &ConsoleTraffic::onCycleEnded);
    connect(&link, &RequestScheduler::answered, this, [this](quint8 task) {
        // The handler of STOP belongs to the keypad; here its answer is logged like that of any other write.
        if (link.owner().console && task == StopTask) link.Console.completeReply(link.Rx.RxLogText);
    });
}

bool ConsoleTraffic::exchangeOpen() const {
    return link.RxTimer.Enabled() || (!link.idle() && !link.TxTimer.Enabled());
}

// Every task of the console has one string, so both queues are cut alike.
void ConsoleTraffic::keepStops() {
    size_t kept = link.inHand() ? 1 : 0;
    while (kept < link.TaskQueue.size() && link.TaskQueue[kept] == StopTask) ++kept;
    if (link.TaskQueue.size() > kept) link.TaskQueue.resize(kept);
    if (link.CommandQueue.size() > kept) link.CommandQueue.resize(kept);
}

void ConsoleTraffic::sendStop(const QString& command) {
    endRun();
    m_dropResend = exchangeOpen();
    link.pushCommand(StopTask, command);
}

void ConsoleTraffic::endRun() {
    if (!exchangeOpen()) return cutOff();
    m_dropResend = true;
    keepStops();
}

void ConsoleTraffic::cutOff() {
    m_dropResend = false;
    link.rest();
    link.emptyQueues();
    link.Notice.TCEmessageForm = false;
    link.Notice.LinkAction = 0;
    link.TimeoutCount = 0;
    link.Console.Log.CanSend = 1;
    link.ParamRead.ReadDone = link.ParamRead.WriteDone = 1;
    link.notifyChanged();
    if (!link.TaskQueue.empty()) link.start();
}

void ConsoleTraffic::onCycleEnded() {
    if (!link.owner().console) return;
    if (std::exchange(m_dropResend, false)) link.inHand() ? cutOff() : keepStops();
    if (!free()) return;
    link.Console.Log.CanSend = 1;
    Q_EMIT becameFree();
}

}  // namespace kelvane
