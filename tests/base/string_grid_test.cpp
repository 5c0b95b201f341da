#include "base/string_grid.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

TEST(StringGrid, TellsOfAFilledRowOnce) {
    StringGrid grid(3);
    int told = 0;
    QObject::connect(&grid, &StringGrid::dataChanged, [&](const QModelIndex& first, const QModelIndex& last) {
        ++told;
        EXPECT_EQ(first.row(), 1);
        EXPECT_EQ(last.column(), 2);
    });
    {
        const StringGrid::RowFilling filling(grid, 2);
        grid.setCell(0, 2, "a");
        grid.setCell(2, 2, "b");
        grid.addCheckBox(2, true);
        EXPECT_EQ(told, 0);
    }
    EXPECT_EQ(told, 1);
    grid.setCell(1, 2, "c");
    EXPECT_EQ(told, 2);
    { const StringGrid::RowFilling nowhere(grid, 9); }
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace kelvane
