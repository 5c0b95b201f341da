// Yarrow: a 3.7 kW drive for 460 V with PLC steps, two motors and a motor temperature input.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 14> User{{  // 00
    {"Identity Code",    "",         11,     11,      0,    39, 0, ReadOnly},
    {"Rated Current",    "A",        82,     82,      0,  9999, 1, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Start-up Display", "",          0,      0,      0,     4, 0, RunSet},
    {"User Display",     "",          7,      0,      0,    11, 0, RunSet},
    {"User Factor K",    "",         10,     10,      1,  1600, 1, RunSet},
    {"Software Version", "",        118,    118,      0,  9999, 2, ReadOnly},
    {"Password Input",   "",          0,      0,      0,  9999, 0, 0},
    {"Password Set",     "",          0,      0,      0,  9999, 0, 0},
    {"Parameter Copy",   "",          0,      0,      0,     5, 0, 0},
    {"Control Mode",     "",          0,      0,      0,     1, 0, 0},
    {"Load Duty",        "",          0,      0,      0,     1, 0, 0},
    {"Run Days",         "day",      63,      0,      0, 65535, 0, ReadOnly},
    {"Run Minutes",      "min",     827,      0,      0,  1439, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 24> Basic{{  // 01
    {"Max Output Freq.", "Hz",     6000,   6000,   5000, 60000, 2, 0},
    {"Max Voltage Freq", "Hz",     5000,   6000,     10, 60000, 2, 0},
    {"Max Output Volt.", "V",      4000,   4400,      1,  5100, 1, 0},
    {"Mid-Point Freq.",  "Hz",      150,    150,     10, 60000, 2, 0},
    {"Mid-Point Volt.",  "V",       200,    200,      1,  5100, 1, 0},
    {"Min Output Freq.", "Hz",      150,    150,     10, 60000, 2, 0},
    {"Min Output Volt.", "V",       200,    200,      1,  5100, 1, 0},
    {"Upper Freq Bound", "%",      1100,   1100,      1,  1200, 1, 0},
    {"Lower Freq Bound", "%",         0,      0,      0,  1000, 1, 0},
    {"Accel Time 1",     "sec",      50,    100,      1,  6000, 1, RunSet},
    {"Decel Time 1",     "sec",      80,    100,      1,  6000, 1, RunSet},
    {"Accel Time 2",     "sec",     100,    100,      1,  6000, 1, RunSet},
    {"Decel Time 2",     "sec",     100,    100,      1,  6000, 1, RunSet},
    {"Jog Accel Time",   "sec",      10,     10,      1,  6000, 1, RunSet},
    {"Jog Decel Time",   "sec",      10,     10,      1,  6000, 1, RunSet},
    {"Jog Frequency",    "Hz",      600,    600,     10, 60000, 2, RunSet},
    {"Auto Accel/Decel", "",          0,      0,      0,     4, 0, 0},
    {"Accel S-Curve",    "sec",       0,      0,      0,   100, 1, 0},
    {"Decel S-Curve",    "sec",       0,      0,      0,   100, 1, 0},
    {"Time Unit",        "",          0,      0,      0,     1, 0, 0},
    {"Simple Pos. t 0",  "sec",       0,      0,      0, 60000, 2, RunSet},
    {"Simple Pos. t 1",  "sec",       0,      0,      0, 60000, 2, RunSet},
    {"Motor 2 Base f",   "Hz",     6000,   6000,     10, 60000, 2, 0},
    {"Motor 2 Volt.",    "V",      4400,   4400,      1,  5100, 1, 0},
}};

constexpr std::array<ParamRow, 14> RunCommands{{  // 02
    {"Freq. Source 1",   "",          3,      1,      0,     4, 0, RunSet},
    {"Run Source",       "",          3,      1,      0,     4, 0, RunSet},
    {"Stop Method",      "",          0,      0,      0,     3, 0, 0},
    {"PWM Carrier",      "kHz",       8,      8,      1,    15, 0, 0},
    {"Direction Lock",   "",          0,      0,      0,     2, 0, 0},
    {"Line Start Lock",  "",          1,      1,      0,     3, 0, 0},
    {"ACI Loss Mode",    "",          1,      1,      0,     2, 0, 0},
    {"Up/Down Mode",     "",          0,      0,      0,     3, 0, 0},
    {"Up/Down Rate",     "Hz",        1,      1,      1,  1000, 2, RunSet},
    {"Freq. Source 2",   "",          0,      0,      0,     4, 0, RunSet},
    {"Source Combining", "",          0,      0,      0,     3, 0, 0},
    {"Keypad Frequency", "Hz",     5000,   6000,      0, 60000, 2, RunSet},
    {"Comm Frequency",   "Hz",     4200,   6000,      0, 60000, 2, RunSet},
    {"Saved Freq. Mode", "",          0,      0,      0,     2, 0, 0},
}};

constexpr std::array<ParamRow, 14> Outputs{{  // 03
    {"Relay Output",     "",          8,      8,      0,    21, 0, 0},
    {"Output MO1",       "",          1,      1,      0,    21, 0, 0},
    {"Desired Freq. 1",  "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Analog Output",    "",          0,      0,      0,     1, 0, RunSet},
    {"Analog Out Gain",  "%",       100,    100,      1,   200, 0, RunSet},
    {"Terminal Count",   "",          0,      0,      0,  9999, 0, RunSet},
    {"Prelim. Count",    "",          0,      0,      0,  9999, 0, RunSet},
    {"EF at Count",      "",          0,      0,      0,     1, 0, 0},
    {"Fan Control",      "",          0,      0,      0,     3, 0, RunSet},
    {"Output PLC Use",   "",          0,      0,      0,     3, 0, ReadOnly},
    {"Brake Release f",  "Hz",        0,      0,      0,  2000, 2, 0},
    {"Brake Engage f",   "Hz",        0,      0,      0,  2000, 2, 0},
    {"Output Status",    "",          1,      0,      0,     3, 0, ReadOnly},
    {"Desired Freq. 2",  "Hz",        0,      0,      0, 60000, 2, RunSet},
}};

constexpr std::array<ParamRow, 22> Inputs{{  // 04
    {"AVI Bias",         "%",         0,      0,      0,  1000, 1, RunSet},
    {"AVI Bias Sign",    "",          0,      0,      0,     1, 0, RunSet},
    {"AVI Gain",         "%",      1000,   1000,      1,  2000, 1, RunSet},
    {"AVI Reverse",      "",          0,      0,      0,     1, 0, 0},
    {"2/3-Wire Mode",    "",          0,      0,      0,     2, 0, 0},
    {"Input MI2",        "",          1,      1,      0,    22, 0, 0},
    {"Input MI3",        "",          2,      2,      0,    22, 0, 0},
    {"Input MI4",        "",          3,      3,      0,    22, 0, 0},
    {"Input MI5",        "",         21,      4,      0,    22, 0, 0},
    {"Contact Type",     "",          0,      0,      0,    63, 0, 0},
    {"Input Filter",     "ms",        1,      1,      1,    20, 0, 0},
    {"AVI Min Voltage",  "V",         0,      0,      0,   100, 1, RunSet},
    {"AVI Max Voltage",  "V",       100,    100,      0,   100, 1, RunSet},
    {"AVI Min Freq.",    "%",         0,      0,      0,  1000, 1, RunSet},
    {"AVI Max Freq.",    "%",      1000,   1000,      0,  1000, 1, RunSet},
    {"ACI Min Current",  "mA",       40,     40,      0,   200, 1, RunSet},
    {"ACI Max Current",  "mA",      200,    200,      0,   200, 1, RunSet},
    {"ACI Min Freq.",    "%",         0,      0,      0,  1000, 1, RunSet},
    {"ACI Max Freq.",    "%",      1000,   1000,      0,  1000, 1, RunSet},
    {"AVI Filter",       "sec",       1,      1,      0,   100, 2, RunSet},
    {"ACI Filter",       "sec",       1,      1,      0,   100, 2, RunSet},
    {"Input Status",     "",          1,      0,      0,    63, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 25> MultiStepPLC{{  // 05
    {"Step Speed 1",     "Hz",      600,      0,      0, 60000, 2, RunSet},
    {"Step Speed 2",     "Hz",     1200,      0,      0, 60000, 2, RunSet},
    {"Step Speed 3",     "Hz",     1800,      0,      0, 60000, 2, RunSet},
    {"Step Speed 4",     "Hz",     2400,      0,      0, 60000, 2, RunSet},
    {"Step Speed 5",     "Hz",     3000,      0,      0, 60000, 2, RunSet},
    {"Step Speed 6",     "Hz",     3600,      0,      0, 60000, 2, RunSet},
    {"Step Speed 7",     "Hz",     4200,      0,      0, 60000, 2, RunSet},
    {"Step Speed 8",     "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 9",     "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 10",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 11",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 12",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 13",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 14",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 15",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"PLC Mode",         "",          0,      0,      0,     4, 0, 0},
    {"PLC Direction",    "",          0,      0,      0,   255, 0, 0},
    {"PLC Step Time 0",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 1",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 2",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 3",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 4",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 5",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 6",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 7",  "sec",       0,      0,      0, 65500, 0, RunSet},
}};

constexpr std::array<ParamRow, 15> Protection{{  // 06
    {"OV Stall Level",   "V",      7800,   7800,   6600,  8200, 1, 0},
    {"OC Stall Accel",   "%",       170,    170,     20,   250, 0, 0},
    {"OC Stall Running", "%",       170,    170,     20,   250, 0, 0},
    {"Over-Torque Mode", "",          0,      0,      0,     4, 0, 0},
    {"Over-Torque Lev.", "%",       150,    150,     10,   200, 0, RunSet},
    {"Over-Torque Time", "sec",       1,      1,      1,   600, 1, RunSet},
    {"Overload Relay",   "",          2,      2,      0,     2, 0, 0},
    {"Overload Time",    "sec",      60,     60,     30,   600, 0, 0},
    {"Present Fault",    "",          0,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 1",     "",          6,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 2",     "",          6,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 3",     "",          0,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 4",     "",          0,      0,      0,    45, 0, ReadOnly},
    {"OC Stall Decel",   "",          0,      0,      0,     2, 0, 0},
    {"Low Volt. Level",  "V",      3600,   3600,   3200,  4400, 1, 0},
}};

constexpr std::array<ParamRow, 17> Motor{{  // 07
    {"Motor Rated Amps", "A",        79,     82,     25,    98, 1, RunSet},
    {"No-Load Current",  "A",        31,     33,      0,    81, 1, RunSet},
    {"Torque Boost",     "",          0,      0,      0,    10, 0, RunSet},
    {"Slip Gain",        "",          0,      0,      0,  1000, 2, RunSet},
    {"Auto Tuning",      "",          0,      0,      0,     2, 0, 0},
    {"Stator Resist.",   "mOhm",   1620,      0,      0, 65535, 0, 0},
    {"Rated Slip",       "Hz",      290,    300,      0,  2000, 2, 0},
    {"Slip Limit",       "%",       200,    200,      0,   250, 0, 0},
    {"Motor Poles",      "",          4,      4,      2,    10, 0, 0},
    {"Torque Filter",    "sec",      30,     30,      1,  1000, 2, RunSet},
    {"Slip Filter",      "sec",      20,     20,      5,  1000, 2, RunSet},
    {"TH1 Protection",   "",          0,      0,      0,     1, 0, 0},
    {"TH1 Input Mode",   "",          0,      0,      0,     1, 0, 0},
    {"TH1 Level",        "oC",     1300,   1200,      0,  1500, 1, 0},
    {"TH1 Debounce",     "ms",      100,    100,      0,  9999, 0, 0},
    {"Motor 2 Amps",     "A",        82,     82,     25,    98, 1, RunSet},
    {"Motor 2 No-Load",  "A",        33,     33,      0,    81, 1, RunSet},
}};

constexpr std::array<ParamRow, 20> Special{{  // 08
    {"DC Brake Level",   "%",         0,      0,      0,   100, 0, RunSet},
    {"DC Brake Start",   "sec",       0,      0,      0,   600, 1, 0},
    {"DC Brake Stop",    "sec",       0,      0,      0,   600, 1, 0},
    {"DC Brake Freq.",   "Hz",        0,      0,      0, 60000, 2, 0},
    {"Power Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"Power Loss Time",  "sec",      20,     20,      1,   200, 1, 0},
    {"Base-Block Time",  "sec",       5,      5,      1,    50, 1, 0},
    {"Speed Search A",   "%",       150,    150,     30,   200, 0, 0},
    {"Skip Freq. 1 Up",  "Hz",        0,      0,      0, 60000, 2, 0},
    {"Skip Freq. 1 Low", "Hz",        0,      0,      0, 60000, 2, 0},
    {"Skip Freq. 2 Up",  "Hz",        0,      0,      0, 60000, 2, 0},
    {"Skip Freq. 2 Low", "Hz",        0,      0,      0, 60000, 2, 0},
    {"Skip Freq. 3 Up",  "Hz",        0,      0,      0, 60000, 2, 0},
    {"Skip Freq. 3 Low", "Hz",        0,      0,      0, 60000, 2, 0},
    {"Auto Restarts",    "",          0,      0,      0,    10, 0, 0},
    {"Restart Reset",    "sec",     600,    600,      1, 60000, 1, 0},
    {"Energy Saving",    "",          0,      0,      0,     1, 0, 0},
    {"AVR Function",     "",          0,      0,      0,     2, 0, 0},
    {"Brake Chopper V",  "V",      7600,   7600,   7400,  8600, 1, 0},
    {"Start DC Hold",    "",          0,      0,      0,     1, 0, 0},
}};

constexpr std::array<ParamRow, 8> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   254, 0, RunSet},
    {"Comm Speed",       "",          1,      1,      0,     3, 0, RunSet},
    {"Comm Fault",       "",          3,      3,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,  1200, 1, RunSet},
    {"Comm Protocol",    "",          3,      0,      0,     8, 0, RunSet},
    {"Reply Delay",      "ms",        1,      1,      0,   200, 0, RunSet},
    {"USB Speed",        "",          2,      2,      0,     4, 0, RunSet},
    {"USB Protocol",     "",          1,      1,      0,     5, 0, RunSet},
}};

constexpr std::array<ParamRow, 16> PID{{  // 10
    {"PID Setpoint Src", "",          0,      0,      0,     4, 0, 0},
    {"PID Feedback Src", "",          0,      0,      0,     3, 0, 0},
    {"Proportional P",   "",         10,     10,      0,   100, 1, RunSet},
    {"Integral Time I",  "sec",     100,    100,      0, 10000, 2, RunSet},
    {"Derivative D",     "sec",       0,      0,      0,   100, 2, RunSet},
    {"Integral Limit",   "%",       100,    100,      0,   100, 0, RunSet},
    {"PID Filter Time",  "sec",       0,      0,      0,    25, 1, RunSet},
    {"PID Output Limit", "%",       100,    100,      0,   110, 0, RunSet},
    {"Feedback Loss t",  "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Feedback Loss Op", "",          0,      0,      0,     3, 0, RunSet},
    {"PID Error Gain",   "",         10,     10,      0,   100, 1, RunSet},
    {"PID Error Level",  "%",       100,    100,     10,   500, 1, RunSet},
    {"PID Error Time",   "sec",      50,     50,      1,  3000, 1, RunSet},
    {"Sleep Delay",      "sec",       0,      0,      0, 65500, 1, RunSet},
    {"Sleep Frequency",  "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Wake-Up Freq.",    "Hz",        0,      0,      0, 60000, 2, RunSet},
}};

constexpr std::array<ParamRow, 8> PGFeedback{{  // 11
    {"PG Pulses",        "",        600,    600,      1, 20000, 0, 0},
    {"PG Input Type",    "",          0,      0,      0,     2, 0, 0},
    {"Speed Gain P",     "",         10,     10,      0,   100, 1, RunSet},
    {"Speed Integral I", "sec",     100,    100,      0, 10000, 2, RunSet},
    {"Speed Limit",      "%",      1000,   1000,      0, 10000, 2, RunSet},
    {"PG Loss Mode",     "",          1,      1,      0,     2, 0, 0},
    {"PG Loss Time",     "sec",      10,     10,      1,   100, 1, 0},
    {"PG Feedback",      "RPM",       0,      0,      0, 24000, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 4> Reserved{{  // 12
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Phase U Offset",   "",        516,    512,      0,  1023, 0, ReadOnly},
    {"Phase V Offset",   "",        511,    512,      0,  1023, 0, ReadOnly},
    {"Dead Time Comp.",  "us",       30,     30,      0,   100, 1, 0},
}};

constexpr std::array<GroupRows, 13> Groups{{
    {"User", User},
    {"Basic", Basic},
    {"Run Commands", RunCommands},
    {"Outputs", Outputs},
    {"Inputs", Inputs},
    {"Multi-Step & PLC", MultiStepPLC},
    {"Protection", Protection},
    {"Motor", Motor},
    {"Special", Special},
    {"Communication", Communication},
    {"PID", PID},
    {"PG Feedback", PGFeedback},
    {"Reserved", Reserved},
}};
// clang-format on

static_assert(rowsFit(Groups, SignedAllowed::No));
static_assert(mostlyWritable(Groups));

}  // namespace

constinit const FamilyData YarrowData{
    .family = Family::Yarrow,
    .modelCode = 11,
    .version = 118,
    .groups = Groups,
};

}  // namespace kelvane::drive
