// Texts that a practice drive gives for its faults (32ccH) and for the Modbus exceptions by which it refuses
// (33ccH), and the codes it uses. Read by the register map.
#pragma once

#include <QByteArray>
#include <cstdint>
#include <span>
#include <string_view>

namespace kelvane::drive {

// Why a request is refused; the value is the exception code on the wire.
enum class Refusal : uint8_t {
    None = 0,
    IllegalFunction = 1,
    UnknownRegister = 2,
    OutOfRange = 3,
    ReadOnly = 4,
    WhileRunning = 6,
};

enum FaultCode : uint8_t {
    NoFault = 0,
    OverCurrent = 1,
    OverVoltage = 2,
    OverHeat = 3,
    OverLoad = 4,
    MotorOverload = 5,
    ExternalFault = 6,
    LowVoltage = 14,
    TuneFault = 40,
};

struct CodeText {
    uint8_t code;
    std::string_view text;  // at most 16 characters
    std::string_view name;  // at most 4 characters
};

// Ten registers' worth of characters: 16 of text, 4 of name, padded with blanks. Every code has a text.
QByteArray faultBlock(uint8_t code);
QByteArray exceptionBlock(uint8_t code);

// Exactly width characters: cut or padded with blanks.
QByteArray padded(std::string_view text, qsizetype width);

}  // namespace kelvane::drive
