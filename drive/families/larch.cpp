// Larch: a 75 kW general drive for 460 V with speed feedback, auxiliary pumps and a PLC of sixteen steps.
#include <array>

#include "drive/families/family_tables.h"
#include "drive/families/table_check.h"

namespace kelvane::drive {
namespace {

// Columns: name, unit, value at power-up, default, minimum, maximum, decimals, flags.
// Values are whole numbers; the decimals count the digits behind the point. The first row is number 0.
// clang-format off
constexpr std::array<ParamRow, 13> User{{  // 00
    {"Identity Code",    "",         33,     33,      0,   139, 0, ReadOnly},
    {"Rated Current",    "A",      1500,   1500,      0,  9999, 1, ReadOnly},
    {"Parameter Reset",  "",          0,      0,      0,    10, 0, 0},
    {"Start-up Display", "",          0,      0,      0,     4, 0, RunSet},
    {"User Unit",        "",          3,      0,      0,    14, 0, RunSet},
    {"User Factor K",    "",        100,    100,      1, 16000, 2, RunSet},
    {"Software Version", "",        412,    412,      0,  9999, 2, ReadOnly},
    {"Password Input",   "",          0,      0,      0, 65535, 0, 0},
    {"Password Set",     "",          0,      0,      0, 65535, 0, 0},
    {"Control Method",   "",          0,      0,      0,     3, 0, 0},
    {"Load Duty",        "",          0,      0,      0,     1, 0, 0},
    {"Total Run Hours",  "h",      3127,      0,      0, 65535, 0, ReadOnly},
    {"Total Power-Ups",  "",        206,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 25> Basic{{  // 01
    {"Max Output Freq.", "Hz",     6000,   6000,   5000, 40000, 2, 0},
    {"Max Voltage Freq", "Hz",     5000,   6000,   1000, 40000, 2, 0},
    {"Max Output Volt.", "V",      4000,   4400,      2,  5100, 1, 0},
    {"Mid-Point Freq.",  "Hz",      150,    150,     10, 40000, 2, 0},
    {"Mid-Point Volt.",  "V",       160,    160,      2,  5100, 1, 0},
    {"Min Output Freq.", "Hz",      150,    150,     10, 40000, 2, 0},
    {"Min Output Volt.", "V",       160,    160,      2,  5100, 1, 0},
    {"Upper Freq Bound", "%",       100,    100,      1,   150, 0, 0},
    {"Lower Freq Bound", "%",         0,      0,      0,   100, 0, 0},
    {"Accel Time 1",     "sec",     150,    600,      1, 36000, 1, RunSet},
    {"Decel Time 1",     "sec",     200,    600,      1, 36000, 1, RunSet},
    {"Accel Time 2",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Accel Time 3",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Accel Time 4",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Decel Time 2",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Decel Time 3",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Decel Time 4",     "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Jog Time",         "sec",     600,    600,      1, 36000, 1, RunSet},
    {"Jog Frequency",    "Hz",      600,    600,     10, 40000, 2, RunSet},
    {"Auto Accel/Decel", "",          0,      0,      0,     4, 0, 0},
    {"Accel S-Curve",    "",          0,      0,      0,     7, 0, 0},
    {"Decel S-Curve",    "",          0,      0,      0,     7, 0, 0},
    {"Accel Switch f",   "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Start Frequency",  "Hz",      150,    150,     10, 40000, 2, 0},
    {"V/F Curve Type",   "",          0,      0,      0,     3, 0, 0},
}};

constexpr std::array<ParamRow, 14> Operation{{  // 02
    {"Freq. Cmd Source", "",          4,      0,      0,     6, 0, RunSet},
    {"Run Cmd Source",   "",          3,      0,      0,     4, 0, RunSet},
    {"Stop Method",      "",          0,      0,      0,     3, 0, 0},
    {"Carrier Freq.",    "kHz",       6,      6,      1,    15, 0, 0},
    {"Reverse Inhibit",  "",          0,      0,      0,     2, 0, 0},
    {"Line Start Lock",  "",          1,      1,      0,     3, 0, 0},
    {"ACI Signal Loss",  "",          0,      0,      0,     3, 0, 0},
    {"Up/Down Mode",     "",          0,      0,      0,     3, 0, 0},
    {"Up/Down Rate",     "Hz/s",     10,     10,      1,   100, 2, 0},
    {"Keypad Freq. Cmd", "Hz",     5000,   6000,      0, 40000, 2, RunSet},
    {"Master Source",    "",          0,      0,      0,     5, 0, 0},
    {"Auxiliary Source", "",          0,      0,      0,     5, 0, 0},
    {"Source Combining", "",          0,      0,      0,     1, 0, 0},
    {"Zero Speed Mode",  "",          0,      0,      0,     2, 0, 0},
}};

constexpr std::array<ParamRow, 15> Output{{  // 03
    {"Relay RA/RB/RC",   "",          8,      8,      0,    29, 0, 0},
    {"Terminal MO1",     "",          1,      1,      0,    29, 0, 0},
    {"Terminal MO2",     "",          2,      2,      0,    29, 0, 0},
    {"Terminal MO3",     "",         20,     20,      0,    29, 0, 0},
    {"Desired Freq. 1",  "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Desired Freq. 2",  "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Desired Freq. 3",  "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Analog Output",    "",          2,      0,      0,     7, 0, RunSet},
    {"Analog Out Gain",  "%",       100,    100,      1,   200, 0, RunSet},
    {"Terminal Count",   "",          0,      0,      0, 65500, 0, RunSet},
    {"Prelim. Count",    "",          0,      0,      0, 65500, 0, RunSet},
    {"EF at Prelim.",    "",          0,      0,      0,     1, 0, 0},
    {"Fan Control",      "",          0,      0,      0,     4, 0, RunSet},
    {"Brake Release f",  "Hz",        0,      0,      0,  2000, 2, 0},
    {"Brake Delay",      "sec",       0,      0,      0,  6500, 2, 0},
}};

constexpr std::array<ParamRow, 23> Input{{  // 04
    {"AVI Bias",         "%",         0,      0,      0, 10000, 2, RunSet},
    {"AVI Bias Sign",    "",          0,      0,      0,     1, 0, RunSet},
    {"AVI Gain",         "%",     10000,  10000,      1, 50000, 2, RunSet},
    {"AVI Reverse",      "",          0,      0,      0,     2, 0, 0},
    {"Terminal MI1",     "",          1,      1,      0,    36, 0, 0},
    {"Terminal MI2",     "",          2,      2,      0,    36, 0, 0},
    {"Terminal MI3",     "",          3,      3,      0,    36, 0, 0},
    {"Terminal MI4",     "",          5,      5,      0,    36, 0, 0},
    {"Terminal MI5",     "",          7,      7,      0,    36, 0, 0},
    {"Terminal MI6",     "",         19,     19,      0,    36, 0, 0},
    {"2/3-Wire Control", "",          0,      0,      0,     3, 0, 0},
    {"Terminal Filter",  "ms",        1,      1,      1,    20, 0, 0},
    {"ACI Bias",         "%",         0,      0,      0, 10000, 2, RunSet},
    {"ACI Bias Sign",    "",          0,      0,      0,     1, 0, RunSet},
    {"ACI Gain",         "%",     10000,  10000,      1, 50000, 2, RunSet},
    {"AUI Bias",         "%",         0,      0,      0, 10000, 2, RunSet},
    {"AUI Bias Sign",    "",          0,      0,      0,     1, 0, RunSet},
    {"AUI Gain",         "%",     10000,  10000,      1, 50000, 2, RunSet},
    {"AUI Reverse",      "",          0,      0,      0,     2, 0, 0},
    {"AVI Filter",       "sec",       5,      5,      0,   200, 2, RunSet},
    {"ACI Filter",       "sec",       5,      5,      0,   200, 2, RunSet},
    {"AUI Filter",       "sec",       5,      5,      0,   200, 2, RunSet},
    {"Terminal Status",  "",          1,      0,      0,   255, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 34> MultiStepPLC{{  // 05
    {"Step Speed 1",     "Hz",     1000,      0,      0, 40000, 2, RunSet},
    {"Step Speed 2",     "Hz",     1500,      0,      0, 40000, 2, RunSet},
    {"Step Speed 3",     "Hz",     2000,      0,      0, 40000, 2, RunSet},
    {"Step Speed 4",     "Hz",     2500,      0,      0, 40000, 2, RunSet},
    {"Step Speed 5",     "Hz",     3000,      0,      0, 40000, 2, RunSet},
    {"Step Speed 6",     "Hz",     4000,      0,      0, 40000, 2, RunSet},
    {"Step Speed 7",     "Hz",     5000,      0,      0, 40000, 2, RunSet},
    {"Step Speed 8",     "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 9",     "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 10",    "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 11",    "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 12",    "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 13",    "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 14",    "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"Step Speed 15",    "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"PLC Mode",         "",          0,      0,      0,     4, 0, 0},
    {"PLC Direction",    "",          0,      0,      0, 32767, 0, 0},
    {"PLC Step Time 0",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 1",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 2",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 3",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 4",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 5",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 6",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 7",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 8",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 9",  "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 10", "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 11", "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 12", "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 13", "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 14", "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Step Time 15", "sec",       0,      0,      0, 65500, 0, RunSet},
    {"PLC Time Unit",    "",          0,      0,      0,     1, 0, 0},
}};

constexpr std::array<ParamRow, 23> Protection{{  // 06
    {"OV Stall Level",   "V",      7800,   7800,   6600,  9000, 1, 0},
    {"OC Stall Accel",   "%",       170,    170,      0,   250, 0, 0},
    {"OC Stall Running", "%",       170,    170,      0,   250, 0, 0},
    {"Over-Torque Mode", "",          0,      0,      0,     4, 0, 0},
    {"Over-Torque Lev.", "%",       150,    150,     10,   250, 0, RunSet},
    {"Over-Torque Time", "sec",       1,      1,      1,   600, 1, RunSet},
    {"Overload Relay",   "",          2,      2,      0,     2, 0, 0},
    {"Overload Time",    "sec",      60,     60,     30,   600, 0, 0},
    {"Present Fault",    "",          0,      0,      0,    44, 0, ReadOnly},
    {"Fault Record 2",   "",          6,      0,      0,    44, 0, ReadOnly},
    {"Fault Record 3",   "",         14,      0,      0,    44, 0, ReadOnly},
    {"Fault Record 4",   "",          0,      0,      0,    44, 0, ReadOnly},
    {"Fault Record 5",   "",          0,      0,      0,    44, 0, ReadOnly},
    {"Fault Record 6",   "",          0,      0,      0,    44, 0, ReadOnly},
    {"Low DC Level",     "V",      4800,   4800,   4400,  6400, 1, 0},
    {"Ground Fault Lev", "%",        60,     60,     20,   100, 0, 0},
    {"Phase Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"Overheat Warning", "oC",      850,    850,      0,  1100, 1, 0},
    {"Under-Curr Level", "%",         0,      0,      0,   100, 0, RunSet},
    {"Under-Curr Time",  "sec",      10,     10,      1,  3600, 1, RunSet},
    {"Under-Curr Mode",  "",          0,      0,      0,     3, 0, 0},
    {"PTC Mode",         "",          0,      0,      0,     2, 0, 0},
    {"PTC Level",        "V",        24,     24,      1,   100, 1, 0},
}};

constexpr std::array<ParamRow, 15> Motor{{  // 07
    {"Motor Rated Amps", "%",        92,    100,     30,   120, 0, RunSet},
    {"No-Load Current",  "%",        36,     40,      1,    99, 0, RunSet},
    {"Torque Boost",     "",          0,      0,      0,    10, 0, RunSet},
    {"Slip Gain",        "",        100,      0,      0,   300, 2, RunSet},
    {"Motor Poles",      "",          4,      4,      2,    10, 0, 0},
    {"Auto Tuning",      "",          0,      0,      0,     2, 0, 0},
    {"Stator Resist.",   "mOhm",     84,      0,      0, 65535, 0, 0},
    {"Auto Boost Time",  "sec",       5,      5,      1,  1000, 2, RunSet},
    {"Rated Slip",       "Hz",       85,    300,      0,  2000, 2, 0},
    {"Slip Limit",       "%",       200,    200,      0,   250, 0, 0},
    {"Torque Filter",    "sec",       5,      5,      1,  1000, 2, RunSet},
    {"Slip Filter",      "sec",      10,     10,      5,  1000, 2, RunSet},
    {"Motor Run Hours",  "h",      2960,      0,      0, 65535, 0, ReadOnly},
    {"Rated Speed",      "RPM",    1475,   1750,      0, 24000, 0, 0},
    {"Rated Power",      "kW",      750,    750,      0,  6553, 1, 0},
}};

constexpr std::array<ParamRow, 21> Special{{  // 08
    {"DC Brake Level",   "%",         0,      0,      0,   100, 0, RunSet},
    {"DC Brake Start",   "sec",       0,      0,      0,   600, 1, 0},
    {"DC Brake Stop",    "sec",       0,      0,      0,   600, 1, 0},
    {"DC Brake Freq.",   "Hz",        0,      0,      0, 40000, 2, 0},
    {"Power Loss Mode",  "",          0,      0,      0,     2, 0, 0},
    {"Power Loss Time",  "sec",      20,     20,      1,    50, 1, 0},
    {"Base-Block Time",  "sec",       5,      5,      1,    50, 1, 0},
    {"Speed Search A",   "%",       150,    150,     30,   200, 0, 0},
    {"Skip Freq. 1 Up",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 1 Low", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 2 Up",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 2 Low", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 3 Up",  "Hz",        0,      0,      0, 40000, 2, 0},
    {"Skip Freq. 3 Low", "Hz",        0,      0,      0, 40000, 2, 0},
    {"Auto Restarts",    "",          0,      0,      0,    10, 0, 0},
    {"Restart Reset",    "sec",     600,    600,      1, 60000, 1, 0},
    {"Energy Saving",    "",          0,      0,      0,     1, 0, 0},
    {"AVR Function",     "",          0,      0,      0,     2, 0, 0},
    {"Brake Chopper V",  "V",      7600,   7600,   7400,  9000, 1, 0},
    {"Brake Duty",       "%",       100,    100,     10,   100, 0, 0},
    {"Hunting Gain",     "",          0,      0,      0, 10000, 0, RunSet},
}};

constexpr std::array<ParamRow, 8> Communication{{  // 09
    {"Comm Address",     "",          1,      1,      1,   254, 0, RunSet},
    {"Comm Speed",       "",          3,      1,      0,     5, 0, RunSet},
    {"Comm Fault Mode",  "",          3,      3,      0,     3, 0, RunSet},
    {"Comm Watchdog",    "sec",       0,      0,      0,   600, 1, RunSet},
    {"Comm Protocol",    "",          1,      0,      0,     5, 0, RunSet},
    {"Reply Delay",      "ms",        1,      1,      0,   200, 0, RunSet},
    {"Comm Main Freq.",  "Hz",     6000,   6000,      0, 40000, 2, RunSet},
    {"Comm Error Count", "",          0,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 14> PIDControl{{  // 10
    {"PID Setpoint Src", "",          0,      0,      0,     4, 0, 0},
    {"PID Feedback Src", "",          0,      0,      0,     5, 0, 0},
    {"Proportional P",   "%",       100,    800,      0,  5000, 1, RunSet},
    {"Integral Time I",  "sec",     100,    100,      0, 10000, 2, RunSet},
    {"Derivative Time",  "sec",       0,      0,      0,   500, 2, RunSet},
    {"Integral Limit",   "%",       100,    100,      0,   200, 0, RunSet},
    {"PID Delay Filter", "sec",       0,      0,      0,    25, 1, RunSet},
    {"PID Output Limit", "%",       100,    100,      0,   110, 0, RunSet},
    {"Feedback Loss t",  "sec",       0,      0,      0, 36000, 1, RunSet},
    {"Feedback Loss Op", "",          0,      0,      0,     3, 0, RunSet},
    {"PID Feedback",     "%",         0,      0,      0, 10000, 2, ReadOnly},
    {"PID Sleep Freq.",  "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"PID Wake Freq.",   "Hz",        0,      0,      0, 40000, 2, RunSet},
    {"PID Sleep Delay",  "sec",       0,      0,      0, 65500, 1, RunSet},
}};

constexpr std::array<ParamRow, 12> FanAndPump{{  // 11
    {"Pump Control",     "",          0,      0,      0,     3, 0, 0},
    {"Pump Start Delay", "sec",     100,    100,      1, 36000, 1, RunSet},
    {"Pump Stop Delay",  "sec",     100,    100,      1, 36000, 1, RunSet},
    {"Pump Rotation",    "h",         0,      0,      0,  8760, 0, RunSet},
    {"Pump Start Freq.", "Hz",     5000,   5000,      0, 40000, 2, RunSet},
    {"Pump Stop Freq.",  "Hz",     2000,   2000,      0, 40000, 2, RunSet},
    {"Dry Run Level",    "%",         0,      0,      0,   100, 0, RunSet},
    {"Dry Run Time",     "sec",     100,    100,      0,  6000, 1, RunSet},
    {"Fire Mode Freq.",  "Hz",     6000,   6000,      0, 40000, 2, 0},
    {"Pump 1 Run Hours", "h",      1204,      0,      0, 65535, 0, ReadOnly},
    {"Pump 2 Run Hours", "h",      1188,      0,      0, 65535, 0, ReadOnly},
    {"Pump 3 Run Hours", "h",         0,      0,      0, 65535, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 12> SpeedFeedback{{  // 12
    {"PG Pulses",        "",       1024,    600,      1, 20000, 0, 0},
    {"PG Input Type",    "",          0,      0,      0,     4, 0, 0},
    {"PG Loss Mode",     "",          0,      0,      0,     2, 0, 0},
    {"PG Loss Time",     "sec",      10,     10,      1,   100, 1, 0},
    {"Speed Gain P",     "",        100,    100,      0,  5000, 1, RunSet},
    {"Speed Integral I", "sec",     100,    100,      0, 10000, 2, RunSet},
    {"Speed Limit",      "%",      1000,   1000,      0, 10000, 2, RunSet},
    {"PG Slip Range",    "%",        50,     50,      0,    50, 0, RunSet},
    {"PG Over-Speed",    "%",       115,    115,      0,   120, 0, RunSet},
    {"PG Filter",        "ms",        2,      2,      0,  9999, 0, RunSet},
    {"Output Pulses",    "",          1,      1,      1,   255, 0, RunSet},
    {"PG Feedback",      "RPM",       0,      0,      0, 24000, 0, ReadOnly},
}};

constexpr std::array<ParamRow, 5> Reserved{{  // 13
    {"Factory Mode",     "",          0,      0,      0, 65535, 0, 0},
    {"Current Offset U", "",        506,    512,      0,  1023, 0, ReadOnly},
    {"Current Offset V", "",        517,    512,      0,  1023, 0, ReadOnly},
    {"Dead Time Comp.",  "us",       32,     32,      0,   100, 1, 0},
    {"DC Bus Gain",      "",       1000,   1000,      0,  2000, 3, 0},
}};

constexpr std::array<GroupRows, 14> Groups{{
    {"User", User},
    {"Basic", Basic},
    {"Operation", Operation},
    {"Output", Output},
    {"Input", Input},
    {"Multi-Step & PLC", MultiStepPLC},
    {"Protection", Protection},
    {"Motor", Motor},
    {"Special", Special},
    {"Communication", Communication},
    {"PID Control", PIDControl},
    {"Fan and Pump", FanAndPump},
    {"Speed Feedback", SpeedFeedback},
    {"Reserved", Reserved},
}};
// clang-format on

static_assert(rowsFit(Groups, SignedAllowed::No));
static_assert(mostlyWritable(Groups));

}  // namespace

constinit const FamilyData LarchData{
    .family = Family::Larch,
    .modelCode = 33,
    .version = 412,
    .groups = Groups,
};

}  // namespace kelvane::drive
