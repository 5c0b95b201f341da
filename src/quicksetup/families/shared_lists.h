// Lists that several families have in common. A shorter one is the beginning of a longer one.
#pragma once

#include "quicksetup/family_setup.h"

namespace kelvane {

// ---- Display ----

// Behind 00-03; Osier has its user display elsewhere and says so in its own list.
inline constexpr auto StartUpDisplays = std::to_array<std::string_view>({
    "00: Display the frequency command value (LED F)",
    "01: Display the actual output frequency (LED H)",
    "02: Display the content of user-defined unit (LED U)",
    "03: Multifunction display, see Pr.00-04",
    "04: FWD/REV command",
    "05: Display the output current (LED A)",
});

inline constexpr auto ShortUserDisplays = std::to_array<std::string_view>({
    "00: Display output current (A)",
    "01: Display counter value (c)",
    "02: Display process operation (1.tt)",
    "03: Display DC bus voltage (u)",
    "04: Display output voltage (E)",
});

inline constexpr auto CompactUserDisplays = std::to_array<std::string_view>({
    "00: Display the content of user-defined unit (U)",
    "01: Display counter value (c)",
    "02: Display process operation (1.tt)",
    "03: Display DC bus voltage (u)",
    "04: Display output voltage (E)",
    "05: Display PID analog feedback signal value (b)(%)",
    "06: Display output power factor angle (n)",
    "07: Display output power (P)",
    "08: Display the estimated value of torque as it relates to current (t)",
    "09: Display AVI (I)(V)",
    "10: Display ACI (i)(mA)",
    "11: Display the temperature of IGBT (h)(deg C)",
});

inline constexpr auto LongUserDisplays = std::to_array<std::string_view>({
    "00: Display output current (A)",
    "01: Display counter value (c)",
    "02: Display process operation (1.tt)",
    "03: Display DC bus voltage (u)",
    "04: Display output voltage (E)",
    "05: Display output power factor angle (n)",
    "06: Display output power (P)",
    "07: Display actual motor speed (r)",
    "08: Display the estimated value of torque as it relates to current (t)",
    "09: Display PG feedback pulses (G)",
    "10: Display PID analog feedback signal value (b)(%)",
    "11: Display AVI (1.)(%)",
    "12: Display ACI (2.)(%)",
    "13: Display AUI (3.)(%)",
    "14: Display the temperature of heat sink (h)(deg C)",
    "15: Display the temperature of IGBT (T)(deg C)",
    "16: Display the status of the digital inputs (i)",
    "17: Display the status of the digital outputs (o)",
    "18: Display the step of multi-step speed (S)",
    "19: Display the time of PLC operation (d)(sec)",
    "20: Display the low word of the PG pulse count (L)",
    "21: Display the high word of the PG pulse count (J)",
    "22: Display the overload rate (O)(%)",
    "23: Display the ripple of the DC bus voltage (q)(V)",
    "24: Display the frequency command value (F)",
    "25: Display the actual output frequency (H)",
    "26: Display the PID set point (B)(%)",
    "27: Display the position of the motor (P.)",
    "28: Display the speed of the fan (f)(%)",
});

// ---- Operation ----

inline constexpr auto ControlMethods = std::to_array<std::string_view>({
    "00: V/F Control",
    "01: V/F + PG Control",
    "02: Vector Control",
    "03: Vector + PG Control",
});

inline constexpr auto ControlMethodsWithoutPg = std::to_array<std::string_view>({
    "00: V/F Control",
    "01: Vector Control",
});

inline constexpr auto FrequencySources = std::to_array<std::string_view>({
    "00: Digital keypad UP/DOWN keys or multi-function inputs UP/DOWN. Last used frequency saved",
    "01: 0 to +10V from AVI",
    "02: 4 to 20mA from ACI",
    "03: RS-485 serial communication",
    "04: Potentiometer on the digital keypad",
    "05: Combined use of master and auxiliary frequency command",
});

inline constexpr auto CommandSources = std::to_array<std::string_view>({
    "00: Digital keypad",
    "01: External terminals. Keypad STOP/RESET enabled",
    "02: External terminals. Keypad STOP/RESET disabled",
    "03: RS-485 serial communication. Keypad STOP/RESET enabled",
    "04: RS-485 serial communication. Keypad STOP/RESET disabled",
});

inline constexpr auto StopMethods = std::to_array<std::string_view>({
    "00: Ramp to stop",
    "01: Coast to stop",
});

inline constexpr auto StopAndFaultMethods = std::to_array<std::string_view>({
    "00: STOP: ramp to stop; E.F.: coast to stop",
    "01: STOP: coast to stop; E.F.: coast to stop",
    "02: STOP: ramp to stop; E.F.: ramp to stop",
    "03: STOP: coast to stop; E.F.: ramp to stop",
});

// ---- Terminals ----

// Drives without pump motors: what every drive can tell.
inline constexpr auto GeneralOutputs = std::to_array<std::string_view>({
    "00: No function",
    "01: AC drive operational",
    "02: Master frequency attained",
    "03: Zero speed",
    "04: Over torque detection",
    "05: Base-Block(B.B) indication",
    "06: Low-Voltage indication",
    "07: Operation mode indication",
    "08: Fault indication",
    "09: Desired frequency attained 1",
    "10: PLC program running",
    "11: PLC program step completed",
    "12: PLC program completed",
    "13: PLC operation paused",
    "14: Terminal count value attained",
    "15: Preliminary count value attained",
    "16: Heat sink overheat warning",
    "17: AC motor drive ready",
    "18: Emergency stop indication",
    "19: Desired frequency attained 2",
    "20: Software braking signal",
    "21: Zero speed output signal",
    "22: Under-current indication",
    "23: Operation indication (H>=Fmin)",
    "24: Feedback signal error",
});

// Drives with pump motors.
inline constexpr auto AllOutputs = std::to_array<std::string_view>({
    "00: No function",
    "01: AC drive operational",
    "02: Master frequency attained",
    "03: Zero speed",
    "04: Over torque detection",
    "05: Base-Block(B.B) indication",
    "06: Low-Voltage indication",
    "07: Operation mode indication",
    "08: Fault indication",
    "09: Desired frequency attained 1",
    "10: PLC program running",
    "11: PLC program step completed",
    "12: PLC program completed",
    "13: PLC operation paused",
    "14: Terminal count value attained",
    "15: Preliminary count value attained",
    "16: Auxiliary motor No.1",
    "17: Auxiliary motor No.2",
    "18: Auxiliary motor No.3",
    "19: Heat sink overheat warning",
    "20: AC motor drive ready",
    "21: Emergency stop indication",
    "22: Desired frequency attained 2",
    "23: Software braking signal",
    "24: Zero speed output signal",
    "25: Under-current indication",
    "26: Operation indication (H>=Fmin)",
    "27: Feedback signal error",
    "28: User-defined low-voltage detection",
    "29: Brake control (Desired frequency attained 3)",
    "30: Cooling fan running",
    "31: Mechanical brake release",
    "32: Output current attained",
    "33: Analog input signal lost",
    "34: Over-voltage stall prevention active",
    "35: Over-current stall prevention active",
    "36: Torque limit attained",
    "37: PID limit attained",
    "38: Running direction (reverse)",
    "39: Low load detection",
    "40: Controlled by communication",
    "41: Second motor selected",
    "42: Position attained",
});

inline constexpr auto WireModes = std::to_array<std::string_view>({
    "00: 2-wire: FWD/STOP, REV/STOP",
    "01: 2-wire: RUN/STOP, FWD/REV",
    "02: 3-wire",
});

inline constexpr auto CompactInputs = std::to_array<std::string_view>({
    "00: No function",
    "01: Multi-step speed command 1",
    "02: Multi-step speed command 2",
    "03: Multi-step speed command 3",
    "04: Multi-step speed command 4",
    "05: External reset (N.O.)",
    "06: Accel/Decel inhibit",
    "07: Accel/Decel time selection command 1",
    "08: Accel/Decel time selection command 2",
    "09: External base block (N.O.)",
    "10: External base block (N.C.)",
    "11: Up: Increment master frequency",
    "12: Down: Decrement master frequency",
    "13: Counter reset",
    "14: Run PLC program",
    "15: Pause PLC program",
    "16: Jog FWD/REV command",
    "17: Force stop (N.C.)",
    "18: Force stop (N.O.)",
    "19: External reset (N.C.)",
    "20: Counter trigger",
    "21: Emergency stop (N.O.)",
    "22: Emergency stop (N.C.)",
    "23: Jog forward",
    "24: Jog reverse",
});

inline constexpr auto AllInputs = std::to_array<std::string_view>({
    "00: No function",
    "01: Multi-step speed command 1",
    "02: Multi-step speed command 2",
    "03: Multi-step speed command 3",
    "04: Multi-step speed command 4",
    "05: External reset (N.O.)",
    "06: Accel/Decel inhibit",
    "07: Accel/Decel time selection command 1",
    "08: Accel/Decel time selection command 2",
    "09: External base block (N.O.)",
    "10: External base block (N.C.)",
    "11: Up: Increment master frequency",
    "12: Down: Decrement master frequency",
    "13: Counter reset",
    "14: Run PLC program",
    "15: Pause PLC program",
    "16: Auxiliary motor No.1 output disable",
    "17: Auxiliary motor No.2 output disable",
    "18: Auxiliary motor No.3 output disable",
    "19: Emergency stop (N.O.)",
    "20: Emergency stop (N.C.)",
    "21: Master frequency selection AVI/ACI",
    "22: Master frequency selection AVI/AUI",
    "23: Operation command selection (keypad/external terminals)",
    "24: Auto accel/decel mode disable",
    "25: Force stop (N.C.)",
    "26: Force stop (N.O.)",
    "27: Parameter lock enable (N.O.)",
    "28: PID function disabled",
    "29: Jog FWD/REV command",
    "30: External reset (N.C.)",
    "31: Source of second frequency command enabled",
    "32: Source of second operation command enabled",
    "33: One shot PLC",
    "34: Proximity sensor input for simple index function",
    "35: Output shutoff stop (N.O.)",
    "36: Output shutoff stop (N.C.)",
    "37: Second motor selection",
    "38: Speed/torque mode selection",
    "39: Position control enable",
    "40: Home position sensor",
    "41: Position confirmation",
    "42: PID integrator hold",
    "43: PID set point selection",
});

constexpr ChoiceList firstOf(ChoiceList list, size_t count) { return list.first(count); }

}  // namespace kelvane
