// Sub-tables, tree texts and column hiding.
#include <gtest/gtest.h>

#include "bench/scripted_operator.h"
#include "parameters/sample_table.h"
#include "parameters/table/sub_table.h"

namespace kelvane {
namespace {

using test::rowTexts;

class SubTables : public ::testing::Test {
   protected:
    SubTables() {
        test::fillSample(table);
        history.tableRead();
    }
    void addReservedGroup() {
        fillReservedGroupRow(table.grid, 6);
        fillParameterRow(table.grid, 7, Family::Larch, 2, 0, {5, 9, 0, 0, 5, "Hidden", ""});
        fillParameterRow(table.grid, 8, Family::Larch, 2, 1, {6, 9, 0, 0, 6, "Hidden 2", ""});
    }
    void edit(int row) {
        person.expectEdit([](ValueEdit& edit) {
            edit.Text = "55.00";
            edit.InputAccepted = true;
        });
        sub.dblClickCell(5, row, person);
    }
    ParameterTable table;
    EditHistory history{table.grid};
    SubTable sub{table, TableSide::Drive, history};
    ScriptedOperator person;
};

TEST_F(SubTables, PassEditsAndBoxesOn) {
    table.identity.groupParamCount[0] = 7;  // where counts do not fit the rows, the number finds the row
    sub.select("1 - Basic", 2);
    ASSERT_EQ(rowTexts(sub.grid, 1), rowTexts(table.grid, 5));
    EXPECT_TRUE(sub.grid.checkBox(1));
    edit(1);
    EXPECT_EQ(table.grid.cell(column::Data, 5), "55.00");
    sub.clickCheckBox(1);
    EXPECT_FALSE(table.grid.checkBox(5));
    sub.clickCheckBox(0);
    EXPECT_TRUE(table.grid.checkBox(5));
    sub.select("0 - User", 1);
    sub.clickCheckBox(1);
    EXPECT_FALSE(table.grid.checkBox(2)) << "read only";
}

TEST_F(SubTables, FindTheReservedGroupOfADriveAndOfAFile) {
    addReservedGroup();
    table.identity.groupParamCount[2] = 1;
    sub.select("2 - Reserved", 3);
    EXPECT_EQ(sub.grid.cell(column::Description, 2), "Hidden 2");
    edit(2);
    EXPECT_EQ(table.grid.cell(column::Data, 8), "55.00");

    table.identity.groupCount = 3;  // a file counts its reserved group
    SubTable ofFile(table, TableSide::File, history);
    ofFile.select("Reserved Parameters", 3);
    ASSERT_EQ(ofFile.grid.RowCount(), 3);
    EXPECT_EQ(ofFile.grid.cell(column::Description, 1), "Hidden");
}

TEST_F(SubTables, SurviveCountsThatNoTableHas) {
    table.identity.groupParamCount.fill(65535);
    for (const char* node : {"1 - Basic", "77 - None", "x", ""}) sub.select(node, 2);
    table.identity.groupCount = 0;
    SubTable ofFile(table, TableSide::File, history);
    ofFile.select("no number", 1);
    EXPECT_EQ(ofFile.grid.cell(column::PrNo, 1), "");
}

TEST(ParameterTable, ColoursChangedDataAndGroupRows) {
    ParameterTable table;
    test::fillSample(table);
    const auto background = [&](Family family, int column, int row) {
        return ProcessAdvStringGridGetCellColor(table.grid, family, column, row).background;
    };
    for (const Family family : AllFamilies)
        EXPECT_EQ(background(family, 5, 5).has_value(), family != Family::Hazel);
    EXPECT_EQ(background(Family::Hazel, 9, 4), Rgb(0x008080));
    for (const auto& [column, row] : {std::pair(6, 5), {5, 2}, {5, 0}})
        EXPECT_FALSE(background(Family::Larch, column, row));
}

TEST(TreeTexts, AreThoseOfTheOpenTables) {
    for (const Family family : AllFamilies)
        EXPECT_EQ(treeChildren(family, {"0 - User"}).size(), family == Family::Rowan ? 1 : 2);
    for (const char* name : {"Reserved Parameters", "", "-", "Fan-3", "12"})
        EXPECT_EQ(groupNumberOf(name).has_value(), QString(name) == "12") << name;
    EXPECT_EQ(sideOfTreeRoot("File [ Drive ]"), TableSide::File);
    EXPECT_TRUE(treeMenuShown("7 - AC Drive and Motor")) << "kept: it names a drive";
    EXPECT_FALSE(treeMenuShown("1 - Basic"));
}

TEST(ColumnHidingTest, GoesOverAllGrids) {
    std::array<StringGrid, 5> grids{StringGrid(13), StringGrid(13), StringGrid(13), StringGrid(13),
                                    StringGrid(11)};
    ColumnHiding hiding({&grids[0], &grids[1], &grids[2], &grids[3], &grids[4]});
    for (const Family family : AllFamilies) {
        hiding.setForFamily(family);
        for (const StringGrid& grid : grids)
            for (const int c : {4, 6}) EXPECT_EQ(grid.columnHidden(c), family == Family::Hazel);
        EXPECT_EQ(hiding.isChecked(6), family == Family::Hazel);
    }
    hiding.toggle(3);
    EXPECT_TRUE(grids[4].columnHidden(3) && hiding.isChecked(3));
}

}  // namespace
}  // namespace kelvane
