#include "catalogue/group_names.h"

#include <gtest/gtest.h>

#include "base/drive_family.h"

namespace kelvane {
namespace {

std::string nameOf(const GroupNameTable& table, Family family, int G) {
    return table.groupName(static_cast<quint8>(family), G).toStdString();
}

TEST(GroupName, KeepsTheKeypadNamesRunningIntoTheNextRow) {
    const GroupNameTable table;
    EXPECT_EQ(nameOf(table, Family::Keypad, 20), "20 - Group20");
    EXPECT_EQ(table.groupName(21, 0), QStringLiteral("15 - Group15"));
    EXPECT_EQ(table.groupName(21, 6), QString());
}

TEST(GroupName, TakesWhatADriveReportsWithoutTrailingBlanks) {
    GroupNameTable table;
    table.storeReportedName(5, 0, QStringLiteral(" Status         "));
    table.storeReportedName(2, 12, QStringLiteral("                "));
    EXPECT_EQ(nameOf(table, Family::Osier, 0), "0 -  Status");
    EXPECT_EQ(nameOf(table, Family::Larch, 12), "12 - ");
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

TEST(FixedParaName, NeverReadsOutside) {
    EXPECT_EQ(fixedParaName(9, 4), QStringLiteral("Comm Protocol"));
    for (const auto& [G, N] :
         {std::pair{9, 5}, {12, 0}, {255, 255}, {0, 600}, {-1, 60}, {1, -1}, {1 << 30, 1 << 30}})
        EXPECT_EQ(fixedParaName(G, N), QString()) << G << "," << N;
}

}  // namespace
}  // namespace kelvane
