#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "drive/parameter_data.h"

namespace kelvane::drive {
namespace {

class EveryFamily : public testing::TestWithParam<Family> {};
INSTANTIATE_TEST_SUITE_P(Drives, EveryFamily, testing::ValuesIn(AllFamilies),
                         [](const auto& drive) { return std::string(familyName(drive.param)); });

TEST_P(EveryFamily, NamesAreDistinctAndTidy) {
    std::set<std::string_view> seen;
    const auto tidy = [](std::string_view text) {
        const auto printable = [](char c) { return c >= ' ' && c <= '~'; };
        return !text.starts_with(' ') && !text.ends_with(' ') && text.find("  ") == text.npos &&
               std::ranges::all_of(text, printable);
    };
    for (const GroupRows& group : familyData(GetParam()).groups) {
        EXPECT_TRUE(tidy(group.name)) << group.name;
        for (const ParamRow& row : group.rows) {
            EXPECT_TRUE(seen.insert(row.name).second) << row.name;
            EXPECT_TRUE(tidy(row.name) && tidy(row.unit)) << row.name;
        }
    }
}

// The registers by which a tool recognises and follows the drive.
TEST_P(EveryFamily, IdentityAndMaximumFrequencyAreWhereAToolLooks) {
    const FamilyData& data = familyData(GetParam());
    const auto rowAt = [&](int address) {
        return data.groups[size_t(address >> 8)].rows[size_t(address & 0xFF)];
    };
    const int identity = GetParam() == Family::Rowan ? 0x50 : GetParam() == Family::Osier ? 0x0700 : 0x0000;
    EXPECT_EQ(rowAt(identity).value, data.modelCode);
    EXPECT_TRUE(rowAt(identity).flags & rowAt(identity + 1).flags & ReadOnly);
    EXPECT_EQ(rowAt(identity + 1).unit, "A");
    EXPECT_EQ(rowAt(GetParam() == Family::Rowan ? 0x03 : 0x0100).dot, 2);
}

}  // namespace
}  // namespace kelvane::drive
