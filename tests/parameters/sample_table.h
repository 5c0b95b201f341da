// The sample table of the parameter tests: a Larch with two groups, rows 1 to 5.
#pragma once

#include "link/number_text.h"
#include "parameters/table/parameter_table.h"

namespace kelvane::test {

inline QStringList rowTexts(const StringGrid& grid, int row, int from = 1, int to = 12) {
    QStringList texts;
    for (int c = from; c <= to; ++c) texts << grid.cell(c, row);
    return texts;
}

inline constexpr quint16 ReadOnlyBit = 8;
inline constexpr quint16 OnePlace = 256;
inline constexpr quint16 TwoPlaces = 512;

// Built anew with the separator that holds.
inline void fillSample(ParameterTable& table) {
    table.identity = {.model = "Larch",
                      .version = "2.05",
                      .ratedCurrent = "150A",
                      .ratedVoltage = "460V",
                      .hp = "75 ( 100 )",
                      .family = Family::Larch,
                      .groupCount = 2};
    table.identity.groupParamCount[0] = 1;
    table.identity.groupParamCount[1] = 0;
    StringGrid& grid = table.grid;
    grid.setRowCount(6);
    fillGroupRow(grid, 1, "0 - User");
    fillParameterRow(grid, 2, Family::Larch, 0, 0,
                     {33, 65535, 0, ReadOnlyBit, 33, "Identity Code   ", "    "});
    fillParameterRow(grid, 3, Family::Larch, 0, 1,
                     {1500, 65535, 0, ReadOnlyBit | OnePlace, 1500, "Rated Current   ", "A   "});
    fillGroupRow(grid, 4, "1 - Basic");
    fillParameterRow(grid, 5, Family::Larch, 1, 0,
                     {5000, 40000, 5000, TwoPlaces, 6000, "Max. Output Freq", "Hz  "});
    grid.setCheckBox(5, true);
}

}  // namespace kelvane::test
