// Larch: speed feedback, auxiliary pumps and a PLC.
// Kept: these texts stand as the drive's own manual prints them, misspellings included.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr auto StartUpDisplay = std::to_array<std::string_view>({
    "00: Display the frequency command value (LED F)",
    "01: Display the actual output frequency (LED H)",
    "02: Display the content of user-definied unit (LED U)",
    "03: Multifunction display, see Pr.00-04",
    "04: FWD/REV command",
});

constexpr auto UserDisplay = std::to_array<std::string_view>({
    "00: Display output current (A)",
    "01: Display counter value (c)",
    "02: Display process operation (1.tt)",
    "03: Display DC Bus Voltage (u)",
    "04: Display output voltage (E)",
    "05: Output power facotr angle (n)",
    "06: Display output power (P)",
    "07: Display actual motor speed (HU)",
    "08: Display the estimated value of torque as it relates to current (t)",
    "09: Display PG numbers/10ms (G)",
    "10: Display analog feedback signal value (b)(%)",
    "11: Display AV1 (U1.)(%)",
    "12: Display AC1 (U2.)(%)",
    "13: Display AU1 (U3.)(%)",
    "14: Display the temperature of heat sink",
});

constexpr auto FrequencySource = std::to_array<std::string_view>({
    "00: Digital keypad(Arcade) UP/DOWN keys or Multi-function Inputs UP/DOWN. Last used frequency saved",
    "01: 0 to +10v from AVI",
    "02: 4 to 20ma to ACI",
    "03: -10 to +10Vdc from AUI",
    "04: RS-485 serial communication (RJ-11). Last used frequency saved",
    "05: RS-485 serial communication (RJ-11). Last used frequency not saved",
    "06: Combined use of master and auxiliary frequency command (See Pr.02-10 to 02-12)",
});

constexpr auto CommandSource = std::to_array<std::string_view>({
    "00: Digital keypad(Arcade)",
    "01: External terminals. Keypad STOP/RESET enabled",
    "02: External terminals. Keypad STOP/RESET disabled",
    "03: RS-485 serial communication (RJ-11). Keypad STOP/RESET enabled",
    "04: RS-485 serial communication (RJ-11). Keypad STOP/RESET disabled",
});

constexpr auto StopMethod = std::to_array<std::string_view>({
    "00: STOP:ramp to stop;  E.F.:coast to stop",
    "01: STOP:coast to stop; E.F.:coast to stop)",
    "02: STOP:ramp to stop;  E.F.:ramp to stop",
    "03: STOP:coast to stop; E.F.:ramp to stop)",
});

constexpr auto Inputs = std::to_array<std::string_view>({
    "00: No Function",
    "01: Multi-step speed command 1",
    "02: Multi-step speed command 2",
    "03: Multi-step speed command 3",
    "04: Multi-step speed command 4",
    "05: External reset (N.O.)",
    "06: Accel/Decel ihibit",
    "07: Accel/Dccel time selection command 1",
    "08: Accel/Dccel time selection command 2",
    "09: External base block (N.O.)",
    "10: External base block (N.C.)",
    "11: Up: Increment master frequency",
    "12: Down: Decrement master frequency",
    "13: Counter Reset",
    "14: Run PLC Program",
    "15: Pause PLC Program",
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
    "35: Output shutoff stop (NO)",
    "36: Output shutoff stop (NC)",
});

constexpr ChoiceLists Lists{
    .S1para1 = StartUpDisplay,
    .S1para2 = UserDisplay,
    .S1para4 = ControlMethods,
    .S3para1 = FrequencySource,
    .S3para2 = CommandSource,
    .S3para3 = StopMethod,
    .outputs = firstOf(AllOutputs, 30),
    .inputMode = {},
    .inputs = Inputs,
};
static_assert(numbersCount(Lists.S3para1));
static_assert(listsAreWell(Lists, {5, 15, 4, 7, 5, 4, 30, 0, 37}));

}  // namespace

constinit const FamilySetup LarchSetup{
    .DriveFamily = Family::Larch,
    .lists = Lists,
    .currentUnit = "%",
};

}  // namespace kelvane
