#include "parameters/table/value_edit.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "bench/scripted_operator.h"
#include "parameters/sample_table.h"
#include "parameters/table/edit_history.h"

namespace kelvane {
namespace {

ValueEdit twoPlaces(int InputMin, int InputMax) {
    ValueEdit edit;
    edit.InputOldText = "60.00";
    edit.InputMin = InputMin;
    edit.InputMax = InputMax;
    edit.InputDot = 2;
    return edit;
}

class ValueEditing : public ::testing::Test {
   protected:
    ValueEditing() {
        test::fillSample(table);
        grid.setCheckBox(5, false);
        lang.Message[22] = "not legal";
        lang.Message[27] = "too small";
        lang.Message[28] = "too large";
    }
    InputVerdict check(ValueEdit& edit, const QString& text) {
        edit.Text = text;
        return CheckInputValue(edit, person, lang);
    }
    ParameterTable table;
    StringGrid& grid = table.grid;
    ScriptedOperator person;
    LangTable lang;
};

TEST_F(ValueEditing, GivesTheEditorWhatTheRowSays) {
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        test::fillSample(table);
        const std::optional<ValueEdit> edit = valueEditOf(grid, 5);
        ASSERT_TRUE(edit);
        EXPECT_EQ(
            edit->PrInforVrLabel,
            QString("01-00: Max. Output Freq (50.00 ~ 400.00 )").replace("0.0", QString("0") + sep + "0"));
        EXPECT_EQ(edit->UnitVrLabel, "Hz  ");
        EXPECT_EQ(edit->InputMin, 5000);
        EXPECT_EQ(edit->InputMax, 40000);
        EXPECT_EQ(edit->InputDefault, 6000);
        EXPECT_EQ(edit->InputDot, 2);
    }
    EXPECT_FALSE(valueEditOf(grid, 4));
    EXPECT_FALSE(valueEditOf(grid, 3));
}

TEST_F(ValueEditing, OffersAListForSmallRanges) {
    struct Case {
        const char* min;
        const char* max;
        const char* dot;
        bool list;
    };
    for (const Case& c : {Case{"0", "9", "0", true}, Case{"0", "10", "0", false}, Case{"-1", "9", "0", false},
                          Case{"0", ".9", "1", false}, Case{"3", "7", "0", true}}) {
        grid.setCell(column::Min, 5, c.min);
        grid.setCell(column::Max, 5, c.max);
        grid.setCell(column::Dot, 5, c.dot);
        grid.setCell(column::Data, 5, "5");
        EXPECT_EQ(valueEditOf(grid, 5)->fromList, c.list) << c.min << c.max << c.dot;
    }
    const ValueEdit edit = *valueEditOf(grid, 5);
    EXPECT_EQ(inputItems(edit).join(' '), "3 4 5 6 7");
    EXPECT_EQ(inputItemIndex(edit), 2);
}

TEST_F(ValueEditing, BringsAcceptedTextsToTheirPlaces) {
    ValueEdit edit = twoPlaces(0, 60000);
    const std::pair<const char*, const char*> texts[] = {
        {"60", "60.00"}, {"1.5", "1.50"}, {"1.239", "1.23"}, {"600", "600.00"}, {".", "0.00"}, {"0", "0.00"}};
    for (const auto& [typed, shown] : texts) {
        edit.InputAccepted = false;
        EXPECT_EQ(check(edit, typed), InputVerdict::Close) << typed;
        EXPECT_TRUE(edit.InputAccepted);
        EXPECT_EQ(edit.Text, shown);
    }
}

TEST_F(ValueEditing, KeepsTwoTitlesForIllegalTexts) {
    ValueEdit edit = twoPlaces(100, 60000);
    person.expectBox("not legal", "Error");
    for (int box = 0; box < 3; ++box) person.expectBox("not legal", "Error Message");
    person.expectBox("too small", "Error");
    person.expectBox("too large", "Error");
    EXPECT_EQ(check(edit, ""), InputVerdict::Stay);
    for (const char* typed : {"1-2", "1,5", "99999999999", "0.99", "600.01"}) {
        EXPECT_EQ(check(edit, typed), InputVerdict::SelectAll) << typed;
        EXPECT_EQ(edit.Text, "60.00");
    }
    EXPECT_FALSE(edit.InputAccepted);
}

TEST_F(ValueEditing, KeepsSettingTheCheckBoxOnCancel) {
    person.expectEdit({});
    ProcessAdvStringGridDblClickCell(grid, 3, 5, person);
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

TEST_F(ValueEditing, HeaderCheckBoxTakesWritableRowsAlong) {
    ProcessAdvStringGridDblClickCell(grid, 0, 0, person);
    EXPECT_TRUE(grid.checkBox(0));
    EXPECT_TRUE(grid.checkBox(5));
    EXPECT_FALSE(grid.checkBox(3));
    EXPECT_FALSE(clickCheckBox(grid, 3));
    EXPECT_TRUE(clickCheckBox(grid, 5));
    EXPECT_FALSE(grid.checkBox(5));
}

class History : public ValueEditing {
   protected:
    History() { history.tableRead(); }
    void type(const QString& text) {
        history.edit([&] {
            grid.setCell(column::Data, 5, text);
            grid.setCheckBox(5, true);
        });
    }
    EditHistory history{grid};
};

TEST_F(History, UndoesTextAndCheckBoxTogether) {
    type("51.00");
    type("52.00");
    EXPECT_TRUE(grid.edited(5));
    EXPECT_EQ(history.undo(), 5);
    EXPECT_EQ(grid.cell(column::Data, 5), "51.00");
    EXPECT_TRUE(grid.checkBox(5));
    history.undo();
    EXPECT_EQ(grid.cell(column::Data, 5), "50.00");
    EXPECT_FALSE(grid.checkBox(5));
    EXPECT_FALSE(grid.edited(5));
    EXPECT_EQ(history.undo(), -1);
    history.redo();
    EXPECT_EQ(grid.cell(column::Data, 5), "51.00");
    type("53.00");
    EXPECT_FALSE(history.canRedo());
}

TEST_F(History, EndsWhenTheTableIsReadAnew) {
    type("51.00");
    history.tableRead();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(grid.edited(5));
    type("52.00");
    EXPECT_TRUE(history.backToReadValue(5));
    EXPECT_EQ(grid.cell(column::Data, 5), "51.00");
}

TEST_F(History, ForgetsAnEditDuringWhichTheTableWent) {
    history.edit([&] {
        grid.setCell(column::Data, 5, "51.00");
        history.tableRead();
    });
    EXPECT_FALSE(history.canUndo());
}

TEST_F(History, WrittenRowsLoseTheirMarkAndCanBeUndone) {
    type("51.00");
    history.written(5);
    EXPECT_FALSE(grid.edited(5));
    history.undo();
    EXPECT_TRUE(grid.edited(5));
}

TEST_F(History, TakesDefaultsOfWritableRows) {
    EXPECT_TRUE(history.toDefault(5));
    EXPECT_EQ(grid.cell(column::Data, 5), "60.00");
    EXPECT_TRUE(grid.checkBox(5));
    EXPECT_FALSE(history.toDefault(3));
    EXPECT_FALSE(history.toDefault(4));
    history.undo();
    EXPECT_EQ(grid.cell(column::Data, 5), "50.00");
}

}  // namespace
}  // namespace kelvane
