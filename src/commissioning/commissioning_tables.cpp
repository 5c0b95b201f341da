#include "commissioning/commissioning_tables.h"

#include <algorithm>

namespace kelvane {

namespace {

// ---- PID ----

// Kept: Rowan's last parameter bears number 135 beside register 0086h, and not 134.
constexpr ListedParameter RowanPid[] = {
    {"116", "0074"}, {"117", "0075"}, {"118", "0076"}, {"119", "0077"}, {"120", "0078"},
    {"121", "0079"}, {"122", "007A"}, {"128", "0080"}, {"129", "0081"}, {"130", "0082"},
    {"131", "0083"}, {"132", "0084"}, {"133", "0085"}, {"135", "0086"},
};
constexpr ListedParameter TenFromZero[] = {
    {"10-00", "0A00"}, {"10-01", "0A01"}, {"10-02", "0A02"}, {"10-03", "0A03"},
    {"10-04", "0A04"}, {"10-05", "0A05"}, {"10-06", "0A06"}, {"10-07", "0A07"},
};
constexpr ListedParameter TiliaPid[] = {
    {"08-00", "0800"}, {"08-01", "0801"}, {"08-02", "0802"}, {"08-03", "0803"}, {"08-04", "0804"},
    {"08-05", "0805"}, {"08-06", "0806"}, {"08-07", "0807"}, {"08-08", "0808"}, {"08-09", "0809"},
};
// Kept: Osier shows its group number in hexadecimal and is read at 1001h.
constexpr ListedParameter OsierPid[] = {
    {"0A-01", "1001"}, {"0A-02", "1002"}, {"0A-03", "1003"}, {"0A-04", "1004"}, {"0A-05", "1005"},
    {"0A-06", "1006"}, {"0A-07", "1007"}, {"01-07", "0107"}, {"01-08", "0108"},
};
constexpr ListedParameter TenFromOne[] = {
    {"10-01", "0A01"}, {"10-02", "0A02"}, {"10-03", "0A03"}, {"10-04", "0A04"},
    {"10-05", "0A05"}, {"10-06", "0A06"}, {"10-07", "0A07"}, {"10-10", "0A0A"},
};

constexpr PidFamily PidFamilies[] = {
    {Family::Rowan, "PIDmImage", RowanPid},     {Family::Aspen, "PIDsImage", TenFromZero},
    {Family::Larch, "PIDbImage", TenFromZero},  {Family::Tilia, "PIDvImage", TiliaPid},
    {Family::Osier, "PIDfImage", OsierPid},     {Family::Willow, "PIDeImage", TenFromOne},
    {Family::Yarrow, "PIDelImage", TenFromOne},
};
constexpr PidFamily NoPid{Family::Larch, "PIDbImage", {}};

// ---- Auto tuning ----

constexpr ListedParameter RowanTune[] = {
    {"0004", "0004"}, {"0005", "0005"}, {"0052", "0034"}, {"0148", "0094"},
    {"0106", "006A"}, {"0053", "0035"}, {"0104", "0068"},
};
constexpr ListedParameter LarchTune[] = {
    {"01-01", "0101"}, {"01-02", "0102"}, {"07-00", "0700"}, {"07-04", "0704"},
    {"07-08", "0708"}, {"07-01", "0701"}, {"07-06", "0706"},
};
constexpr ListedParameter WillowTune[] = {
    {"01-01", "0101"}, {"01-02", "0102"}, {"07-00", "0700"}, {NoParameter, NoRegister},
    {"07-06", "0706"}, {"07-01", "0701"}, {"07-05", "0705"},
};
constexpr ListedParameter ElevenRows[] = {
    {"01-01", "0101"}, {"01-02", "0102"}, {"05-01", "0501"}, {"05-02", "0502"},
    {"05-03", "0503"}, {"05-04", "0504"}, {"05-05", "0505"}, {"05-06", "0506"},
    {"05-07", "0507"}, {"05-08", "0508"}, {"05-09", "0509"},
};
constexpr ListedParameter SecondMotor[] = {
    {"01-35", "0123"}, {"01-36", "0124"}, {"05-13", "050D"}, {"05-14", "050E"},
    {"05-15", "050F"}, {"05-16", "0510"}, {"05-17", "0511"}, {"05-18", "0512"},
    {"05-19", "0513"}, {"05-20", "0514"}, {"05-21", "0515"},
};
static_assert(std::size(SecondMotor) == std::size(ElevenRows));

constexpr TuneFamily usual(Family family, std::span<const ListedParameter> rows,
                           const char* commandRegister) {
    return {.family = family,
            .motors = {rows, {}},
            .commandRegister = commandRegister,
            .turningEntry = 2,
            .resultCommand = "FF0321180001",
            .codeInHighByte = true,
            .textRegister = "33",
            .resetCommand = "FF0620020002"};
}

constexpr TuneFamily larch() {
    TuneFamily row = usual(Family::Larch, LarchTune, "0705");
    row.resultCommand = "FF0323040001";
    row.codeInHighByte = false;
    row.resetCommand = "FF0620000001";
    return row;
}

constexpr TuneFamily tilia() {
    TuneFamily row = usual(Family::Tilia, ElevenRows, "0500");
    row.motors[1] = SecondMotor;
    row.turningEntry = 1;
    row.codeInHighByte = false;
    row.textRegister = "32";
    return row;
}

// Kept: no command register is named for Sorrel, so its mode goes out as "FF06" with the value alone.
constexpr TuneFamily TuneFamilies[] = {
    usual(Family::Rowan, RowanTune, "0067"), larch(), tilia(), usual(Family::Willow, WillowTune, "0704"),
    usual(Family::Sorrel, ElevenRows, ""),
};

}  // namespace

std::span<const PidFamily> pidFamilies() { return PidFamilies; }

const PidFamily& pidFamily(quint8 DriveFamily) {
    const auto found = std::ranges::find(PidFamilies, static_cast<Family>(DriveFamily), &PidFamily::family);
    return found == std::end(PidFamilies) ? NoPid : *found;
}

const TuneFamily* tuneFamily(quint8 DriveFamily) {
    const auto found = std::ranges::find(TuneFamilies, static_cast<Family>(DriveFamily), &TuneFamily::family);
    return found == std::end(TuneFamilies) ? nullptr : &*found;
}

}  // namespace kelvane
