#include "parameters/files/comparison.h"

#include <gtest/gtest.h>

#include "bench/scripted_operator.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

using test::rowTexts;

class Comparison : public ::testing::Test {
   protected:
    Comparison() {
        test::fillSample(drive);
        test::fillSample(file);
        file.TableFileName = "/tables/a.txt";
        lang.Message[15] = "Different types !!\nDo you want to compare?";
    }
    ComparisonOutcome compare(const char* kind) {
        return ComparisonEngine(drive, file, sheet, person, lang).compare(kind);
    }
    QString row(int number) const { return rowTexts(result, number, 1, 10).join('|'); }

    ParameterTable drive;
    ParameterTable file;
    ComparisonSheet sheet;
    StringGrid& result = sheet.CompareAdvStringGrid;
    StringGrid& info = sheet.CompInfoAdvStringGrid;
    ScriptedOperator person;
    LangTable lang;
};

TEST_F(Comparison, DefaultsLeaveOutGroupsWithoutADifference) {
    EXPECT_TRUE(compare(DriveVsDefault).shown);
    ASSERT_EQ(result.RowCount(), 3);
    EXPECT_TRUE(info.rowHidden(2));
    drive.grid.setCell(column::Data, 5, "60.00");
    drive.grid.setCell(column::Data, 3, "140.0");
    EXPECT_EQ(compare(DriveVsDefault).differences, 1);
    ASSERT_EQ(result.RowCount(), 3);
    EXPECT_EQ(result.cell(column::Description, 1), "0 - User");

    drive.grid.setCell(column::Data, 3, "150.0");
    EXPECT_TRUE(compare(DriveVsDefault).shown);
    EXPECT_EQ(result.RowCount(), 1);
}

TEST_F(Comparison, DriveVsFilePairsRowsWithABlankBetween) {
    file.grid.setCell(column::Data, 3, "140.0");
    EXPECT_EQ(compare(DriveVsFile).differences, 1);
    ASSERT_EQ(result.RowCount(), 3);
    EXPECT_EQ(row(1), "00-01|0001H|Rated Current   |A   |150.0|150.0|0.0|6553.5|Read-Only|Drive");
    EXPECT_EQ(row(2), "00-01|0001H|Rated Current   |A   |140.0|150.0|0.0|6553.5|Read-Only|File");
    EXPECT_EQ(info.visibleRowCount(), 3);

    file.grid.setCell(column::Data, 5, "50,00");
    const ComparisonOutcome two = compare(DriveVsFile);
    EXPECT_EQ(result.RowCount(), 6);
    EXPECT_EQ(row(3), QString(9, '|'));
    EXPECT_EQ(result.cell(column::PrNo, 4), "01-00");
    EXPECT_EQ(two.notComparedDrive + two.notComparedFile, 0);
}

TEST_F(Comparison, AsksAboutDifferentModels) {
    file.identity.model = "Tilia";
    file.grid.setCell(column::Data, 2, "34");
    person.expectBox(lang.Message[15], "Cofirm", BoxAnswer::No);
    EXPECT_FALSE(compare(DriveVsFile).shown);
    EXPECT_EQ(result.cell(column::PrNo, 1), "");
    person.expectBox(lang.Message[15], "Cofirm", BoxAnswer::Yes);
    EXPECT_TRUE(compare(DriveVsFile).shown);
    EXPECT_EQ(result.cell(column::Data, 2), "34");
}

TEST_F(Comparison, ComparesGroupsOnlyAsFarAsBothGo) {
    file.identity.groupParamCount[0] = 0;  // the file's rows are one fewer in group 0
    fillGroupRow(file.grid, 3, "1 - Basic");
    fillParameterRow(file.grid, 4, Family::Larch, 1, 0,
                     {5500, 40000, 5000, test::TwoPlaces, 6000, "Max", "Hz"});
    file.grid.setRowCount(5);
    const ComparisonOutcome outcome = compare(DriveVsFile);
    EXPECT_EQ(outcome.differences, 1);
    EXPECT_EQ(result.cell(column::Data, 2), "55.00");
    EXPECT_EQ(outcome.notComparedDrive, 1);
    EXPECT_EQ(outcome.notComparedFile, 0);
}

TEST_F(Comparison, StopsAtTheEndOfBothTablesWhateverTheCountsSay) {
    file.identity.groupCount = drive.identity.groupCount = 255;
    file.identity.groupParamCount.fill(65535);
    drive.identity.groupParamCount.fill(65535);
    for (const int c : {column::Max, column::Unit}) file.grid.setCell(c, 5, "1");  // no value of its own
    person.expectBox("No different !", "Cofirm");
    EXPECT_FALSE(compare(DriveVsFile).shown);
}

TEST_F(Comparison, KeepsRowanRowOneOutOfDriveVsFile) {
    for (ParameterTable* table : {&drive, &file}) {
        table->identity.family = Family::Rowan;
        table->identity.groupCount = 1;
        table->identity.groupParamCount[0] = 2;
        table->grid.setRowCount(1);
        for (int N = 0; N <= 2; ++N)
            fillParameterRow(table->grid, N + 1, Family::Rowan, 0, N, {10, 20, 0, 0, 10, "Name", ""});
    }
    file.grid.setCell(column::Data, 1, "11");
    person.expectBox("No different !", "Cofirm");
    const ComparisonOutcome outcome = compare(DriveVsFile);
    EXPECT_FALSE(outcome.shown);
    EXPECT_EQ(outcome.notComparedDrive, 1);
    file.grid.setCell(column::Data, 2, "11");
    EXPECT_EQ(compare(DriveVsFile).differences, 1);
}

TEST_F(Comparison, KeepsHazelDefaultsAsTheyAre) {
    drive.identity.family = Family::Hazel;
    for (int row : {2, 3, 5}) drive.grid.setCell(column::Default, row, "0");
    EXPECT_EQ(compare(DriveVsDefault).differences, 3);
}

}  // namespace
}  // namespace kelvane
