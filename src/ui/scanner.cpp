#include "ui/scanner.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/accessible_kit.h"
#include "ui/readable_colours.h"

namespace kelvane {

VrIndicator::VrIndicator(QWidget* parent) : QWidget(parent) {
    installAccessibleKit();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

// It steps with every request and reply, which on a quick line is more often than anyone can see: painted is
// what stands there a few times a second, its rest at once, and then only the cells that changed.
void VrIndicator::setPosition(int position) {
    position = std::clamp(position, -1, m_maximum);
    if (position == m_position) return;
    m_position = position;
    const bool rests = position <= 0;
    if (rests || !m_sincePainted.isValid() || m_sincePainted.elapsed() >= LeastPaintMs) paintChanges();
    Q_EMIT positionChanged(position);
}

void VrIndicator::paintChanges() {
    const int before = std::exchange(m_painted, m_position);
    m_sincePainted.start();
    for (int cell = 0; cell < Cells; ++cell)
        if (strengthAt(cell, before) != strengthAt(cell, m_position)) update(cellRoom(cell).toAlignedRect());
}

void VrIndicator::setMaximum(int maximum) {
    m_maximum = std::max(maximum, 1);
    setPosition(m_position);
    update();
}

QSize VrIndicator::sizeHint() const { return {Cells * fontMetrics().height(), fontMetrics().height()}; }

QSize VrIndicator::minimumSizeHint() const { return {Cells * 5, 8}; }

double VrIndicator::strength(int cell, double share) const { return cell < share * Cells ? 1 : 0; }

double VrIndicator::strengthAt(int cell, int position) const {
    return position < 0 ? 0 : strength(cell, static_cast<double>(position) / m_maximum);
}

QRectF VrIndicator::cellRoom(int cell) const {
    const double step = static_cast<double>(width()) / Cells;
    const int place = layoutDirection() == Qt::RightToLeft ? Cells - 1 - cell : cell;
    return {place * step, 0, step, static_cast<double>(height())};
}

void VrIndicator::paintEvent(QPaintEvent* event) {
    if (event->rect() == rect()) m_painted = m_position;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor lit = palette().color(QPalette::Highlight);
    const QColor dark = palette().color(QPalette::Window);
    const QColor edge = mix(palette().color(QPalette::WindowText), dark, 0.6);
    for (int cell = 0; cell < Cells; ++cell) {
        const QRectF room = cellRoom(cell);
        if (!event->region().intersects(room.toAlignedRect())) continue;
        const QRectF box = room.adjusted(1.5, 1.5, -1.5, -1.5);
        const double how = strengthAt(cell, m_painted);
        painter.setPen(how > 0 ? QPen(lit, 1) : QPen(edge, 1));
        painter.setBrush(how > 0 ? QBrush(mix(dark, lit, how)) : Qt::NoBrush);
        painter.drawRoundedRect(box, 2, 2);
    }
}

VrScanner::VrScanner(QWidget* parent) : VrIndicator(parent) {
    setMaximum(Cells);
    setPosition(-1);
}

double VrScanner::strength(int cell, double share) const {
    const int head = static_cast<int>(share * Cells) % Cells;
    const int behind = (head - cell + Cells) % Cells;
    return behind < 4 ? 1 - behind * 0.25 : 0;
}

}  // namespace kelvane
