#include "drive/motor_model.h"

#include <gtest/gtest.h>

#include <tuple>

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

TEST(Motor, AWorkingLoadMovesCurrentSpeedAndBusTogether) {
    MotorModel motor = motorAt(50);
    motor.workingLoad = true;
    motor.run();
    for (int i = 0; i < 60; ++i) motor.advance(0.1);  // at speed
    double idleAmps = 1e9, cutAmps = 0, idleBus = 0, cutBus = 0, idleRpm = 0, cutRpm = 0;
    for (int i = 0; i < 200; ++i) {  // one round
        motor.advance(0.1);
        if (motor.amps() < idleAmps)
            std::tie(idleAmps, idleBus, idleRpm) = std::tuple(motor.amps(), motor.busVolts(), motor.rpm());
        if (motor.amps() > cutAmps)
            std::tie(cutAmps, cutBus, cutRpm) = std::tuple(motor.amps(), motor.busVolts(), motor.rpm());
    }
    EXPECT_GT(cutAmps, 1.6 * idleAmps);
    EXPECT_LT(cutBus, idleBus);
    EXPECT_LT(cutRpm, idleRpm);
    motor.stop();
    for (int i = 0; i < 60; ++i) motor.advance(0.1);
    EXPECT_EQ(motor.amps(), 0);
}

}  // namespace
}  // namespace kelvane::drive
