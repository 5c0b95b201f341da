// What differs between practice drives of the families beside their parameter tables: registers, shape of the
// status block, tuning. One row a family. Read by the register map and the parameter store.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "base/drive_family.h"

namespace kelvane::drive {

// A value that the drive measures or knows, in its natural unit.
enum class Quantity : uint8_t {
    None,
    CommandHz,
    OutputHz,
    OutputAmps,
    BusVolts,
    OutputVolts,
    StepNumber,
    PlcStep,
    PlcSeconds,
    Counter,
    PowerFactor,
    PowerFactorAngle,
    TorquePercent,
    MotorRpm,
    EncoderLow,
    EncoderHigh,
    OutputKw,
    Temperature,
    PidFeedback,
    PidTarget,
    ScaledHzLow,
    ScaledHzHigh,
    AnalogVolts,
    AnalogMilliamps,
    InputTerminals,
};

struct StatusItem {
    Quantity quantity;
    int scale;  // word = quantity x scale
};

// Registers of the PID; 0 for one that the family does not have.
struct PidRegisters {
    uint16_t source;  // not 0: the control runs
    uint16_t gain;
    uint16_t integralTime;
    uint16_t derivativeTime;
    uint16_t integralLimit;
    uint16_t filterTime;
    uint16_t outputLimit;
    double gainScale;  // of a gain in per cent
};

struct FamilyTraits {
    Family family;
    uint16_t modelRegister;
    uint16_t versionRegister;  // beside 2112h; 0 when there is none
    bool namesGroups;          // 31nnH
    bool tellsFaultText;       // 32ccH
    bool hasCopyMode;          // 2005h
    bool plainState;           // 2101h has one bit a state, the coded word stands at 2119h only
    uint16_t recordWords;      // 15, or 4 without default, name and unit
    uint16_t displayRegister;  // user display: value, format and, with 3 words, the tuning result
    uint16_t displayWords;
    uint8_t pidGroupAgain;  // high byte at which the PID group, 10, answers a second time; 0 for none
    // Parameters by which the motor runs.
    uint16_t maxFrequency;
    uint16_t baseFrequency;
    uint16_t accelTime;
    uint16_t decelTime;
    // Tuning: command register (0 without tuning), mode that turns the motor, where the result stands, and
    // the rows that it changes (motor 1; motor 2 where motorSelector is not 0).
    uint16_t tuneCommand;
    uint16_t turningMode;
    uint16_t tuneResult;
    bool resultInHighByte;
    std::array<uint16_t, 2> tunedRows;
    uint16_t motorSelector;
    std::array<uint16_t, 2> tunedRowsOfMotor2;
    PidRegisters pid;
    bool signedItems;  // negative items go out as two's complement
    std::span<const StatusItem> items;
};

// Row of one of the nine families; the row of Larch for any other value.
const FamilyTraits& traitsOf(Family family);

}  // namespace kelvane::drive
