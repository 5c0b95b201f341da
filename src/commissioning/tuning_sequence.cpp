#include "commissioning/tuning_sequence.h"

#include <algorithm>

#include "base/text_8bit.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint16 RunBits = 0x0003;
constexpr size_t SpeedWord = 3;
const QString RunCommand = QStringLiteral("FF0620000002");
const QString StopCommand = QStringLiteral("FF0620000001");
const QString StateCommand = QStringLiteral("FF0321190004");
const QString Caution = QStringLiteral("Caution");

}  // namespace

TuningSequence::TuningSequence(const CommissioningSite& site, CommissioningLink& line)
    : MonitorTimer(site.clock, site.link), m_site(site), m_line(line) {
    m_line.setUp(MonitorTimer);
    MonitorTimer.next = [this] { return nextStep(); };
    MonitorTimer.ended = [this] { ended(); };
}

void TuningSequence::start(const TuneFamily& family, int entry) {
    m_family = &family;
    m_entry = entry;
    TunePhase = 0;
    TuneStep = 2;
    speed = 0;
    MonitorTimer.start();
}

void TuningSequence::stop() {
    MonitorTimer.stop();
    TuneStep = TunePhase = 0;
}

void TuningSequence::watchUntilStopped() {
    MonitorTimer.stop();
    TuneStep = 2;
    TunePhase = StoppedByHand;
    MonitorTimer.start();
}

// Each asks something and says what comes next. 8 is the end; 5 is passed at once.
constexpr TuningSequence::Step TuningSequence::Steps[] = {
    {2, &TuningSequence::stopDrive}, {1, &TuningSequence::waitForStop}, {3, &TuningSequence::runDrive},
    {4, &TuningSequence::watchRun},  {6, &TuningSequence::judgeResult}, {7, &TuningSequence::tellFailure}};

TuningSequence::Request TuningSequence::nextStep() {
    const auto* step = std::ranges::find(Steps, TuneStep, &Step::TuneStep);
    return step == std::end(Steps) ? std::nullopt : (this->*step->go)();
}

TuningSequence::Request TuningSequence::enter(quint8 step, quint8 phase, const LinkRequest& request) {
    TuneStep = step;
    TunePhase = phase;
    return request;
}

TuningSequence::Request TuningSequence::readState(quint8 step, quint8 phase) {
    return enter(step, phase, m_line.read(GeneralTask, StateCommand));
}

// Once; then, and when it is only watched, until it stands.
TuningSequence::Request TuningSequence::stopDrive() {
    if (TunePhase != 0) return readState(1, TunePhase);
    return enter(2, 2, m_line.write(StopCommand));
}

TuningSequence::Request TuningSequence::runDrive() { return enter(4, 3, m_line.write(RunCommand)); }

TuningSequence::Request TuningSequence::watchRun() { return readState(1, 4); }

// Before the run and after it. Kept: a drive that reports to stand right after RUN has ended its tuning.
TuningSequence::Request TuningSequence::waitForStop() {
    speed = m_site.link.ParamRead.ReadWords[SpeedWord];
    speedRead();
    if (m_site.link.ParamRead.ReadWords[0] & RunBits) return readState(1, TunePhase);
    if (TunePhase == StoppedByHand) return std::nullopt;
    if (TunePhase == 2) return writeMode();
    TuneStep = 5;
    TunePhase = 1;
    return enter(6, 5, m_line.read(GeneralTask, QLatin1String(m_family->resultCommand)));
}

TuningSequence::Request TuningSequence::writeMode() {
    const QString mode = IntToBaseStr(m_entry, 16, 4);
    return enter(3, 1,
                 m_line.write(QStringLiteral("FF06") % QLatin1String(m_family->commandRegister) % mode));
}

quint16 TuningSequence::resultCode() const {
    const quint16 word = m_site.link.ParamRead.ReadWords[0];
    return m_family->codeInHighByte ? quint16(word >> 8) : word;
}

TuningSequence::Request TuningSequence::judgeResult() {
    const quint16 code = resultCode();
    if (code != 0) {
        const QString text = QStringLiteral("FF03") % QLatin1String(m_family->textRegister) %
                             IntToBaseStr(code, 16, 2) % QStringLiteral("000A");
        return enter(7, 6, m_line.read(GeneralTask, text));
    }
    TuneStep = 8;
    TunePhase = 6;
    m_site.person.tell(m_site.lang.MsgStr(Message::AutoTuningFinish), QStringLiteral("Confirm"),
                       BoxIcon::Information);
    return std::nullopt;
}

TuningSequence::Request TuningSequence::tellFailure() {
    const QString text = from8Bit(m_site.link.ParamRead.ReadDataText) % QStringLiteral(", ") %
                         m_site.lang.MsgStr(Message::ResetDrive);
    TuneStep = 8;
    TunePhase = 7;
    const bool reset = m_site.person.yes(text, Caution, BoxIcon::Stop);
    // The link may have gone to rest, and the run with it, while the question stood.
    if (!reset || !running()) return std::nullopt;
    return m_line.write(QLatin1String(m_family->resetCommand));
}

}  // namespace kelvane
