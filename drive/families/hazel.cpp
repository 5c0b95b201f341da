// Hazel: a small 1.5 kW drive for 460 V. Its drives hold no names on the line; the names here serve the
// reader.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 9> User{{  // 00
    {"Identity Code",    "",          7,      7,      0,     9, 0, ReadOnly},
    {"Rated Current",    "A",        40,     40,      0,   999, 1, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Startup Display",  "",          0,      0,      0,     3, 0, RunSet},
    {"User-Defined",     "",          1,      0,      0,     4, 0, RunSet},
    {"User-Defined K",   "",         10,     10,      1,  1600, 1, RunSet},
    {"SW Version",       "",         24,     24,      0,   999, 1, ReadOnly},
    {"Password Input",   "",          0,      0,      0,   999, 0, 0},
    {"Password setting", "",          0,      0,      0,   999, 0, 0},
}};

constexpr std::array<ParamRow, 19> Basic{{  // 01
    {"Max Output Freq.", "Hz",     6000,   6000,   5000, 40000, 2, 0},
    {"Max Volt Freq.",   "Hz",     5000,   6000,   1000, 40000, 2, 0},
    {"Max Output Volt",  "V",      4000,   4400,      2,  5100, 1, 0},
    {"Mid-Point Freq.",  "Hz",      100,    100,     10, 40000, 2, 0},
    {"Mid-Point Volt",   "V",       240,    240,      2,  5100, 1, 0},
    {"Min Output Freq.", "Hz",      100,    100,     10,  6000, 2, 0},
    {"Min Output Volt",  "V",       240,    240,      2,  1000, 1, 0},
    {"Up bound Freq.",   "%",       100,    100,      1,   110, 0, 0},
    {"Low bound Freq.",  "%",         0,      0,      0,   100, 0, 0},
    {"Accel Time 1",     "sec",      60,    100,      1,  6000, 1, RunSet},
    {"Decel Time 1",     "sec",      60,    100,      1,  6000, 1, RunSet},
    {"Accel Time 2",     "sec",     100,    100,      1,  6000, 1, RunSet},
    {"Decel Time 2",     "sec",     100,    100,      1,  6000, 1, RunSet},
    {"Jog accel Time",   "sec",      10,     10,      1,  6000, 1, RunSet},
    {"Jog Decel Time",   "sec",       0,      0,      0,  6000, 1, RunSet},
    {"Jog Freq",         "Hz",      600,    600,     10, 40000, 2, RunSet},
    {"Auto ac/de set",   "",          0,      0,      0,     6, 0, 0},
    {"S-Curve Accel",    "",          0,      0,      0,     7, 0, 0},
    {"S-Curve Decel",    "",          0,      0,      0,     7, 0, 0},
}};

constexpr std::array<ParamRow, 7> OperationMethod{{  // 02
    {"Source Freq. Cmd", "",          3,      0,      0,     4, 0, RunSet},
    {"Source Oper Cmd",  "",          3,      0,      0,     4, 0, RunSet},
    {"Stop Method",      "",          0,      0,      0,     1, 0, 0},
    {"PWM Carrier Freq", "kHz",      10,     10,      3,    10, 0, 0},
    {"Reverse disabled", "",          0,      0,      0,     1, 0, 0},
    {"ACI Input Loss",   "",          0,      0,      0,     2, 0, 0},
    {"Line start lock",  "",          0,      0,      0,     1, 0, 0},
}};

constexpr std::array<ParamRow, 4> OutputFunction{{  // 03
    {"Desired Freq.",    "Hz",      100,    100,     10, 40000, 2, RunSet},
    {"Counter setting",  "",          0,      0,      0,   999, 0, 0},
    {"Counter attain",   "",          0,      0,      0,   999, 0, 0},
    {"Multi-output 2",   "",          8,      8,      0,    16, 0, 0},
}};

constexpr std::array<ParamRow, 7> InputFunction{{  // 04
    {"Bias Freq.",       "Hz",        0,      0,      0, 35000, 2, RunSet},
    {"Bias Polarity",    "",          0,      0,      0,     1, 0, RunSet},
    {"Ang input gain",   "%",      1000,   1000,      1,  2000, 1, RunSet},
    {"Ang reverse set",  "",          0,      0,      0,     1, 0, 0},
    {"Multi-input 1",    "",          6,      6,      0,    20, 0, 0},
    {"Multi-input 2",    "",          7,      7,      0,    20, 0, 0},
    {"Multi-input 3",    "",          1,      1,      0,    20, 0, 0},
}};

constexpr std::array<ParamRow, 9> MultiStepPLC{{  // 05
    {"1st Step Freq.",   "Hz",     1500,      0,      0, 40000, 2, RunSet},
    {"2nd Step Freq.",   "Hz",     3000,      0,      0, 40000, 2, RunSet},
    {"3rd Step Freq.",   "Hz",     4500,      0,      0, 40000, 2, RunSet},
    {"PLC Mode",         "",          0,      0,      0,     4, 0, RunSet},
    {"PLC direction",    "",          0,      0,      0,    15, 0, RunSet},
    {"Time Step 0",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Time Step 1",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Time Step 2",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Time Step 3",      "sec",       0,      0,      0, 65500, 0, RunSet},
}};

constexpr std::array<ParamRow, 13> Protection{{  // 06
    {"OV Stall Level",   "V",       780,    780,    700,   900, 0, 0},
    {"OC Stall Level",   "%",       150,    150,     20,   200, 0, 0},
    {"Over-Torq Mode",   "",          0,      0,      0,     4, 0, 0},
    {"Over-Torq Level",  "%",       150,    150,     30,   200, 0, RunSet},
    {"Over-torq time",   "sec",       1,      1,      1,   100, 1, RunSet},
    {"OL1 mode",         "",          2,      2,      0,     2, 0, 0},
    {"OL1 character",    "sec",      60,     60,     30,   600, 0, 0},
    {"1st Fault Record", "",          3,      0,      0,    31, 0, ReadOnly},
    {"2nd Fault Record", "",         14,      0,      0,    31, 0, ReadOnly},
    {"3rd Fault Record", "",          0,      0,      0,    31, 0, ReadOnly},
    {"4th Fault Record", "",          0,      0,      0,    31, 0, ReadOnly},
    {"5th Fault Record", "",          0,      0,      0,    31, 0, ReadOnly},
    {"6th Fault Record", "",          0,      0,      0,    31, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 4> Motor{{  // 07
    {"Motor rate curr",  "%",        88,     85,     30,   120, 0, RunSet},
    {"No-load current",  "%",        50,     50,      0,    90, 0, RunSet},
    {"Torque compens",   "",          1,      1,      0,    10, 0, RunSet},
    {"Slip compens",     "",          0,      0,      0,   100, 1, RunSet},
}};

constexpr std::array<ParamRow, 18> Special{{  // 08
    {"DC-Brake level",   "%",         0,      0,      0,    30, 0, 0},
    {"Start DC-brake t", "sec",       0,      0,      0,    50, 1, 0},
    {"End DC-brake t",   "sec",       0,      0,      0,   250, 1, 0},
    {"DC-brake start f", "Hz",      100,    100,     10,  6000, 2, 0},
    {"Power loss mode",  "",          0,      0,      0,     2, 0, 0},
    {"Power loss time",  "sec",      20,     20,      3,    50, 1, 0},
    {"B.B.time",         "sec",       5,      5,      3,    50, 1, 0},
    {"Speed Search A",   "%",       150,    150,     30,   200, 0, 0},
    {"Skip Freq. 1 Up",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 1 Low", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 2 Up",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 2 Low", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 3 Up",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 3 Low", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Auto Restart",     "",          0,      0,      0,    10, 0, 0},
    {"AVR Function",     "",          2,      2,      0,     2, 0, 0},
    {"Dynamic Brake V",  "V",       760,    760,    700,   900, 0, 0},
    {"DC-brake inhibit", "Hz",        0,      0,      0, 40000, 2, 0},
}};

constexpr std::array<ParamRow, 5> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   247, 0, RunSet},
    {"Comm Speed",       "",          1,      1,      0,     2, 0, RunSet},
    {"Comm Fault",       "",          0,      0,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,    20, 0, RunSet},
    {"Comm Protocol",    "",          0,      0,      0,     5, 0, RunSet},
}};

constexpr std::array<ParamRow, 3> Reserved{{  // 10
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Offset Phase U",   "",        510,    512,      0,  1023, 0, ReadOnly},
    {"Offset Phase V",   "",        514,    512,      0,  1023, 0, ReadOnly},
}};

constexpr std::array<GroupRows, 11> Groups{{
    {"User", User},
    {"Basic", Basic},
    {"Operation Method", OperationMethod},
    {"Output Function", OutputFunction},
    {"Input Function", InputFunction},
    {"Multi-Step & PLC", MultiStepPLC},
    {"Protection", Protection},
    {"Motor", Motor},
    {"Special", Special},
    {"Communication", Communication},
    {"Reserved", Reserved},
}};
// clang-format on

static_assert(rowsFit(Groups, SignedAllowed::No));
static_assert(mostlyWritable(Groups));

}  // namespace

constinit const FamilyData HazelData{
    .family = Family::Hazel,
    .modelCode = 7,
    .version = 24,
    .groups = Groups,
};

}  // namespace kelvane::drive
