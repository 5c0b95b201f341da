#include "link/request_scheduler.h"

#include <QLocale>
#include <algorithm>

#include "link/number_text.h"
#include "link/task_table.h"

namespace kelvane {

namespace {

constexpr int StepInterval = 1;
constexpr int PauseAfterTimeout = 1000;  // ms
constexpr quint8 MaxSilentRepeats = 4;
constexpr qint64 ConsoleLeadUs = 100000;  // the line's and the drive's share of a console wait
constexpr qint64 ConsoleTickUs = 1000;
constexpr qint64 MinimumSilenceUs = 2000;
constexpr int FewBytes = 3;     // fewer are not worth a rest, which costs two wake-ups itself
constexpr int LongestRest = 3;  // ticks
constexpr int ShortestAsciiReply = 11;

const QString Cofirm = QStringLiteral("Cofirm");

QString longTimeWithoutZone(const QLocale& locale, const QTime& time) {
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(QLatin1Char('t'));
    return locale.toString(time, format.trimmed());
}

}  // namespace

RequestScheduler::RequestScheduler(const LinkBench& bench, int brandVariant)
    : BrandVariant(brandVariant),
      TxTimer(bench.clock, TickKind::Stepping, StepInterval, [this] { TxTimerTimer(); }),
      RxTimer(bench.clock, TickKind::Waiting, StepInterval, [this] { RxTimerTimer(); }),
      m_bench(bench) {
    installTaskTable(*this);
    port().OnTriggerAvail = [this](int count) { ApdComPort1TriggerAvail(count); };
    port().onLost = [this](const QString& reason) { ShowHistoryMsg(reason); };
}

RequestScheduler::~RequestScheduler() {
    port().OnTriggerAvail = nullptr;
    port().onLost = nullptr;
}

void RequestScheduler::push(quint8 task, const QString& command) {
    TaskQueue.push_back(task);
    CommandQueue.push_back(command);
}

void RequestScheduler::emptyQueues() {
    TaskQueue.clear();
    CommandQueue.clear();
}

QString RequestScheduler::dateTimeText() const {
    const QLocale locale = QLocale::system();
    const QDateTime now = m_bench.wallClock.now();
    return locale.toString(now.date(), QLocale::ShortFormat) % QLatin1Char(' ') %
           longTimeWithoutZone(locale, now.time());
}

void RequestScheduler::ShowHistoryMsg(const QString& text) {
    Q_EMIT historyLine(dateTimeText() % QStringLiteral(" > ") % text);
}

void RequestScheduler::notifyChanged() {
    ShownRecords shown{Labels, Lamp, Keypad, Trend, Notice, AutoTuning, PIDControl};
    if (shown == m_lastShown) return;
    m_lastShown = std::move(shown);
    Q_EMIT changed();
}

void RequestScheduler::clearReception() {
    Rx.RxLogText.clear();
    Rx.RxData.clear();
}

void RequestScheduler::Initial() {
    ActiveFunction = OwnerMain;
    Keypad.KeypadStartMode = 0;
    DriveStatus.KeypadDataDue = 1;
    Labels = {};
    emptyQueues();
    if (BrandVariant == 2) {
        for (const int task : {50, 51, 52}) push(static_cast<quint8>(task));
    } else {
        push(0, QStringLiteral("FF0321100003"));
        push(21);
    }
    Trend.KeypadTransparentButton = false;
    DriveStatus.GroupIndex = DriveStatus.FaultCode = DriveStatus.ExceptionPending = DriveStatus.DriveReady =
        0;
    DriveStatus.FaultTextValid = DriveStatus.ExceptionTextDone = 0;
    ParamRead.ReadDone = ParamRead.WriteDone = 0;
    TxTimer.setEnabled(false);
    RxTimer.setEnabled(false);
    endRest();
    port().close();
    Keypad.OnLineTransparentButton = true;
    Keypad.InitialVrLabel = Keypad.keys = Keypad.editing = Keypad.ledsLit = Keypad.GetDataTimer = false;
    Keypad.pageIndex = 3;
    Lamp = {};
    ComStatusVrIndicator = 0;
    Q_EMIT indicatorStepped(0);
    RxTickCount = 0;
    InitFailCount = TimeoutCount = 0;
    Rx.RxGotCR = Rx.RxFrameDone = 0;
    clearReception();
    AutoTuning = PIDControl = false;
    Trend.StatusTabSheet = false;
    Notice.TInitialForm = false;
    DriveIdentified = 1;
    Q_EMIT initialRun();
    notifyChanged();
}

void RequestScheduler::prelude() {
    TxTimer.setEnabled(false);
    RxTimer.setEnabled(false);
    endRest();
    RxTickCount = 0;
    TimeoutCount = 0;
    clearReception();
    Keypad.GetDataTimer = false;
    emptyQueues();
    notifyChanged();
}

void RequestScheduler::tail() {
    ActiveFunction = OwnerMain;
    if (Lamp.onLine()) {
        RxTickCount = 0;
        TimeoutCount = 0;
        clearReception();
        TxTimer.setEnabled(true);
        Keypad.GetDataTimer = true;
    }
    notifyChanged();
}

// ---- Send step ----

void RequestScheduler::TxTimerTimer() {
    TxTimer.setEnabled(false);
    stepIndicatorForSend();
    pushPollIfIdle();
    const QString generated = generatedCommand(TaskQueue.front(), DriveStatus);
    if (!generated.isEmpty()) CommandQueue.push_back(generated);
    // Kept: a resent generated task pushes its command again and sends the old front.
    const bool sent = !CommandQueue.empty() && SendUsart(QString(CommandQueue.front()));
    if (!sent && !inConsole()) emptyQueues();
    // Kept: the console logs and counts what went out; a failed send shows as its time-out alone.
    if (sent && inConsole()) logConsoleSend();
    prepareToReceive();
    if (inConsole() && (Console.Monitor || Console.Flasher)) return;
    armFirstWait();
}

void RequestScheduler::stepIndicatorForSend() {
    int& position = ComStatusVrIndicator;
    position = position >= 100 ? 0 : position + 10;
    Q_EMIT indicatorStepped(position);
}

void RequestScheduler::pushPollIfIdle() {
    if (!TaskQueue.empty()) return;
    CommandQueue.clear();
    push(BrandVariant == 2 ? quint8(53) : quint8(4));
}

FrameCheck RequestScheduler::frameCheck() const {
    if (!inConsole()) return FrameCheck::Standard;
    if (!Console.AddChksumCheckBox || Console.Flasher) return FrameCheck::None;
    return Console.Orlan ? FrameCheck::Standard : FrameCheck::Fletcher;
}

bool RequestScheduler::SendUsart(const QString& command) {
    m_wireTimeUs = 0;
    if (!port().Open() && !port().open()) return false;
    port().dropInput();  // what came after the end of an exchange belongs to nobody
    const TxFrame frame = buildFrame(mode(), command, frameCheck());
    TxFrameText = frame.TxFrameText;
    m_wireTimeUs = port().settings().wireTimeUs(frame.wire.size());
    return mode() == LinkMode::Rtu ? port().PutBlock(frame.wire) : port().PutString(frame.wire);
}

void RequestScheduler::logConsoleSend() {
    const QDateTime now = m_bench.wallClock.now();
    SendTime = {now.time().hour(), now.time().minute(), now.time().second(), now.time().msec() / 10};
    ConsoleLog.topLine = QLatin1Char('[') % QLocale::system().toString(now.date(), QLocale::ShortFormat) %
                         QString::asprintf(" %02d:%02d:%02d:%02d] ", SendTime.hour, SendTime.minute,
                                           SendTime.second, SendTime.hundredth) %
                         QStringLiteral("Send > ") % TxFrameText % QStringLiteral(" .......  ");
    ConsoleLog.topLineColour = ConsoleBlack;
    ++ConsoleLog.totalRecords;
    if (Console.Flasher) ConsoleLog.FmonitorMemo += TxFrameText;
    Q_EMIT consoleLineStarted();
}

void RequestScheduler::prepareToReceive() {
    RxTickCount = 0;
    FirstWaitOver = 0;
    m_wholeReply = false;
    endRest();
    Rx.prepare(mode());
}

// Nothing is counted while the request is still on the wire. In RTU it ends with its silence: without that, a
// short reply that an adapter's buffer holds back at 1200 baud comes after the wait.
void RequestScheduler::armFirstWait() {
    if (inConsole()) return RxTimer.enableFor(m_wireTimeUs + ConsoleLeadUs + ConsoleTickUs);
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
    if (burst.isEmpty()) return;
    if (inConsole() && Console.Monitor) {
        Q_EMIT listenerBurst(burst);
        return;
    }
    Rx.takeBurst(mode(), burst);
    RxTickCount = 0;
    if (!RxTimer.Enabled()) return;
    m_wholeReply = mode() == LinkMode::Rtu && !inConsole() && !CommandQueue.empty() &&
                   isWholeRtuReply(CommandQueue.front(), Rx);
    if (m_wholeReply) {
        const PortSettings& line = port().settings();
        RxTimer.tickIn(rtuSilenceUs(line.silenceUs(), line.Baud, MinimumSilenceUs));
    } else if (Rx.RxFrameDone && mode() == LinkMode::Ascii && !inConsole()) {
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
    const int told = replyLength(mode(), CommandQueue.front(), Rx);
    const int length = told > 0 || mode() == LinkMode::Rtu ? told : ShortestAsciiReply;
    const int missing = length - Rx.RxByteCount;
    if (missing < FewBytes || !port().holdBack(true)) return false;
    m_resting = true;
    RxTimer.tickIn(std::min(port().settings().wireTimeUs(missing), qint64(LongestRest) * TickLength * 1000));
    return true;
}

void RequestScheduler::endRest() {
    if (std::exchange(m_resting, false)) port().holdBack(false);
}

// ---- Wait step ----

void RequestScheduler::goOnWaiting() {
    RxTimer.enableFor(inConsole() ? ConsoleTickUs : qint64(TickLength) * 1000);
}

void RequestScheduler::RxTimerTimer() {
    if (m_resting) {
        endRest();
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
    if (inConsole()) return consoleWaitIsOver();
    // One tick of silence behind a whole reply stands for all that remain.
    if (m_wholeReply) return true;
    return RxTickCount >= ReplyTimeoutTicks || Rx.RxFrameDone;
}

bool RequestScheduler::consoleWaitIsOver() {
    const bool longWait = Console.TimeOut1 > ReplyTimeoutTicks;
    if (!FirstWaitOver) {
        const quint32 limit = longWait ? Console.TimeOut1 : ReplyTimeoutTicks;
        if (RxTickCount < limit) return Rx.RxFrameDone && !longWait;
        if (Rx.RxByteCount != 0) return true;
        RxTickCount = 0;
        FirstWaitOver = 1;
    }
    return RxTickCount >= Console.TimeOut2;
}

void RequestScheduler::endCycle() {
    if (Rx.RxByteCount == 0) {
        inConsole() ? handleConsoleTimeout() : handleTimeout();
    } else {
        handleReply();
    }
    finishByLinkAction();
    notifyChanged();
    Q_EMIT cycleEnded();
}

// ---- Time-out path ----

void RequestScheduler::handleTimeout() {
    showErrorOnKeypad();
    ++TimeoutCount;
    if (TimeoutCount <= MaxSilentRepeats) {
        announceRetry();
    } else {
        Lamp.ComStatusAbLED = QStringLiteral("Off Line");
        Lamp.green = false;
        ComStatusVrIndicator = 0;
        Q_EMIT indicatorStepped(0);
        askAfterFifthTimeout();
    }
    ShowHistoryMsg(QStringLiteral("Communication Timeout"));
    suspendTrend();
    TxTimer.setInterval(PauseAfterTimeout);
}

void RequestScheduler::showErrorOnKeypad() {
    Keypad.ErrNameVrLabel = QStringLiteral("CE 10");
    Keypad.ErrDescriptLabel = QStringLiteral("Time Out");
    Keypad.pageIndex = 2;
    Keypad.GetDataTimer = false;
}

void RequestScheduler::announceRetry() {
    Notice.TCEmessageForm = true;
    Notice.CEmessageText = QStringLiteral("Can not get any response from derive. Try to communicate ...");
    Notice.CEmessageTitle = QStringLiteral("Communication TimeOut");
    Notice.LinkAction = 1;
    ReplyTimeoutTicks = TimeoutCount == 1 ? 50 : 300;
    notifyChanged();
}

void RequestScheduler::askAfterFifthTimeout() {
    Notice.TCEmessageForm = false;
    notifyChanged();
    const bool ignoreShown = !(ActiveFunction == OwnerParameter && Notice.TProgressForm);
    Notice.LinkAction = static_cast<quint8>(
        operatorAsked().linkFailure(QStringLiteral("Communication Timeout"), ignoreShown));
    TimeoutCount = 0;
}

void RequestScheduler::suspendTrend() {
    if (!Trend.StartVrPowerButton) return;
    Trend.GetDataTimer = false;
    Trend.recording1 = false;
}

void RequestScheduler::completeConsoleLine(const QString& addition, quint32 colour) {
    ConsoleLog.topLine += addition;
    ConsoleLog.topLineColour = colour;
    Q_EMIT consoleLineCompleted();
}

void RequestScheduler::handleConsoleTimeout() {
    ++ConsoleLog.timeoutRecords;
    completeConsoleLine(QStringLiteral("Receive > No response"), ConsoleRed);
    if (Console.ListRunning) {
        ConsoleLog.RepliedMessage = QStringLiteral("Time Out");
        ConsoleLog.RepliedData = QString();
        Q_EMIT consoleRowReplied();
    }
    if (Console.TimeOutCheckBox) {
        Q_EMIT consoleStopWanted();
        return;
    }
    if (Console.ListRunning) {
        ConsoleLog.CanSend = 1;
        return;
    }
    ++TimeoutCount;
    TimeoutCount <= MaxSilentRepeats ? announceRetry() : askAfterFifthTimeout();
    TxTimer.setInterval(PauseAfterTimeout);
}

// ---- Reply path ----

void RequestScheduler::handleReply() {
    TxTimer.setInterval(StepInterval);
    Notice.TCEmessageForm = false;
    notifyChanged();
    TimeoutCount = 0;
    ReplyTimeoutTicks = BaudTimeoutTicks;
    resumeTrend();
    if (!Lamp.green && !inConsole()) goOnLine();
    stepIndicatorForReply();

    // Fronts are copied: a box below may let other windows touch the queues.
    const QString command = CommandQueue.empty() ? QString() : CommandQueue.front();
    const quint8 task = TaskQueue.empty() ? quint8(0xFF) : TaskQueue.front();
    const bool rules = !inConsole() || Console.CheckRuleCheckBox;
    const JudgedReply reply = judgeReply(mode(), command, Rx, rules);
    Rx.RxData = reply.RxData;
    actOn(reply, command, task);
    if (inConsole() && reply.verdict != ReplyVerdict::Good) finishConsoleFailure(reply);
}

void RequestScheduler::stepIndicatorForReply() {
    int& position = ComStatusVrIndicator;
    position = position == 90 ? 0 : std::min(position + 10, 100);  // the bar ends at 100
    Q_EMIT indicatorStepped(position);
}

void RequestScheduler::resumeTrend() {
    if (!Trend.StartVrPowerButton || Trend.GetDataTimer) return;
    Trend.GetDataTimer = Trend.flow1 = Trend.flow2 = Trend.recording1 = true;
}

void RequestScheduler::goOnLine() {
    const PortSettings& line = port().settings();
    Lamp.green = true;
    Lamp.ComStatusAbLED = QStringLiteral("On Line");
    Lamp.mainPanel1 = QStringLiteral("%1 %2 < %3, %4, %5 >")
                          .arg(mode() == LinkMode::Rtu ? QStringLiteral("RTU") : QStringLiteral("ASCII"))
                          .arg(line.Baud)
                          .arg(line.DataBits)
                          .arg(parityLetter(line.Parity))
                          .arg(line.StopBits);
    Lamp.parameterPanel1 = QStringLiteral("On - Line");
}

void RequestScheduler::actOn(const JudgedReply& reply, const QString& command, quint8 task) {
    switch (reply.verdict) {
        case ReplyVerdict::BadChecksum:
            if (!inConsole()) onBadChecksum();
            return;
        case ReplyVerdict::Exception: onException(reply.ExceptionCode, task); return;
        case ReplyVerdict::LengthError:
            if (inConsole()) return;
            ShowHistoryMsg(QStringLiteral("Receive data length is not correct !!"));
            countRule();
            return;
        case ReplyVerdict::FunctionError:
            if (inConsole()) return;
            ShowHistoryMsg(QStringLiteral("Function code error !! -> "));
            countRule();
            return;
        case ReplyVerdict::Good: break;
    }
    if (!DriveStatus.DriveReady) InitFailCount = 0;
    DriveStatus.ExceptionPending = 0;
    if (task < taskHandlers.size() && taskHandlers[task]) taskHandlers[task](command, reply.RxData);
}

void RequestScheduler::onBadChecksum() {
    ShowHistoryMsg(QStringLiteral("Checksum Error !! Receive Data > ") % Rx.RxLogText);
    if (DriveStatus.DriveReady) {
        // Kept: no limit on these repeats.
        Notice.LinkAction = 1;
        Keypad.GetDataTimer = false;
        return;
    }
    const BoxAnswer answer =
        operatorAsked().box(lang().MsgStr(3), Cofirm, BoxIcon::Stop, BoxButtons::RetryCancel);
    Notice.LinkAction = answer == BoxAnswer::Retry ? 1 : 3;
    if (answer != BoxAnswer::Retry) operatorAsked().tell(lang().MsgStr(4), QStringLiteral("Error"));
}

void RequestScheduler::onException(quint8 code, quint8 task) {
    DriveStatus.ExceptionPending = 1;
    DriveStatus.ExceptionCode = code;
    if (inConsole()) return;
    if (task == 10) DriveStatus.KeypadDataDue = 1;
    // A drive without text registers would be asked for the text of its own refusal for ever.
    if (task != 15)
        push(15, QStringLiteral("FF0333") % IntToBaseStr(code, 16, 2) %
                     (DriveStatus.DriveFamily == 0 ? QStringLiteral("000A") : QStringLiteral("0008")));
    countRule();
}

void RequestScheduler::countRule() {
    if (DriveStatus.DriveReady) return;
    ++InitFailCount;
    if (InitFailCount <= MaxSilentRepeats) {
        Notice.LinkAction = 1;
        return;
    }
    Notice.LinkAction = 3;
    Notice.TInitialForm = false;
    notifyChanged();
    operatorAsked().tell(QStringLiteral("Initial drive failed !!"), QStringLiteral("Error"));
}

void RequestScheduler::finishConsoleFailure(const JudgedReply& reply) {
    ++ConsoleLog.errorRecords;
    completeConsoleLine(QStringLiteral("Receive > ") % Rx.RxLogText, ConsolePurple);
    if (Console.ListRunning) {
        ConsoleLog.RepliedMessage = Rx.RxLogText;
        switch (reply.verdict) {
            case ReplyVerdict::BadChecksum: ConsoleLog.RepliedData = QStringLiteral("Checksum Error"); break;
            case ReplyVerdict::Exception:
                ConsoleLog.RepliedData = QStringLiteral("CE") % QString::number(reply.ExceptionCode);
                break;
            case ReplyVerdict::LengthError:
                ConsoleLog.RepliedData = QStringLiteral("Receive data length is not correct!!");
                break;
            default: ConsoleLog.RepliedData = QStringLiteral("Function code error!!"); break;
        }
        Q_EMIT consoleRowReplied();
    }
    ConsoleLog.CanSend = 1;
    if (Console.ErrorCheckBox) Q_EMIT consoleStopWanted();
}

// ---- End of the cycle ----

void RequestScheduler::finishByLinkAction() {
    if (Notice.LinkAction == 1) {
        TxTimer.setEnabled(true);
        Notice.LinkAction = 0;
        return;
    }
    if (Notice.LinkAction == 3) {
        giveUp();
    } else {
        if (Notice.LinkAction == 2) {
            stopReadIfRunning();
            if (Notice.TWriteCheckForm) {
                ParamRead.WriteDone = 1;
                Notice.LinkAction = 0;
            }
        }
        dropFront();
        if (inConsole()) ParamRead.ReadDone = ParamRead.WriteDone = 1;
        decideWhetherToGoOn();
    }
    if (!(Notice.TWriteCheckForm && !Notice.TProgressForm)) Notice.LinkAction = 0;
}

bool RequestScheduler::readIsRunning() const {
    return ActiveFunction == OwnerParameter && Notice.TProgressForm;
}

void RequestScheduler::stopReadIfRunning() {
    if (!readIsRunning()) return;
    if (stopParameterRead) stopParameterRead();
    Notice.TProgressForm = false;
    notifyChanged();
    operatorAsked().tell(lang().MsgStr(4), QStringLiteral("Error"));
    Q_EMIT focusWanted(OwnerParameter);
}

void RequestScheduler::giveUp() {
    emptyQueues();
    if (readIsRunning()) {
        stopReadIfRunning();
    } else if (inConsole()) {
        Q_EMIT consoleStopWanted();
    } else {
        Initial();
    }
    if (Notice.TWriteCheckForm) DriveStatus.ExceptionTextDone = 1;
}

void RequestScheduler::dropFront() {
    if (!TaskQueue.empty()) TaskQueue.pop_front();
    if (!CommandQueue.empty()) CommandQueue.pop_front();
}

void RequestScheduler::decideWhetherToGoOn() {
    const bool exceptionPending = DriveStatus.ExceptionPending == 1;
    if (!ownedByWindow() && DriveIdentified) {
        TxTimer.setEnabled(true);
    } else if ((!DriveStatus.DriveReady || exceptionPending) && ActiveFunction != OwnerAdvance &&
               ActiveFunction != OwnerPid && !Notice.TWriteCheckForm && DriveIdentified) {
        TxTimer.setEnabled(true);
    }
    if (exceptionPending && Notice.TWriteCheckForm) TxTimer.setEnabled(true);
    if (ActiveFunction == OwnerAutoTuning || ActiveFunction == OwnerPid) emptyQueues();
}

}  // namespace kelvane
