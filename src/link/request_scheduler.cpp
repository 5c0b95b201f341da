#include "link/request_scheduler.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "link/number_text.h"
#include "link/task_table.h"

namespace kelvane {

namespace {

constexpr int MaxUnclear = 3;
constexpr qint64 UntilKickedUs = 3600000000;
constexpr qint64 MinimumSilenceUs = 2000;
constexpr int FewBytes = 3;     // fewer are not worth a rest, which costs two wake-ups itself
constexpr int LongestRest = 3;  // ticks
constexpr int ShortestAsciiReply = 11;

const QString Cofirm = QStringLiteral("Cofirm");

}  // namespace

RequestScheduler::RequestScheduler(const LinkSite& site, int brandVariant)
    : Console(site.wallClock),
      TxTimer(site.clock, TickKind::Stepping, StepInterval, [this] { TxTimerTimer(); }),
      RxTimer(site.clock, TickKind::Waiting, StepInterval, [this] { RxTimerTimer(); }),
      m_site(site),
      m_brandVariant(brandVariant),
      m_trust(site.clock, [this] {
          if (m_sendDeferred) TxTimer.kick();
      }) {
    installTaskTable(*this);
    port().OnTriggerAvail = [this](int count) { ApdComPort1TriggerAvail(count); };
    port().onLost = [this](const QString& reason) { ShowHistoryMsg(reason); };
}

RequestScheduler::~RequestScheduler() {
    port().OnTriggerAvail = nullptr;
    port().onLost = nullptr;
}

void RequestScheduler::onReply(quint8 task, TaskHandler handler) { m_handlers.at(task) = std::move(handler); }

// ---- Requests ----

void RequestScheduler::start() {
    if (RxTimer.Enabled() || m_ending) {
        m_startWanted = true;
    } else {
        TxTimer.setEnabled(true);
    }
}

void RequestScheduler::request(quint8 task, const QString& command) {
    push(task, command);
    start();
}

void RequestScheduler::pushCommand(quint8 task, const QString& command) {
    if (task != StopTask) return request(task, command);
    pushStop(command);
    start();
    if (m_ending) return;
    if (RxTimer.Enabled()) {
        if ((m_trust.inDoubt() && ownAnswerIsHeard()) || stopOutwaitsNoise()) RxTimer.kick();
        return;
    }
    // The exchange in hand is about to be resent. Where that has to wait for silence, STOP does not.
    if (stopWaits() && m_trust.silenceOwed()) promoteStop();
    TxTimer.kick();
}

// ---- Send step ----

void RequestScheduler::TxTimerTimer() {
    TxTimer.setEnabled(false);
    if (sendMustWait()) return;
    stepIndicator(m_indicator >= 100 ? 0 : m_indicator + 10);
    pushPollIfIdle();
    m_sentAgain = inHand();
    // Ahead of an answer that is still on its way, its own may come as late.
    if (m_trust.silenceOwed()) ReplyTimeoutTicks = LongestWait;
    const QString command = takeUp(generatedCommand(TaskQueue.front(), DriveStatus));
    const bool sent = !command.isEmpty() && SendUsart(command);
    // A STOP that the port did not take stays and is tried again.
    if (!sent && !inConsole() && TaskQueue.front() != StopTask) emptyQueues();
    prepareToReceive(command);
    if (inConsole() && Console.listens()) return;
    armFirstWait();
}

// Behind a fault nothing is sent until the line has been silent, but for a person's STOP.
bool RequestScheduler::sendMustWait() {
    m_sendDeferred = m_trust.silenceOwed() && !stopIsNext();
    if (m_sendDeferred) TxTimer.enableFor(UntilKickedUs);
    return m_sendDeferred;
}

void RequestScheduler::stepIndicator(int position) {
    m_indicator = position;
    Q_EMIT indicatorStepped(position);
}

void RequestScheduler::pushPollIfIdle() {
    if (!TaskQueue.empty()) return;
    CommandQueue.clear();
    push(m_brandVariant == 2 ? quint8(53) : quint8(4));
}

bool RequestScheduler::SendUsart(const QString& command) {
    m_wireTimeUs = 0;
    m_sentWire.clear();
    if (!port().Open() && !port().open()) return false;
    port().dropInput();  // what came after the end of an exchange belongs to nobody
    const TxFrame frame =
        buildFrame(mode(), command, inConsole() ? Console.frameCheck() : FrameCheck::Standard);
    m_sentWire = frame.wire;
    TxFrameText = frame.TxFrameText;
    m_wireTimeUs = port().settings().wireTimeUs(frame.wire.size());
    const bool sent = mode() == LinkMode::Rtu ? port().PutBlock(frame.wire) : port().PutString(frame.wire);
    // Kept: the console logs and counts what went out; a failed send shows as its time-out alone.
    if (sent && inConsole()) Console.sent(TxFrameText);
    return sent;
}

void RequestScheduler::prepareToReceive(const QString& command) {
    RxTickCount = 0;
    Console.FirstWaitOver = 0;
    m_wholeReply = m_humTold = false;
    endHoldBack();
    Rx.prepare(mode());
    m_trust.sent(mode(), command, m_wireTimeUs, m_sentAgain);
}

// Nothing is counted while the request is still on the wire. In RTU it ends with its silence: without that, a
// short reply that an adapter's buffer holds back at 1200 baud comes after the wait.
void RequestScheduler::armFirstWait() {
    if (inConsole()) return RxTimer.enableFor(Console.firstTickUs(m_wireTimeUs));
    const qint64 silence = mode() == LinkMode::Rtu ? port().settings().silenceUs() : 0;
    RxTimer.enableFor(m_wireTimeUs + silence + qint64(TickLength) * 1000);
}

// ---- Receive event ----

void RequestScheduler::ApdComPort1TriggerAvail(int count) {
    QByteArray burst;
    bool readError = false;
    for (int i = 0; i < count && !readError; ++i) {
        const std::optional<char> byte = port().GetChar();
        readError = !byte;
        if (byte) burst += *byte;
    }
    if (readError) operatorAsked().tell(QStringLiteral("I got you (com)!!"), Cofirm);
    if (burst.isEmpty() || (inConsole() && Console.takeBurst(burst))) return;
    Rx.takeBurst(mode(), burst);
    m_trust.heard(mode(), burst);
    RxTickCount = 0;
    if (!inConsole() && neverSilent() && !std::exchange(m_humTold, true))
        ShowHistoryMsg(QStringLiteral("The line is never silent, something disturbs it."));
    if (!RxTimer.Enabled()) return;
    const bool mayEndEarly = !inConsole() && !m_trust.inDoubt();
    m_wholeReply = mayEndEarly && mode() == LinkMode::Rtu && !CommandQueue.empty() &&
                   isWholeRtuReply(CommandQueue.front(), Rx);
    const bool noise = stopOutwaitsNoise();
    if (m_wholeReply && !noise) {
        const PortSettings& line = port().settings();
        RxTimer.tickIn(rtuSilenceUs(line.silenceUs(), line.Baud, MinimumSilenceUs));
    } else if (noise || (mayEndEarly && Rx.RxFrameDone && mode() == LinkMode::Ascii) || echoIsHeard()) {
        RxTimer.kick();
    } else if (!restUntilNearlyWhole()) {
        goOnWaiting();
    }
}

// A wake-up for every byte is the dearest part of an exchange. Those that are sure to come may gather, in
// ASCII by the shortest reply at first, and by the reply's function as soon as that is known: never beyond
// the time of the last one, so that the end is noticed at once, and for a few ticks at most, so that a reply
// that breaks off is noticed hardly later. The rest is no tick.
bool RequestScheduler::restUntilNearlyWhole() {
    if (inConsole() || CommandQueue.empty()) return false;
    const int missing = knownLength() - Rx.RxByteCount;
    if (missing < FewBytes || !port().holdBack(true)) return false;
    m_resting = true;
    RxTimer.tickIn(std::min(port().settings().wireTimeUs(missing), qint64(LongestRest) * TickLength * 1000));
    return true;
}

// What looks like the request may be just that, on a line that hears itself; its function tells no length
// then.
int RequestScheduler::knownLength() const {
    const bool echo = m_sentWire.startsWith(Rx.RxData);
    const int known = replyLength(mode(), CommandQueue.front(), Rx);
    if (known > 0 && !echo) return known;
    if (mode() == LinkMode::Ascii) return ShortestAsciiReply;
    return known > 0 ? static_cast<int>(m_sentWire.size()) : 0;
}

// No other request's answer looks like the echo of a write, so in doubt it ends the wait of one that was sent
// once.
bool RequestScheduler::echoIsHeard() const {
    return !inConsole() && !m_sentAgain && m_trust.inDoubt() && m_trust.heardEcho(mode());
}

void RequestScheduler::endHoldBack() {
    if (std::exchange(m_resting, false)) port().holdBack(false);
}

// ---- Wait step ----

void RequestScheduler::goOnWaiting() {
    RxTimer.enableFor(inConsole() ? Console.tickUs() : qint64(TickLength) * 1000);
}

void RequestScheduler::RxTimerTimer() {
    if (m_resting) {
        endHoldBack();
        goOnWaiting();
        return;
    }
    ++RxTickCount;
    RxTimer.setEnabled(false);
    if (!waitIsOver()) {
        goOnWaiting();
        return;
    }
    RxTickCount = 0;
    endCycle();
}

bool RequestScheduler::waitIsOver() {
    if (stopOutwaitsNoise()) return true;
    if (inConsole()) return Console.waitIsOver(RxTickCount, ReplyTimeoutTicks, Rx, port().settings());
    // One tick of silence behind a whole reply stands for all that remain.
    if (m_wholeReply) return true;
    const bool doubt = m_trust.inDoubt();
    if (Rx.RxFrameDone && !doubt) return true;
    if (echoIsHeard()) return true;
    if (RxTickCount >= adapterGapTicks() && m_trust.ownAnswerIsDue() && ownAnswerIsHeard()) return true;
    if (!stopIsDue() && !m_givingUp) return RxTickCount >= ReplyTimeoutTicks;
    if (doubt && ownAnswerIsHeard()) return true;
    return RxTickCount >= std::min(ReplyTimeoutTicks, BaudTimeoutTicks);
}

bool RequestScheduler::ownAnswerIsHeard() const {
    return !CommandQueue.empty() && m_trust.answer(mode(), CommandQueue.front());
}

// The wait is for silence, which a line that hums never is; a STOP waits for no more than an answer can take
// there, and goes out again when its own has not come by then.
bool RequestScheduler::stopOutwaitsNoise() const {
    if ((!stopIsDue() && !stopIsOut()) || RxTickCount > 1) return false;
    const int answer = CommandQueue.empty() ? 0 : answerLength(mode(), CommandQueue.front());
    const quint32 ticks = stopIsOut() ? SilenceAfterResend : 2 * BaudTimeoutTicks;
    return m_trust.hums(qint64(ticks) * TickLength * 1000 + port().settings().wireTimeUs(answer));
}

bool RequestScheduler::neverSilent() const {
    return (RxTimer.Enabled() || m_sendDeferred) && m_trust.hums(ReplyTrust::LongestLateness);
}

// An adapter hands on the bytes of a reply in portions; shorter silences say nothing.
quint32 RequestScheduler::adapterGapTicks() {
    constexpr int Portion = 16;  // characters
    return 1 + static_cast<quint32>(port().settings().wireTimeUs(Portion) / (qint64(TickLength) * 1000));
}

void RequestScheduler::endCycle() {
    {
        const QScopedValueRollback ending(m_ending, true);
        judgeCycle();
    }
    finishByLinkAction();
    notifyChanged();
    Q_EMIT cycleEnded();
}

void RequestScheduler::judgeCycle() {
    if (std::exchange(m_givingUp, false)) {
        Notice.LinkAction = 3;
        return;
    }
    if (stopOutwaitsNoise() && !ownAnswerIsHeard()) return yieldToStop();
    const bool doubt = !inConsole() && m_trust.inDoubt() && m_trust.heardAnything();
    if (doubt && !takeTrustedAnswer() && m_trust.othersMayCome() && m_trust.heardWholeReply(mode()) &&
        m_unclear < MaxUnclear) {
        ++m_unclear;
        askOnceMore();
        return;
    }
    m_unclear = 0;
    if (!Rx.RxData.isEmpty()) {
        handleReply();
    } else if (stopIsDue()) {
        yieldToStop();
    } else {
        handleTimeout();
    }
}

// In doubt the one reply that fits is the answer, whatever came beside it.
bool RequestScheduler::takeTrustedAnswer() {
    const std::optional<QByteArray> reply =
        CommandQueue.empty() ? std::nullopt : m_trust.answer(mode(), CommandQueue.front());
    if (!reply) return false;
    Rx.prepare(mode());
    Rx.takeBurst(mode(), *reply);
    m_trust.answered(*reply);
    return true;
}

// ---- End of the cycle ----

void RequestScheduler::finishByLinkAction() {
    const bool writesWait =
        Notice.TWriteCheckFormShown && !Notice.TProgressFormShown;  // for the answer, to act on it
    if (Notice.LinkAction == 3 && stopIsDue()) m_givingUp = true;   // behind that STOP
    if (Notice.LinkAction == 1 || m_givingUp) return sendAgain();
    if (Notice.LinkAction == 3) {
        giveUp();
    } else {
        if (Notice.LinkAction == 2) {
            stopReadIfRunning();
            if (Notice.TWriteCheckFormShown) {
                ParamRead.WriteDone = 1;
                Notice.LinkAction = 0;
            }
        }
        if (m_sentAgain && !inConsole()) m_trust.oweSilence(SilenceAfterResend);
        dropFront();
        if (inConsole()) ParamRead.ReadDone = ParamRead.WriteDone = 1;
        decideWhetherToGoOn();
    }
    if (!writesWait) Notice.LinkAction = 0;
}

void RequestScheduler::sendAgain() {
    Notice.LinkAction = 0;
    m_startWanted = false;
    TxTimer.setEnabled(true);
    if (stopWaits()) promoteStop();
    if (stopIsNext()) TxTimer.kick();
}

void RequestScheduler::stopReadIfRunning() {
    if (!readIsRunning()) return;
    Q_EMIT parameterReadStopped();
    Notice.TProgressFormShown = false;
    notifyChanged();
    operatorAsked().tell(lang().MsgStr(Message::OnLineFail), QStringLiteral("Error"));
    Q_EMIT focusWanted(ActiveFunction);
}

void RequestScheduler::giveUp() {
    clearQueues();
    if (readIsRunning()) {
        setLamp(LampState::OffLine);
        stopReadIfRunning();
    } else if (inConsole()) {
        Q_EMIT Console.stopWanted();
    } else if (Notice.TWriteCheckFormShown) {
        InitialUnder(ActiveFunction);  // the read-back of an aborted run has the line as the run had
    } else {
        Initial();
    }
    if (Notice.TWriteCheckFormShown) DriveStatus.ExceptionTextDone = 1;
}

void RequestScheduler::decideWhetherToGoOn() {
    const bool exceptionPending = DriveStatus.ExceptionPending == 1;
    const bool runsOutsideThePoll = (!DriveStatus.DriveReady || exceptionPending) &&
                                    owner().goesOnForIdentification && !Notice.TWriteCheckFormShown;
    if (DriveIdentified && (owner().polls || runsOutsideThePoll)) TxTimer.setEnabled(true);
    if (exceptionPending && Notice.TWriteCheckFormShown) TxTimer.setEnabled(true);
    if (owner().emptiesQueues) emptyQueues();
    if (std::exchange(m_startWanted, false) && !TaskQueue.empty()) TxTimer.setEnabled(true);
    if (!stopIsNext()) return;
    TxTimer.setEnabled(true);
    TxTimer.kick();
}

}  // namespace kelvane
