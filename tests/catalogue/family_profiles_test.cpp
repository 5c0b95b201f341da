#include "catalogue/family_profiles.h"

#include <gtest/gtest.h>

#include <QSet>
#include <map>

#include "link/link_records.h"

namespace kelvane {
namespace {

const FamilyProfile& profile(Family family) { return *familyProfile(static_cast<quint8>(family)); }

// Names "c1" to "c5" and "f1" to "f9" show where an entry came from.
QStringList namesOf(Family family) {
    std::vector<QString> common;
    std::vector<QString> own;
    for (int i = 1; i <= 5; ++i) common.push_back(QStringLiteral("c%1").arg(i));
    for (int i = 1; i <= 9; ++i) own.push_back(QStringLiteral("f%1").arg(i));
    return itemNames(profile(family), common, own);
}

// A grid of the trend window: what stood before, then what a drive writes.
using Grid = std::map<std::pair<int, int>, std::string>;
void write(Grid& grid, Family family) {
    for (const InfoCell& cell : infoGridCells(profile(family), namesOf(family)))
        grid[{cell.column, cell.row}] = cell.text.toStdString();
}

class ProfileOfFamily : public testing::TestWithParam<Family> {};

TEST_P(ProfileOfFamily, GivesEveryEntryOfTheListOneItem) {
    const FamilyProfile& tested = profile(GetParam());
    const QStringList names = namesOf(GetParam());
    EXPECT_EQ(names.size(), GetParam() == Family::Willow ? 6 : tested.StatusWordCount);
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(itemOfListIndex(tested, -1), -1);
    EXPECT_EQ(itemOfListIndex(tested, static_cast<int>(names.size())), -1);
    // A list from an unfilled language table has empty entries, not fewer.
    EXPECT_EQ(itemNames(tested, {}, {}).size(), names.size());
}

INSTANTIATE_TEST_SUITE_P(Families, ProfileOfFamily, testing::ValuesIn(AllFamilies),
                         [](const auto& tested) { return std::string(familyName(tested.param)); });

TEST(ItemList, InterleavesNamesWhereAFamilyOrdersItsItemsDifferently) {
    EXPECT_EQ(namesOf(Family::Willow).join(QLatin1Char(' ')).toStdString(), "c1 c2 c3 c4 c5 f1");
    EXPECT_EQ(namesOf(Family::Yarrow).join(QLatin1Char(' ')).toStdString(),
              "c1 c2 c3 f1 f2 f3 c4 c5 f4 f5 f6 f7 f8 f9");
    EXPECT_EQ(itemOfListIndex(profile(Family::Willow), 3), 6);
}

TEST(InfoGrid, OfAShorterFamilyLeavesNothingInTheSecondColumnButKeepsRowSevenForWillow) {
    Grid grid;
    write(grid, Family::Larch);
    EXPECT_EQ((grid[{0, 7}] + grid[{4, 7}] + grid[{6, 7}]), "f2f9KW");
    write(grid, Family::Aspen);
    EXPECT_EQ((grid[{4, 2}]), "f4");
    for (const int row : {3, 4, 5, 6, 7}) EXPECT_EQ((grid[{4, row}] + grid[{6, row}]), "") << row;

    write(grid, Family::Larch);
    grid[{1, 3}] = "12.5";
    write(grid, Family::Willow);
    std::string names, units;
    for (int row = 1; row <= 6; ++row) {
        names += grid[{0, row}] + " ";
        units += grid[{2, row}] + " ";
        EXPECT_EQ((grid[{4, row}] + grid[{6, row}] + grid[{1, row}]), "") << row;
    }
    EXPECT_EQ(names + units, "c1 c2 c3 c4 c5 f1 Hz Hz A V V  ");
    EXPECT_EQ((grid[{0, 7}] + grid[{4, 7}]), "f2f9");
}

TEST(StatusItems, KeepsThePlainFormatOfAspensLastItem) {
    const FamilyProfile& aspen = profile(Family::Aspen);
    EXPECT_EQ(std::string(aspen.StatusFormat[8]), "##0");
    EXPECT_EQ(aspen.StatusScale[8] + aspen.StatusDecimals[8], 12);
    EXPECT_EQ(std::string(aspen.StatusFormat[0]) + std::to_string(aspen.StatusScale[0]), "##0.00100");
}

TEST(StatusItems, KeepsUnitsOfALongerFamilyBehindTheItemsOfAShorterOne) {
    DriveStatusRecord status;
    writeStatusItems(profile(Family::Larch), status);
    writeStatusItems(profile(Family::Aspen), status);
    EXPECT_EQ(status.StatusWordCount, 9);
    EXPECT_EQ(status.StatusUnit[9], QStringLiteral("N-M"));
    EXPECT_EQ(status.StatusFormat[13], QStringLiteral("##0.00"));
}

}  // namespace
}  // namespace kelvane
