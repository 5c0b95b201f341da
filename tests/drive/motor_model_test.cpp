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

TEST(Motor, RampsByItsTimesWhateverTheStepsOfTheClock) {
    for (const double step : {0.001, 0.05, 4.0}) {
        MotorModel motor = motorAt(50);
        motor.run();
        for (double t = 0; t < 4 - 1e-9; t += step) motor.advance(step);
        EXPECT_NEAR(motor.outputHz(), 40, 1e-6) << step;
        EXPECT_EQ(motor.runState(), RunState::Running);
        motor.advance(1.5);
        EXPECT_DOUBLE_EQ(motor.outputHz(), 50);
        motor.stop();
        motor.advance(1);
        EXPECT_NEAR(motor.outputHz(), 30, 1e-6);
        EXPECT_EQ(motor.runState(), RunState::Stopping);
        motor.advance(1.6);
        EXPECT_EQ(motor.outputHz(), 0);
        EXPECT_EQ(motor.runState(), RunState::Stopped);
    }
}

TEST(Motor, TurnsOverThroughStandstill) {
    MotorModel motor = motorAt(30);
    motor.run();
    motor.advance(10);
    EXPECT_EQ(motor.turnState(), TurnState::Forward);
    motor.toggleDirection();
    motor.advance(1);
    EXPECT_NEAR(motor.outputHz(), 10, 1e-6);
    EXPECT_EQ(motor.turnState(), TurnState::ForwardToReverse);
    EXPECT_GT(motor.torquePercent(), 0);
    motor.advance(1.5);  // 0.5 s to standstill, then 1 s of 10 Hz/s
    EXPECT_NEAR(motor.outputHz(), 10, 1e-6);
    EXPECT_EQ(motor.turnState(), TurnState::Reverse);
    EXPECT_LT(motor.torquePercent(), 0);
    motor.toggleDirection();
    EXPECT_EQ(motor.turnState(), TurnState::ReverseToForward);
}

TEST(Motor, JogStandbyAndFault) {
    MotorModel motor = motorAt(0);
    motor.jog();
    motor.advance(10);
    EXPECT_TRUE(motor.jogging());
    EXPECT_DOUBLE_EQ(motor.outputHz(), 6);
    motor.stop();
    motor.advance(10);
    EXPECT_FALSE(motor.jogging());
    motor.run();
    motor.advance(1);
    EXPECT_EQ(motor.runState(), RunState::Standby);
    motor.setCommandHz(20);
    motor.advance(10);
    motor.injectFault(1);
    EXPECT_EQ(motor.outputHz(), 0);
    motor.run();
    motor.advance(1);
    EXPECT_EQ(motor.runState(), RunState::Stopped);
    motor.reset();
    motor.run();
    EXPECT_EQ(motor.runState(), RunState::Running);
}

}  // namespace
}  // namespace kelvane::drive
