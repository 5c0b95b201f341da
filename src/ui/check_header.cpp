#include "ui/check_header.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>

#include "ui/grid_delegate.h"
#include "ui/string_grid_view.h"

namespace kelvane {
namespace {

constexpr int BoxColumn = 0;
constexpr int ResizeGrip = 4;  // pixels at a section's edge that drag its width

}  // namespace

CheckHeader::CheckHeader(StringGridView* view) : QHeaderView(Qt::Horizontal, view), m_view(view) {
    setSectionResizeMode(QHeaderView::Interactive);
    setHighlightSections(false);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setMinimumSectionSize(24);
}

void CheckHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
    QHeaderView::initStyleOptionForIndex(option, section);
    if (m_view->isRightAligned(section)) option->textAlignment = Qt::AlignRight | Qt::AlignVCenter;
}

void CheckHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore();
    const StringGrid* grid = m_view->grid();
    if (section != BoxColumn || !grid || !grid->hasCheckBox(0)) return;
    drawGridBox(painter, rect, grid->checkBox(0), palette().color(QPalette::Text),
                palette().color(QPalette::Base));
}

bool CheckHeader::onBox(const QPoint& pos) const {
    if (logicalIndexAt(pos) != BoxColumn || !m_view->grid() || !m_view->grid()->hasCheckBox(0)) return false;
    const int left = sectionViewportPosition(BoxColumn);
    return pos.x() >= left && pos.x() < left + sectionSize(BoxColumn) - ResizeGrip;
}

void CheckHeader::mousePressEvent(QMouseEvent* event) {
    m_boxPressed = event->button() == Qt::LeftButton && onBox(event->pos());
    if (!m_boxPressed) QHeaderView::mousePressEvent(event);
}

void CheckHeader::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_boxPressed) return QHeaderView::mouseReleaseEvent(event);
    m_boxPressed = false;
    if (onBox(event->pos())) askBox(*event);
}

// A double click asks once: its first press has asked already, unless it came without one.
void CheckHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    m_boxPressed = false;
    if (!onBox(event->pos())) return QHeaderView::mouseDoubleClickEvent(event);
    const auto interval = static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    if (!m_askedAt || event->timestamp() - *m_askedAt > interval) askBox(*event);
}

void CheckHeader::askBox(const QMouseEvent& event) {
    m_askedAt = event.timestamp();
    Q_EMIT boxClicked();
}

}  // namespace kelvane
