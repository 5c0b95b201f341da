#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "drive/parameter_data.h"

namespace kelvane::drive {
namespace {

const ParamRow* rowAt(Family family, int address) {
    const FamilyData& data = familyData(family);
    const size_t group = size_t(address >> 8);
    const size_t number = size_t(address & 0xFF);
    if (group >= data.groups.size() || number >= data.groups[group].rows.size()) return nullptr;
    return &data.groups[group].rows[number];
}

std::string at(Family family, int address) {
    std::ostringstream text;
    text << familyName(family) << " " << std::hex << address;
    return text.str();
}

class EveryFamily : public testing::TestWithParam<Family> {};
INSTANTIATE_TEST_SUITE_P(Drives, EveryFamily, testing::ValuesIn(AllFamilies),
                         [](const auto& drive) { return std::string(familyName(drive.param)); });

TEST_P(EveryFamily, IsFoundUnderItsNumber) { EXPECT_EQ(familyData(GetParam()).family, GetParam()); }

TEST_P(EveryFamily, HasGroupsThatTheToolHasRoomFor) {
    const FamilyData& data = familyData(GetParam());
    EXPECT_GE(data.groups.size(), 2u);
    EXPECT_LE(data.groups.size(), 15u);
    size_t ordinary = 0;
    for (const GroupRows& group : data.groups.first(data.groups.size() - 1)) ordinary += group.rows.size();
    EXPECT_GE(ordinary, 80u);
    EXPECT_LE(ordinary, 250u);
    EXPECT_GE(data.groups.back().rows.size(), 2u);
    EXPECT_LE(data.groups.back().rows.size(), 6u);
}

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
TEST(FamilyData, IdentityIsReadOnlyAndAgrees) {
    for (const Family family : AllFamilies) {
        const int address = family == Family::Rowan ? 0x0050 : family == Family::Osier ? 0x0700 : 0x0000;
        const ParamRow* identity = rowAt(family, address);
        const ParamRow* ratedCurrent = rowAt(family, address + 1);
        ASSERT_TRUE(identity && ratedCurrent) << at(family, address);
        EXPECT_EQ(identity->value, familyData(family).modelCode) << familyName(family);
        EXPECT_TRUE(identity->flags & ReadOnly) << familyName(family);
        EXPECT_TRUE(ratedCurrent->flags & ReadOnly) << familyName(family);
        EXPECT_EQ(ratedCurrent->unit, "A") << familyName(family);
    }
    EXPECT_EQ(rowAt(Family::Hazel, 0x0006)->value, familyData(Family::Hazel).version);
}

// A parameter with so many choices takes 0 to choices - 1 and nothing else.
struct Choices {
    Family family;
    int count;
    std::vector<int> addresses;
};

TEST(FamilyData, ChoicesTakeAsManyValuesAsTheirListsHave) {
    using enum Family;
    const std::vector<Choices> table{
        {Rowan, 11, {0x40}},
        {Rowan, 5, {0x00, 0x01}},
        {Rowan, 2, {0x02}},
        {Rowan, 25, {0x2D, 0x2E}},
        {Rowan, 3, {0x26}},
        {Rowan, 33, {0x27, 0x28, 0x29, 0x2A}},
        {Aspen, 4, {0x0003}},
        {Aspen, 5, {0x0004, 0x0201}},
        {Aspen, 6, {0x0200}},
        {Aspen, 2, {0x0202}},
        {Aspen, 17, {0x0305, 0x0306}},
        {Aspen, 22, {0x0404, 0x0405, 0x0406, 0x0407, 0x0408}},
        {Larch, 5, {0x0003, 0x0201}},
        {Larch, 15, {0x0004}},
        {Larch, 4, {0x0009, 0x0202}},
        {Larch, 7, {0x0200}},
        {Larch, 30, {0x0300, 0x0301, 0x0302, 0x0303}},
        {Larch, 37, {0x0404, 0x0405, 0x0406, 0x0407, 0x0408, 0x0409}},
        {Hazel, 4, {0x0003}},
        {Hazel, 5, {0x0004, 0x0200, 0x0201}},
        {Hazel, 2, {0x0202}},
        {Hazel, 17, {0x0303}},
        {Hazel, 21, {0x0404, 0x0405, 0x0406}},
        {Tilia, 4, {0x0003}},
        {Tilia, 24, {0x0004}},
        {Tilia, 6, {0x0014}},
        {Tilia, 5, {0x0015}},
        {Tilia, 2, {0x0016}},
        {Tilia, 41, {0x020B, 0x020C, 0x020D, 0x020E}},
        {Tilia, 44, {0x0201, 0x0202, 0x0203, 0x0204, 0x0205, 0x0206}},
        {Osier, 5, {0x0208, 0x0209, 0x0201}},
        {Osier, 6, {0x0200}},
        {Osier, 4, {0x0202}},
        {Osier, 38, {0x0300, 0x0301, 0x0302, 0x0303, 0x0304, 0x0305, 0x0306, 0x0307}},
        {Osier, 34, {0x0400, 0x0401, 0x0402, 0x0403, 0x0404, 0x0405, 0x0406, 0x0407}},
        {Willow, 6, {0x0003}},
        {Willow, 12, {0x0004}},
        {Willow, 5, {0x0200, 0x0201}},
        {Willow, 4, {0x0202}},
        {Willow, 22, {0x0300, 0x0301}},
        {Willow, 3, {0x0404}},
        {Willow, 25, {0x0405, 0x0406, 0x0407, 0x0408}},
        {Yarrow, 5, {0x0003, 0x0200, 0x0201}},
        {Yarrow, 12, {0x0004}},
        {Yarrow, 4, {0x0202}},
        {Yarrow, 22, {0x0300, 0x0301}},
        {Yarrow, 3, {0x0404}},
        {Yarrow, 23, {0x0405, 0x0406, 0x0407, 0x0408}},
        {Sorrel, 4, {0x0003}},
        {Sorrel, 29, {0x0004}},
        {Sorrel, 3, {0x000E, 0x000F}},
        {Sorrel, 43, {0x020B, 0x020C, 0x020D, 0x020E, 0x020F, 0x0210}},
        {Sorrel, 44, {0x0201, 0x0202, 0x0203, 0x0204, 0x0205, 0x0206, 0x0207, 0x0208}},
        // Tuning commands.
        {Rowan, 3, {0x67}},
        {Larch, 3, {0x0705}},
        {Willow, 3, {0x0704}},
        {Tilia, 4, {0x0500}},
    };
    for (const Choices& choices : table)
        for (const int address : choices.addresses) {
            const ParamRow* row = rowAt(choices.family, address);
            ASSERT_TRUE(row) << at(choices.family, address);
            EXPECT_EQ(row->min, 0) << at(choices.family, address);
            EXPECT_EQ(row->max, choices.count - 1) << at(choices.family, address) << " " << row->name;
            EXPECT_FALSE(row->flags & ReadOnly) << at(choices.family, address);
            EXPECT_EQ(row->dot, 0) << at(choices.family, address);
        }
}

// Registers whose rows bear one unit.
struct Measured {
    Family family;
    std::string_view unit;
    std::vector<int> addresses;
};

TEST(FamilyData, CommissioningRegistersBearTheirUnits) {
    using enum Family;
    const std::vector<Measured> table{
        {Rowan, "Hz", {0x03, 0x04, 0x06, 0x08, 0x24, 0x25, 0x6A}},
        {Rowan, "V", {0x05, 0x07, 0x09}},
        {Rowan, "sec", {0x0A, 0x0B}},
        {Rowan, "A", {0x34, 0x35}},
        {Aspen, "%", {0x0700, 0x0701, 0x0107, 0x0108}},
        {Larch, "%", {0x0700, 0x0701, 0x0107, 0x0108}},
        {Hazel, "%", {0x0700, 0x0701, 0x0107, 0x0108}},
        {Tilia, "%", {0x010A, 0x010B}},
        {Sorrel, "%", {0x010A, 0x010B}},
        {Willow, "%", {0x0107, 0x0108}},
        {Yarrow, "%", {0x0107, 0x0108}},
        {Tilia, "A", {0x0501, 0x0505, 0x050D, 0x0511}},
        {Sorrel, "A", {0x0501, 0x0505}},
        {Willow, "A", {0x0700, 0x0701}},
        {Yarrow, "A", {0x0700, 0x0701}},
        {Osier, "A", {0x0702, 0x0703}},
        {Tilia, "Hz", {0x0107, 0x0109, 0x0123}},
        {Tilia, "V", {0x0106, 0x0108, 0x0124}},
        {Sorrel, "Hz", {0x0107, 0x0109}},
        {Sorrel, "V", {0x0106, 0x0108}},
        {Tilia, "RPM", {0x0503, 0x050F}},
        {Tilia, "", {0x0504, 0x0510, 0x050A}},
        {Sorrel, "RPM", {0x0503}},
        {Larch, "Hz", {0x0708}},
        {Larch, "mOhm", {0x0706}},
        {Willow, "Hz", {0x0706}},
        {Willow, "mOhm", {0x0705}},
    };
    for (const Measured& measured : table)
        for (const int address : measured.addresses) {
            const ParamRow* row = rowAt(measured.family, address);
            ASSERT_TRUE(row) << at(measured.family, address);
            EXPECT_EQ(row->unit, measured.unit) << at(measured.family, address) << " " << row->name;
            EXPECT_FALSE(row->flags & (ReadOnly | Signed)) << at(measured.family, address);
        }
}

// The V/f curve and the first ramp stand alike in all families with groups.
TEST(FamilyData, GroupOneHoldsCurveAndRamps) {
    for (const Family family : AllFamilies) {
        if (family == Family::Rowan) continue;
        const bool longCurve = family == Family::Tilia || family == Family::Sorrel;
        for (int number = 0; number <= 6; ++number) {
            const ParamRow* row = rowAt(family, 0x0100 + number);
            ASSERT_TRUE(row) << at(family, 0x0100 + number);
            const bool volts = number >= 2 && number % 2 == 0;
            EXPECT_EQ(row->unit, volts ? "V" : "Hz") << at(family, 0x0100 + number) << " " << row->name;
        }
        const int accel = longCurve ? 0x010C : 0x0109;
        for (const int address : {accel, accel + 1})
            EXPECT_EQ(rowAt(family, address)->unit, "sec") << at(family, address);
    }
    for (const Family family : AllFamilies)
        EXPECT_EQ(rowAt(family, family == Family::Rowan ? 0x03 : 0x0100)->dot, 2) << familyName(family);
}

struct Block {
    Family family;
    int first;
    int count;
};

TEST(FamilyData, PidBlocksTakeWrites) {
    const std::vector<Block> blocks{{Family::Rowan, 0x74, 7},    {Family::Rowan, 0x80, 7},
                                    {Family::Aspen, 0x0A00, 8},  {Family::Larch, 0x0A00, 8},
                                    {Family::Tilia, 0x0800, 10}, {Family::Osier, 0x0A01, 7},
                                    {Family::Willow, 0x0A01, 7}, {Family::Willow, 0x0A0A, 1},
                                    {Family::Yarrow, 0x0A01, 7}, {Family::Yarrow, 0x0A0A, 1}};
    for (const Block& block : blocks)
        for (int address = block.first; address < block.first + block.count; ++address) {
            const ParamRow* row = rowAt(block.family, address);
            ASSERT_TRUE(row) << at(block.family, address);
            EXPECT_FALSE(row->flags & ReadOnly) << at(block.family, address) << " " << row->name;
        }
}

TEST(FamilyData, HazelGroupsHaveTheirFixedLengths) {
    const std::vector<size_t> lengths{9, 19, 7, 4, 7, 9, 13, 4, 18, 5};
    const FamilyData& data = familyData(Family::Hazel);
    ASSERT_EQ(data.groups.size(), lengths.size() + 1);
    for (size_t group = 0; group < lengths.size(); ++group)
        EXPECT_EQ(data.groups[group].rows.size(), lengths[group]) << data.groups[group].name;
}

TEST(FamilyData, OnlyTiliaGoesBelowZero) {
    for (const Family family : AllFamilies) {
        bool below = false;
        for (const GroupRows& group : familyData(family).groups)
            for (const ParamRow& row : group.rows) below = below || row.value < 0;
        EXPECT_EQ(below, family == Family::Tilia) << familyName(family);
    }
}

}  // namespace
}  // namespace kelvane::drive
