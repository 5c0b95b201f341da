#include "drive/motor_model.h"

#include <gtest/gtest.h>

namespace kelvane::drive {
namespace {

MotorModel motorAt(double commandHz) {
    MotorModel motor;
    motor.settings = {.maxHz = 60, .baseHz = 60, .accelSeconds = 6, .decelSeconds = 3, .jogHz = 6};
    motor.setCommandHz(commandHz);
    return motor;
}

TEST(Motor, RampsAndTurnsOverByItsTimesWhateverTheStepsOfTheClock) {
    for (const double step : {0.001, 0.05, 0.5}) {
        MotorModel motor = motorAt(30);
        const auto pass = [&](double seconds) {
            for (double t = 0; t < seconds - 1e-9; t += step) motor.advance(step);
        };
        motor.run();
        pass(2);
        EXPECT_NEAR(motor.outputHz(), 20, 1e-6) << step;
        pass(2);
        EXPECT_DOUBLE_EQ(motor.outputHz(), 30);
        motor.toggleDirection();
        pass(1);
        EXPECT_NEAR(motor.outputHz(), 10, 1e-6);
        EXPECT_EQ(motor.turnState(), TurnState::ForwardToReverse);
        EXPECT_GT(motor.torquePercent(), 0);
        pass(1.5);  // 0.5 s to standstill, then 1 s of 10 Hz/s
        EXPECT_NEAR(motor.outputHz(), 10, 1e-6);
        EXPECT_EQ(motor.turnState(), TurnState::Reverse);
        EXPECT_LT(motor.torquePercent(), 0);
        motor.stop();
        EXPECT_EQ(motor.runState(), RunState::Stopping);
        pass(1);
        EXPECT_EQ(motor.outputHz(), 0);
        EXPECT_EQ(motor.runState(), RunState::Stopped);
    }
}

TEST(Motor, AWorkingLoadMovesCurrentSpeedAndBusTogether) {
    MotorModel motor = motorAt(50);
    motor.workingLoad = true;
    motor.run();
    for (int i = 0; i < 60; ++i) motor.advance(0.1);  // at speed
    MotorModel idle = motor, cut = motor;
    for (int i = 0; i < 200; ++i) {  // one round
        motor.advance(0.1);
        if (motor.amps() < idle.amps()) idle = motor;
        if (motor.amps() > cut.amps()) cut = motor;
    }
    EXPECT_GT(cut.amps(), 1.6 * idle.amps());
    EXPECT_LT(cut.busVolts(), idle.busVolts());
    EXPECT_LT(cut.rpm(), idle.rpm());
}

}  // namespace
}  // namespace kelvane::drive
