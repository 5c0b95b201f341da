#include "ui/string_grid_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "ui/check_header.h"
#include "ui/grid_delegate.h"

namespace kelvane {
namespace {

constexpr int CheckColumnCharacters = 3;
constexpr int FewestCharacters = 6;

int gridRow(const QModelIndex& index) { return index.row() + 1; }

}  // namespace

StringGridView::StringGridView(QWidget* parent) : QTableView(parent), m_header(new CheckHeader(this)) {
    setHorizontalHeader(m_header);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setItemDelegate(new GridDelegate(this));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(m_header, &CheckHeader::boxClicked, this, &StringGridView::askHeaderBox);
    connect(m_header, &QHeaderView::sectionDoubleClicked, this,
            [this](int column) { Q_EMIT dblClickCell(column, 0); });
    connect(m_header, &QHeaderView::sectionResized, this, [this](int column, int before, int after) {
        if (column != m_stretchColumn) return fillWidth();
        if (!m_fillingWidth && before > 0 && after > 0) m_stretchDragged = true;
    });
}

void StringGridView::setGrid(StringGrid* grid) {
    if (grid == m_grid) return;
    if (m_grid) m_grid->disconnect(this);
    m_grid = grid;
    m_hits.clear();
    m_currentHit = {};
    setModel(grid);
    if (!grid) return;
    connect(grid, &QObject::destroyed, this, [this, grid] {
        if (m_grid == grid) m_grid = nullptr;
    });
    connect(grid, &StringGrid::hiddenColumnsChanged, this, &StringGridView::followHiddenColumns);
    connect(grid, &StringGrid::hiddenRowsChanged, this, &StringGridView::followHiddenRows);
    connect(grid, &QAbstractItemModel::modelReset, this, [this] {
        followHiddenColumns();
        followHiddenRows();
    });
    followHiddenColumns();
    followHiddenRows();
    applyMetrics();
}

void StringGridView::followHiddenColumns() {
    for (int column = 0; column < m_grid->ColCount(); ++column)
        if (isColumnHidden(column) != m_grid->columnHidden(column))
            setColumnHidden(column, m_grid->columnHidden(column));
    fillWidth();
}

void StringGridView::followHiddenRows() {
    for (int row = 1; row < m_grid->RowCount(); ++row)
        if (isRowHidden(row - 1) != m_grid->rowHidden(row)) setRowHidden(row - 1, m_grid->rowHidden(row));
}

void StringGridView::setColumnCharacters(const std::vector<int>& characters) {
    m_characters = characters;
    applyMetrics();
}

void StringGridView::setStretchColumn(int column, int mostCharacters) {
    m_stretchColumn = column;
    m_stretchMost = mostCharacters;
    fillWidth();
}

void StringGridView::applyMetrics() {
    const QFontMetrics metrics = fontMetrics();
    const int box = style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(std::max(metrics.height(), box) + 6);
    if (!m_grid) return;
    for (int column = 0; column < m_grid->ColCount(); ++column) {
        const auto given = static_cast<size_t>(column) < m_characters.size();
        const int header = std::max(FewestCharacters, static_cast<int>(m_grid->cell(column, 0).size()) + 2);
        const int fallback = column == 0 ? CheckColumnCharacters : header;
        const int characters = given ? m_characters[static_cast<size_t>(column)] : fallback;
        if (isColumnHidden(column) || column == m_stretchColumn) continue;
        const int caption = column > 0 ? m_header->sectionSizeHint(column) : 0;
        setColumnWidth(column, std::max(widthOf(characters), caption));
    }
    fillWidth();
}

int StringGridView::widthOf(int characters) const {
    constexpr int Edges = 12;
    return characters * fontMetrics().averageCharWidth() + Edges;
}

void StringGridView::fillWidth() {
    const bool stretches = m_grid && m_stretchColumn >= 0 && m_stretchColumn < m_grid->ColCount();
    if (!stretches || m_fillingWidth || m_stretchDragged || isColumnHidden(m_stretchColumn)) return;
    const auto place = static_cast<size_t>(m_stretchColumn);
    const int characters = place < m_characters.size() ? m_characters[place] : FewestCharacters;
    const int most = m_stretchMost > 0 ? widthOf(std::max(m_stretchMost, characters)) : QWIDGETSIZE_MAX;
    const int others = m_header->length() - m_header->sectionSize(m_stretchColumn);
    m_fillingWidth = true;
    setColumnWidth(m_stretchColumn,
                   std::max(widthOf(characters), std::min(most, viewport()->width() - others)));
    m_fillingWidth = false;
}

int StringGridView::heightOf(int rows) const {
    return m_header->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

int StringGridView::wholeWidth() const {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return m_header->length() + bar + 2 * frameWidth();
}

GridCell StringGridView::currentCell() const {
    const QModelIndex index = currentIndex();
    return index.isValid() ? GridCell{index.column(), gridRow(index)} : GridCell{};
}

void StringGridView::setCurrentCell(int column, int row) {
    if (!m_grid || row < 1 || row >= m_grid->RowCount() || m_grid->rowHidden(row)) return;
    const QModelIndex index = m_grid->index(row - 1, column);
    if (!index.isValid() || m_grid->columnHidden(column)) return;
    setCurrentIndex(index);
    scrollTo(index);
}

std::vector<int> StringGridView::selectedGridRows() const {
    std::vector<int> rows;
    if (!m_grid || !selectionModel()) return rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        if (!m_grid->rowHidden(gridRow(index))) rows.push_back(gridRow(index));
    std::sort(rows.begin(), rows.end());
    return rows;
}

QString StringGridView::selectedText() const {
    QStringList lines;
    for (const int row : selectedGridRows()) {
        QStringList cells;
        for (int visual = 0; visual < m_header->count(); ++visual) {
            const int column = m_header->logicalIndex(visual);
            const bool boxesOnly = column == 0 && m_grid->hasCheckBox(row) && m_grid->cell(0, row).isEmpty();
            if (!isColumnHidden(column) && !boxesOnly) cells << m_grid->cell(column, row);
        }
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

void StringGridView::copySelection() const {
    const QString text = selectedText();
    if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void StringGridView::setHits(const std::vector<GridCell>& hits, GridCell current) {
    m_hits.clear();
    for (const GridCell& hit : hits) m_hits.insert({hit.column, hit.row});
    m_currentHit = current;
    viewport()->update();
}

void StringGridView::askHeaderBox() {
    if (m_grid && m_grid->hasCheckBox(0)) Q_EMIT checkBoxClicked(0, !m_grid->checkBox(0));
}

void StringGridView::askBoxesOfSelection() {
    const GridCell current = currentCell();
    if (current.row < 1) return;
    std::vector<int> rows = selectedGridRows();
    if (!std::binary_search(rows.begin(), rows.end(), current.row)) rows = {current.row};
    const bool set = !m_grid->checkBox(current.row);
    std::erase_if(rows, [&](int row) { return !m_grid->hasCheckBox(row) || m_grid->checkBox(row) == set; });
    if (!rows.empty()) Q_EMIT checkBoxesWanted(rows, set);
}

bool StringGridView::actsOnCurrentCell(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F2: {
            const GridCell cell = currentCell();
            if (m_keysAct && cell.row > 0 && !event.isAutoRepeat())
                Q_EMIT dblClickCell(cell.column, cell.row);
            return true;
        }
        case Qt::Key_Space:
            if (!m_keysAct || event.isAutoRepeat()) return true;
            event.modifiers().testFlag(Qt::ControlModifier) ? askHeaderBox() : askBoxesOfSelection();
            return true;
        default: return false;
    }
}

void StringGridView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
    } else if (m_grid && actsOnCurrentCell(*event)) {
        event->accept();
    } else {
        QTableView::keyPressEvent(event);
    }
}

int StringGridView::boxRowAt(const QPoint& pos) const {
    const QModelIndex index = indexAt(pos);
    const bool onBox =
        index.isValid() && index.column() == 0 && m_grid && m_grid->hasCheckBox(gridRow(index));
    return onBox ? gridRow(index) : -1;
}

void StringGridView::mousePressEvent(QMouseEvent* event) {
    m_pressedBoxRow = event->button() == Qt::LeftButton ? boxRowAt(event->pos()) : -1;
    QTableView::mousePressEvent(event);
}

void StringGridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const int row = std::exchange(m_pressedBoxRow, -1);
    if (row > 0 && row == boxRowAt(event->pos())) Q_EMIT checkBoxClicked(row, !m_grid->checkBox(row));
}

void StringGridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_pressedBoxRow = boxRowAt(event->pos());
    const QModelIndex index = indexAt(event->pos());
    if (m_pressedBoxRow < 0 && index.isValid()) Q_EMIT dblClickCell(index.column(), gridRow(index));
}

void StringGridView::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint pos = byKey ? visualRect(currentIndex()).center() : event->pos();
    const QModelIndex index = byKey ? currentIndex() : indexAt(pos);
    const GridCell cell = index.isValid() ? GridCell{index.column(), gridRow(index)} : GridCell{};
    Q_EMIT cellMenuRequested(cell.column, cell.row, viewport()->mapToGlobal(pos));
    event->accept();
}

void StringGridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fillWidth();
}

void StringGridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) applyMetrics();
}

void StringGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    const GridCell cell = currentCell();
    Q_EMIT currentCellChanged(cell.column, cell.row);
}

}  // namespace kelvane
