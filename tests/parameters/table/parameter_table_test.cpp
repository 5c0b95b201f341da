#include "parameters/table/parameter_table.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

using test::rowTexts;

TEST(ParameterTable, GivesAddressesAndNumbersOfEveryFamily) {
    EXPECT_EQ(addressText(10, 7), "0A07");
    EXPECT_EQ(addressText(2, 105), "0269");
    for (const Family family : AllFamilies) {
        const bool rowan = family == Family::Rowan;
        EXPECT_EQ(parameterNumberText(family, 0, 0), rowan ? "0" : "00-00");
        EXPECT_EQ(parameterNumberText(family, 2, 5), rowan ? "5" : "02-05");
        EXPECT_EQ(parameterNumberText(family, 2, 105), rowan ? "105" : "02-105");
        EXPECT_EQ(parameterNumberText(family, 1, 4), rowan ? "0260" : "01-04");
    }
}

TEST(ParameterTable, TakesPlacesFromItsOwnBitsInAspen) {
    for (const Family family : AllFamilies) {
        const bool aspen = family == Family::Aspen;
        EXPECT_EQ(placesOf(family, 0x0300), aspen ? 0 : 3);
        EXPECT_EQ(placesOf(family, 0xFD01), aspen ? 2 : 1);
        EXPECT_EQ(placesOf(family, 0xFC00), 0);
    }
}

TEST(ParameterTable, FillsARowInItsColumns) {
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        StringGrid grid(TableColumns);
        fillParameterRow(grid, 1, Family::Tilia, 1, 0,
                         {6000, 60000, 5000, 0x0202, 6000, "Max Output Freq.", "Hz  "});
        const QString values = QString("60.00|60.00|50.00|600.00").replace(".", sep);
        EXPECT_EQ(rowTexts(grid, 1).join('|'),
                  "01-00|0100H|Max Output Freq.|Hz  |" % values % "|Writable|0100|2|true");
        EXPECT_TRUE(grid.hasCheckBox(1));
    }
}

TEST(ParameterTable, ShowsSmallValuesWithLeadingZeros) {
    EXPECT_EQ(valueText(Family::Larch, 0, 7, 2), "0.07");
    EXPECT_EQ(valueText(Family::Hazel, 0, 0, 3), "0.000");
    EXPECT_EQ(valueText(Family::Larch, 0x80, 65535, 0), "65535");
}

TEST(ParameterTable, KeepsTheSignOfTiliaInsideThePlaces) {
    EXPECT_EQ(valueText(Family::Tilia, 0x80, 0xFFFB, 1), "-.5");
    EXPECT_EQ(valueText(Family::Tilia, 0x80, 0xFFF4, 1), "-1.2");
    EXPECT_EQ(valueText(Family::Tilia, 0, 0xFFFB, 1), "6553.1");
    EXPECT_EQ(valueText(Family::Tilia, 0x80, 0xFFFB, 2), "0.-5");
}

TEST(ParameterTable, GroupRowDropsWhatStoodInTheRow) {
    StringGrid grid(TableColumns);
    fillParameterRow(grid, 1, Family::Larch, 0, 0, {1, 2, 0, 0, 1, "Name", "A"});
    EXPECT_TRUE(isWritable(grid, 1));
    fillReservedGroupRow(grid, 1);
    EXPECT_EQ(rowTexts(grid, 1).join('|'),
              "*****|*****|Reserved Parameters|*****|*****|*****|*****|*****|*****|*****|*****|");
    EXPECT_TRUE(isGroupRow(grid, 1));
    EXPECT_FALSE(isWritable(grid, 1));
    EXPECT_FALSE(grid.hasCheckBox(1));
}

TEST(ParameterTable, TurnsValueTextsIntoRegisterWords) {
    const std::pair<const char*, const char*> words[] = {{"60.00", "1770"}, {"1.5", "000F"},
                                                         {"7", "0007"},     {"-1.2", "FFF4"},
                                                         {"-.5", "FFFB"},   {"65535", "FFFF"}};
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        for (const auto& [text, word] : words)
            EXPECT_EQ(registerWordOf(QString(text).replace(".", sep)), QString(word)) << text;
    }
    EXPECT_FALSE(registerWordOf("0.-5"));
    EXPECT_FALSE(registerWordOf(""));
    EXPECT_FALSE(registerWordOf("1.2.3"));
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
