// Edits of one table since it was read: undo and redo of value and check box together, the values that the
// drive or the file gave, and the marks of rows that are edited and not yet written. Owned beside the grid of
// a table.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "base/string_grid.h"

namespace kelvane {

class EditHistory {
   public:
    explicit EditHistory(StringGrid& grid) : m_grid(grid) {}

    // Runs a change of the grid and keeps as one step what it did to values and check boxes.
    void edit(const std::function<void()>& change);
    // The same, where the change touches these rows at most.
    void edit(const std::vector<int>& rows, const std::function<void()>& change);

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }
    // Row of the first change that was taken back or done again; -1 when there was none.
    int undo();
    int redo();

    // The table was read anew: its values are the read values, every step and mark goes.
    void tableRead();
    void closed();
    // What the drive or the file gave for a row; nothing before the table was read.
    std::optional<QString> readValue(int row) const;
    // The drive was asked once more and holds this: the mark follows, undo stays.
    void holds(int row, const QString& Data);

    // One row of the context menu, as an edit that can be undone. False when there is nothing to do.
    bool backToReadValue(int row);
    bool toDefault(int row);  // writable rows only

    // canUndo() or canRedo() may differ from before.
    std::function<void()> changed;

   private:
    struct RowState {
        QString Data;
        bool check = false;
        bool operator==(const RowState&) const = default;
    };
    struct Change {
        int row;
        RowState before;
        RowState after;
    };
    using Step = std::vector<Change>;

    RowState stateOf(int row) const;
    void setState(int row, const RowState& state);
    void mark(int row);

    StringGrid& m_grid;
    int m_reading = 0;            // counts readings of the table
    std::vector<QString> m_read;  // column 5 as read, by row
    std::vector<Step> m_steps;
    size_t m_done = 0;  // steps that are not undone
};

}  // namespace kelvane
