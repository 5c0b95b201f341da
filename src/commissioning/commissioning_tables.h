// What differs by family in the PID and the auto tuning window: parameters by number and register, the block
// diagram, the command and result registers of a tuning run. Texts as they are shown and sent.
#pragma once

#include <array>
#include <span>

#include "base/drive_family.h"

namespace kelvane {

// A parameter's number as it is shown ("10-00") and its register in four hexadecimal digits.
struct ListedParameter {
    const char* number;
    const char* modbus;
};

inline constexpr const char* NoRegister = "null";    // a row that is neither read nor written
inline constexpr const char* NoParameter = "-----";  // a row that cannot be edited

struct PidFamily {
    Family family;
    const char* diagram;  // object name of its block diagram
    std::span<const ListedParameter> parameters;

    int ParamCount() const { return static_cast<int>(parameters.size()); }
};

// A family without PID gets no parameters and the diagram of Larch.
const PidFamily& pidFamily(quint8 DriveFamily);
std::span<const PidFamily> pidFamilies();

struct TuneFamily {
    Family family;
    // Rows by motor; the second is empty where there is one motor.
    std::array<std::span<const ListedParameter>, 2> motors;
    const char* commandRegister;  // where the mode is written; empty where the tool names none
    quint8 turningEntry;          // of TuneParaComboBox: the motor turns, so a question comes first
    const char* resultCommand;    // reads the result
    bool codeInHighByte;          // of the result word
    const char* textRegister;     // high byte from where a bad result's text is read
    const char* resetCommand;     // offered after a bad result

    int TuneRowCount() const { return static_cast<int>(motors[0].size()); }
    bool hasTwoMotors() const { return !motors[1].empty(); }
};

inline constexpr const char* MotorSelectorRegister = "050A";

// nullptr for a family without auto tuning.
const TuneFamily* tuneFamily(quint8 DriveFamily);

}  // namespace kelvane
