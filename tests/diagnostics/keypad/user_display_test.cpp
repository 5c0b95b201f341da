// The tables of the keypad: user display of each family and the list of parameters.
#include "diagnostics/keypad/user_display.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "diagnostics/keypad/parameter_entries.h"

namespace kelvane {
namespace {

struct Shown {
    Family family;
    quint16 value;
    quint16 format;
    const char* text;
    const char* lead;  // null: the old one stays
};

TEST(UserDisplay, ShowsValueAndLeadOfEachFamily) {
    const Shown rows[] = {
        {Family::Larch, 1234, 0x0241, "12.34", "A"},     {Family::Larch, 1234, 0x0641, "12.34", "A."},
        {Family::Larch, 1234, 0x0500, "123.4", "."},     {Family::Rowan, 0xFFFB, 0x8155, "6553.1", "U"},
        {Family::Aspen, 1234, 0x0441, "0.1234", "A"},    {Family::Aspen, 12, 0x0600, "0.000012", ""},
        {Family::Hazel, 1234, 0x0400, "12.34", nullptr}, {Family::Hazel, 1234, 0x0000, "1234", nullptr},
        {Family::Tilia, 0xFFFB, 0x8100, "-.5", ""},      {Family::Tilia, 0xFFFB, 0x0100, "6553.1", ""},
        {Family::Sorrel, 0xFFFB, 0x8100, "6553.1", ""},  {Family::Tilia, 0x00AF, 0x107E, "00AF", "A"},
        {Family::Tilia, 5, 0x00E0, "5", "1."},           {Family::Tilia, 5, 0x0021, "5", ""},
        {Family::Sorrel, 5, 0x047E, "5", "."},  // the point overwrites the pattern
        {Family::Willow, 50, 0x0148, "5.0", "H"},
    };
    for (const Shown& row : rows) {
        const UserDisplay shown = userDisplay(static_cast<quint8>(row.family), row.value, row.format);
        const std::string which = std::string(familyName(row.family)) + " " + std::to_string(row.format);
        EXPECT_EQ(shown.displayVrLabel.toStdString(), row.text) << which;
        EXPECT_EQ(shown.LeadChVrLabel.has_value(), row.lead != nullptr) << which;
        if (row.lead) {
            EXPECT_EQ(shown.LeadChVrLabel.value_or("?").toStdString(), row.lead) << which;
        }
    }
    const UsingDecimalSep comma(",");
    EXPECT_EQ(userDisplay(2, 1234, 0x0241).displayVrLabel, "12,34");
}

DriveStatusRecord withCounts(Family family, std::initializer_list<quint16> counts, int reserved) {
    DriveStatusRecord status;
    status.DriveFamily = static_cast<quint8>(family);
    status.GroupCount = static_cast<quint8>(counts.size());
    std::copy(counts.begin(), counts.end(), status.GroupParamCount.begin());
    status.GroupParamCount[counts.size()] = static_cast<quint16>(reserved);
    return status;
}

TEST(ParameterEntries, ListEveryGroupButTheReservedOneUpToItsHighestNumber) {
    const auto entries = parameterEntries(withCounts(Family::Larch, {5, 101}, 3));
    ASSERT_EQ(entries.size(), 6U + 102U);
    EXPECT_EQ(entries.front(), (ParameterEntry{"00-00", "0000"}));
    EXPECT_EQ(entries[5], (ParameterEntry{"00-05", "0005"}));
    EXPECT_EQ(entries[6], (ParameterEntry{"01-00", "0100"}));
    EXPECT_EQ(entries[6 + 99], (ParameterEntry{"01-99", "0163"}));

    const auto list = parameterEntries(withCounts(Family::Rowan, {120}, 3));
    ASSERT_EQ(list.size(), 121U);
    EXPECT_EQ(list.front(), (ParameterEntry{"0", "0000"}));
    EXPECT_EQ(list[116], (ParameterEntry{"116", "0074"}));
    EXPECT_EQ(list.back(), (ParameterEntry{"120", "0078"}));

    // Counts that no drive has.
    DriveStatusRecord status;
    EXPECT_TRUE(parameterEntries(status).empty());
    status.DriveFamily = 2;
    status.GroupCount = 255;
    status.GroupParamCount.fill(65535);
    EXPECT_EQ(parameterEntries(status).size(), MostParameterEntries);
    status.GroupParamCount.fill(0);
    EXPECT_EQ(parameterEntries(status).size(), status.GroupParamCount.size());
}

}  // namespace
}  // namespace kelvane
