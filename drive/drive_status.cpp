// The words by which a practice drive tells its state: status block, second state word, user display.
#include <algorithm>
#include <array>
#include <cmath>

#include "drive/drive_registers.h"

namespace kelvane::drive {

namespace {

enum : uint16_t {
    StatusBlock = 0x2100,
    StateInBlock = 0x2101,
    StateRegister = 0x2119,
    SpeedRegister = 0x211C,
};

// What the user display can show, with the lead character in both alphabets.
struct DisplayItem {
    Quantity quantity;
    uint8_t decimals;
    char letter;
    uint8_t pattern;  // seven segments
};
constexpr auto DisplayItems = std::to_array<DisplayItem>({
    {Quantity::BusVolts, 1, 'U', 0x53},
    {Quantity::OutputVolts, 1, 'E', 0x1F},
    {Quantity::TorquePercent, 1, 't', 0x0F},
    {Quantity::MotorRpm, 0, 'r', 0x06},
    {Quantity::PowerFactorAngle, 1, 'n', 0x46},
});
constexpr uint16_t SignedFormat = 0x8000;

}  // namespace

std::optional<uint16_t> PracticeDrive::stateWord(uint16_t reg) const {
    if (reg == StatusBlock) return m_motor.fault();
    if (reg == StateInBlock) return m_traits.plainState ? plainState() : codedState();
    const size_t item = size_t(reg) - (StatusBlock + 2);
    if (reg > StateInBlock && item < m_traits.items.size()) return itemWord(m_traits.items[item]);
    switch (reg) {
        case StateRegister: return codedState();
        case StateRegister + 1: return itemWord({Quantity::CommandHz, 100});
        case StateRegister + 2: return uint16_t(std::lround(m_motor.settings.maxHz * 100));
        case SpeedRegister: return itemWord({Quantity::MotorRpm, 1});
        default: break;
    }
    return {};
}

std::optional<uint16_t> PracticeDrive::displayWord(uint16_t reg) const {
    if (m_traits.tuneCommand && reg == m_traits.tuneResult) return resultWord();
    if (reg < m_traits.displayRegister || reg >= m_traits.displayRegister + m_traits.displayWords) return {};
    const DisplayItem& item = DisplayItems[m_display % DisplayItems.size()];
    const int decimals = m_traits.family == Family::Hazel ? 0 : item.decimals;
    switch (reg - m_traits.displayRegister) {
        case 0: return itemWord({item.quantity, int(std::lround(std::pow(10, decimals)))});
        case 1: return displayFormat();
        default: return uint16_t(0);
    }
}

uint16_t PracticeDrive::codedState() const {
    unsigned bits = unsigned(m_motor.runState()) | unsigned(m_motor.turnState()) << 3;
    if (m_motor.jogging()) bits |= 1u << 2;
    if (m_options.reservedEnabled) bits |= 1u << 5;
    if (m_options.frequencyFromLink) bits |= 1u << 8;
    if (m_options.externalFrequency) bits |= 1u << 9;
    if (m_options.commandsFromLink) bits |= 1u << 10;
    return uint16_t(bits);
}

// One bit each: run, stop, jog, forward, reverse; the sources as in the coded word.
uint16_t PracticeDrive::plainState() const {
    const bool reverse = m_motor.turnState() >= TurnState::ReverseToForward;
    unsigned bits = m_motor.running() ? 1u : 2u;
    if (m_motor.jogging()) bits |= 1u << 2;
    bits |= reverse ? 1u << 4 : 1u << 3;
    return uint16_t(bits | (codedState() & 0x0700u));
}

uint16_t PracticeDrive::itemWord(const StatusItem& item) const {
    const double exact = std::round(quantity(item.quantity) * item.scale);
    if (exact < 0 && m_traits.signedItems) return uint16_t(int16_t(std::max(exact, -32768.0)));
    return uint16_t(std::min(std::abs(exact), 65535.0));
}

double PracticeDrive::quantity(Quantity which) const {
    const MotorModel& m = m_motor;
    constexpr double EncoderPulsesPerTurn = 1024;
    const double pulses = m.rpm() / 60 * EncoderPulsesPerTurn / 100;  // in 10 ms
    const double share = 100 * m.outputHz() / std::max(m.settings.maxHz, 1.0);
    switch (which) {
        case Quantity::CommandHz: return m.commandHz();
        case Quantity::OutputHz: return m.outputHz();
        case Quantity::OutputAmps: return m.amps();
        case Quantity::BusVolts: return m.busVolts();
        case Quantity::OutputVolts: return m.volts();
        case Quantity::PlcSeconds: return std::fmod(m_runSeconds, 65536);
        case Quantity::PowerFactor: return m.powerFactor();
        case Quantity::PowerFactorAngle: return m.powerFactorAngle();
        case Quantity::TorquePercent: return m.torquePercent();
        case Quantity::MotorRpm: return m.rpm();
        case Quantity::EncoderLow: return std::fmod(pulses, 65536);
        case Quantity::EncoderHigh: return std::floor(pulses / 65536);
        case Quantity::OutputKw: return m.kilowatts();
        case Quantity::Temperature: return m.celsius();
        case Quantity::PidFeedback: return m_pid.feedback();
        case Quantity::PidTarget: return 100 * m.commandHz() / std::max(m.settings.maxHz, 1.0);
        case Quantity::ScaledHzLow: return m.outputHz();
        case Quantity::AnalogVolts: return share / 10;
        case Quantity::AnalogMilliamps: return 4 + share * 0.16;
        case Quantity::None:
        case Quantity::StepNumber:
        case Quantity::PlcStep:
        case Quantity::Counter:
        case Quantity::InputTerminals:
        case Quantity::ScaledHzHigh: break;
    }
    return 0;
}

uint16_t PracticeDrive::displayFormat() const {
    const DisplayItem& item = DisplayItems[m_display % DisplayItems.size()];
    switch (m_traits.family) {
        case Family::Aspen: return uint16_t(item.decimals << 8 | item.letter);
        case Family::Hazel: return 0;
        case Family::Tilia: return uint16_t(SignedFormat | item.decimals << 8 | item.pattern);
        case Family::Sorrel: return uint16_t(item.decimals << 8 | item.pattern);
        default: return uint16_t(item.decimals << 8 | item.letter);
    }
}

uint16_t PracticeDrive::resultWord() const {
    return uint16_t(m_traits.resultInHighByte ? m_tuneResult << 8 : m_tuneResult);
}

}  // namespace kelvane::drive
