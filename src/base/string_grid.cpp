#include "base/string_grid.h"

#include <algorithm>
#include <utility>

namespace kelvane {

StringGrid::StringGrid(int columns, QObject* parent)
    : QAbstractTableModel(parent), m_columns(columns), m_columnHidden(static_cast<size_t>(columns), false) {
    m_rows.resize(1);
    m_rows[0].cells.resize(static_cast<size_t>(columns));
}

QString StringGrid::cell(int column, int row) const {
    if (!hasRow(row) || column < 0 || column >= m_columns) return {};
    return m_rows[static_cast<size_t>(row)].cells[static_cast<size_t>(column)];
}

void StringGrid::setCell(int column, int row, const QString& text) {
    if (row < 0 || column < 0 || column >= m_columns) return;
    if (row >= RowCount()) setRowCount(row + 1);
    QString& place = m_rows[static_cast<size_t>(row)].cells[static_cast<size_t>(column)];
    if (place == text) return;
    place = text;
    rowChanged(row);
}

void StringGrid::setRowCount(int count) {
    count = std::max(count, 1);
    const int old = RowCount();
    if (count == old) return;
    if (count < old) {
        beginRemoveRows({}, count - 1, old - 2);
        m_rows.resize(static_cast<size_t>(count));
        endRemoveRows();
        return;
    }
    beginInsertRows({}, old - 1, count - 2);
    m_rows.resize(static_cast<size_t>(count));
    for (size_t row = static_cast<size_t>(old); row < m_rows.size(); ++row)
        m_rows[row].cells.resize(static_cast<size_t>(m_columns));
    endInsertRows();
}

void StringGrid::insertBlankRow(int row) {
    row = std::clamp(row, 1, RowCount());
    beginInsertRows({}, row - 1, row - 1);
    Row blankRow;
    blankRow.cells.resize(static_cast<size_t>(m_columns));
    m_rows.insert(m_rows.begin() + row, std::move(blankRow));
    endInsertRows();
}

void StringGrid::deleteRow(int row) {
    if (row < 1 || !hasRow(row)) return;
    beginRemoveRows({}, row - 1, row - 1);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
}

void StringGrid::blank(int fromColumn, int toColumn, int fromRow, int toRow) {
    for (int row = std::max(fromRow, 0); row <= std::min(toRow, RowCount() - 1); ++row)
        for (int column = fromColumn; column <= std::min(toColumn, m_columns - 1); ++column)
            setCell(column, row, {});
}

void StringGrid::setHeaders(const QStringList& headers) {
    for (int column = 0; column < static_cast<int>(headers.size()); ++column)
        setCell(column, 0, headers[column]);
}

void StringGrid::addCheckBox(int row, bool set) {
    if (row < 0) return;
    if (row >= RowCount()) setRowCount(row + 1);
    m_rows[static_cast<size_t>(row)].check = set;
    rowChanged(row);
}

void StringGrid::removeCheckBox(int row) {
    if (!hasCheckBox(row)) return;
    m_rows[static_cast<size_t>(row)].check.reset();
    rowChanged(row);
}

bool StringGrid::hasCheckBox(int row) const {
    return hasRow(row) && m_rows[static_cast<size_t>(row)].check.has_value();
}

bool StringGrid::checkBox(int row) const {
    return hasRow(row) && m_rows[static_cast<size_t>(row)].check.value_or(false);
}

void StringGrid::setCheckBox(int row, bool set) {
    if (!hasCheckBox(row) || checkBox(row) == set) return;
    m_rows[static_cast<size_t>(row)].check = set;
    rowChanged(row);
}

bool StringGrid::columnHidden(int column) const {
    return column >= 0 && column < m_columns && m_columnHidden[static_cast<size_t>(column)];
}

void StringGrid::setColumnHidden(int column, bool hidden) {
    if (column < 0 || column >= m_columns || columnHidden(column) == hidden) return;
    m_columnHidden[static_cast<size_t>(column)] = hidden;
    Q_EMIT hiddenColumnsChanged();
}

bool StringGrid::rowHidden(int row) const { return hasRow(row) && m_rows[static_cast<size_t>(row)].hidden; }

void StringGrid::setRowHidden(int row, bool hidden) {
    if (!hasRow(row) || rowHidden(row) == hidden) return;
    m_rows[static_cast<size_t>(row)].hidden = hidden;
    Q_EMIT hiddenRowsChanged();
}

void StringGrid::setRowsHidden(const std::vector<bool>& hidden) {
    bool any = false;
    for (size_t row = 0; row < m_rows.size() && row < hidden.size(); ++row)
        any |= std::exchange(m_rows[row].hidden, hidden[row]) != hidden[row];
    if (any) Q_EMIT hiddenRowsChanged();
}

void StringGrid::showAllRows() {
    const bool any = visibleRowCount() < RowCount();
    for (Row& row : m_rows) row.hidden = false;
    if (any) Q_EMIT hiddenRowsChanged();
}

int StringGrid::visibleRowCount() const {
    return static_cast<int>(
        std::count_if(m_rows.begin(), m_rows.end(), [](const Row& r) { return !r.hidden; }));
}

int StringGrid::realRow(int visibleRow) const {
    for (int row = 0; row < RowCount(); ++row)
        if (!m_rows[static_cast<size_t>(row)].hidden && visibleRow-- == 0) return row;
    return -1;
}

bool StringGrid::edited(int row) const { return hasRow(row) && m_rows[static_cast<size_t>(row)].edited; }

void StringGrid::setEdited(int row, bool edited) {
    if (!hasRow(row) || this->edited(row) == edited) return;
    m_rows[static_cast<size_t>(row)].edited = edited;
    rowChanged(row);
}

void StringGrid::rowChanged(int row) {
    if (row == m_filledRow || row >= RowCount()) return;
    if (row == 0) {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
    } else {
        Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, m_columns - 1));
    }
}

int StringGrid::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : RowCount() - 1; }

int StringGrid::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_columns; }

QVariant StringGrid::colourOf(int column, int row, std::optional<Rgb> CellColours::*which) const {
    if (!cellColours) return {};
    const std::optional<Rgb> colour = cellColours(column, row).*which;
    return colour ? QVariant(*colour) : QVariant();
}

QVariant StringGrid::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int column = index.column();
    const int row = index.row() + 1;
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole: return cell(column, row);
        case Qt::CheckStateRole:
            if (column != 0 || !hasCheckBox(row)) return {};
            return checkBox(row) ? Qt::Checked : Qt::Unchecked;
        case TextColourRole: return colourOf(column, row, &CellColours::text);
        case BackgroundColourRole: return colourOf(column, row, &CellColours::background);
        case EditedRole: return edited(row);
        case BoxRestsRole: return boxRests && boxRests(row);
        default: return {};
    }
}

QVariant StringGrid::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return cell(section, 0);
    if (role == Qt::CheckStateRole && section == 0 && hasCheckBox(0))
        return checkBox(0) ? Qt::Checked : Qt::Unchecked;
    return {};
}

Qt::ItemFlags StringGrid::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags typed =
        mayType && mayType(index.column(), index.row() + 1) ? Qt::ItemIsEditable : Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | typed;
}

bool StringGrid::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
    const int row = index.row() + 1;
    setCell(index.column(), row, value.toString());
    Q_EMIT cellTyped(index.column(), row);
    return true;
}

}  // namespace kelvane
