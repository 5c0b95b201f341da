// Willow: a small 0.75 kW drive for machine tools and conveyors, fed with 115 V or 230 V.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 12> User{{  // 00
    {"Identity Code",    "",          4,      4,      0,    39, 0, ReadOnly},
    {"Rated Current",    "A",        50,     50,      0,  9999, 1, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Start-up Display", "",          0,      0,      0,     5, 0, RunSet},
    {"User Display",     "",          6,      0,      0,    11, 0, RunSet},
    {"User Factor K",    "",         10,     10,      1,  1600, 1, RunSet},
    {"Software Version", "",       1150,   1150,      0,  9999, 3, ReadOnly},
    {"Password Input",   "",          0,      0,      0,  9999, 0, 0},
    {"Password Set",     "",          0,      0,      0,  9999, 0, 0},
    {"Run Hours",        "h",       186,      0,      0, 65535, 0, ReadOnly},
    {"Control Mode",     "",          0,      0,      0,     1, 0, 0},
    {"Energy Saving",    "",          0,      0,      0,     1, 0, 0},
}};

constexpr std::array<ParamRow, 19> Basic{{  // 01
    {"Max Output Freq.", "Hz",     6000,   6000,   5000, 60000, 2, 0},
    {"Max Voltage Freq", "Hz",     5000,   6000,     10, 60000, 2, 0},
    {"Max Output Volt.", "V",      2200,   2200,      1,  2550, 1, 0},
    {"Mid-Point Freq.",  "Hz",      150,    150,     10, 60000, 2, 0},
    {"Mid-Point Volt.",  "V",       100,    100,      1,  2550, 1, 0},
    {"Min Output Freq.", "Hz",      150,    150,     10, 60000, 2, 0},
    {"Min Output Volt.", "V",       100,    100,      1,  2550, 1, 0},
    {"Upper Freq Bound", "%",      1100,   1100,      1,  1200, 1, 0},
    {"Lower Freq Bound", "%",         0,      0,      0,  1000, 1, 0},
    {"Accel Time 1",     "sec",      30,    100,      1,  6000, 1, RunSet},
    {"Decel Time 1",     "sec",      30,    100,      1,  6000, 1, RunSet},
    {"Accel Time 2",     "sec",     100,    100,      1,  6000, 1, RunSet},
    {"Decel Time 2",     "sec",     100,    100,      1,  6000, 1, RunSet},
    {"Jog Accel Time",   "sec",      10,     10,      1,  6000, 1, RunSet},
    {"Jog Decel Time",   "sec",      10,     10,      1,  6000, 1, RunSet},
    {"Jog Frequency",    "Hz",      600,    600,     10, 60000, 2, RunSet},
    {"Auto Accel/Decel", "",          0,      0,      0,     4, 0, 0},
    {"Accel S-Curve",    "sec",       0,      0,      0,   100, 1, 0},
    {"Decel S-Curve",    "sec",       0,      0,      0,   100, 1, 0},
}};

constexpr std::array<ParamRow, 8> RunAndStop{{  // 02
    {"Freq. Cmd Source", "",          3,      1,      0,     4, 0, RunSet},
    {"Run Cmd Source",   "",          3,      1,      0,     4, 0, RunSet},
    {"Stop Method",      "",          0,      0,      0,     3, 0, 0},
    {"PWM Carrier",      "kHz",       8,      8,      2,    12, 0, 0},
    {"Reverse Inhibit",  "",          0,      0,      0,     2, 0, 0},
    {"Line Start Lock",  "",          1,      1,      0,     3, 0, 0},
    {"ACI Loss Mode",    "",          1,      1,      0,     2, 0, 0},
    {"Keypad Frequency", "Hz",     2500,   6000,      0, 60000, 2, RunSet},
}};

constexpr std::array<ParamRow, 8> Outputs{{  // 03
    {"Relay Output",     "",          8,      8,      0,    21, 0, 0},
    {"Output MO1",       "",          1,      1,      0,    21, 0, 0},
    {"Desired Freq.",    "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Analog Output",    "",          0,      0,      0,     1, 0, RunSet},
    {"Analog Out Gain",  "%",       100,    100,      1,   200, 0, RunSet},
    {"Terminal Count",   "",          0,      0,      0,  9999, 0, RunSet},
    {"Prelim. Count",    "",          0,      0,      0,  9999, 0, RunSet},
    {"Fan Control",      "",          0,      0,      0,     3, 0, RunSet},
}};

constexpr std::array<ParamRow, 16> Inputs{{  // 04
    {"Keypad Dial Bias", "%",         0,      0,      0,  1000, 1, RunSet},
    {"Dial Bias Sign",   "",          0,      0,      0,     1, 0, RunSet},
    {"Dial Gain",        "%",      1000,   1000,      1,  2000, 1, RunSet},
    {"Dial Reverse",     "",          0,      0,      0,     1, 0, 0},
    {"2/3-Wire Mode",    "",          0,      0,      0,     2, 0, 0},
    {"Input MI2",        "",          1,      1,      0,    24, 0, 0},
    {"Input MI3",        "",          2,      2,      0,    24, 0, 0},
    {"Input MI4",        "",          3,      3,      0,    24, 0, 0},
    {"Input MI5",        "",         21,      4,      0,    24, 0, 0},
    {"Contact Type",     "",          0,      0,      0,    63, 0, 0},
    {"Input Filter",     "ms",        1,      1,      1,    20, 0, 0},
    {"AVI Min Voltage",  "V",         0,      0,      0,   100, 1, RunSet},
    {"AVI Max Voltage",  "V",       100,    100,      0,   100, 1, RunSet},
    {"ACI Min Current",  "mA",       40,     40,      0,   200, 1, RunSet},
    {"ACI Max Current",  "mA",      200,    200,      0,   200, 1, RunSet},
    {"Input Status",     "",          1,      0,      0,    63, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 7> MultiStep{{  // 05
    {"Step Speed 1",     "Hz",      500,      0,      0, 60000, 2, RunSet},
    {"Step Speed 2",     "Hz",     1000,      0,      0, 60000, 2, RunSet},
    {"Step Speed 3",     "Hz",     2000,      0,      0, 60000, 2, RunSet},
    {"Step Speed 4",     "Hz",     3000,      0,      0, 60000, 2, RunSet},
    {"Step Speed 5",     "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 6",     "Hz",        0,      0,      0, 60000, 2, RunSet},
    {"Step Speed 7",     "Hz",        0,      0,      0, 60000, 2, RunSet},
}};

constexpr std::array<ParamRow, 13> Protection{{  // 06
    {"OV Stall Level",   "V",      3900,   3900,   3300,  4100, 1, 0},
    {"OC Stall Accel",   "%",       170,    170,     20,   250, 0, 0},
    {"OC Stall Running", "%",       170,    170,     20,   250, 0, 0},
    {"Over-Torque Mode", "",          0,      0,      0,     4, 0, 0},
    {"Over-Torque Lev.", "%",       150,    150,     10,   200, 0, RunSet},
    {"Over-Torque Time", "sec",       1,      1,      1,   600, 1, RunSet},
    {"Overload Relay",   "",          2,      2,      0,     2, 0, 0},
    {"Overload Time",    "sec",      60,     60,     30,   600, 0, 0},
    {"Present Fault",    "",          0,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 1",     "",          3,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 2",     "",          0,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 3",     "",          0,      0,      0,    45, 0, ReadOnly},
    {"Past Fault 4",     "",          0,      0,      0,    45, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 10> Motor{{  // 07
    {"Motor Rated Amps", "A",        34,     50,     15,    60, 1, RunSet},
    {"No-Load Current",  "A",        15,     20,      0,    50, 1, RunSet},
    {"Torque Boost",     "",          0,      0,      0,    10, 0, RunSet},
    {"Slip Gain",        "",          0,      0,      0,  1000, 2, RunSet},
    {"Auto Tuning",      "",          0,      0,      0,     2, 0, 0},
    {"Stator Resist.",   "mOhm",   2760,      0,      0, 65535, 0, 0},
    {"Rated Slip",       "Hz",      285,    300,      0,  2000, 2, 0},
    {"Slip Limit",       "%",       200,    200,      0,   250, 0, 0},
    {"Torque Filter",    "sec",      30,     30,      1,  1000, 2, RunSet},
    {"Slip Filter",      "sec",      20,     20,      5,  1000, 2, RunSet},
}};

constexpr std::array<ParamRow, 14> Special{{  // 08
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
    {"Auto Restarts",    "",          0,      0,      0,    10, 0, 0},
    {"Restart Reset",    "sec",     600,    600,      1, 60000, 1, 0},
    {"AVR Function",     "",          0,      0,      0,     2, 0, 0},
    {"Brake Chopper V",  "V",      3800,   3800,   3700,  4300, 1, 0},
}};

constexpr std::array<ParamRow, 6> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   254, 0, RunSet},
    {"Comm Speed",       "",          1,      1,      0,     3, 0, RunSet},
    {"Comm Fault",       "",          3,      3,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,  1200, 1, RunSet},
    {"Comm Protocol",    "",          0,      0,      0,     8, 0, RunSet},
    {"Reply Delay",      "ms",        1,      1,      0,   200, 0, RunSet},
}};

constexpr std::array<ParamRow, 13> PID{{  // 10
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
}};

constexpr std::array<ParamRow, 3> Reserved{{  // 11
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Phase U Offset",   "",        509,    512,      0,  1023, 0, ReadOnly},
    {"Dead Time Comp.",  "us",       24,     24,      0,   100, 1, 0},
}};

constexpr std::array<GroupRows, 12> Groups{{
    {"User", User},
    {"Basic", Basic},
    {"Run and Stop", RunAndStop},
    {"Outputs", Outputs},
    {"Inputs", Inputs},
    {"Multi-Step", MultiStep},
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

}  // namespace

constinit const FamilyData WillowData{
    .family = Family::Willow,
    .modelCode = 4,
    .version = 1150,
    .groups = Groups,
};

}  // namespace kelvane::drive
