#include "catalogue/group_names.h"

#include <span>

#include "base/drive_family.h"

namespace kelvane {

namespace {

// Built-in names. The number in front of a name is its place in the list.
constexpr const char* AspenGroups[] = {"User",
                                       "Basic",
                                       "Operation Method",
                                       "Output Function",
                                       "Input Function",
                                       "Multi-Step Speed and PLC",
                                       "Protection",
                                       "Motor",
                                       "Special",
                                       "Communication",
                                       "PID",
                                       "Reserved"};
constexpr const char* HazelGroups[] = {"User",
                                       "Basic",
                                       "Operation Method",
                                       "Output Function",
                                       "Input Function",
                                       "Multi-Step Speed and PLC",
                                       "Protection",
                                       "Motor",
                                       "Special",
                                       "Communication",
                                       "Reserved"};
constexpr const char* OsierGroups[] = {"AC Drive Status",
                                       "Basic",
                                       "Operation Method",
                                       "Output Function",
                                       "Input Function",
                                       "Multi-step Speed Frequency",
                                       "Protection Function",
                                       "AC Drive and Motor",
                                       "Special",
                                       "Communication",
                                       "PID Control",
                                       "Fan and Pump Control",
                                       "Reserved"};
constexpr quint8 NoFamily = 7;
constexpr int NoFamilyGroups = 12;
constexpr int KeypadGroups = 21;

constexpr std::size_t FixedGroups = 12;
constexpr std::size_t FixedNamesPerGroup = 50;
static_assert(FixedGroups * FixedNamesPerGroup == FixedParaNameCount);

constexpr const char* FixedParaName[FixedGroups][FixedNamesPerGroup] = {
    {"Identity Code", "Rated Current", "Parameter Reset", "Startup Display", "User-Defined", "User-Defined K",
     "SW Version", "Password Input", "Password setting"},
    {"Max Output Freq.", "Max Volt Freq.", "Max Output Volt", "Mid-Point Freq.", "Mid-Point Volt",
     "Min Output Freq.", "Min Output Volt", "Up bound Freq.", "Low bound Freq.", "Accel Time 1",
     "Decel Time 1", "Accel Time 2", "Decel Time 2", "Jog accel Time", "Jog Decel Time", "Jog Freq",
     "Auto ac/de set", "S-Curve Accel", "S-Curve Decel"},
    {"Source Freq. Cmd", "Source Oper Cmd", "Stop Method", "PWM Carrier Freq", "Reverse disabled",
     "ACI Input Loss", "Line start lock"},
    {"Desired Freq.", "Counter setting", "Counter attain", "Multi-output 2"},
    {"Bias Freq.", "Bias Polarity", "Ang input gain", "Ang reverse set", "Multi-input 1", "Multi-input 2",
     "Multi-input 3"},
    {"1st Step Freq.", "2nd Step Freq.", "3rd Step Freq.", "PLC Mode", "PLC direction", "Time Step 0",
     "Time Step 1", "Time Step 2", "Time Step 3"},
    {"OV Stall Level", "OC Stall Level", "Over-Torq Mode", "Over-Torq Level", "Over-torq time", "OL1 mode",
     "OL1 character", "1st Fault Record", "2nd Fault Record", "3rd Fault Record", "4th Fault Record",
     "5th Fault Record", "6th Fault Record"},
    {"Motor rate curr", "No-load current", "Torque compens", "Slip compens"},
    {"DC-Brake level", "Start DC-brake t", "End DC-brake t", "DC-brake start f", "Power loss mode",
     "Power loss time", "B.B.time", "Speed Search A", "Skip Freq. 1 Up", "Skip Freq. 1 Low",
     "Skip Freq. 2 Up", "Skip Freq. 2 Low", "Skip Freq. 3 Up", "Skip Freq. 3 Low", "Auto Restart",
     "AVR Function", "Dynamic Brake V", "DC-brake inhibit"},
    {"Comm Address", "Comm Speed", "Comm Fault", "Comm Watchdog", "Comm Protocol"},
};

QString numbered(int G, const QString& name) { return QString::number(G) % QStringLiteral(" - ") % name; }

int flatIndex(quint8 DriveFamily, int G) { return DriveFamily * GroupNameTable::GroupsPerFamily + G; }

bool inside(const GroupNameTable& table, quint8 DriveFamily, int G) {
    return G >= 0 && G < static_cast<int>(table.GroupName.size()) - flatIndex(DriveFamily, 0);
}

void storeBuiltIn(GroupNameTable& table, Family family, std::span<const char* const> names) {
    for (std::size_t i = 0; i < names.size(); ++i)
        table.storeReportedName(static_cast<quint8>(family), static_cast<int>(i),
                                QString::fromLatin1(names[i]));
}

}  // namespace

GroupNameTable::GroupNameTable() {
    storeBuiltIn(*this, Family::Aspen, AspenGroups);
    storeBuiltIn(*this, Family::Hazel, HazelGroups);
    storeBuiltIn(*this, Family::Osier, OsierGroups);
    // Kept: a row of number signs for the value that no family has.
    for (int G = 0; G < NoFamilyGroups; ++G)
        GroupName.at(flatIndex(NoFamily, G)) = QStringLiteral("################");
    // Kept: twenty-one names in a row of fifteen; the last six stand in the row behind.
    for (int G = 0; G < KeypadGroups; ++G)
        storeReportedName(static_cast<quint8>(Family::Keypad), G,
                          QStringLiteral("Group") % QString::number(G));
}

QString GroupNameTable::groupName(quint8 DriveFamily, int G) const {
    return inside(*this, DriveFamily, G) ? GroupName[flatIndex(DriveFamily, G)] : QString();
}

void GroupNameTable::storeReportedName(quint8 DriveFamily, int G, const QString& reported) {
    if (!inside(*this, DriveFamily, G)) return;
    qsizetype length = reported.size();
    while (length > 0 && reported[length - 1] == QLatin1Char(' ')) --length;
    GroupName[flatIndex(DriveFamily, G)] = numbered(G, reported.left(length));
}

QString fixedParaName(int G, int N) {
    if (G < 0 || N < 0 || N >= FixedParaNameCount) return {};
    const qint64 index = qint64(G) * FixedNamesPerGroup + N;
    if (index >= FixedParaNameCount) return {};
    const char* name = FixedParaName[index / FixedNamesPerGroup][index % FixedNamesPerGroup];
    return QString::fromLatin1(name);
}

}  // namespace kelvane
