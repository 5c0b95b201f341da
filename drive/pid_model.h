// The control loop of a practice drive: a plant that follows the motor's frequency with two lags, and the
// drive's PID over it. Values are in per cent of the full range. Time is handed in.
#pragma once

namespace kelvane::drive {

struct PidSettings {
    double gain = 1;
    double integralSeconds = 1;  // 0: none
    double derivativeSeconds = 0;
    double integralLimit = 100;  // per cent of the output
    double filterSeconds = 0;    // of the output
    double outputLimit = 100;    // per cent
};

class PidModel {
   public:
    PidSettings settings;

    // Time passes for the plant; motor is the motor's present frequency.
    void follow(double seconds, double motor);
    double feedback() const { return m_feedback; }
    // The frequency that the controller wants after seconds more, 0 to the output limit.
    double control(double seconds, double setPoint);
    // Forgets integral and filter, as a drive does when it is stopped.
    void rest();

   private:
    double m_firstLag = 0;
    double m_feedback = 0;
    double m_integral = 0;
    double m_error = 0;
    double m_output = 0;
};

}  // namespace kelvane::drive
