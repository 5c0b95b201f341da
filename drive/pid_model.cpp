#include "drive/pid_model.h"

#include <algorithm>
#include <cmath>

namespace kelvane::drive {

namespace {

constexpr double FirstLagSeconds = 0.8;
constexpr double SecondLagSeconds = 0.3;

void lag(double& value, double towards, double seconds, double constant) {
    value += (towards - value) * (constant > 0 ? 1 - std::exp(-seconds / constant) : 1);
}

}  // namespace

void PidModel::follow(double seconds, double motor) {
    lag(m_firstLag, motor, seconds, FirstLagSeconds);
    lag(m_feedback, m_firstLag, seconds, SecondLagSeconds);
}

double PidModel::control(double seconds, double setPoint) {
    if (seconds <= 0) return m_output;
    const double error = setPoint - m_feedback;
    const double slope = (error - m_error) / seconds;
    m_error = error;
    if (settings.integralSeconds > 0)
        m_integral += settings.gain * error * seconds / settings.integralSeconds;
    m_integral = std::clamp(m_integral, -settings.integralLimit, settings.integralLimit);
    const double wanted = settings.gain * (error + settings.derivativeSeconds * slope) + m_integral;
    lag(m_output, std::clamp(wanted, 0.0, settings.outputLimit), seconds, settings.filterSeconds);
    return m_output;
}

void PidModel::rest() { m_integral = m_error = m_output = 0; }

}  // namespace kelvane::drive
