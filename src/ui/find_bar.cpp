#include "ui/find_bar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

#include "ui/icons.h"

namespace kelvane {

std::vector<GridCell> findHits(const StringGrid& grid, const std::vector<int>& columns, const QString& text) {
    std::vector<GridCell> hits;
    if (text.isEmpty()) return hits;
    for (int row = 1; row < grid.RowCount(); ++row) {
        if (grid.rowHidden(row)) continue;
        for (const int column : columns)
            if (!grid.columnHidden(column) && grid.cell(column, row).contains(text, Qt::CaseInsensitive))
                hits.push_back({column, row});
    }
    return hits;
}

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      m_edit(new QLineEdit(this)),
      m_count(new QLabel(this)),
      m_previous(new QToolButton(this)),
      m_next(new QToolButton(this)),
      m_close(new QToolButton(this)),
      m_findAction(new QAction(icon(Icon::Find), tr("&Find..."), this)),
      m_nextAction(new QAction(icon(Icon::Next), tr("Find &Next"), this)),
      m_previousAction(new QAction(icon(Icon::Previous), tr("Find &Previous"), this)) {
    build();
    connect(m_edit, &QLineEdit::textEdited, this, [this] {
        search();
        if (m_current < 0 && !m_hits.empty()) step(1);
    });
    connect(m_edit, &QLineEdit::textChanged, this, &FindBar::search);
    connect(m_close, &QToolButton::clicked, this, &FindBar::closeBar);
    connect(m_findAction, &QAction::triggered, this, &FindBar::openBar);
    connect(m_nextAction, &QAction::triggered, this, &FindBar::findNext);
    connect(m_previousAction, &QAction::triggered, this, &FindBar::findPrevious);
    hide();
}

void FindBar::nameControls() {
    setObjectName(QStringLiteral("FindBar"));
    m_edit->setObjectName(QStringLiteral("FindEdit"));
    m_count->setObjectName(QStringLiteral("FindCountLabel"));
    m_previous->setObjectName(QStringLiteral("FindPreviousToolButton"));
    m_next->setObjectName(QStringLiteral("FindNextToolButton"));
    m_close->setObjectName(QStringLiteral("FindCloseToolButton"));
    m_findAction->setObjectName(QStringLiteral("Find"));
    m_nextAction->setObjectName(QStringLiteral("FindNext"));
    m_previousAction->setObjectName(QStringLiteral("FindPrevious"));
}

void FindBar::build() {
    nameControls();
    m_findAction->setShortcut(QKeySequence::Find);
    m_nextAction->setShortcut(Qt::Key_F3);
    m_previousAction->setShortcut(Qt::SHIFT | Qt::Key_F3);
    m_previous->setDefaultAction(m_previousAction);
    m_next->setDefaultAction(m_nextAction);
    m_close->setIcon(icon(Icon::Close));
    m_close->setToolTip(tr("Close (Esc)"));
    m_close->setAccessibleName(tr("Close the find bar"));
    for (QToolButton* button : {m_previous, m_next, m_close}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
    }
    m_edit->setPlaceholderText(tr("Number, address, name or value"));
    m_edit->setClearButtonEnabled(true);
    m_edit->setMinimumWidth(fontMetrics().averageCharWidth() * 28);
    m_count->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
    auto* label = new QLabel(tr("F&ind:"), this);
    label->setBuddy(m_edit);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(label);
    row->addWidget(m_edit);
    row->addWidget(m_previous);
    row->addWidget(m_next);
    row->addWidget(m_count);
    row->addStretch(1);
    row->addWidget(m_close);
    showState();
}

void FindBar::setView(StringGridView* view) {
    if (view == m_view) return;
    if (m_view) {
        m_view->setHits({}, {});
        if (m_view->grid()) m_view->grid()->disconnect(this);
    }
    m_view = view;
    m_current = -1;
    if (view) watch(view);
    search();
}

void FindBar::watch(StringGridView* view) {
    for (QAction* action : {m_findAction, m_nextAction, m_previousAction}) view->addAction(action);
    const StringGrid* grid = view->grid();
    if (!grid) return;
    for (auto changed : {&StringGrid::hiddenColumnsChanged, &StringGrid::hiddenRowsChanged})
        connect(grid, changed, this, &FindBar::searchLater);
    connect(grid, &QAbstractItemModel::dataChanged, this, &FindBar::searchLater);
    connect(grid, &QAbstractItemModel::rowsInserted, this, &FindBar::searchLater);
    connect(grid, &QAbstractItemModel::rowsRemoved, this, &FindBar::searchLater);
}

void FindBar::setColumns(const std::vector<int>& columns) {
    m_columns = columns;
    search();
}

void FindBar::openBar() {
    show();
    m_edit->setFocus(Qt::ShortcutFocusReason);
    m_edit->selectAll();
    search();
}

void FindBar::closeBar() {
    hide();
    search();
    if (m_view) m_view->setFocus();
}

// A table being filled changes cell by cell; one search behind the whole burst is enough.
void FindBar::searchLater() {
    if (m_searchPending || isHidden()) return;
    m_searchPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_searchPending = false;
            search();
        },
        Qt::QueuedConnection);
}

void FindBar::search() {
    const GridCell before = m_current >= 0 ? m_hits[static_cast<size_t>(m_current)] : GridCell{};
    const bool searches = m_view && m_view->grid() && !isHidden();
    m_hits = searches ? findHits(*m_view->grid(), m_columns, m_edit->text()) : std::vector<GridCell>();
    const auto same = std::find(m_hits.begin(), m_hits.end(), before);
    m_current = same == m_hits.end() ? -1 : static_cast<int>(same - m_hits.begin());
    if (m_view) m_view->setHits(m_hits, m_current >= 0 ? before : GridCell{});
    showState();
}

void FindBar::jumpTo(int hit) {
    m_current = hit;
    const GridCell cell = m_hits[static_cast<size_t>(hit)];
    m_view->setHits(m_hits, cell);
    m_view->setCurrentCell(cell.column, cell.row);
    showState();
}

// From the current hit, or from the grid's current cell when there is none; round at the ends.
void FindBar::step(int direction) {
    if (isHidden()) openBar();
    if (m_hits.empty()) return;
    const int count = hitCount();
    if (m_current >= 0) return jumpTo((m_current + direction + count) % count);
    const int row = m_view->currentCell().row;
    const auto behind =
        std::find_if(m_hits.begin(), m_hits.end(), [row](const GridCell& h) { return h.row >= row; });
    const int first = static_cast<int>(behind - m_hits.begin());
    jumpTo(direction > 0 ? first % count : (first - 1 + count) % count);
}

void FindBar::findNext() { step(1); }

void FindBar::findPrevious() { step(-1); }

void FindBar::showState() {
    const bool any = !m_hits.empty();
    if (m_edit->text().isEmpty()) {
        m_count->clear();
    } else if (!any) {
        m_count->setText(tr("Not found"));
    } else if (m_current < 0) {
        m_count->setText(tr("%1 found").arg(hitCount()));
    } else {
        m_count->setText(tr("%1 of %2").arg(m_current + 1).arg(hitCount()));
    }
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape: return closeBar();
        case Qt::Key_Return:
        case Qt::Key_Enter: return step(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
        default: QWidget::keyPressEvent(event);
    }
}

}  // namespace kelvane
