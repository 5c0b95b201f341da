#include "drive/motor_model.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelvane::drive {

namespace {

constexpr double AmbientCelsius = 25;
constexpr double RiseAtRatedCurrent = 35;
constexpr double HeatSeconds = 90;      // time constant of the heat sink
constexpr double NoLoadCurrent = 0.35;  // of the rated current
constexpr double AccelTorquePercent = 30;
constexpr double SlipAtRatedLoad = 0.03;

constexpr double LoadSeconds = 0.25;  // in which a step of the load arrives at the shaft

// One round of the machine: idle, a cut, a heavy cut, idle.
struct LoadStep {
    double until;  // s of the round
    double percent;
};
constexpr LoadStep Round[] = {{6, 0}, {11, 30}, {13, 55}, {16, 12}, {20, 0}};
constexpr double RoundSeconds = 20;

double workPercent(double seconds) {
    const double t = std::fmod(seconds, RoundSeconds);
    double percent = 0;
    for (const LoadStep& step : Round) {
        percent = step.percent;
        if (t < step.until) break;
    }
    const double turn = 2 * std::numbers::pi * seconds;
    return percent + 2.5 * std::sin(turn * 0.31) + 1.2 * std::sin(turn * 1.7);
}

double rateOf(double maxHz, double seconds) { return maxHz / std::max(seconds, 0.01); }

}  // namespace

void MotorModel::run() {
    if (!m_fault) m_order = Order::Run;
}

void MotorModel::jog() {
    if (!m_fault && m_order != Order::Run) m_order = Order::Jog;
}

void MotorModel::stop() { m_order = Order::Stop; }

void MotorModel::injectFault(uint8_t code) {
    m_fault = code;
    m_order = Order::Stop;
    m_tuneHz.reset();
    m_hz = 0;
    m_rampSign = 0;
}

double MotorModel::targetHz() const {
    if (m_order == Order::Stop) return 0;
    const double wanted = m_tuneHz                ? *m_tuneHz
                          : m_order == Order::Jog ? settings.jogHz
                                                  : m_controlHz.value_or(m_commandHz);
    const double hz = std::clamp(wanted, 0.0, settings.maxHz);
    return m_reverse ? -hz : hz;
}

// Moves m_hz and gives the time that is left over when the target was reached.
double MotorModel::rampTowards(double target, double hzPerSecond, double seconds) {
    const double needed = std::abs(target - m_hz) / hzPerSecond;
    if (needed <= seconds) {
        m_hz = target;
        return seconds - needed;
    }
    m_hz += (target > m_hz ? 1 : -1) * hzPerSecond * seconds;
    return 0;
}

void MotorModel::ramp(double seconds) {
    const double target = targetHz();
    const bool turnsOver = m_hz * target < 0;
    const double slowTo = turnsOver ? 0 : target;
    if (std::abs(slowTo) < std::abs(m_hz)) {
        m_rampSign = -1;
        seconds = rampTowards(slowTo, rateOf(settings.maxHz, settings.decelSeconds), seconds);
    }
    if (seconds > 0 && m_hz != target) {
        m_rampSign = 1;
        seconds = rampTowards(target, rateOf(settings.maxHz, settings.accelSeconds), seconds);
    }
    if (seconds > 0) m_rampSign = 0;
    if (m_hz != 0) m_turnsReverse = m_hz < 0;
    if (m_hz == 0 && target == 0) m_turnsReverse = m_reverse;
}

void MotorModel::advance(double seconds) {
    if (seconds <= 0) return;
    ramp(seconds);
    followLoad(seconds);
    const double load = amps() / std::max(plate.ratedAmps, 0.1);
    const double settled = AmbientCelsius + RiseAtRatedCurrent * load * load;
    m_celsius += (settled - m_celsius) * (1 - std::exp(-seconds / HeatSeconds));
}

void MotorModel::followLoad(double seconds) {
    if (!workingLoad || m_hz == 0) {
        m_workSeconds = 0;
        m_working.reset();
        return;
    }
    m_workSeconds += seconds;
    const double wanted = loadPercent + workPercent(m_workSeconds);
    const double before = m_working.value_or(loadPercent);
    m_working = before + (wanted - before) * (1 - std::exp(-seconds / LoadSeconds));
}

bool MotorModel::powered() const { return m_hz != 0 || (m_tuneHz && m_order != Order::Stop); }

RunState MotorModel::runState() const {
    if (m_order == Order::Stop) return m_hz != 0 ? RunState::Stopping : RunState::Stopped;
    if (m_tuneHz) return RunState::Running;
    return m_hz == 0 && targetHz() == 0 ? RunState::Standby : RunState::Running;
}

TurnState MotorModel::turnState() const {
    if (m_turnsReverse) return m_reverse ? TurnState::Reverse : TurnState::ReverseToForward;
    return m_reverse ? TurnState::ForwardToReverse : TurnState::Forward;
}

double MotorModel::outputHz() const { return std::abs(m_hz); }

double MotorModel::torquePercent() const {
    if (!powered()) return 0;
    const double percent = m_working.value_or(loadPercent) + m_rampSign * AccelTorquePercent;
    return m_turnsReverse ? -percent : percent;
}

double MotorModel::amps() const {
    if (!powered()) return 0;
    const double torque = torquePercent() / 100;
    return plate.ratedAmps * std::sqrt(NoLoadCurrent * NoLoadCurrent + torque * torque);
}

double MotorModel::volts() const {
    if (!powered()) return 0;
    constexpr double Boost = 0.03;
    const double share = std::min(1.0, outputHz() / std::max(settings.baseHz, 1.0));
    return plate.ratedVolts * (Boost + (1 - Boost) * share);
}

double MotorModel::busVolts() const {
    const double idle = plate.ratedVolts * std::numbers::sqrt2;
    const double sag = 0.02 * amps() / std::max(plate.ratedAmps, 0.1);
    const double fedBack = m_rampSign < 0 ? 0.08 : 0;
    return idle * (1 - sag + fedBack);
}

double MotorModel::rpm() const {
    const double slip = 1 - SlipAtRatedLoad * std::abs(torquePercent()) / 100;
    return outputHz() * 60 / std::max(plate.polePairs, 1) * slip;
}

double MotorModel::powerFactor() const {
    if (!powered()) return 0;
    const double torque = std::abs(torquePercent()) / 100;
    return torque / std::sqrt(NoLoadCurrent * NoLoadCurrent + torque * torque);
}

double MotorModel::powerFactorAngle() const {
    return powered() ? std::acos(std::clamp(powerFactor(), 0.0, 1.0)) * 180 / std::numbers::pi : 0;
}

double MotorModel::kilowatts() const { return std::numbers::sqrt3 * volts() * amps() * powerFactor() / 1000; }

}  // namespace kelvane::drive
