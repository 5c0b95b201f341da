#include "console/connection/console_traffic.h"

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int StopRepeats = 4;
constexpr int EchoBytes = 5;  // function, register and value; the address may be the drive's own

}  // namespace

ConsoleTraffic::ConsoleTraffic(RequestScheduler& scheduler) : link(scheduler) {
    connect(&link, &RequestScheduler::cycleEnded, this, &ConsoleTraffic::onCycleEnded);
    connect(&link, &RequestScheduler::answered, this, [this](quint8 task) {
        if (!link.owner().console || task != StopTask) return;
        // The handler of STOP belongs to the keypad; here its answer is logged like that of any other write.
        link.Console.completeReply(link.Rx.RxLogText);
        m_stopEchoed = link.Rx.RxData.mid(1, EchoBytes) == StrTo8bitInt(m_stop).mid(1, EchoBytes);
    });
    connect(&link.Console, &ConsoleExchange::lineStarted, this, [this] {
        m_stopOut = !link.TaskQueue.empty() && link.TaskQueue.front() == StopTask;
        m_stopEchoed = false;
    });
}

bool ConsoleTraffic::exchangeOpen() const {
    return link.RxTimer.Enabled() || (!link.idle() && !link.TxTimer.Enabled());
}

bool ConsoleTraffic::openPort(const Voice& voice) {
    if (link.port().Open()) return true;
    link.port().close();  // so that the history gets the reason each time that somebody asks
    if (link.port().open()) return true;
    voice.person.tell(voice.text(Message::NoComPort), QStringLiteral("Error Message"));
    return false;
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
    m_stop = command;
    m_stopsLeft = StopRepeats;
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
    link.Notice.TCEmessageFormShown = false;
    link.Notice.LinkAction = 0;
    link.TimeoutCount = 0;
    link.Console.Log.CanSend = 1;
    link.ParamRead.ReadDone = link.ParamRead.WriteDone = 1;
    link.notifyChanged();
    if (!link.TaskQueue.empty()) link.start();
}

// A late echo of another write may have been taken for its own, while the STOP itself was lost.
void ConsoleTraffic::repeatStop() {
    if (!m_stopOut || link.inHand()) return;
    m_stopOut = false;
    const bool answeredOtherwise = !m_stopEchoed && !link.Rx.RxData.isEmpty();
    if (answeredOtherwise && m_stopsLeft-- > 0) link.pushCommand(StopTask, m_stop);
}

void ConsoleTraffic::onCycleEnded() {
    if (!link.owner().console) return;
    if (std::exchange(m_dropResend, false)) link.inHand() ? cutOff() : keepStops();
    repeatStop();
    if (!free()) return;
    link.Console.Log.CanSend = 1;
    Q_EMIT becameFree();
}

}  // namespace kelvane
