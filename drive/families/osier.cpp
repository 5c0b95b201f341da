// Osier: a 130 kW fan and pump drive for 460 V. Group 0 shows the state, the identity stands in group 7.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 18> ACDriveStatus{{  // 00
    {"Drive Series",     "",          5,      5,      0,    99, 0, ReadOnly},
    {"Rated Output A",   "A",      2600,   2600,      0, 65535, 1, ReadOnly},
    {"Freq. Command",    "Hz",        0,      0,      0, 12000, 2, ReadOnly},
    {"Output Frequency", "Hz",        0,      0,      0, 12000, 2, ReadOnly},
    {"Output Current",   "A",         0,      0,      0, 65535, 1, ReadOnly},
    {"DC-Bus Voltage",   "V",      6500,      0,      0, 10000, 1, ReadOnly},
    {"Output Voltage",   "V",         0,      0,      0,  6000, 1, ReadOnly},
    {"Power Factor",     "",          0,      0,      0,   100, 2, ReadOnly},
    {"Output Power",     "kW",        0,      0,      0, 65535, 1, ReadOnly},
    {"Feedback Actual",  "",          0,      0,      0, 65535, 2, ReadOnly},
    {"Feedback Signal",  "%",         0,      0,      0, 10000, 2, ReadOnly},
    {"PLC Time Left",    "sec",       0,      0,      0, 65500, 0, ReadOnly},
    {"Heat Sink Temp.",  "oC",      297,    250,      0,  1500, 1, ReadOnly},
    {"Run Hours",        "h",      8420,      0,      0, 65535, 0, ReadOnly},
    {"Power-On Hours",   "h",      9105,      0,      0, 65535, 0, ReadOnly},
    {"Energy Low",       "kWh",    4821,      0,      0,  9999, 1, ReadOnly},
    {"Energy High",      "MWh",     612,      0,      0, 65535, 0, ReadOnly},
    {"Terminal Status",  "",          1,      0,      0,   255, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 24> Basic{{  // 01
    {"Max Output Freq.", "Hz",     6000,   6000,   5000, 12000, 2, 0},
    {"Base Frequency",   "Hz",     5000,   6000,   1000, 12000, 2, 0},
    {"Max Output Volt.", "V",      4000,   4400,      2,  5100, 1, 0},
    {"Mid-Point Freq.",  "Hz",      150,    150,     10, 12000, 2, 0},
    {"Mid-Point Volt.",  "V",       100,    100,      2,  5100, 1, 0},
    {"Min Output Freq.", "Hz",      150,    150,     10, 12000, 2, 0},
    {"Min Output Volt.", "V",       100,    100,      2,  5100, 1, 0},
    {"Upper Freq Bound", "%",      1000,   1000,      0,  1200, 1, 0},
    {"Lower Freq Bound", "%",         0,      0,      0,  1000, 1, 0},
    {"Accel Time 1",     "sec",     300,    600,      1, 36000, 1, RunSet},
    {"Decel Time 1",     "sec",     450,    600,      1, 36000, 1, RunSet},
    {"Accel Time 2",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Accel Time 3",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Accel Time 4",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Decel Time 2",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Decel Time 3",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Decel Time 4",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Jog Accel Time",   "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Jog Decel Time",   "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Jog Frequency",    "Hz",      600,    600,      0, 12000, 2, RunSet},
    {"Switch Freq. 1/4", "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"S-Curve Accel",    "sec",       0,      0,      0,   100, 1, 0},
    {"S-Curve Decel",    "sec",       0,      0,      0,   100, 1, 0},
    {"V/F Curve",        "",          2,      0,      0,     4, 0, 0},
}};

constexpr std::array<ParamRow, 17> OperationMethod{{  // 02
    {"Freq. Source 1",   "",          3,      0,      0,     5, 0, RunSet},
    {"Operation Source", "",          3,      0,      0,     4, 0, RunSet},
    {"Stop Method",      "",          0,      0,      0,     3, 0, 0},
    {"Freq. Source 2",   "",          0,      0,      0,     5, 0, RunSet},
    {"Source Combining", "",          0,      0,      0,     5, 0, 0},
    {"Reverse Inhibit",  "",          1,      0,      0,     2, 0, 0},
    {"Line Start Lock",  "",          1,      1,      0,     1, 0, 0},
    {"4-20 mA Loss",     "",          0,      0,      0,     3, 0, 0},
    {"Start-up Display", "",          0,      0,      0,     4, 0, RunSet},
    {"User Display",     "",          2,      0,      0,     4, 0, RunSet},
    {"User Factor K",    "",        100,    100,      1,  6000, 2, RunSet},
    {"Keypad Freq.",     "Hz",     4500,   6000,      0, 12000, 2, RunSet},
    {"Up/Down Mode",     "",          0,      0,      0,     2, 0, 0},
    {"Up/Down Speed",    "Hz/s",     10,     10,      1,  1000, 2, 0},
    {"Parameter Lock",   "",          0,      0,      0,     1, 0, 0},
    {"Password Input",   "",          0,      0,      0,  9999, 0, 0},
    {"Password Set",     "",          0,      0,      0,  9999, 0, 0},
}};

constexpr std::array<ParamRow, 16> OutputFunction{{  // 03
    {"Relay Output",     "",          8,      8,      0,    37, 0, 0},
    {"Output MO1",       "",          1,      1,      0,    37, 0, 0},
    {"Output MO2",       "",         16,      0,      0,    37, 0, 0},
    {"Output MO3",       "",         17,      0,      0,    37, 0, 0},
    {"Output MO4",       "",         18,      0,      0,    37, 0, 0},
    {"Output MO5",       "",          0,      0,      0,    37, 0, 0},
    {"Output MO6",       "",          0,      0,      0,    37, 0, 0},
    {"Output MO7",       "",          0,      0,      0,    37, 0, 0},
    {"Desired Freq. 1",  "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Desired Freq. 2",  "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Analog Output 1",  "",          2,      0,      0,     7, 0, RunSet},
    {"AO1 Gain",         "%",       100,    100,      1,   200, 0, RunSet},
    {"Analog Output 2",  "",          1,      1,      0,     7, 0, RunSet},
    {"AO2 Gain",         "%",       100,    100,      1,   200, 0, RunSet},
    {"AO2 Signal",       "",          0,      0,      0,     1, 0, 0},
    {"Fan Control",      "",          0,      0,      0,     3, 0, RunSet},
}};

constexpr std::array<ParamRow, 21> InputFunction{{  // 04
    {"Input MI1",        "",          1,      1,      0,    33, 0, 0},
    {"Input MI2",        "",          2,      2,      0,    33, 0, 0},
    {"Input MI3",        "",          3,      3,      0,    33, 0, 0},
    {"Input MI4",        "",          5,      5,      0,    33, 0, 0},
    {"Input MI5",        "",          0,      0,      0,    33, 0, 0},
    {"Input MI6",        "",          0,      0,      0,    33, 0, 0},
    {"Input MI7",        "",          0,      0,      0,    33, 0, 0},
    {"Input MI8",        "",         19,      0,      0,    33, 0, 0},
    {"2/3-Wire Control", "",          0,      0,      0,     3, 0, 0},
    {"Input Filter",     "ms",        2,      2,      0,    20, 0, 0},
    {"AVI Type",         "",          0,      0,      0,     1, 0, 0},
    {"AVI Low Level",    "%",         0,      0,      0, 10000, 2, RunSet},
    {"AVI High Level",   "%",     10000,  10000,      0, 10000, 2, RunSet},
    {"AVI Low Freq.",    "%",         0,      0,      0, 10000, 2, RunSet},
    {"AVI High Freq.",   "%",     10000,  10000,      0, 10000, 2, RunSet},
    {"AVI Filter",       "sec",       5,      5,      0,   200, 2, RunSet},
    {"ACI Low Level",    "%",      2000,   2000,      0, 10000, 2, RunSet},
    {"ACI High Level",   "%",     10000,  10000,      0, 10000, 2, RunSet},
    {"ACI Low Freq.",    "%",         0,      0,      0, 10000, 2, RunSet},
    {"ACI High Freq.",   "%",     10000,  10000,      0, 10000, 2, RunSet},
    {"ACI Filter",       "sec",       5,      5,      0,   200, 2, RunSet},
}};

constexpr std::array<ParamRow, 17> MultiStepSpeed{{  // 05
    {"Step Speed 1",     "Hz",     1500,      0,      0, 12000, 2, RunSet},
    {"Step Speed 2",     "Hz",     2000,      0,      0, 12000, 2, RunSet},
    {"Step Speed 3",     "Hz",     2500,      0,      0, 12000, 2, RunSet},
    {"Step Speed 4",     "Hz",     3000,      0,      0, 12000, 2, RunSet},
    {"Step Speed 5",     "Hz",     3500,      0,      0, 12000, 2, RunSet},
    {"Step Speed 6",     "Hz",     4000,      0,      0, 12000, 2, RunSet},
    {"Step Speed 7",     "Hz",     4500,      0,      0, 12000, 2, RunSet},
    {"PLC Mode",         "",          0,      0,      0,     4, 0, 0},
    {"PLC Direction",    "",          0,      0,      0,   127, 0, 0},
    {"PLC Step Time 1",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 2",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 3",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 4",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 5",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 6",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 7",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Holiday Speed",    "Hz",        0,      0,      0, 12000, 2, RunSet},
}};

constexpr std::array<ParamRow, 23> ProtectionFunc{{  // 06
    {"OV Stall Level",   "V",      7600,   7600,   6600,  8200, 1, 0},
    {"OC Stall Accel",   "%",       120,    120,     20,   150, 0, 0},
    {"OC Stall Running", "%",       120,    120,     20,   150, 0, 0},
    {"Low DC Level",     "V",      4000,   4000,   3000,  5800, 1, 0},
    {"Overload Mode",    "",          1,      1,      0,     2, 0, 0},
    {"Overload Time",    "sec",      60,     60,     30,   600, 0, 0},
    {"Over-Torque Mode", "",          0,      0,      0,     2, 0, 0},
    {"Over-Torque Lev.", "%",       110,    110,     30,   150, 0, RunSet},
    {"Over-Torque Time", "sec",       1,      1,      1,   600, 1, RunSet},
    {"Phase Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"Ground Fault Op",  "",          1,      1,      0,     1, 0, 0},
    {"Overheat Warning", "oC",      850,    850,      0,  1000, 1, 0},
    {"Auto Restarts",    "",          3,      0,      0,    10, 0, 0},
    {"Restart Interval", "sec",     600,    600,      0, 60000, 1, 0},
    {"Present Fault",    "",          0,      0,      0,    44, 0, ReadOnly},
    {"Past Fault 1",     "",         14,      0,      0,    44, 0, ReadOnly},
    {"Past Fault 2",     "",          3,      0,      0,    44, 0, ReadOnly},
    {"Past Fault 3",     "",          0,      0,      0,    44, 0, ReadOnly},
    {"Past Fault 4",     "",          0,      0,      0,    44, 0, ReadOnly},
    {"Past Fault 5",     "",          0,      0,      0,    44, 0, ReadOnly},
    {"Freq. at Fault",   "Hz",     4820,      0,      0, 12000, 2, ReadOnly},
    {"Current at Fault", "A",      2714,      0,      0, 65535, 1, ReadOnly},
    {"Volt. at Fault",   "V",      6120,      0,      0, 10000, 1, ReadOnly},
}};

constexpr std::array<ParamRow, 13> DriveAndMotor{{  // 07
    {"Identity Code",    "",         39,     39,      0,    39, 0, ReadOnly},
    {"Rated Current",    "A",      2600,   2600,      0, 65535, 1, ReadOnly},
    {"Motor Rated Amps", "A",     24250,  26000,      0, 31200, 2, RunSet},
    {"No-Load Current",  "A",      8600,  10400,      0, 26000, 2, RunSet},
    {"Torque Boost",     "%",        10,     10,      0,   100, 1, RunSet},
    {"Slip Compensat.",  "Hz",        0,      0,      0,  1000, 2, RunSet},
    {"Rated Power",      "kW",     1300,   1300,      0,  6553, 1, 0},
    {"Rated Speed",      "RPM",    1485,   1750,      0,  7200, 0, 0},
    {"Software Version", "",        231,    231,      0,  9999, 2, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Carrier Freq.",    "kHz",       3,      3,      1,     6, 0, 0},
    {"AVR Function",     "",          0,      0,      0,     2, 0, 0},
    {"Motor Run Hours",  "h",      8133,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 18> Special{{  // 08
    {"DC Brake Level",   "%",         0,      0,      0,   100, 0, RunSet},
    {"DC Brake Start",   "sec",       0,      0,      0,   600, 1, 0},
    {"DC Brake Stop",    "sec",       0,      0,      0,   600, 1, 0},
    {"DC Brake Freq.",   "Hz",        0,      0,      0, 12000, 2, 0},
    {"Power Loss Mode",  "",          1,      0,      0,     2, 0, 0},
    {"Power Loss Time",  "sec",      20,     20,      3,    50, 1, 0},
    {"Base-Block Time",  "sec",       5,      5,      3,    50, 1, 0},
    {"Speed Search A",   "%",       110,    110,     30,   150, 0, 0},
    {"Flying Start",     "",          1,      0,      0,     3, 0, 0},
    {"Skip Freq. 1 Up",  "Hz",     2450,      0,      0, 12000, 2, 0},
    {"Skip Freq. 1 Low", "Hz",     2300,      0,      0, 12000, 2, 0},
    {"Skip Freq. 2 Up",  "Hz",        0,      0,      0, 12000, 2, 0},
    {"Skip Freq. 2 Low", "Hz",        0,      0,      0, 12000, 2, 0},
    {"Skip Freq. 3 Up",  "Hz",        0,      0,      0, 12000, 2, 0},
    {"Skip Freq. 3 Low", "Hz",        0,      0,      0, 12000, 2, 0},
    {"Energy Saving",    "",          0,      0,      0,     1, 0, RunSet},
    {"Energy Gain",      "%",       100,    100,     10,  1000, 0, RunSet},
    {"Motor Heater",     "%",         0,      0,      0,   100, 0, RunSet},
}};

constexpr std::array<ParamRow, 8> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   254, 0, RunSet},
    {"Comm Speed",       "",          2,      1,      0,     4, 0, RunSet},
    {"Comm Protocol",    "",          0,      0,      0,     5, 0, RunSet},
    {"Comm Fault",       "",          3,      3,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,  1000, 1, RunSet},
    {"Reply Delay",      "ms",       20,     20,      0,  2000, 1, RunSet},
    {"Comm Main Freq.",  "Hz",     6000,   6000,      0, 12000, 2, RunSet},
    {"Comm Error Count", "",          2,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 14> PIDControl{{  // 10
    {"PID Enable",       "",          0,      0,      0,     2, 0, 0},
    {"PID Setpoint Src", "",          0,      0,      0,     4, 0, 0},
    {"PID Feedback Src", "",          2,      0,      0,     4, 0, 0},
    {"Proportional P",   "",        100,    100,      0,  1000, 2, RunSet},
    {"Integral Time I",  "sec",     100,    100,      0, 10000, 2, RunSet},
    {"Derivative Time",  "sec",       0,      0,      0,   100, 2, RunSet},
    {"Integral Limit",   "%",       100,    100,      0,   100, 0, RunSet},
    {"PID Filter Time",  "sec",       0,      0,      0,   250, 2, RunSet},
    {"Feedback Range",   "",       1000,   1000,      1, 65535, 2, RunSet},
    {"Feedback Loss t",  "sec",     100,    100,      0, 36000, 1, RunSet},
    {"Feedback Loss Op", "",          0,      0,      0,     3, 0, RunSet},
    {"PID Sleep Level",  "%",         0,      0,      0, 10000, 2, RunSet},
    {"PID Wake Level",   "%",         0,      0,      0, 10000, 2, RunSet},
    {"PID Sleep Delay",  "sec",       0,      0,      0, 36000, 1, RunSet},
}};

constexpr std::array<ParamRow, 20> FanAndPump{{  // 11
    {"Pump Mode",        "",          0,      0,      0,     5, 0, 0},
    {"Pumps Installed",  "",          4,      1,      1,     8, 0, 0},
    {"Rotation Period",  "h",       240,    240,      0,  8760, 0, RunSet},
    {"Add Pump Delay",   "sec",     100,    100,      1, 36000, 1, RunSet},
    {"Drop Pump Delay",  "sec",     100,    100,      1, 36000, 1, RunSet},
    {"Add Pump Freq.",   "Hz",     5000,   5000,      0, 12000, 2, RunSet},
    {"Drop Pump Freq.",  "Hz",     2500,   2500,      0, 12000, 2, RunSet},
    {"Contactor Delay",  "sec",       5,      5,      0,  1000, 1, RunSet},
    {"Dry Run Level",    "%",         0,      0,      0,   100, 0, RunSet},
    {"Dry Run Delay",    "sec",     100,    100,      0,  6000, 1, RunSet},
    {"Pipe Fill Freq.",  "Hz",     2000,   2000,      0, 12000, 2, RunSet},
    {"Pipe Fill Time",   "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Fire Mode Freq.",  "Hz",     6000,   6000,      0, 12000, 2, 0},
    {"Fire Mode Type",   "",          0,      0,      0,     2, 0, 0},
    {"Belt Loss Level",  "%",         0,      0,      0,   100, 0, RunSet},
    {"Damper Delay",     "sec",       0,      0,      0,  3600, 0, RunSet},
    {"Pump 1 Hours",     "h",      2210,      0,      0, 65535, 0, ReadOnly},
    {"Pump 2 Hours",     "h",      2198,      0,      0, 65535, 0, ReadOnly},
    {"Pump 3 Hours",     "h",      2035,      0,      0, 65535, 0, ReadOnly},
    {"Pump 4 Hours",     "h",      1990,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 5> Reserved{{  // 12
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Current Offset U", "",        507,    512,      0,  1023, 0, ReadOnly},
    {"Current Offset V", "",        511,    512,      0,  1023, 0, ReadOnly},
    {"Bus Sense Gain",   "",       1000,   1000,      0,  2000, 3, 0},
    {"Control Board",    "",          3,      3,      0,    15, 0, ReadOnly},
}};

constexpr std::array<GroupRows, 13> Groups{{
    {"AC Drive Status", ACDriveStatus},
    {"Basic", Basic},
    {"Operation Method", OperationMethod},
    {"Output Function", OutputFunction},
    {"Input Function", InputFunction},
    {"Multi-step Speed", MultiStepSpeed},
    {"Protection Func.", ProtectionFunc},
    {"Drive and Motor", DriveAndMotor},
    {"Special", Special},
    {"Communication", Communication},
    {"PID Control", PIDControl},
    {"Fan and Pump", FanAndPump},
    {"Reserved", Reserved},
}};
// clang-format on

static_assert(rowsFit(Groups, SignedAllowed::No));
static_assert(mostlyWritable(Groups));

}  // namespace

constinit const FamilyData OsierData{
    .family = Family::Osier,
    .modelCode = 39,
    .version = 231,
    .groups = Groups,
};

}  // namespace kelvane::drive
