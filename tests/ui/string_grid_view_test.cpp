#include "ui/string_grid_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

#include "ui/readable_colours.h"

namespace kelvane {
namespace {

using testing::ElementsAre;

// A small table as the windows fill it: header, group row, four parameters, the last without a box.
class GridView : public testing::Test {
   protected:
    GridView() {
        grid.setHeaders({"", "Pr. No", "MODBUS", "Description", "Data"});
        grid.addCheckBox(0, false);
        fill(5);
        grid.setCell(1, 1, "*****");
        grid.removeCheckBox(1);
        grid.removeCheckBox(5);
        view.setGrid(&grid);
        view.resize(600, 300);
        view.show();
        QApplication::processEvents();
    }
    void fill(int rows) {
        for (int row = 1; row <= rows; ++row) {
            grid.setCell(1, row, QStringLiteral("01-%1").arg(row, 2, 10, QLatin1Char('0')));
            grid.setCell(3, row, QStringLiteral("Parameter %1").arg(row));
            grid.setCell(4, row, QString::number(row * 100));
            grid.addCheckBox(row, false);
        }
    }
    // Does what the windows do with the wish for a check.
    void obey() {
        QObject::connect(&view, &StringGridView::checkBoxClicked, &view,
                         [this](int row, bool set) { grid.setCheckBox(row, set); });
        QObject::connect(&view, &StringGridView::checkBoxesWanted, &view,
                         [this](const std::vector<int>& rows, bool set) {
                             for (const int row : rows) grid.setCheckBox(row, set);
                         });
    }
    QPoint at(int column, int row) const { return view.visualRect(grid.index(row - 1, column)).center(); }
    QColor pixel(int column, int row) {
        const QPoint left = view.visualRect(grid.index(row - 1, column)).bottomLeft() + QPoint(2, -4);
        return view.viewport()->grab().toImage().pixelColor(left);
    }
    StringGrid grid{5};
    StringGridView view;
};

TEST_F(GridView, EnterF2AndDoubleClickAskForTheSameCell) {
    QSignalSpy asked(&view, &StringGridView::dblClickCell);
    view.setCurrentCell(4, 3);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) QTest::keyClick(&view, key);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at(4, 3));
    ASSERT_EQ(asked.size(), 4);
    for (const QList<QVariant>& call : asked) EXPECT_EQ(call, (QList<QVariant>{4, 3}));

    view.setKeysAct(false);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(asked.size(), 4);
}

TEST_F(GridView, BoxesChangeOnlyWhenTheOwnerObeys) {
    QSignalSpy wished(&view, &StringGridView::checkBoxClicked);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(0, 2));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(0, 1));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(3, 2));
    ASSERT_EQ(wished.size(), 1) << "a row without a box and other columns ask nothing";
    EXPECT_EQ(wished[0], (QList<QVariant>{2, true}));
    EXPECT_FALSE(grid.checkBox(2));

    obey();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(0, 2));
    ASSERT_TRUE(grid.checkBox(2));
    wished.clear();
    QSignalSpy asked(&view, &StringGridView::dblClickCell);
    QTest::mouseDClick(view.windowHandle(), Qt::LeftButton, {}, view.viewport()->mapTo(&view, at(0, 2)));
    EXPECT_TRUE(grid.checkBox(2)) << "two clicks";
    EXPECT_EQ(wished.size(), 2);
    EXPECT_EQ(asked.size(), 0);
}

TEST_F(GridView, HeaderBoxAsksForRowZeroByMouseAndByKey) {
    QSignalSpy asked(&view, &StringGridView::dblClickCell);
    obey();
    QWidget* header = view.horizontalHeader()->viewport();
    const QPoint box(view.columnWidth(0) / 2, header->height() / 2);
    QTest::mouseClick(header, Qt::LeftButton, {}, box);
    EXPECT_TRUE(grid.checkBox(0));
    QTest::keyClick(&view, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_FALSE(grid.checkBox(0));
    QTest::mouseDClick(view.windowHandle(), Qt::LeftButton, {}, header->mapTo(&view, box));
    EXPECT_TRUE(grid.checkBox(0)) << "the second press of a double click is not a second wish";
    QTest::mouseDClick(header, Qt::LeftButton, {}, box);
    EXPECT_FALSE(grid.checkBox(0)) << "a double click that comes alone is one";
    EXPECT_EQ(asked.size(), 0);
}

TEST_F(GridView, FollowsHiddenColumnsAndCopiesWhatIsShown) {
    grid.setColumnHidden(2, true);
    EXPECT_TRUE(view.isColumnHidden(2));
    view.setCurrentCell(1, 2);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "01-02\tParameter 2\t200\n01-03\tParameter 3\t300");
    grid.setColumnHidden(2, false);
    EXPECT_FALSE(view.isColumnHidden(2));
    EXPECT_GT(view.columnWidth(2), 20);
}

TEST_F(GridView, PaintsGivenColoursAlsoOnASelectedRowAndMarksAnEditedOne) {
    grid.cellColours = [](int, int row) {
        return row == 1 ? CellColours{0xFFFFFF, 0x008080} : CellColours{};
    };
    view.viewport()->update();
    EXPECT_EQ(pixel(3, 1), QColor(0x00, 0x80, 0x80));
    EXPECT_EQ(pixel(3, 2), view.palette().color(QPalette::Base));
    view.setCurrentCell(1, 1);
    EXPECT_EQ(pixel(3, 1), QColor(0x00, 0x80, 0x80));
    view.setCurrentCell(1, 2);
    EXPECT_NE(pixel(3, 2), view.palette().color(QPalette::Base));

    // An edited row is marked by a corner, not by a colour.
    view.setEditedMarkColumn(4);
    const QRect cell = view.visualRect(grid.index(2, 4));
    const auto corner = [&] {
        return view.viewport()->grab().toImage().pixelColor(cell.topRight() + QPoint(-2, 1));
    };
    EXPECT_EQ(corner(), view.palette().color(QPalette::Base));
    grid.setEdited(3, true);
    EXPECT_EQ(corner(), view.palette().color(QPalette::Text));
}

TEST_F(GridView, TellsWhereTheContextMenuIsWanted) {
    QSignalSpy menus(&view, &StringGridView::cellMenuRequested);
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, at(3, 2), view.viewport()->mapToGlobal(at(3, 2)));
    QApplication::sendEvent(view.viewport(), &byMouse);
    view.setCurrentCell(4, 4);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint());
    QApplication::sendEvent(view.viewport(), &byKey);
    ASSERT_EQ(menus.size(), 2);
    EXPECT_EQ(menus[0].first(2), (QList<QVariant>{3, 2}));
    EXPECT_EQ(menus[1].first(2), (QList<QVariant>{4, 4}));
}

TEST_F(GridView, RowsThatAreCutAndAGridThatGoesLeaveNoTrace) {
    view.setCurrentCell(1, 5);
    grid.setRowCount(2);
    EXPECT_LE(view.currentCell().row, 1);
    {
        StringGrid other(3);
        view.setGrid(&other);
    }
    EXPECT_EQ(view.grid(), nullptr);
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_THAT(view.selectedGridRows(), ElementsAre());
    view.setGrid(nullptr);
}

TEST(ReadablePair, KeepsToldColoursAndFindsAPartnerThatCanBeRead) {
    for (const auto& [base, text] : {std::pair(0xFFFFFFu, 0u), {0x31363Bu, 0xFFFFFFu}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, QColor::fromRgb(base));
        palette.setColor(QPalette::Text, QColor::fromRgb(text));
        for (const Rgb told : {0xFF0000u, 0xA6CAF0u, 0x008080u, 0xFFFFFFu, 0x000000u, 0x808080u}) {
            const QColor colour = QColor::fromRgb(told);
            const ColourPair asText = readablePair(colour, std::nullopt, palette);
            const ColourPair asGround = readablePair(std::nullopt, colour, palette);
            EXPECT_EQ(asText.text, colour);
            EXPECT_EQ(asGround.background, colour);
            EXPECT_GE(contrast(asText.text, asText.background), 3.5) << told;
            EXPECT_GE(contrast(readableText(asText.text, asText.background), asText.background), 4.5) << told;
            EXPECT_GE(contrast(asGround.text, asGround.background), 3.5) << told;
        }
    }
}

}  // namespace
}  // namespace kelvane
