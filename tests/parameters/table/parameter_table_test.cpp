#include "parameters/table/parameter_table.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

using test::rowTexts;

TEST(ParameterTable, FillsARowAndDropsWhatStoodInIt) {
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        StringGrid grid(TableColumns);
        fillParameterRow(grid, 1, Family::Tilia, 1, 0,
                         {6000, 60000, 5000, 0x0202, 6000, "Max Output Freq.", "Hz  "});
        const QString values = QString("60.00|60.00|50.00|600.00").replace(".", sep);
        EXPECT_EQ(rowTexts(grid, 1).join('|'),
                  "01-00|0100H|Max Output Freq.|Hz  |" % values % "|Writable|0100|2|true");
        EXPECT_TRUE(grid.hasCheckBox(1) && isWritable(grid, 1));
        fillReservedGroupRow(grid, 1);
        EXPECT_EQ(rowTexts(grid, 1).join('|'),
                  "*****|*****|Reserved Parameters|*****|*****|*****|*****|*****|*****|*****|*****|");
        EXPECT_FALSE(grid.hasCheckBox(1) || isWritable(grid, 1));
    }
}

TEST(ParameterTable, ColoursChangedDataAndGroupRows) {
    ParameterTable table;
    test::fillSample(table);
    const auto background = [&](Family family, int column, int row) {
        return ProcessAdvStringGridGetCellColor(table.grid, family, column, row).background;
    };
    for (const Family family : AllFamilies) {
        EXPECT_EQ(background(family, 5, 5).has_value(), family != Family::Hazel);
        EXPECT_EQ(background(family, 9, 4), Rgb(0x008080));
    }
    EXPECT_EQ(background(Family::Larch, 5, 5), Rgb(0xA6CAF0));
    EXPECT_FALSE(background(Family::Larch, 6, 5));
    EXPECT_FALSE(background(Family::Larch, 5, 2));
    EXPECT_FALSE(background(Family::Larch, 5, 0));
    EXPECT_EQ(ProcessAdvStringGridGetCellColor(table.grid, Family::Hazel, 5, 1).text, Rgb(0xFFFFFF));
}

}  // namespace
}  // namespace kelvane
