#include "ui/grid_delegate.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "ui/readable_colours.h"
#include "ui/string_grid_view.h"

namespace kelvane {
namespace {

constexpr int CellMargin = 4;

std::optional<QColor> toldColour(const QModelIndex& index, int role) {
    const QVariant value = index.data(role);
    return value.isValid() ? std::optional(QColor::fromRgb(value.value<Rgb>())) : std::nullopt;
}

// Selection of a cell with colours of its own: it keeps them and gets bars above and below.
void drawSelectionBars(QPainter* painter, const QRect& cell, const ColourPair& pair,
                       const QColor& highlight) {
    const QColor colour = contrast(highlight, pair.background) >= 2 ? highlight : pair.text;
    painter->fillRect(QRect(cell.left(), cell.top(), cell.width(), 2), colour);
    painter->fillRect(QRect(cell.left(), cell.bottom() - 1, cell.width(), 2), colour);
}

void drawEditedMark(QPainter* painter, const QRect& cell, const QColor& ink) {
    const int side = cell.height() / 3;
    const QPolygon triangle(
        {cell.topRight(), cell.topRight() - QPoint(side, 0), cell.topRight() + QPoint(0, side)});
    painter->setPen(Qt::NoPen);
    painter->setBrush(ink);
    painter->drawPolygon(triangle);
}

void drawHitOutline(QPainter* painter, const QRect& cell, const QColor& ink, bool current) {
    painter->setPen(QPen(ink, current ? 3 : 1, current ? Qt::SolidLine : Qt::DotLine));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(cell.adjusted(1, 1, -2, -2));
}

QRect textRect(const QRect& cell) { return cell.adjusted(CellMargin, 0, -CellMargin, 0); }

}  // namespace

void drawGridBox(QPainter* painter, const QRect& room, bool set, const QColor& ink, const QColor& paper) {
    const double side = std::min(room.height() - 5, painter->fontMetrics().height() - 2);
    const QRectF box(room.center().x() - side / 2 + 0.5, room.center().y() - side / 2 + 0.5, side, side);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(mix(ink, paper, 0.35), 1));
    painter->setBrush(paper);
    painter->drawRoundedRect(box, 2, 2);
    if (set) {
        const QPolygonF tick({QPointF(0.22, 0.52), QPointF(0.43, 0.73), QPointF(0.79, 0.27)});
        painter->translate(box.topLeft());
        painter->scale(side, side);
        painter->setPen(QPen(ink, 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPolyline(tick);
    }
    painter->restore();
}

GridDelegate::GridDelegate(StringGridView* view) : QStyledItemDelegate(view), m_view(view) {}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (m_view->isRightAligned(index.column())) option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    if (index.column() == m_view->editedMarkColumn() && index.data(StringGrid::EditedRole).toBool())
        option->font.setItalic(true);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem cell(option);
    initStyleOption(&cell, index);
    // A resting grid is paler, but a colour of its own keeps the ground that suited it.
    if (!m_view->isEnabled()) cell.palette.setCurrentColorGroup(QPalette::Active);
    const auto toldText = toldColour(index, StringGrid::TextColourRole);
    const auto toldBackground = toldColour(index, StringGrid::BackgroundColourRole);
    const bool told = toldText || toldBackground;
    const bool selected = cell.state.testFlag(QStyle::State_Selected);
    ColourPair pair = readablePair(toldText, toldBackground, cell.palette);
    if (toldText) pair.text = readableText(pair.text, pair.background);
    const QPalette::ColorGroup group = m_view->hasFocus() ? QPalette::Active : QPalette::Inactive;
    const QColor highlight = cell.palette.color(group, QPalette::Highlight);
    if (selected && !told) pair = {cell.palette.color(group, QPalette::HighlightedText), highlight};
    if (!m_view->isEnabled()) pair.text = mix(pair.text, pair.background, 0.45);

    painter->save();
    const bool hit = m_view->isHit(index.column(), index.row() + 1);
    if (hit && !selected && !told) pair.background = mix(pair.background, highlight, 0.25);
    painter->fillRect(cell.rect, pair.background);
    if (selected && told) drawSelectionBars(painter, cell.rect, pair, highlight);
    const QVariant check = index.data(Qt::CheckStateRole);
    if (check.isValid())
        drawGridBox(
            painter, cell.rect, check.toInt() == Qt::Checked,
            index.data(StringGrid::BoxRestsRole).toBool() ? mix(pair.text, pair.background, 0.7) : pair.text,
            pair.background);
    painter->setFont(cell.font);
    painter->setPen(pair.text);
    const QRect room = textRect(cell.rect);
    const QString shown = QFontMetrics(cell.font).elidedText(cell.text, Qt::ElideRight, room.width());
    painter->drawText(room, static_cast<int>(cell.displayAlignment) | Qt::TextSingleLine, shown);

    painter->setRenderHint(QPainter::Antialiasing);
    if (index.column() == m_view->editedMarkColumn() && index.data(StringGrid::EditedRole).toBool())
        drawEditedMark(painter, cell.rect, pair.text);
    const GridCell place{index.column(), index.row() + 1};
    if (m_view->isHit(place.column, place.row))
        drawHitOutline(painter, cell.rect, pair.text, place == m_view->currentHit());
    painter->restore();
    if (cell.state.testFlag(QStyle::State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(cell);
        focus.backgroundColor = pair.background;
        m_view->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, m_view);
    }
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    const bool cut = option.fontMetrics.horizontalAdvance(text) > textRect(option.rect).width();
    QToolTip::showText(event->globalPos(), cut ? QLatin1String("<p>") + text.toHtmlEscaped() : QString(),
                       view);
    return true;
}

}  // namespace kelvane
