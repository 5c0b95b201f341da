#include "parameters/table/edit_history.h"

#include <numeric>

#include "parameters/table/parameter_table.h"

namespace kelvane {

void EditHistory::edit(const std::function<void()>& change) {
    std::vector<int> all(static_cast<size_t>(m_grid.RowCount()));
    std::iota(all.begin(), all.end(), 0);
    edit(all, change);
}

void EditHistory::edit(const std::vector<int>& rows, const std::function<void()>& change) {
    std::vector<RowState> before;
    before.reserve(rows.size());
    for (const int row : rows) before.push_back(stateOf(row));
    const int reading = m_reading;
    change();
    if (reading != m_reading) return;  // the table went while the editor was open
    Step step;
    for (size_t i = 0; i < rows.size(); ++i) {
        const int row = rows[i];
        if (row < 0 || row >= m_grid.RowCount()) continue;
        const RowState is = stateOf(row);
        if (before[i] == is) continue;
        step.push_back({row, before[i], is});
        mark(row);
    }
    if (step.empty()) return;
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
    if (changed) changed();
}

int EditHistory::undo() {
    if (!canUndo()) return -1;
    const Step& step = m_steps[--m_done];
    for (const Change& change : step) setState(change.row, change.before);
    if (changed) changed();
    return step.front().row;
}

int EditHistory::redo() {
    if (!canRedo()) return -1;
    const Step& step = m_steps[m_done++];
    for (const Change& change : step) setState(change.row, change.after);
    if (changed) changed();
    return step.front().row;
}

void EditHistory::tableRead() {
    closed();
    for (int row = 0; row < m_grid.RowCount(); ++row) m_read.push_back(m_grid.cell(column::Data, row));
}

void EditHistory::closed() {
    ++m_reading;
    m_steps.clear();
    m_done = 0;
    m_read.clear();
    for (int row = 0; row < m_grid.RowCount(); ++row) m_grid.setEdited(row, false);
    if (changed) changed();
}

std::optional<QString> EditHistory::readValue(int row) const {
    if (row < 0 || row >= static_cast<int>(m_read.size())) return std::nullopt;
    return m_read[static_cast<size_t>(row)];
}

void EditHistory::holds(int row, const QString& Data) {
    if (row < 0 || row >= static_cast<int>(m_read.size())) return;
    m_read[static_cast<size_t>(row)] = Data;
    mark(row);
}

bool EditHistory::backToReadValue(int row) {
    if (row <= 0 || row >= static_cast<int>(m_read.size()) || !m_grid.edited(row)) return false;
    edit({row}, [&] { setState(row, {m_read[static_cast<size_t>(row)], false}); });
    return true;
}

bool EditHistory::toDefault(int row) {
    const RowState wanted{m_grid.cell(column::Default, row), true};
    if (!isWritable(m_grid, row) || wanted.Data.isEmpty() || stateOf(row) == wanted) return false;
    edit({row}, [&] { setState(row, wanted); });
    return true;
}

EditHistory::RowState EditHistory::stateOf(int row) const {
    return {m_grid.cell(column::Data, row), m_grid.checkBox(row)};
}

void EditHistory::setState(int row, const RowState& state) {
    if (row < 0 || row >= m_grid.RowCount()) return;
    m_grid.setCell(column::Data, row, state.Data);
    m_grid.setCheckBox(row, state.check);
    mark(row);
}

void EditHistory::mark(int row) {
    if (row <= 0) return;
    const bool known = row < static_cast<int>(m_read.size());
    m_grid.setEdited(row, known && m_grid.cell(column::Data, row) != m_read[static_cast<size_t>(row)]);
}

}  // namespace kelvane
