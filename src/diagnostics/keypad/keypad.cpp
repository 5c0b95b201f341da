#include "diagnostics/keypad/keypad.h"

#include <algorithm>

#include "diagnostics/keypad/keypad_families.h"
#include "diagnostics/keypad/keypad_tasks.h"
#include "link/frame_codec.h"
#include "link/task_table.h"

namespace kelvane {

namespace {

constexpr int FlashInterval = 50;  // ms
constexpr int FlashTicksPerToggle = 6;
constexpr int ScrollRestTicks = 20;
constexpr int UnderlineTicks = 50;
constexpr int MaxFreqReadTicks = 100;
constexpr int RefusalTicks = 150;
constexpr int IndicatorStep = 10;
constexpr int IndicatorEnd = 100;
constexpr qint8 UserPage = 2;
constexpr qint8 SummaryPage = 4;

const QString StopCommand = QStringLiteral("FF0620000001");
const QString JogCommand = QStringLiteral("FF0620000003");
const QString ResetCommand = QStringLiteral("FF0620020002");

bool isHandOfPerson(quint8 task) {
    return task == RunTask || task == StopTask || task == DirectionTask || task == JogTask ||
           task == LeftArrowTask || task == FrequencyTask || task == WriteTask;
}

}  // namespace

Keypad::Keypad(RequestScheduler& link, TickClock& clock, Operator& person, const LangTable& lang)
    : GetDataTimer(clock, TickKind::Waiting, 1, [this] { GetDataTimerTimer(); }),
      FlashTimer(clock, TickKind::RealTime, FlashInterval, [this] { FlashTimerTimer(); }),
      m_link(link),
      m_person(person),
      m_lang(lang) {
    listen();
}

void Keypad::tell() {
    followFlashing();
    if (screen == m_told) return;
    m_told = screen;
    Q_EMIT changed();
}

bool Keypad::mayCommand() const { return screen.keysVisible && m_link.owner().polls; }

// ---- What the link tells ----

void Keypad::listen() {
    connect(&m_link, &RequestScheduler::timedOut, this, &Keypad::timedOut);
    connect(&m_link, &RequestScheduler::badCheck, this, [this] { GetDataTimer.setEnabled(false); });
    connect(&m_link, &RequestScheduler::refused, this, &Keypad::refused);
    connect(&m_link, &RequestScheduler::answered, this, &Keypad::answered);
    connect(&m_link, &RequestScheduler::statusDecoded, this, &Keypad::statusDecoded);
    connect(&m_link, &RequestScheduler::cycleEnded, this, &Keypad::cycleEnded);
    connect(&m_link, &RequestScheduler::initialRun, this, &Keypad::initialRun);
    connect(&m_link, &RequestScheduler::identificationEnded, this, &Keypad::identificationEnded);
    connect(&m_link, &RequestScheduler::wentOnLine, this, &Keypad::followFlashing);
    connect(&m_link, &RequestScheduler::preludeRun, this, &Keypad::rest);
    connect(&m_link, &RequestScheduler::tailRun, this, &Keypad::goOn);
    using Text = const QString&;
    using Bytes = const QByteArray&;
    m_link.onReply(UserDisplayTask, [this](Text, Bytes data) { storeRatedWords(data); });
    m_link.onReply(MaxFreqTask,
                   [this](Text, Bytes data) { m_link.DriveStatus.MaxFreqWord = wordAt(data, 4); });
    m_link.onReply(FrequencyTask, [this](Text, Bytes) { m_link.DriveStatus.KeypadDataDue = 1; });
    m_link.onReply(FaultTextTask, [this](Text, Bytes data) { storeFaultText(data); });
}

void Keypad::storeRatedWords(const QByteArray& RxData) {
    DriveStatusRecord& status = m_link.DriveStatus;
    for (int word = 0; word < keypadFamily(status.DriveFamily).userDisplayWords; ++word)
        status.RatedWords[static_cast<size_t>(word)] = wordAt(RxData, 4 + 2 * word);
}

void Keypad::storeFaultText(const QByteArray& RxData) {
    DriveStatusRecord& status = m_link.DriveStatus;
    status.FaultTextValid = 1;
    status.ExceptionText = dataText(RxData, 1, 16);
    status.FaultName = dataText(RxData, 17, 4);
    QString (*const nameOf)(int) = keypadFamily(status.DriveFamily).otherFaultName;
    const QString name = nameOf ? nameOf(status.FaultCode) : status.FaultName;
    m_link.ShowHistoryMsg(name % QStringLiteral(" : ") % status.ExceptionText);
    m_link.dropWaiting(FaultTextTask, m_faultTextCommand);
}

void Keypad::timedOut() {
    screen.ErrNameVrLabel = QStringLiteral("CE 10");
    screen.ErrDescriptLabel = QStringLiteral("Time Out");
    screen.sheet = KeypadSheet::ErrInfo;
    GetDataTimer.setEnabled(false);
    tell();
}

void Keypad::refused(quint8 task, quint8 code) {
    if (task == FrequencyTask) m_link.DriveStatus.KeypadDataDue = 1;
    if (task == FaultTextTask) m_faultReadInHand = true;
    if (task == ExceptionTextTask && m_refusal.awaitsText) showRefusal(QStringLiteral("CE %1").arg(code));
    const QString inHand = m_link.CommandQueue.empty() ? QString() : m_link.CommandQueue.front();
    const bool ownRead = task == ParameterTask && isReading(inHand);
    if (ownRead) forgetRecord();
    if (mayCommand() && (ownRead || isHandOfPerson(task))) m_refusal.awaitsText = true;
}

void Keypad::answered(quint8 task, const QString& command) {
    if (task == ExceptionTextTask && m_refusal.awaitsText) showRefusal(m_link.DriveStatus.ExceptionText);
    // ReadDone is shared: while the poll runs, the answer to the keypad's own command is the keypad's.
    if (task != ParameterTask || !isReading(command)) return;
    m_read = m_link.ParamRead;
    m_link.ParamRead.ReadDone = 0;
}

bool Keypad::isReading(const QString& command) const {
    return m_link.owner().polls && !ParamInfoShown && command == m_recordCommand;
}

// The link forgets a refusal with the next good reply, sooner than anybody can read its text.
void Keypad::showRefusal(const QString& text) { m_refusal = {false, text, RefusalTicks}; }

void Keypad::statusDecoded() {
    const OwnerRow& owner = m_link.owner();
    m_pollOwed = false;
    if (!owner.keypadRests && m_link.DriveStatus.KeypadDataDue) GetDataTimer.setEnabled(true);
    if (KeypadPage == UserPage && owner.polls) readUserDisplay();
}

void Keypad::cycleEnded() {
    const auto& tasks = m_link.TaskQueue;
    // A frequency that was dropped without an answer is over too, or the display would stand still for good.
    if (std::find(tasks.begin(), tasks.end(), FrequencyTask) == tasks.end())
        m_link.DriveStatus.KeypadDataDue = 1;
    // Without a text, the poll comes before the next question for it: it alone sees the end of the fault.
    const bool again = m_link.inHand() && tasks.front() == FaultTextTask;
    if (m_faultReadInHand && !again) m_pollOwed = true;
    m_faultReadInHand = m_faultReadInHand && again;
    if (m_pollOwed) m_link.dropWaiting(FaultTextTask, m_faultTextCommand);
}

void Keypad::initialRun() {
    GetDataTimer.setEnabled(false);
    KeypadStartMode = 0;
    // Nothing that was meant for one drive is left for the next.
    ScrollPending = false;
    endRefusal();
    screen.sheet = KeypadSheet::StartUp;
    screen.OnLineTransparentButtonVisible = true;
    screen.InitialVrLabelVisible = false;
    screen.keysVisible = false;
    showEditing(false);
    screen.red = {};
    screen.RunFlash = screen.StopFlash = screen.FwdFlash = screen.RevFlash = false;
    tell();
}

void Keypad::showIdentification() {
    screen.OnLineTransparentButtonVisible = false;
    screen.InitialVrLabelVisible = true;
    screen.InitialVrIndicatorPosition = 0;
    tell();
}

void Keypad::identificationEnded() {
    screen.keysVisible = true;
    const int page = KeypadStartMode - 1;
    KeypadPage = page < 0 || page >= SummaryPage ? SummaryPage : static_cast<qint8>(page);
    const std::vector<ParameterEntry> entries = parameterEntries(m_link.DriveStatus);
    ComboFilled =
        ComboFilled && entries == ParamAddressList && m_listFamily == m_link.DriveStatus.DriveFamily;
    m_recordStale = true;
    ModeTransparentButtonClick();
}

void Keypad::rest() {
    GetDataTimer.setEnabled(false);
    ScrollPending = false;
    m_recordStale = true;
}

// The record on show may be an old one.
void Keypad::FormShow() {
    if (screen.sheet == KeypadSheet::ParaInfo) readAgain();
}

void Keypad::readAgain() {
    if (m_recordStale && ComboFilled && mayCommand()) SelPrComboBoxChange(screen.SelPrComboBoxItemIndex);
}

void Keypad::goOn() { GetDataTimer.setEnabled(true); }

// ---- Ticks ----

void Keypad::GetDataTimerTimer() {
    if (m_link.inHand() && m_link.TaskQueue.front() == FaultTextTask) m_faultReadInHand = true;
    if (m_refusal.shown()) --m_refusal.ticksLeft;
    if (!ScrollPending) {
        ProcessLEDstatus(m_link.DriveStatus, m_read);
        if (ParamInfoShown) m_read.ReadDone = 0;
    }
    if (KeypadActive) {
        ++BlinkTicks;
        ++MaxFreqTicks;
    }
    if (ScrollPending && ++ScrollTicks >= ScrollRestTicks) sendFrequency(screen.FreqScrollBarPosition);
    if (BlinkTicks >= UnderlineTicks) {
        BlinkTicks = 0;
        if (FreqFromLink && KeypadPage == 0) screen.underLineVrLabelVisible = !screen.underLineVrLabelVisible;
    }
    if (MaxFreqTicks >= MaxFreqReadTicks) {
        MaxFreqTicks = 0;
        readMaxFreq();
    }
    tell();
}

void Keypad::FlashTimerTimer() {
    const bool identifying = m_link.Lamp.onLine() && !m_link.DriveStatus.DriveReady;
    int& position = screen.InitialVrIndicatorPosition;
    if (identifying) position = position >= IndicatorEnd ? 0 : position + IndicatorStep;
    if (++FlashTicks >= FlashTicksPerToggle) {
        FlashTicks = 0;
        for (const KeypadLed led : {RUNled, STOPled, FWDled, REVled})
            if (screen.flashing(led)) screen.red[led] = !screen.red[led];
    }
    tell();
}

void Keypad::followFlashing() {
    const bool identifying = m_link.Lamp.onLine() && !m_link.DriveStatus.DriveReady;
    const bool blinks = screen.RunFlash || screen.StopFlash || screen.FwdFlash || screen.RevFlash;
    FlashTimer.setEnabled(identifying || blinks);
}

// ---- Keys ----

void Keypad::setPageLeds(bool F, bool H, bool U) {
    screen.red[Fled] = F;
    screen.red[Hled] = H;
    screen.red[Uled] = U;
}

void Keypad::showEditing(bool visible) {
    screen.FreqScrollBarVisible = screen.underLineVrLabelVisible = screen.InputEditVisible = visible;
}

void Keypad::ModeTransparentButtonClick() {
    endRefusal();
    screen.sheet = KeypadSheet::Main;
    KeypadPage = KeypadPage >= SummaryPage ? qint8(0) : static_cast<qint8>(KeypadPage + 1);
    const bool summary = KeypadPage == SummaryPage;
    switch (KeypadPage) {
        case 0:
            setPageLeds(true, false, false);
            screen.HeadInfoLabel = QStringLiteral("Reference Frequency");
            showEditing(FreqFromLink);
            break;
        case 1:
            setPageLeds(false, true, false);
            screen.HeadInfoLabel = QStringLiteral("Output Frequency");
            showEditing(false);
            break;
        case UserPage:
            setPageLeds(false, false, true);
            readUserDisplay();
            screen.HeadInfoLabel = QStringLiteral("User Define");
            break;
        case 3:
            setPageLeds(false, false, false);
            screen.HeadInfoLabel = QStringLiteral("Output Current");
            break;
        default: break;
    }
    if (summary || KeypadPage == 0) {
        screen.summaryVisible = summary;
        screen.displayVisible = !summary;
    }
    tell();
}

void Keypad::PROGTransparentButtonClick() {
    endRefusal();
    setPageLeds(false, false, false);
    // One off, so that the next Mode key comes back to the page that was left.
    KeypadPage = KeypadPage <= 0 ? SummaryPage : static_cast<qint8>(KeypadPage - 1);
    screen.sheet = KeypadSheet::ParaInfo;
    readAgain();
    tell();
}

void Keypad::RUNTransparentButtonClick() {
    if (mayCommand()) m_link.pushCommand(RunTask, QStringLiteral("FF0620000002"));
}

void Keypad::STOPTransparentButtonClick() {
    if (!mayCommand()) return;
    // Kept: with a fault it is a reset, and no stop is sent.
    m_link.pushCommand(StopTask, m_link.DriveStatus.FaultCode != 0 ? ResetCommand : StopCommand);
}

void Keypad::DIRTransparentButtonClick() {
    if (mayCommand()) m_link.pushCommand(DirectionTask, QStringLiteral("FF0620000030"));
}

void Keypad::LeftArrowTransparentButtonClick() {
    const char* command = keypadFamily(m_link.DriveStatus.DriveFamily).leftArrow;
    if (command && mayCommand()) m_link.pushCommand(LeftArrowTask, QString::fromLatin1(command));
}

void Keypad::JOGTransparentButtonMouseDown() {
    if (JogHeld || !mayCommand()) return;
    JogHeld = true;
    m_jogSeen = false;
    m_link.pushCommand(JogTask, JogCommand);
}

// Kept: released before the drive was seen to jog, no stop is sent. On a line that is silent nothing can be
// seen, and a jog that left after its key was let go would have nobody to end it: there it is taken back, or
// stopped.
void Keypad::JOGTransparentButtonMouseUp() {
    if (!std::exchange(JogHeld, false)) return;
    const bool silent = m_link.TimeoutCount > 0;
    if (silent) m_link.dropWaiting(JogTask, JogCommand);
    if (silent || m_jogSeen || m_link.DriveStatus.JogActive) m_link.pushCommand(StopTask, StopCommand);
}

// ---- Reads of its own ----

// One that still waits, as while the line is silent, is enough.
void Keypad::ask(quint8 task, const QString& command) {
    m_link.dropWaiting(task, command);
    m_link.push(task, command);
}

void Keypad::readUserDisplay() { ask(UserDisplayTask, ratedWordsCommand(m_link.DriveStatus.DriveFamily)); }

void Keypad::readMaxFreq() { ask(MaxFreqTask, maxFreqCommand(m_link.DriveStatus.DriveFamily)); }

}  // namespace kelvane
