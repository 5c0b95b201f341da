// Sorrel: a 15 kW lift drive for 460 V with speed feedback, brake sequence and travel curves.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 21> System{{  // 00
    {"Identity Code",    "",         19,     19,      0,    39, 0, ReadOnly},
    {"Rated Current",    "A",      2700,   2700,      0, 65535, 2, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Start-up Display", "",          0,      0,      0,     3, 0, RunSet},
    {"Multi Display",    "",          5,      0,      0,    28, 0, RunSet},
    {"User Factor K",    "",       1000,   1000,      4, 65535, 3, RunSet},
    {"Software Version", "",        205,    205,      0,  9999, 2, ReadOnly},
    {"Password Input",   "",          0,      0,      0,  9999, 0, 0},
    {"Password Set",     "",          0,      0,      0,  9999, 0, 0},
    {"Control Method",   "",          0,      0,      0,     3, 0, 0},
    {"Speed Unit",       "",          0,      0,      0,     2, 0, RunSet},
    {"Reverse Inhibit",  "",          0,      0,      0,     2, 0, 0},
    {"Carrier Freq.",    "kHz",      12,     12,      2,    15, 0, 0},
    {"AVR Function",     "",          0,      0,      0,     2, 0, 0},
    {"Freq. Cmd Source", "",          1,      1,      0,     2, 0, RunSet},
    {"Run Cmd Source",   "",          2,      2,      0,     2, 0, RunSet},
    {"Trips Low",        "",       7314,      0,      0,  9999, 0, ReadOnly},
    {"Trips High",       "",          4,      0,      0,  9999, 0, ReadOnly},
    {"Run Hours",        "h",      2688,      0,      0, 65535, 0, ReadOnly},
    {"Power-On Hours",   "h",     11043,      0,      0, 65535, 0, ReadOnly},
    {"Fan Control",      "",          2,      2,      0,     4, 0, RunSet},
}};

constexpr std::array<ParamRow, 29> Basic{{  // 01
    {"Max Output Freq.", "Hz",     5000,   6000,   1000, 12000, 2, 0},
    {"Base Frequency",   "Hz",     5000,   6000,     10, 12000, 2, 0},
    {"Rated Voltage",    "V",      4000,   4400,      1,  5100, 1, 0},
    {"Mid Frequency 1",  "Hz",       50,     50,      0, 12000, 2, 0},
    {"Mid Voltage 1",    "V",       100,    100,      0,  4800, 1, 0},
    {"Min Output Freq.", "Hz",       50,     50,      0, 12000, 2, 0},
    {"Min Output Volt.", "V",       100,    100,      0,  4800, 1, 0},
    {"Mid Frequency 2",  "Hz",       50,     50,      0, 12000, 2, 0},
    {"Mid Voltage 2",    "V",       100,    100,      0,  4800, 1, 0},
    {"Start Frequency",  "Hz",       50,     50,      0, 12000, 2, 0},
    {"Upper Freq Bound", "%",      1000,   1000,      0,  1200, 1, 0},
    {"Lower Freq Bound", "%",         0,      0,      0,  1000, 1, 0},
    {"Accel Time 1",     "sec",     250,    300,      0, 60000, 2, RunSet},
    {"Decel Time 1",     "sec",     220,    300,      0, 60000, 2, RunSet},
    {"Accel Time 2",     "sec",     300,    300,      0, 60000, 2, RunSet},
    {"Accel Time 3",     "sec",     300,    300,      0, 60000, 2, RunSet},
    {"Accel Time 4",     "sec",     300,    300,      0, 60000, 2, RunSet},
    {"Decel Time 2",     "sec",     200,    200,      0, 60000, 2, RunSet},
    {"Decel Time 3",     "sec",     200,    200,      0, 60000, 2, RunSet},
    {"Decel Time 4",     "sec",     200,    200,      0, 60000, 2, RunSet},
    {"Jog Accel Time",   "sec",     100,    100,      0, 60000, 2, RunSet},
    {"Jog Decel Time",   "sec",     100,    100,      0, 60000, 2, RunSet},
    {"Jog Frequency",    "Hz",      600,    600,      0, 12000, 2, RunSet},
    {"Accel 1/4 Switch", "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Decel 1/4 Switch", "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Jerk Accel Start", "sec",     100,    100,      0,  2500, 2, 0},
    {"Jerk Accel End",   "sec",     100,    100,      0,  2500, 2, 0},
    {"Jerk Decel Start", "sec",     100,    100,      0,  2500, 2, 0},
    {"Jerk Decel End",   "sec",     100,    100,      0,  2500, 2, 0},
}};

constexpr std::array<ParamRow, 24> DigitalIO{{  // 02
    {"2/3-Wire Mode",    "",          0,      0,      0,     5, 0, 0},
    {"Input MI1",        "",          1,      1,      0,    43, 0, 0},
    {"Input MI2",        "",          2,      2,      0,    43, 0, 0},
    {"Input MI3",        "",          3,      3,      0,    43, 0, 0},
    {"Input MI4",        "",          4,      4,      0,    43, 0, 0},
    {"Input MI5",        "",          0,      0,      0,    43, 0, 0},
    {"Input MI6",        "",          5,      0,      0,    43, 0, 0},
    {"Input MI7",        "",          7,      0,      0,    43, 0, 0},
    {"Input MI8",        "",         19,     19,      0,    43, 0, 0},
    {"Input Filter",     "sec",       5,      5,      1, 30000, 3, RunSet},
    {"Input Polarity",   "",          0,      0,      0, 65535, 0, RunSet},
    {"Relay Output",     "",          8,      8,      0,    42, 0, 0},
    {"Output MO1",       "",          1,      1,      0,    42, 0, 0},
    {"Output MO2",       "",          0,      0,      0,    42, 0, 0},
    {"Output MO3",       "",         20,      0,      0,    42, 0, 0},
    {"Output MO4",       "",          0,      0,      0,    42, 0, 0},
    {"Output MO5",       "",          0,      0,      0,    42, 0, 0},
    {"Output Polarity",  "",          0,      0,      0, 65535, 0, RunSet},
    {"Desired Freq. 1",  "Hz",     6000,   6000,      0, 12000, 2, RunSet},
    {"Desired Width 1",  "Hz",      200,    200,      0, 12000, 2, RunSet},
    {"Desired Freq. 2",  "Hz",     6000,   6000,      0, 12000, 2, RunSet},
    {"Desired Width 2",  "Hz",      200,    200,      0, 12000, 2, RunSet},
    {"Input Status",     "",          3,      0,      0, 65535, 0, ReadOnly},
    {"Output Status",    "",          2,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 20> AnalogIO{{  // 03
    {"AUI1 Function",    "",          1,      1,      0,    11, 0, 0},
    {"ACI Function",     "",          0,      0,      0,    11, 0, 0},
    {"AUI2 Function",    "",          0,      0,      0,    11, 0, 0},
    {"AUI1 Bias",        "%",         0,      0,      0,  1000, 1, RunSet},
    {"ACI Bias",         "%",         0,      0,      0,  1000, 1, RunSet},
    {"AUI2 Bias",        "%",         0,      0,      0,  1000, 1, RunSet},
    {"AUI1 Bias Mode",   "",          0,      0,      0,     4, 0, 0},
    {"ACI Bias Mode",    "",          0,      0,      0,     4, 0, 0},
    {"AUI2 Bias Mode",   "",          0,      0,      0,     4, 0, 0},
    {"AUI1 Gain",        "%",      1000,   1000,      0,  5000, 1, RunSet},
    {"ACI Gain",         "%",      1000,   1000,      0,  5000, 1, RunSet},
    {"AUI2 Gain",        "%",      1000,   1000,      0,  5000, 1, RunSet},
    {"AUI1 Filter",      "sec",      10,     10,      0,  2000, 3, RunSet},
    {"ACI Filter",       "sec",      10,     10,      0,  2000, 3, RunSet},
    {"AUI2 Filter",      "sec",      10,     10,      0,  2000, 3, RunSet},
    {"ACI Loss Mode",    "",          0,      0,      0,     3, 0, 0},
    {"Analog Output 1",  "",          2,      0,      0,    20, 0, RunSet},
    {"AO1 Gain",         "%",      1000,   1000,      0,  2000, 1, RunSet},
    {"Analog Output 2",  "",          0,      0,      0,    20, 0, RunSet},
    {"AO2 Gain",         "%",      1000,   1000,      0,  2000, 1, RunSet},
}};

constexpr std::array<ParamRow, 16> TravelSpeeds{{  // 04
    {"Step Speed 0",     "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Creep Speed",      "Hz",      400,      0,      0, 12000, 2, RunSet},
    {"Levelling Speed",  "Hz",      150,      0,      0, 12000, 2, RunSet},
    {"Inspection Speed", "Hz",     1000,      0,      0, 12000, 2, RunSet},
    {"Relevel Speed",    "Hz",       80,      0,      0, 12000, 2, RunSet},
    {"Medium Speed",     "Hz",     2500,      0,      0, 12000, 2, RunSet},
    {"High Speed",       "Hz",     5000,      0,      0, 12000, 2, RunSet},
    {"Rescue Speed",     "Hz",      300,      0,      0, 12000, 2, RunSet},
    {"Step Speed 8",     "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 9",     "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 10",    "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 11",    "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 12",    "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 13",    "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 14",    "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Step Speed 15",    "Hz",        0,      0,      0, 12000, 2, RunSet},
}};

constexpr std::array<ParamRow, 19> Motor{{  // 05
    {"Auto Tuning",      "",          0,      0,      0,     2, 0, 0},
    {"Motor Rated Amps", "A",      2540,   2700,      0,  6553, 2, RunSet},
    {"Motor Power",      "kW",     1500,   1500,      0, 65535, 2, 0},
    {"Motor Speed",      "RPM",    1465,   1710,      0, 65535, 0, 0},
    {"Motor Poles",      "",          4,      4,      2,    96, 0, 0},
    {"No-Load Current",  "A",       960,   1080,      0,  6500, 2, RunSet},
    {"Stator Resist.",   "mOhm",    412,      0,      0, 65535, 0, 0},
    {"Rotor Resist.",    "mOhm",    305,      0,      0, 65535, 0, 0},
    {"Mutual Induct.",   "mH",      683,      0,      0, 65535, 1, 0},
    {"Total Inductance", "mH",       35,      0,      0, 65535, 1, 0},
    {"Torque Filter",    "sec",      20,     20,      1, 10000, 3, RunSet},
    {"Slip Filter",      "sec",     100,    100,      1, 10000, 3, RunSet},
    {"Torque Boost",     "",          0,      0,      0,    10, 0, RunSet},
    {"Slip Gain",        "",        100,      0,      0,  1000, 2, RunSet},
    {"Slip Deviation",   "%",         0,      0,      0,  1000, 1, RunSet},
    {"Deviation Time",   "sec",      10,     10,      0,   100, 1, RunSet},
    {"Hunting Gain",     "",       2000,   2000,      0, 10000, 0, RunSet},
    {"Motor Run Days",   "day",     112,      0,      0, 65535, 0, ReadOnly},
    {"Motor Run Min.",   "min",     344,      0,      0,  1439, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 24> Protection{{  // 06
    {"Low DC Level",     "V",      3600,   3600,   3200,  4400, 1, 0},
    {"Phase Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"OC Stall Accel",   "%",         0,      0,      0,   250, 0, 0},
    {"OC Stall Running", "%",         0,      0,      0,   250, 0, 0},
    {"Stall Decel Time", "",          0,      0,      0,     5, 0, 0},
    {"Over-Torque Mode", "",          0,      0,      0,     4, 0, 0},
    {"Over-Torque Lev.", "%",       150,    150,     10,   250, 0, RunSet},
    {"Over-Torque Time", "sec",       1,      1,      0,   600, 1, RunSet},
    {"Overload Mode",    "",          2,      2,      0,     2, 0, 0},
    {"Overload Time",    "sec",     600,    600,    300,  6000, 1, 0},
    {"Overheat Warning", "oC",      850,    850,      0,  1100, 1, 0},
    {"Stall Limit",      "%",       200,    200,      0,   250, 0, 0},
    {"Present Fault",    "",          0,      0,      0,    65, 0, ReadOnly},
    {"Past Fault 1",     "",         36,      0,      0,    65, 0, ReadOnly},
    {"Past Fault 2",     "",          4,      0,      0,    65, 0, ReadOnly},
    {"Past Fault 3",     "",          0,      0,      0,    65, 0, ReadOnly},
    {"Past Fault 4",     "",          0,      0,      0,    65, 0, ReadOnly},
    {"Past Fault 5",     "",          0,      0,      0,    65, 0, ReadOnly},
    {"Freq. at Fault",   "Hz",     4410,      0,      0, 12000, 2, ReadOnly},
    {"Volts at Fault",   "V",      3720,      0,      0, 65535, 1, ReadOnly},
    {"DC Volt at Fault", "V",      5610,      0,      0, 65535, 1, ReadOnly},
    {"Amps at Fault",    "A",      3185,      0,      0, 65535, 2, ReadOnly},
    {"Temp. at Fault",   "oC",      471,      0,      0,  1500, 1, ReadOnly},
    {"Short Phase Lev.", "%",        15,     15,      0,   100, 0, 0},
}};

constexpr std::array<ParamRow, 12> BrakeControl{{  // 07
    {"Brake Release t",  "sec",      25,     25,      0, 65000, 3, RunSet},
    {"Brake Engage t",   "sec",      25,     25,      0, 65000, 3, RunSet},
    {"DC Brake Level",   "%",         0,      0,      0,   100, 0, RunSet},
    {"DC Brake Start",   "sec",       3,      0,      0,   600, 1, RunSet},
    {"DC Brake Stop",    "sec",       5,      0,      0,   600, 1, RunSet},
    {"DC Brake Freq.",   "Hz",        0,      0,      0, 12000, 2, RunSet},
    {"Contactor Open t", "sec",     200,    200,      0, 65000, 3, RunSet},
    {"Contactor Close",  "sec",     200,    200,      0, 65000, 3, RunSet},
    {"Brake Check Time", "sec",       0,      0,      0,  5000, 2, RunSet},
    {"Contactor Check",  "sec",       0,      0,      0,  5000, 2, RunSet},
    {"Brake Chopper V",  "V",      7600,   7600,   7000,  9000, 1, 0},
    {"Brake Duty",       "%",       100,    100,      0,   100, 0, 0},
}};

constexpr std::array<ParamRow, 14> Special{{  // 08
    {"Power Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"Power Loss Time",  "sec",      20,     20,      1,    50, 1, 0},
    {"Base-Block Time",  "sec",       5,      5,      1,    50, 1, 0},
    {"Speed Search A",   "%",       150,    150,     20,   200, 0, 0},
    {"Restart Mode",     "",          0,      0,      0,     3, 0, 0},
    {"Auto Restarts",    "",          0,      0,      0,    10, 0, 0},
    {"Restart Interval", "sec",     600,    600,      1,  6000, 1, 0},
    {"Rescue Supply",    "",          1,      0,      0,     2, 0, 0},
    {"Rescue Voltage",   "V",       480,    480,    480,  3750, 1, 0},
    {"Rescue Direction", "",          0,      0,      0,     2, 0, 0},
    {"UPS Capacity",     "kVA",       0,      0,      0,  1000, 1, 0},
    {"Door Zone Speed",  "Hz",      250,      0,      0, 12000, 2, RunSet},
    {"Skip Freq. 1 Up",  "Hz",        0,      0,      0, 12000, 2, 0},
    {"Skip Freq. 1 Low", "Hz",        0,      0,      0, 12000, 2, 0},
}};

constexpr std::array<ParamRow, 7> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   254, 0, RunSet},
    {"Comm Speed",       "kbps",     96,     96,     48,  1152, 1, RunSet},
    {"Comm Fault",       "",          3,      3,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,  1000, 1, RunSet},
    {"Comm Protocol",    "",          0,      0,      0,    12, 0, RunSet},
    {"Reply Delay",      "ms",       20,     20,      0,  2000, 1, RunSet},
    {"Comm Main Freq.",  "Hz",     6000,   6000,      0, 12000, 2, RunSet},
}};

constexpr std::array<ParamRow, 17> SpeedFeedback{{  // 10
    {"PG Type",          "",          0,      0,      0,    10, 0, 0},
    {"PG Pulses",        "",       2048,   2048,      1, 25000, 0, 0},
    {"PG Input Mode",    "",          1,      0,      0,     5, 0, 0},
    {"Encoder Angle",    "deg",    1274,   3600,      0,  3600, 1, RunSet},
    {"Zero Speed Gain",  "%",      1000,   1000,      0, 10000, 1, RunSet},
    {"Zero Speed Time",  "sec",     100,    100,      0, 10000, 3, RunSet},
    {"Low Speed Gain",   "%",      1000,   1000,      0, 10000, 1, RunSet},
    {"Low Speed Time",   "sec",     100,    100,      0, 10000, 3, RunSet},
    {"High Speed Gain",  "%",      1000,   1000,      0, 10000, 1, RunSet},
    {"High Speed Time",  "sec",     100,    100,      0, 10000, 3, RunSet},
    {"Low/High Switch",  "Hz",      700,    700,      0, 12000, 2, RunSet},
    {"PG Loss Mode",     "",          2,      2,      0,     2, 0, 0},
    {"PG Loss Time",     "sec",      10,     10,      0,   100, 1, 0},
    {"Over-Speed Level", "%",       115,    115,      0,   120, 0, RunSet},
    {"Over-Speed Time",  "sec",       1,      1,      0,    20, 1, RunSet},
    {"PG Slip Range",    "%",        50,     50,      0,    50, 0, RunSet},
    {"Encoder Position", "",       1730,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 12> LiftTorque{{  // 11
    {"Car Speed",        "m/s",     160,    100,     10,   400, 2, 0},
    {"Sheave Diameter",  "mm",      320,    400,    100,  2000, 0, 0},
    {"Gear Ratio",       "",        100,   1800,      1, 10000, 2, 0},
    {"Roping Ratio",     "",          1,      1,      0,     1, 0, 0},
    {"Load Weighing",    "",          0,      0,      0,     4, 0, RunSet},
    {"Start Torque Up",  "%",       300,    300,      0,  1000, 1, RunSet},
    {"Start Torque Dn",  "%",       300,    300,      0,  1000, 1, RunSet},
    {"Torque Limit 1",   "%",       200,    200,      0,   500, 0, RunSet},
    {"Torque Limit 2",   "%",       200,    200,      0,   500, 0, RunSet},
    {"Inertia Ratio",    "%",        40,     40,      1,   300, 0, RunSet},
    {"Counterweight",    "%",        50,     50,      0,   100, 0, RunSet},
    {"Car Travel Count", "",      21877,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 6> Reserved{{  // 12
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Current Offset U", "",        513,    512,      0,  1023, 0, ReadOnly},
    {"Current Offset V", "",        509,    512,      0,  1023, 0, ReadOnly},
    {"Dead Time Comp.",  "us",       34,     34,      0,   100, 1, 0},
    {"Gate Test Mode",   "",          0,      0,      0,    15, 0, 0},
    {"Board Revision",   "",          4,      4,      0,    99, 0, ReadOnly},
}};

constexpr std::array<GroupRows, 13> Groups{{
    {"System", System},
    {"Basic", Basic},
    {"Digital I/O", DigitalIO},
    {"Analog I/O", AnalogIO},
    {"Travel Speeds", TravelSpeeds},
    {"Motor", Motor},
    {"Protection", Protection},
    {"Brake Control", BrakeControl},
    {"Special", Special},
    {"Communication", Communication},
    {"Speed Feedback", SpeedFeedback},
    {"Lift Torque", LiftTorque},
    {"Reserved", Reserved},
}};
// clang-format on

static_assert(rowsFit(Groups, SignedAllowed::No));
static_assert(mostlyWritable(Groups));

}  // namespace

constinit const FamilyData SorrelData{
    .family = Family::Sorrel,
    .modelCode = 19,
    .version = 205,
    .groups = Groups,
};

}  // namespace kelvane::drive
