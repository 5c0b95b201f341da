#include "drive/drive_registers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvane::drive {

namespace {

constexpr uint8_t ReadFunction = 0x03;
constexpr uint8_t WriteFunction = 0x06;

enum : uint16_t {
    CommandRegister = 0x2000,
    FrequencyRegister = 0x2001,
    ResetRegister = 0x2002,
    CopyRegister = 0x2005,
    IdentityBlock = 0x2110,
    GroupNames = 0x31,  // high bytes
    FaultTexts = 0x32,
    ExceptionTexts = 0x33,
};

// Values of the copy and key register.
enum : uint16_t { RowanArrowKey = 1, CopyBegin = 3, CopyEnd = 5, ArrowKey = 6 };

uint16_t wordAt(const QByteArray& body, qsizetype position) {
    return uint16_t(uint8_t(body[position]) << 8 | uint8_t(body[position + 1]));
}

QByteArray readReply(const QByteArray& body, const std::vector<uint16_t>& words) {
    QByteArray reply = body.left(2).append(char(words.size() * 2));
    for (const uint16_t word : words) reply.append(char(word >> 8)).append(char(word & 0xFF));
    return reply;
}

std::vector<uint16_t> wordsOf(const QByteArray& text) {
    std::vector<uint16_t> words;
    for (qsizetype i = 0; i + 1 < text.size(); i += 2) words.push_back(wordAt(text, i));
    return words;
}

MotorPlate plateFor(uint8_t modelCode) {
    MotorPlate plate;
    if (modelCode % 2) plate.ratedVolts = 440;  // odd codes are the 460 V models
    plate.ratedKw = 0.75 * (1 + modelCode / 2 % 20);
    plate.ratedAmps = plate.ratedKw * 1000 / plate.ratedVolts * 1.6;
    return plate;
}

}  // namespace

PracticeDrive::PracticeDrive(const FamilyData& data, const DriveOptions& options)
    : m_data(data), m_traits(traitsOf(data.family)), m_options(options), m_parameters(data, m_traits) {
    m_motor.plate = plateFor(data.modelCode);
    m_parameters.setValue(m_traits.modelRegister, data.modelCode);
    if (m_traits.versionRegister) m_parameters.setValue(m_traits.versionRegister, data.version);
    m_motor.workingLoad = options.workingLoad;
    takeMotorSettings();
}

bool PracticeDrive::hears(const QByteArray& body) const {
    if (body.size() < 2) return false;
    const auto address = uint8_t(body[0]);
    return address == CommonAddress || address == m_options.address || address == 0;
}

QByteArray PracticeDrive::refusal(const QByteArray& body, uint8_t exceptionCode) {
    return body.left(1).append(char(uint8_t(body[1]) | 0x80)).append(char(exceptionCode));
}

QByteArray PracticeDrive::answer(const QByteArray& body) {
    if (!hears(body)) return {};
    const auto function = uint8_t(body[1]);
    const QByteArray reply = function == ReadFunction    ? answerRead(body)
                             : function == WriteFunction ? answerWrite(body)
                                                         : refusal(body, uint8_t(Refusal::IllegalFunction));
    return body[0] == 0 ? QByteArray() : reply;
}

QByteArray PracticeDrive::answerRead(const QByteArray& body) const {
    if (body.size() != 6) return refusal(body, uint8_t(Refusal::OutOfRange));
    const auto reader = m_options.asKeypad ? &PracticeDrive::readKeypad : &PracticeDrive::read;
    const ReadResult result = (this->*reader)(wordAt(body, 2), wordAt(body, 4));
    if (const auto* words = std::get_if<Words>(&result)) return readReply(body, *words);
    return refusal(body, uint8_t(std::get<Refusal>(result)));
}

QByteArray PracticeDrive::answerWrite(const QByteArray& body) {
    if (body.size() != 6) return refusal(body, uint8_t(Refusal::OutOfRange));
    if (m_options.asKeypad) return refusal(body, uint8_t(Refusal::IllegalFunction));
    const Refusal judged = write(wordAt(body, 2), wordAt(body, 4));
    return judged == Refusal::None ? body : refusal(body, uint8_t(judged));
}

// One word of a parameter is its value; more are the beginning of its record. Texts are read the same way.
PracticeDrive::ReadResult PracticeDrive::read(uint16_t reg, uint16_t count) const {
    constexpr uint16_t MostWords = 125;
    if (count == 0 || count > MostWords) return Refusal::OutOfRange;
    auto whole = textBlock(reg);
    if (!whole && count > 1 && m_parameters.has(reg)) whole = m_parameters.record(reg);
    if (whole) {
        if (count > whole->size()) return Refusal::UnknownRegister;
        whole->resize(count);
        return *whole;
    }
    Words words;
    for (uint32_t i = 0; i < count; ++i) {
        const auto one = word(uint16_t(reg + i));
        if (!one) return Refusal::UnknownRegister;
        words.push_back(*one);
    }
    return words;
}

// A keypad gives its number of groups, the highest number of each, and values one by one.
PracticeDrive::ReadResult PracticeDrive::readKeypad(uint16_t reg, uint16_t count) const {
    if (count != 1) return Refusal::UnknownRegister;
    if (reg == IdentityBlock + 1) return Words{uint16_t(m_parameters.groupCount())};
    const auto found = countWord(reg) ? countWord(reg) : m_parameters.word(reg);
    if (!found) return Refusal::UnknownRegister;
    return Words{*found};
}

std::optional<PracticeDrive::Words> PracticeDrive::textBlock(uint16_t reg) const {
    const auto code = uint8_t(reg & 0xFF);
    switch (reg >> 8) {
        case GroupNames:
            if (!m_traits.namesGroups) return {};
            if (const auto name = m_parameters.groupName(code)) return wordsOf(*name);
            return {};
        case FaultTexts:
            if (!m_options.tellsTexts || !m_traits.tellsFaultText) return {};
            return wordsOf(faultBlock(code));
        case ExceptionTexts:
            if (!m_options.tellsTexts) return {};
            return wordsOf(exceptionBlock(code));
        default: return {};
    }
}

std::optional<uint16_t> PracticeDrive::word(uint16_t reg) const {
    for (const auto part :
         {&PracticeDrive::identityWord, &PracticeDrive::stateWord, &PracticeDrive::displayWord,
          &PracticeDrive::commandWord, &PracticeDrive::countWord}) {
        if (const auto found = (this->*part)(reg)) return found;
    }
    return m_parameters.word(reg);
}

std::optional<uint16_t> PracticeDrive::identityWord(uint16_t reg) const {
    if (reg == m_traits.modelRegister) return m_data.modelCode;
    if (m_traits.versionRegister && reg == m_traits.versionRegister) return m_data.version;
    if (reg == IdentityBlock) {
        // Kept: some drives of this series give the code of Osier and are known by their 10 groups.
        const bool disguised = m_options.hazelTellsOsier && m_traits.family == Family::Hazel;
        const auto own = uint8_t(disguised ? Family::Osier : m_traits.family);
        return uint16_t(m_options.familyCode.value_or(own) << 8);
    }
    if (reg == IdentityBlock + 1) return uint16_t(m_parameters.groupCount());
    if (reg == IdentityBlock + 2) return m_data.version;
    return {};
}

std::optional<uint16_t> PracticeDrive::commandWord(uint16_t reg) const {
    switch (reg) {
        case CommandRegister: return m_lastOrder;
        case FrequencyRegister: return itemWord({Quantity::CommandHz, 100});
        case ResetRegister: return uint16_t(0);
        case CopyRegister:
            if (!m_traits.hasCopyMode) return {};
            return uint16_t(m_copyMode ? CopyBegin : CopyEnd);
        default: return {};
    }
}

// The table behind the last group: highest parameter number of each group.
std::optional<uint16_t> PracticeDrive::countWord(uint16_t reg) const {
    if (reg >> 8 != m_parameters.groupCount() + 1) return {};
    return m_parameters.highestNumber(reg & 0xFF);
}

Refusal PracticeDrive::write(uint16_t reg, uint16_t word) {
    if (const auto judged = writeCommand(reg, word)) return *judged;
    if (m_parameters.has(reg)) return writeParameter(reg, word);
    return this->word(reg) ? Refusal::ReadOnly : Refusal::UnknownRegister;
}

std::optional<Refusal> PracticeDrive::writeCommand(uint16_t reg, uint16_t word) {
    switch (reg) {
        case CommandRegister: return operate(word);
        case FrequencyRegister:
            if (word > std::lround(m_motor.settings.maxHz * 100)) return Refusal::OutOfRange;
            m_motor.setCommandHz(word / 100.0);
            return Refusal::None;
        case ResetRegister: return reset(word);
        case CopyRegister:
            if (!m_traits.hasCopyMode) return {};
            return copyOrKey(word);
        default: return {};
    }
}

// Bits 0 and 1: 1 stop, 2 run, 3 jog. Bits 4 and 5: 1 forward, 2 reverse, 3 the other direction.
Refusal PracticeDrive::operate(uint16_t word) {
    constexpr uint16_t KnownBits = 0x0033;
    if (word & ~KnownBits) return Refusal::OutOfRange;
    m_lastOrder = word;
    switch (word >> 4 & 3) {
        case 1: m_motor.setReverse(false); break;
        case 2: m_motor.setReverse(true); break;
        case 3: m_motor.toggleDirection(); break;
        default: break;
    }
    switch (word & 3) {
        case 1:
            if (tuning()) endTuning(TuneFault);
            m_motor.stop();
            break;
        case 2:
            m_motor.run();
            if (m_tuneMode && !m_motor.fault()) startTuning();
            break;
        case 3: m_motor.jog(); break;
        default: break;
    }
    return Refusal::None;
}

Refusal PracticeDrive::reset(uint16_t word) {
    switch (word) {
        case 1: m_motor.injectFault(ExternalFault); return Refusal::None;
        case 2:
            m_motor.reset();
            m_tuneResult = 0;
            return Refusal::None;
        default: return Refusal::OutOfRange;
    }
}

Refusal PracticeDrive::copyOrKey(uint16_t word) {
    switch (word) {
        case CopyBegin: m_copyMode = true; return Refusal::None;
        case CopyEnd: m_copyMode = false; return Refusal::None;
        case RowanArrowKey:
        case ArrowKey: ++m_display; return Refusal::None;
        default: return Refusal::OutOfRange;
    }
}

Refusal PracticeDrive::writeParameter(uint16_t reg, uint16_t word) {
    const Refusal judged = m_parameters.write(reg, word, m_motor.running());
    if (judged != Refusal::None) return judged;
    if (m_traits.tuneCommand && reg == m_traits.tuneCommand) m_tuneMode = word;
    takeMotorSettings();
    return Refusal::None;
}

void PracticeDrive::takeMotorSettings() {
    MotorSettings& s = m_motor.settings;
    s.maxHz = m_parameters.number(m_traits.maxFrequency, 60);
    s.baseHz = m_parameters.number(m_traits.baseFrequency, 60);
    s.accelSeconds = m_parameters.number(m_traits.accelTime, 10);
    s.decelSeconds = m_parameters.number(m_traits.decelTime, 10);
    if (m_traits.pid.source) takePidSettings();
}

void PracticeDrive::takePidSettings() {
    const PidRegisters& at = m_traits.pid;
    PidSettings& s = m_pid.settings;
    s.gain = m_parameters.number(at.gain, 1) * at.gainScale;
    s.integralSeconds = m_parameters.number(at.integralTime, 1);
    s.derivativeSeconds = m_parameters.number(at.derivativeTime, 0);
    s.integralLimit = m_parameters.number(at.integralLimit, 100);
    s.filterSeconds = m_parameters.number(at.filterTime, 0);
    s.outputLimit = at.outputLimit ? m_parameters.number(at.outputLimit, 100) : 100;
}

void PracticeDrive::startTuning() {
    m_tuneSecondsLeft = m_options.tuneSeconds;
    m_tuneResult = 0;
    const bool turns = m_tuneMode == m_traits.turningMode;
    m_motor.leadTuning(turns ? m_motor.settings.baseHz * 0.8 : 0);
}

// A run that went well leaves slightly changed motor data behind, as a measured motor differs from its plate.
void PracticeDrive::endTuning(uint8_t result) {
    m_tuneSecondsLeft = 0;
    m_tuneMode = 0;
    m_tuneResult = result;
    m_nextTuneResult = 0;
    m_motor.leadTuning({});
    m_motor.stop();
    m_parameters.setValue(m_traits.tuneCommand, 0);
    if (result != 0) return;
    const bool second = m_traits.motorSelector && m_parameters.value(m_traits.motorSelector, 1) == 2;
    for (const uint16_t reg : second ? m_traits.tunedRowsOfMotor2 : m_traits.tunedRows) {
        const int before = m_parameters.value(reg, 0);
        m_parameters.setValue(reg, before + std::max(1, before / 40));
    }
}

void PracticeDrive::advanceUs(qint64 us) {
    double left = double(us) / 1e6;
    if (tuning() && left >= m_tuneSecondsLeft) {
        const double tuneTime = m_tuneSecondsLeft;
        tick(tuneTime);
        left -= tuneTime;
        endTuning(m_nextTuneResult);
    } else if (tuning()) {
        m_tuneSecondsLeft -= left;
    }
    tick(left);
}

bool PracticeDrive::controls() const {
    return m_traits.pid.source && m_parameters.value(m_traits.pid.source, 0) != 0 && !tuning();
}

// While the control runs, the set point is the frequency that is commanded, in per cent of the highest.
void PracticeDrive::move(double seconds) {
    constexpr double Step = 0.02;
    const double full = std::max(m_motor.settings.maxHz, 1.0) / 100;
    while (seconds > 0 && controls() && m_motor.runState() == RunState::Running) {
        const double step = std::min(seconds, Step);
        m_motor.leadControl(m_pid.control(step, m_motor.commandHz() / full) * full);
        m_motor.advance(step);
        m_pid.follow(step, m_motor.outputHz() / full);
        seconds -= step;
    }
    if (seconds <= 0) return;
    m_pid.rest();
    m_motor.leadControl({});
    m_motor.advance(seconds);
    m_pid.follow(seconds, m_motor.outputHz() / full);
}

void PracticeDrive::tick(double seconds) {
    move(seconds);
    if (m_motor.runState() != RunState::Running) return;
    m_runSeconds += seconds;
    if (m_options.tripSeconds <= 0) return;
    m_untilTrip += seconds;
    if (m_untilTrip < m_options.tripSeconds) return;
    m_untilTrip = 0;
    m_motor.injectFault(MotorOverload);
}

}  // namespace kelvane::drive
