#include "ui/scanner.h"

#include <QPainter>
#include <algorithm>

#include "ui/accessible_kit.h"
#include "ui/readable_colours.h"

namespace kelvane {

VrIndicator::VrIndicator(QWidget* parent) : QWidget(parent) {
    installAccessibleKit();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void VrIndicator::setPosition(int position) {
    position = std::clamp(position, -1, m_maximum);
    if (position == m_position) return;
    m_position = position;
    update();
    Q_EMIT positionChanged(position);
}

void VrIndicator::setMaximum(int maximum) {
    m_maximum = std::max(maximum, 1);
    setPosition(m_position);
    update();
}

QSize VrIndicator::sizeHint() const { return {Cells * fontMetrics().height(), fontMetrics().height()}; }

QSize VrIndicator::minimumSizeHint() const { return {Cells * 5, 8}; }

double VrIndicator::strength(int cell, double share) const { return cell < share * Cells ? 1 : 0; }

void VrIndicator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor lit = palette().color(QPalette::Highlight);
    const QColor dark = palette().color(QPalette::Window);
    const QColor edge = mix(palette().color(QPalette::WindowText), dark, 0.6);
    const double step = static_cast<double>(width()) / Cells;
    const double share = static_cast<double>(m_position) / m_maximum;
    for (int cell = 0; cell < Cells; ++cell) {
        const double how = m_position < 0 ? 0 : strength(cell, share);
        const int place = layoutDirection() == Qt::RightToLeft ? Cells - 1 - cell : cell;
        const QRectF box(place * step + 1.5, 1.5, step - 3, height() - 3.0);
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
