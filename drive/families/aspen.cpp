// Aspen: a small drive for 115 V and 230 V single phase, 0.56 kW. Its attribute word knows two decimals or
// none.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 9> User{{  // 00
    {"Identity Code",    "",          0,      0,      0,     9, 0, ReadOnly},
    {"Rated Current",    "A",       160,    160,      0,  2000, 2, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Start-Up Display", "",          0,      0,      0,     3, 0, RunSet},
    {"User Display",     "",          1,      0,      0,     4, 0, RunSet},
    {"Coefficient K",    "",        100,    100,      1, 16000, 2, RunSet},
    {"Software Version", "",        112,    112,      0,  9999, 2, ReadOnly},
    {"Password Input",   "",          0,      0,      0,   999, 0, 0},
    {"Password Setting", "",          0,      0,      0,   999, 0, 0},
}};

constexpr std::array<ParamRow, 18> Basic{{  // 01
    {"Max Output Freq.", "Hz",     6000,   6000,   5000, 40000, 2, 0},
    {"Max Voltage Freq", "Hz",     5000,   6000,   1000, 40000, 2, 0},
    {"Max Output Volt.", "V",     22000,  22000,    200, 25500, 2, 0},
    {"Mid-Point Freq.",  "Hz",      100,    100,    100, 40000, 2, 0},
    {"Mid-Point Volt.",  "V",      1200,   1200,    200, 25500, 2, 0},
    {"Min Output Freq.", "Hz",      100,    100,    100,  6000, 2, 0},
    {"Min Output Volt.", "V",      1200,   1200,    200,  5000, 2, 0},
    {"Upper Freq Bound", "%",       100,    100,      1,   110, 0, 0},
    {"Lower Freq Bound", "%",         0,      0,      0,   100, 0, 0},
    {"Accel Time 1",     "sec",     500,   1000,     10, 60000, 2, RunSet},
    {"Decel Time 1",     "sec",     500,   1000,     10, 60000, 2, RunSet},
    {"Accel Time 2",     "sec",    1000,   1000,     10, 60000, 2, RunSet},
    {"Decel Time 2",     "sec",    1000,   1000,     10, 60000, 2, RunSet},
    {"Jog Time",         "sec",     100,    100,     10, 60000, 2, RunSet},
    {"Jog Frequency",    "Hz",      600,    600,    100, 40000, 2, RunSet},
    {"Auto Accel/Decel", "",          0,      0,      0,     5, 0, 0},
    {"Accel S-Curve",    "",          0,      0,      0,     7, 0, 0},
    {"Decel S-Curve",    "",          0,      0,      0,     7, 0, 0},
}};

constexpr std::array<ParamRow, 7> OperationMethod{{  // 02
    {"Freq. Source",     "",          3,      0,      0,     5, 0, RunSet},
    {"Operation Source", "",          3,      0,      0,     4, 0, RunSet},
    {"Stop Method",      "",          0,      0,      0,     1, 0, 0},
    {"Carrier Freq.",    "kHz",      10,     10,      3,    10, 0, 0},
    {"Motor Direction",  "",          0,      0,      0,     2, 0, 0},
    {"ACI Signal Loss",  "",          0,      0,      0,     2, 0, 0},
    {"Line Start Lock",  "",          0,      0,      0,     1, 0, 0},
}};

constexpr std::array<ParamRow, 8> OutputFunction{{  // 03
    {"Desired Freq. 1",  "Hz",      100,    100,    100, 40000, 2, RunSet},
    {"Terminal Count",   "",          0,      0,      0,   999, 0, 0},
    {"Prelim. Count",    "",          0,      0,      0,   999, 0, 0},
    {"EF at Prelim.",    "",          0,      0,      0,     1, 0, 0},
    {"Analog Out Mode",  "",          0,      0,      0,     1, 0, RunSet},
    {"Relay Output",     "",          8,      8,      0,    16, 0, 0},
    {"Output MO1",       "",          1,      1,      0,    16, 0, 0},
    {"Analog Out Gain",  "%",       100,    100,      1,   200, 0, RunSet},
}};

constexpr std::array<ParamRow, 11> InputFunction{{  // 04
    {"AVI Bias",         "%",         0,      0,      0, 10000, 2, RunSet},
    {"AVI Bias Sign",    "",          0,      0,      0,     1, 0, RunSet},
    {"AVI Gain",         "%",     10000,  10000,      1, 20000, 2, RunSet},
    {"AVI Reverse",      "",          0,      0,      0,     2, 0, 0},
    {"Input Term. 1",    "",          1,      1,      0,    21, 0, 0},
    {"Input Term. 2",    "",          6,      6,      0,    21, 0, 0},
    {"Input Term. 3",    "",          2,      2,      0,    21, 0, 0},
    {"Input Term. 4",    "",          3,      3,      0,    21, 0, 0},
    {"Input Term. 5",    "",          4,      4,      0,    21, 0, 0},
    {"Terminal Filter",  "ms",        1,      1,      1,    20, 0, 0},
    {"AVI Filter",       "sec",       5,      5,      0,   200, 2, RunSet},
}};

constexpr std::array<ParamRow, 17> MultiStepPLC{{  // 05
    {"Step Freq. 1",     "Hz",     1000,      0,      0, 40000, 2, RunSet},
    {"Step Freq. 2",     "Hz",     2000,      0,      0, 40000, 2, RunSet},
    {"Step Freq. 3",     "Hz",     3000,      0,      0, 40000, 2, RunSet},
    {"Step Freq. 4",     "Hz",     4000,      0,      0, 40000, 2, RunSet},
    {"Step Freq. 5",     "Hz",     4500,      0,      0, 40000, 2, RunSet},
    {"Step Freq. 6",     "Hz",     5000,      0,      0, 40000, 2, RunSet},
    {"Step Freq. 7",     "Hz",     6000,      0,      0, 40000, 2, RunSet},
    {"PLC Mode",         "",          0,      0,      0,     4, 0, RunSet},
    {"PLC Direction",    "",          0,      0,      0,   255, 0, RunSet},
    {"Step Time 0",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 1",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 2",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 3",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 4",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 5",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 6",      "sec",       0,      0,      0, 65500, 0, RunSet},
    {"Step Time 7",      "sec",       0,      0,      0, 65500, 0, RunSet},
}};

constexpr std::array<ParamRow, 13> Protection{{  // 06
    {"OV Stall Level",   "V",       390,    390,    330,   450, 0, 0},
    {"OC Stall Accel",   "%",       150,    150,     20,   200, 0, 0},
    {"OC Stall Run",     "%",       150,    150,     20,   200, 0, 0},
    {"Overtorque Mode",  "",          0,      0,      0,     4, 0, 0},
    {"Overtorque Level", "%",       150,    150,     30,   200, 0, RunSet},
    {"Overtorque Time",  "sec",      10,     10,     10,  1000, 2, RunSet},
    {"Overload Relay",   "",          2,      2,      0,     2, 0, 0},
    {"Overload Time",    "sec",      60,     60,     30,   600, 0, 0},
    {"Present Fault",    "",          0,      0,      0,    38, 0, ReadOnly},
    {"Past Fault 1",     "",          3,      0,      0,    38, 0, ReadOnly},
    {"Past Fault 2",     "",         14,      0,      0,    38, 0, ReadOnly},
    {"Past Fault 3",     "",          0,      0,      0,    38, 0, ReadOnly},
    {"Past Fault 4",     "",          0,      0,      0,    38, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 5> Motor{{  // 07
    {"Motor Current",    "%",        90,     85,     30,   120, 0, RunSet},
    {"No-Load Current",  "%",        45,     50,      0,    90, 0, RunSet},
    {"Torque Boost",     "",          1,      1,      0,    10, 0, RunSet},
    {"Slip Compensat.",  "",          0,      0,      0,  1000, 2, RunSet},
    {"Number of Poles",  "",          4,      4,      2,    20, 0, 0},
}};

constexpr std::array<ParamRow, 19> Special{{  // 08
    {"DC Brake Level",   "%",         0,      0,      0,    30, 0, RunSet},
    {"DC Brake Start",   "sec",       0,      0,      0,   500, 2, 0},
    {"DC Brake Stop",    "sec",       0,      0,      0,  2500, 2, 0},
    {"DC Brake Freq.",   "Hz",      100,    100,    100, 40000, 2, 0},
    {"Power Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"Power Loss Time",  "sec",     200,    200,     30,   500, 2, 0},
    {"Base-Block Time",  "sec",      50,     50,     30,   500, 2, 0},
    {"Speed Search",     "%",       150,    150,     30,   200, 0, 0},
    {"Skip 1 Up Freq.",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip 1 Low Freq.", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip 2 Up Freq.",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip 2 Low Freq.", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip 3 Up Freq.",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip 3 Low Freq.", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Auto Restarts",    "",          0,      0,      0,    10, 0, 0},
    {"Restart Reset",    "sec",     600,    600,      1, 60000, 0, 0},
    {"AVR Function",     "",          2,      2,      0,     2, 0, 0},
    {"Brake Chopper V",  "V",       380,    380,    350,   450, 0, 0},
    {"DC Brake Min f",   "Hz",        0,      0,      0, 40000, 2, 0},
}};

constexpr std::array<ParamRow, 6> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   247, 0, RunSet},
    {"Comm Speed",       "",          1,      1,      0,     3, 0, RunSet},
    {"Comm Fault",       "",          0,      0,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,    20, 0, RunSet},
    {"Comm Protocol",    "",          0,      0,      0,     5, 0, RunSet},
    {"Reply Delay",      "ms",        2,      2,      0,   200, 0, RunSet},
}};

constexpr std::array<ParamRow, 15> PID{{  // 10
    {"PID Set Point",    "",          0,      0,      0,     4, 0, 0},
    {"PID Feedback",     "",          0,      0,      0,     3, 0, 0},
    {"Proportional P",   "",        100,    100,      0,  1000, 2, RunSet},
    {"Integral Time I",  "sec",     100,    100,      0, 10000, 2, RunSet},
    {"Derivative D",     "sec",       0,      0,      0,   100, 2, RunSet},
    {"Integral Bound",   "%",       100,    100,      0,   100, 0, RunSet},
    {"PID Filter Time",  "sec",       0,      0,      0,   250, 2, RunSet},
    {"PID Output Limit", "%",       100,    100,      0,   110, 0, RunSet},
    {"Signal Loss Time", "sec",    6000,   6000,      0,  6000, 2, 0},
    {"Signal Loss Op",   "",          0,      0,      0,     2, 0, 0},
    {"Deviation Level",  "%",      1000,   1000,    100,  5000, 2, 0},
    {"Deviation Time",   "sec",     500,    500,     10, 30000, 2, 0},
    {"Sleep Time",       "sec",       0,      0,      0, 65500, 2, 0},
    {"Sleep Frequency",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Wake-Up Freq.",    "Hz",        0,      0,      0, 40000, 2, 0},
}};

constexpr std::array<ParamRow, 3> Reserved{{  // 11
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Dead Time Comp.",  "us",      250,    250,      0,  1000, 2, 0},
    {"Offset Phase U",   "",        508,    512,      0,  1023, 0, ReadOnly},
}};

constexpr std::array<GroupRows, 12> Groups{{
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
    {"PID", PID},
    {"Reserved", Reserved},
}};
// clang-format on

static_assert(rowsFit(Groups, SignedAllowed::No));
static_assert(mostlyWritable(Groups));
static_assert(decimalsAreNoneOrTwo(Groups));

}  // namespace

constinit const FamilyData AspenData{
    .family = Family::Aspen,
    .modelCode = 0,
    .version = 112,
    .groups = Groups,
};

}  // namespace kelvane::drive
