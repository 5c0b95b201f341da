// The motor behind a practice drive: ramps, load, heat and trips. It has no clock of its own; the register
// map hands in the time that has passed and reads the measured values.
#pragma once

#include <cstdint>
#include <optional>

namespace kelvane::drive {

struct MotorPlate {
    double ratedVolts = 220;
    double ratedAmps = 5;
    double ratedKw = 0.75;
    int polePairs = 2;
};

// Settings that a parameter write may change at any time.
struct MotorSettings {
    double maxHz = 60;
    double baseHz = 60;
    double accelSeconds = 10;  // from 0 to maxHz
    double decelSeconds = 10;
    double jogHz = 6;
};

// Bits 0 and 1 of the second state word.
enum class RunState : uint8_t { Stopped = 0, Stopping = 1, Standby = 2, Running = 3 };
// Bits 3 and 4: present direction, and whether the other one is asked for.
enum class TurnState : uint8_t { Forward = 0, ForwardToReverse = 1, ReverseToForward = 2, Reverse = 3 };

class MotorModel {
   public:
    MotorPlate plate;
    MotorSettings settings;
    double loadPercent = 40;
    // The load of a working machine instead of a steady one: it swells, takes hold in steps and lets go
    // again.
    bool workingLoad = false;

    void run();
    void stop();
    void jog();
    void setReverse(bool reverse) { m_reverse = reverse; }
    void toggleDirection() { m_reverse = !m_reverse; }
    void setCommandHz(double hz) { m_commandHz = hz; }
    // While tuning the drive itself leads the motor at this frequency; 0 is a locked shaft under current.
    void leadTuning(std::optional<double> hz) { m_tuneHz = hz; }
    // The drive's own control leads the motor at this frequency in place of the command.
    void leadControl(std::optional<double> hz) { m_controlHz = hz; }
    // Trips: the output goes off at once and stays off until reset().
    void injectFault(uint8_t code);
    void reset() { m_fault = 0; }
    void advance(double seconds);

    bool reverse() const { return m_reverse; }
    bool jogging() const { return m_order == Order::Jog; }
    uint8_t fault() const { return m_fault; }
    RunState runState() const;
    TurnState turnState() const;
    // Anything but a standing, unpowered motor.
    bool running() const { return runState() != RunState::Stopped; }

    double commandHz() const { return m_commandHz; }
    double outputHz() const;  // never negative
    double amps() const;
    double volts() const;
    double busVolts() const;
    double torquePercent() const;  // negative in reverse
    double rpm() const;
    double kilowatts() const;
    double powerFactor() const;
    double powerFactorAngle() const;  // degrees
    double celsius() const { return m_celsius; }

   private:
    enum class Order : uint8_t { Stop, Run, Jog };
    double targetHz() const;
    bool powered() const;
    void followLoad(double seconds);
    void ramp(double seconds);
    double rampTowards(double target, double hzPerSecond, double seconds);

    Order m_order = Order::Stop;
    bool m_reverse = false;
    bool m_turnsReverse = false;  // direction of the last movement
    uint8_t m_fault = 0;
    double m_commandHz = 0;
    std::optional<double> m_tuneHz;
    std::optional<double> m_controlHz;
    double m_hz = 0;     // negative in reverse
    int m_rampSign = 0;  // 1 speeding up, -1 slowing down
    double m_celsius = 25;
    double m_workSeconds = 0;         // since the shaft began to turn
    std::optional<double> m_working;  // percent, of a working load
};

}  // namespace kelvane::drive
