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

}  // namespace
}  // namespace kelvane::drive
