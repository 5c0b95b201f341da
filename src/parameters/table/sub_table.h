// Views of a table: the tree's texts, the sub-table of one group and its way back into the main table, and
// the columns that are hidden in all grids together.
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "base/operator.h"
#include "parameters/table/edit_history.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

enum class TableSide { Drive, File };

// Tree. Index 0 of a root's children is "All Parameters", index 1 + G group G.
QString treeRootText(TableSide side, bool open, const QString& model);
QStringList treeChildren(Family family, const QStringList& groupNames);
TableSide sideOfTreeRoot(const QString& rootText);
bool treeMenuShown(const QString& nodeText);  // the node's text contains "Drive" or "File"

// Number before the first "-" of a group's name, as in "5 - Multi-Step Speed and PLC"; nothing without one.
std::optional<int> groupNumberOf(const QString& name);

// Group of a tree child. A name without a number is the last group: groupCount of a drive, which has its
// reserved group behind the others, groupCount - 1 of a file, which counts it.
int groupOfTreeNode(const ParameterTable& table, TableSide side, const QString& nodeText);

// The sub-table of one side. It stands for the group that was last selected.
class SubTable {
   public:
    SubTable(ParameterTable& main, TableSide side, EditHistory& history);

    StringGrid grid{TableColumns};
    std::function<void()> passedOn;  // an edit is in the main table, and this one shows its mark

    // Fills the grid with the rows of a group and shows their check boxes. The row count comes from the
    // group's parameter count; rows that the main table does not have stay blank.
    void select(const QString& nodeText, int nodeIndex);
    bool selected() const { return m_nodeIndex > 0; }
    // Its own group once more, whatever is selected elsewhere: what was changed in the main table shows.
    void refresh() {
        if (selected()) select(QString(m_nodeText), m_nodeIndex);
    }
    // The table has gone.
    void leave() { m_nodeIndex = 0; }

    // Double click or Enter, click on a check box, and boxes of several rows at once: as on a table, then
    // passed on to the main table as one step.
    void dblClickCell(int column, int row, Operator& person);
    void clickCheckBox(int row);
    void setCheckBoxes(const std::vector<int>& rows, bool set);

   private:
    int groupRow(int G) const;
    int mainRow(int row) const;
    void passOn(const std::vector<int>& rows);
    void passOnAllCheckBoxes();

    ParameterTable& m_main;
    TableSide m_side;
    EditHistory& m_history;
    QString m_nodeText;
    int m_nodeIndex = 0;
};

// HidePrNo to HideAttribute: nine columns, each hidden or shown in all grids at once.
class ColumnHiding {
   public:
    explicit ColumnHiding(std::array<StringGrid*, 5> grids) : m_grids(grids) {}
    // Menu item of a column (1 to 9): hides what is shown and shows what is hidden; its mark follows.
    void toggle(int column);
    bool isChecked(int column) const;
    void setHidden(int column, bool hidden);
    // "Unit" and "Default" are hidden for Hazel and shown for all others.
    void setForFamily(Family family);

   private:
    std::array<StringGrid*, 5> m_grids;
    std::array<bool, 10> m_checked{};
};

}  // namespace kelvane
