// A StringGrid on the screen: the tables, lists and records of the windows. Shows cells, check boxes,
// colours, edit marks and find hits; owns column widths, selection and the keyboard. It never writes a cell
// or a box: it tells what the person did, in grid columns and rows (header = row 0), and the window decides.
#pragma once

#include <QSet>
#include <QTableView>
#include <vector>

#include "base/string_grid.h"

namespace kelvane {

class CheckHeader;

struct GridCell {
    int column = -1;
    int row = -1;  // grid row, 0 = header
    bool operator==(const GridCell&) const = default;
};

class StringGridView : public QTableView {
    Q_OBJECT
   public:
    explicit StringGridView(QWidget* parent = nullptr);

    // The grid to show; not owned. Hidden columns and rows follow it from then on.
    void setGrid(StringGrid* grid);
    StringGrid* grid() const { return m_grid; }

    // Widths in characters of the table's font, column by column; columns behind the list keep theirs. A
    // person may drag them afterwards.
    void setColumnCharacters(const std::vector<int>& characters);
    // The column that takes what room is left; it never gets narrower than its characters, nor wider than
    // most of them unless a person drags it. -1: none; 0: no bound.
    void setStretchColumn(int column, int mostCharacters = 0);
    // Columns whose texts stand at the right edge, as numbers do.
    void setRightAligned(const QSet<int>& columns) { m_rightAligned = columns; }
    // The column that carries the mark of an edited row (default 1).
    void setEditedMarkColumn(int column) { m_editedMarkColumn = column; }
    // False: Enter, F2 and Space are swallowed, as in a list that only the mouse may change.
    void setKeysAct(bool act) { m_keysAct = act; }

    // Height at which so many rows are shown whole.
    int heightOf(int rows) const;
    // Width at which every shown column has its characters and nothing scrolls sideways.
    int wholeWidth() const;

    // The cell with the focus frame; {-1, -1} when there is none.
    GridCell currentCell() const;
    // Makes a cell current, selects its row and scrolls to it; nothing on a hidden or missing one.
    void setCurrentCell(int column, int row);
    // Grid rows, ascending, hidden ones left out.
    std::vector<int> selectedGridRows() const;
    // Selected rows as lines, shown columns with tabs between; headers are not part of it.
    QString selectedText() const;
    void copySelection() const;

    // Find hits: all are outlined, the current one thicker.
    void setHits(const std::vector<GridCell>& hits, GridCell current);
    bool isHit(int column, int row) const { return m_hits.contains({column, row}); }
    GridCell currentHit() const { return m_currentHit; }

    bool isRightAligned(int column) const { return m_rightAligned.contains(column); }
    int editedMarkColumn() const { return m_editedMarkColumn; }

   Q_SIGNALS:
    // Double click, Enter or F2 on a cell; double click on a header section without a check box (row 0).
    void dblClickCell(int column, int row);
    // The person wants a check box set so; row 0 is the header's.
    void checkBoxClicked(int row, bool set);
    // Space: those of the selected rows that differ, all at once.
    void checkBoxesWanted(const std::vector<int>& rows, bool set);
    void currentCellChanged(int column, int row);
    // Context menu wanted at a global place; row -1 where there is no cell.
    void cellMenuRequested(int column, int row, const QPoint& globalPos);

   protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

   private:
    bool actsOnCurrentCell(const QKeyEvent& event);
    void askBoxesOfSelection();
    void askHeaderBox();
    int boxRowAt(const QPoint& pos) const;
    void followHiddenColumns();
    void followHiddenRows();
    void applyMetrics();
    void fillWidth();
    int widthOf(int characters) const;

    StringGrid* m_grid = nullptr;
    CheckHeader* m_header;
    std::vector<int> m_characters;
    QSet<int> m_rightAligned;
    QSet<std::pair<int, int>> m_hits;
    GridCell m_currentHit;
    int m_stretchColumn = -1;
    int m_stretchMost = 0;          // characters
    bool m_stretchDragged = false;  // by a person, who has the last word
    int m_editedMarkColumn = 1;
    int m_pressedBoxRow = -1;
    bool m_keysAct = true;
    bool m_fillingWidth = false;
};

}  // namespace kelvane
