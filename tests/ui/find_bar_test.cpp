#include "ui/find_bar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace kelvane {
namespace {

class Finding : public testing::Test {
   protected:
    Finding() {
        for (int row = 1; row <= 6; ++row) {
            grid.setCell(1, row, QStringLiteral("01-0%1").arg(row));
            grid.setCell(2, row, QStringLiteral("010%1H").arg(row));
            grid.setCell(3, row, row % 2 ? "Accel Time" : "Decel Time");
            grid.setCell(4, row, QString::number(row * 10));
        }
        view.setGrid(&grid);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&view);
        column->addWidget(&bar);
        bar.setView(&view);
        bar.setColumns({1, 2, 3, 4});
        window.show();
        window.activateWindow();
        view.setFocus();
        QApplication::processEvents();
    }
    QLineEdit* edit() { return bar.findChild<QLineEdit*>(); }
    bool says(const QString& text) {
        for (const QLabel* label : bar.findChildren<QLabel*>())
            if (label->text() == text) return true;
        return false;
    }
    QWidget window;
    StringGrid grid{5};
    StringGridView view;
    FindBar bar;
};

TEST_F(Finding, GoesRoundFromTheCurrentCellAndEscapeLeavesTheFocusInTheGrid) {
    view.setCurrentCell(1, 4);
    QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(bar.isVisible());
    QTest::keyClicks(edit(), "accel");
    EXPECT_EQ(view.currentCell(), (GridCell{3, 5})) << "while typing";
    EXPECT_TRUE(says("3 of 3"));
    EXPECT_TRUE(view.isHit(3, 1) && !view.isHit(3, 2));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F3}) QTest::keyClick(edit(), key);
    EXPECT_EQ(view.currentCell(), (GridCell{3, 3}));
    QTest::keyClick(edit(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(view.currentCell(), (GridCell{3, 1}));
    QTest::keyClick(edit(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(view.currentHit(), (GridCell{3, 5}));
    QTest::keyClick(edit(), Qt::Key_Escape);
    EXPECT_TRUE(bar.isHidden() && view.hasFocus());
    EXPECT_FALSE(view.isHit(3, 1));
}

TEST_F(Finding, LooksInShownRowsAndColumnsAndHidesNone) {
    grid.setRowHidden(1, true);
    grid.setColumnHidden(2, true);
    bar.openBar();
    edit()->setText("01");
    EXPECT_EQ(bar.hitCount(), 5) << "numbers of five shown rows; the addresses are hidden";
    edit()->setText("no such text");
    EXPECT_TRUE(says("Not found"));
    bar.findNext();
    EXPECT_EQ(bar.currentHit(), -1);
}

TEST_F(Finding, FollowsATableThatChangesUnderIt) {
    bar.openBar();
    edit()->setText("60");
    bar.findNext();
    ASSERT_EQ(bar.hitCount(), 1);
    for (int row = 1; row <= 3; ++row) grid.setCell(4, row, "60");
    QApplication::processEvents();
    EXPECT_EQ(bar.hitCount(), 4);
    EXPECT_EQ(bar.currentHit(), 3) << "the current hit stays where it was";
    grid.setRowCount(2);
    bar.findNext();
    QApplication::processEvents();
    EXPECT_EQ(bar.hitCount(), 1);
    bar.setView(nullptr);
    EXPECT_EQ(bar.hitCount(), 0);
}

}  // namespace
}  // namespace kelvane
