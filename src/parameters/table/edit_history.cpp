#include "parameters/table/edit_history.h"

#include "parameters/table/parameter_table.h"

namespace kelvane {

void EditHistory::edit(const std::function<void()>& change) {
    const std::vector<RowState> before = stateOfAll();
    const int reading = m_reading;
    change();
    if (reading != m_reading) return;  // the table went while the editor was open
    Step step;
    for (int row = 0; row < m_grid.RowCount() && row < static_cast<int>(before.size()); ++row) {
        const RowState& was = before[static_cast<size_t>(row)];
        const RowState is = stateOf(row);
        if (was == is) continue;
        step.push_back({row, was, is});
        mark(row);
    }
    if (step.empty()) return;
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
}

int EditHistory::undo() {
    if (!canUndo()) return -1;
    const Step& step = m_steps[--m_done];
    for (const Change& change : step) setState(change.row, change.before);
    return step.front().row;
}

int EditHistory::redo() {
    if (!canRedo()) return -1;
    const Step& step = m_steps[m_done++];
    for (const Change& change : step) setState(change.row, change.after);
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
    edit([&] { setState(row, {m_read[static_cast<size_t>(row)], false}); });
    return true;
}

bool EditHistory::toDefault(int row) {
    const RowState wanted{m_grid.cell(column::Default, row), true};
    if (!isWritable(m_grid, row) || wanted.Data.isEmpty() || stateOf(row) == wanted) return false;
    edit([&] { setState(row, wanted); });
    return true;
}

std::vector<EditHistory::RowState> EditHistory::stateOfAll() const {
    std::vector<RowState> states;
    for (int row = 0; row < m_grid.RowCount(); ++row) states.push_back(stateOf(row));
    return states;
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
