#include "parameters/table/table_edit.h"

#include <gtest/gtest.h>

#include "bench/scripted_operator.h"
#include "parameters/sample_table.h"
#include "parameters/table/edit_history.h"

namespace kelvane {
namespace {

class ValueEditing : public ::testing::Test {
   protected:
    ValueEditing() {
        test::fillSample(table);
        grid.setCheckBox(5, false);
    }
    ParameterTable table;
    StringGrid& grid = table.grid;
    ScriptedOperator person;
};

TEST_F(ValueEditing, KeepsSettingTheCheckBoxOnCancel) {
    person.expectEdit({});
    ProcessAdvStringGridDblClickCell(grid, 3, 5, person);
    EXPECT_EQ(valueEditOf(grid, 5)->InputDefault, 6000);
    EXPECT_EQ(grid.cell(column::Data, 5), "50.00");
    EXPECT_TRUE(grid.checkBox(5));
    person.expectEdit([](ValueEdit& edit) {
        edit.Text = "55.00";
        edit.InputAccepted = true;
    });
    ProcessAdvStringGridDblClickCell(grid, 5, 5, person);
    EXPECT_EQ(grid.cell(column::Data, 5), "55.00");
    ProcessAdvStringGridDblClickCell(grid, 5, 3, person);
    EXPECT_EQ(grid.cell(column::Data, 3), "150.0");
    EXPECT_FALSE(grid.checkBox(3));
}

TEST_F(ValueEditing, LeavesATableAloneThatWentWhileTheEditorWasOpen) {
    person.expectEdit([this](ValueEdit& edit) {
        grid.setRowCount(2);
        edit.InputAccepted = true;
    });
    ProcessAdvStringGridDblClickCell(grid, 5, 5, person);
    EXPECT_EQ(grid.RowCount(), 2);
}

TEST_F(ValueEditing, IsUndoneStepByStepUntilTheTableIsReadAnew) {
    EditHistory history{grid};
    history.tableRead();
    const auto type = [&](const char* text) {
        history.edit([&] {
            grid.setCell(column::Data, 5, text);
            grid.setCheckBox(5, true);
        });
    };
    const auto row = [&]() -> QString {
        return grid.cell(column::Data, 5) + (grid.checkBox(5) ? " V" : " X") +
               (grid.edited(5) ? " edited" : "");
    };
    type("51.00");
    type("52.00");
    EXPECT_EQ(history.undo(), 5);
    history.undo();
    EXPECT_EQ(row(), "50.00 X");
    EXPECT_EQ(history.undo(), -1);
    history.redo();
    type("53.00");
    EXPECT_FALSE(history.canRedo());
    history.holds(5, "53.00");  // written and read back
    EXPECT_EQ(row(), "53.00 V");
    history.undo();
    EXPECT_EQ(row(), "51.00 V edited");

    EXPECT_TRUE(history.toDefault(5));
    EXPECT_EQ(row(), "60.00 V edited");
    EXPECT_FALSE(history.toDefault(3) || history.toDefault(4)) << "read only, and a group";
    history.edit([&] {
        grid.setCell(column::Data, 5, "54.00");
        history.tableRead();  // the table went while the editor was open
    });
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(row(), "54.00 V");
    type("55.00");
    EXPECT_TRUE(history.backToReadValue(5));
    EXPECT_EQ(grid.cell(column::Data, 5), "54.00");
}

}  // namespace
}  // namespace kelvane
