#include "catalogue/group_names.h"

#include <gtest/gtest.h>

#include "base/drive_family.h"

namespace kelvane {
namespace {

std::string nameOf(const GroupNameTable& table, Family family, int G) {
    return table.groupName(static_cast<quint8>(family), G).toStdString();
}

TEST(GroupName, HasTheBuiltInNames) {
    const GroupNameTable table;
    EXPECT_EQ(nameOf(table, Family::Aspen, 5), "5 - Multi-Step Speed and PLC");
    EXPECT_EQ(nameOf(table, Family::Aspen, 11), "11 - Reserved");
    EXPECT_EQ(nameOf(table, Family::Hazel, 10), "10 - Reserved");
    EXPECT_EQ(nameOf(table, Family::Hazel, 11), "");
    EXPECT_EQ(nameOf(table, Family::Osier, 5), "5 - Multi-step Speed Frequency");
    EXPECT_EQ(nameOf(table, Family::Osier, 12), "12 - Reserved");
    for (const Family family : {Family::Rowan, Family::Larch, Family::Tilia, Family::Willow, Family::Sorrel})
        for (int G = 0; G < GroupNameTable::GroupsPerFamily; ++G) EXPECT_EQ(nameOf(table, family, G), "");
}

TEST(GroupName, KeepsTheKeypadNamesRunningIntoTheNextRow) {
    const GroupNameTable table;
    EXPECT_EQ(nameOf(table, Family::Keypad, 20), "20 - Group20");
    EXPECT_EQ(table.groupName(21, 0), QStringLiteral("15 - Group15"));
    EXPECT_EQ(table.groupName(21, 6), QString());
    EXPECT_EQ(table.groupName(7, 11), QStringLiteral("################"));
    EXPECT_EQ(table.groupName(7, 12), QString());
}

TEST(GroupName, TakesWhatADriveReportsWithoutTrailingBlanks) {
    GroupNameTable table;
    table.storeReportedName(5, 0, QStringLiteral(" Status         "));
    table.storeReportedName(2, 12, QStringLiteral("                "));
    EXPECT_EQ(nameOf(table, Family::Osier, 0), "0 -  Status");
    EXPECT_EQ(nameOf(table, Family::Larch, 12), "12 - ");
    EXPECT_EQ(nameOf(table, Family::Osier, 1), "1 - Basic");
}

TEST(GroupName, NeverReachesOutside) {
    GroupNameTable table;
    const auto before = table.GroupName;
    for (const int G : {-1, 15, 450, 1 << 30})
        for (const int DriveFamily : {29, 30, 255}) {
            table.storeReportedName(static_cast<quint8>(DriveFamily), G, QStringLiteral("x"));
            EXPECT_EQ(table.groupName(static_cast<quint8>(DriveFamily), G), QString());
        }
    EXPECT_EQ(table.GroupName, before);
}

TEST(FixedParaName, HasHazelsNames) {
    constexpr int counts[12] = {9, 19, 7, 4, 7, 9, 13, 4, 18, 5, 0, 0};
    for (int G = 0; G < 12; ++G)
        for (int N = 0; N < 50; ++N)
            EXPECT_EQ(fixedParaName(G, N).isEmpty(), N >= counts[G]) << G << "," << N;
    EXPECT_EQ(fixedParaName(0, 5), QStringLiteral("User-Defined K"));
    EXPECT_EQ(fixedParaName(1, 18), QStringLiteral("S-Curve Decel"));
    EXPECT_EQ(fixedParaName(6, 12), QStringLiteral("6th Fault Record"));
    EXPECT_EQ(fixedParaName(8, 17), QStringLiteral("DC-brake inhibit"));
    EXPECT_EQ(fixedParaName(9, 4), QStringLiteral("Comm Protocol"));
}

TEST(FixedParaName, NeverReadsOutside) {
    for (const auto& [G, N] : {std::pair{12, 0}, {255, 255}, {0, 600}, {-1, 60}, {1, -1}, {1 << 30, 1 << 30}})
        EXPECT_EQ(fixedParaName(G, N), QString()) << G << "," << N;
}

}  // namespace
}  // namespace kelvane
