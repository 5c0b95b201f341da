#include "parameters/table/sub_table.h"

#include <algorithm>

#include "parameters/table/table_edit.h"

namespace kelvane {

namespace {

QString sideText(TableSide side) {
    return side == TableSide::Drive ? QStringLiteral("Drive") : QStringLiteral("File");
}

void copyRow(const StringGrid& from, int fromRow, StringGrid& to, int toRow) {
    for (int c = 0; c < TableColumns; ++c) to.setCell(c, toRow, from.cell(c, fromRow));
    if (from.hasCheckBox(fromRow)) {
        to.addCheckBox(toRow, from.checkBox(fromRow));
    } else {
        to.removeCheckBox(toRow);
    }
    to.setEdited(toRow, from.edited(fromRow));
}

// Bounded by the one byte that a number has in its register, whatever a file says.
int highestNumber(const ParameterTable& table, int G) {
    if (G < 0 || G >= static_cast<int>(table.identity.groupParamCount.size())) return 0;
    return std::min(int(table.identity.groupParamCount[static_cast<size_t>(G)]), 255);
}

int lastGroup(const ParameterTable& table, TableSide side) {
    return side == TableSide::Drive ? table.identity.groupCount : table.identity.groupCount - 1;
}

}  // namespace

QString treeRootText(TableSide side, bool open, const QString& model) {
    return open ? sideText(side) % QStringLiteral(" [ ") % model % QStringLiteral(" ]") : sideText(side);
}

QStringList treeChildren(Family family, const QStringList& groupNames) {
    QStringList children{QStringLiteral("All Parameters")};
    if (family != Family::Rowan) children += groupNames;
    return children;
}

TableSide sideOfTreeRoot(const QString& rootText) {
    return rootText.left(5) == QLatin1String("Drive") ? TableSide::Drive : TableSide::File;
}

bool treeMenuShown(const QString& nodeText) {
    // Kept: "7 - AC Drive and Motor" opens the menu too; the side is taken from its root.
    return nodeText.contains(QLatin1String("Drive")) || nodeText.contains(QLatin1String("File"));
}

std::optional<int> groupNumberOf(const QString& name) {
    bool ok = false;
    const int number = name.left(name.indexOf(QLatin1Char('-'))).trimmed().toInt(&ok);
    return ok && number >= 0 ? std::optional<int>(number) : std::nullopt;
}

int groupOfTreeNode(const ParameterTable& table, TableSide side, const QString& nodeText) {
    return groupNumberOf(nodeText).value_or(lastGroup(table, side));
}

SubTable::SubTable(ParameterTable& main, TableSide side, EditHistory& history)
    : m_main(main), m_side(side), m_history(history) {
    setTableHeaders(grid);
    grid.setRowCount(2);
}

void SubTable::select(const QString& nodeText, int nodeIndex) {
    m_nodeText = nodeText;
    m_nodeIndex = nodeIndex;
    grid.setRowCount(1);
    grid.setCheckBox(0, false);
    if (nodeIndex <= 0) return;
    const int G = groupOfTreeNode(m_main, m_side, nodeText);
    grid.setRowCount(highestNumber(m_main, G) + 2);
    const int from = groupRow(G);
    if (from < 0) return;
    for (int row = 1; row < grid.RowCount(); ++row) copyRow(m_main.grid, from + row, grid, row);
}

// Row of a group's head in the main table; a head without a number is that of the last group.
int SubTable::groupRow(int G) const {
    for (int row = 1; row < m_main.grid.RowCount(); ++row) {
        if (!isGroupRow(m_main.grid, row)) continue;
        if (groupOfTreeNode(m_main, m_side, m_main.grid.cell(column::Description, row)) == G) return row;
    }
    return -1;
}

// Row of the main table that a row of the sub-table stands for, by the counts of the groups before it; by its
// number where these do not fit the rows.
int SubTable::mainRow(int row) const {
    int index = row + 1;
    for (int G = 0; G < m_nodeIndex - 1; ++G) index += highestNumber(m_main, G) + 2;
    const QString PrNo = grid.cell(column::PrNo, row);
    if (PrNo.isEmpty()) return -1;
    return m_main.grid.cell(column::PrNo, index) == PrNo ? index : rowOfNumber(m_main.grid, PrNo);
}

void SubTable::dblClickCell(int column, int row, Operator& person) {
    const QString PrNo = grid.cell(column::PrNo, row);
    ProcessAdvStringGridDblClickCell(grid, column, row, person);
    if (row == 0) {
        if (column == column::Check) passOnAllCheckBoxes();
    } else if (column > column::Check && isWritable(grid, row) && grid.cell(column::PrNo, row) == PrNo) {
        passOn({row});
    }
}

void SubTable::clickCheckBox(int row) {
    if (!kelvane::clickCheckBox(grid, row)) return;
    if (row == 0) {
        passOnAllCheckBoxes();
    } else {
        passOn({row});
    }
}

void SubTable::setCheckBoxes(const std::vector<int>& rows, bool set) {
    const std::vector<int> changed = kelvane::setCheckBoxes(grid, rows, set);
    if (!changed.empty()) passOn(changed);
}

void SubTable::passOn(const std::vector<int>& rows) {
    std::vector<int> targets;
    targets.reserve(rows.size());
    for (const int row : rows) targets.push_back(mainRow(row));
    m_history.edit(targets, [&] {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (targets[i] < 0) continue;
            m_main.grid.setCell(column::Data, targets[i], grid.cell(column::Data, rows[i]));
            m_main.grid.setCheckBox(targets[i], grid.checkBox(rows[i]));
        }
    });
    for (size_t i = 0; i < rows.size(); ++i)
        if (targets[i] >= 0) grid.setEdited(rows[i], m_main.grid.edited(targets[i]));
    if (passedOn) passedOn();
}

// By number and address, as the header's box has always been passed on.
void SubTable::passOnAllCheckBoxes() {
    const RowIndex rows(m_main.grid);
    std::vector<int> all;
    all.reserve(static_cast<size_t>(grid.RowCount()));
    for (int row = 1; row < grid.RowCount(); ++row) all.push_back(rows.rowOf(grid, row));
    m_history.edit(all, [&] {
        for (size_t i = 0; i < all.size(); ++i)
            if (all[i] > 0) m_main.grid.setCheckBox(all[i], grid.checkBox(static_cast<int>(i) + 1));
    });
    if (passedOn) passedOn();
}

void ColumnHiding::toggle(int column) {
    if (column < column::PrNo || column > column::Attribute) return;
    bool& checked = m_checked[static_cast<size_t>(column)];
    checked = !checked;
    for (StringGrid* grid : m_grids)
        if (grid != nullptr) grid->setColumnHidden(column, checked);
}

bool ColumnHiding::isChecked(int column) const {
    return column >= column::PrNo && column <= column::Attribute && m_checked[static_cast<size_t>(column)];
}

void ColumnHiding::setHidden(int column, bool hidden) {
    if (column < column::PrNo || column > column::Attribute) return;
    m_checked[static_cast<size_t>(column)] = !hidden;
    toggle(column);
}

void ColumnHiding::setForFamily(Family family) {
    setHidden(column::Unit, family == Family::Hazel);
    setHidden(column::Default, family == Family::Hazel);
}

}  // namespace kelvane
