#include "ui/mark_panel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace kelvane {
namespace {

constexpr int Room = 8;
const QColor MarkRed(0xFF, 0, 0);

}  // namespace

MarkPanel::MarkPanel(QWidget* parent) : QFrame(parent) { setContentsMargins(Room, Room, Room, Room); }

void MarkPanel::setMarked(bool on) {
    if (on == m_marked) return;
    m_marked = on;
    update();
}

QColor MarkPanel::color() const { return m_marked ? MarkRed : palette().color(QPalette::Button); }

void MarkPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::WindowText), m_marked ? 2 : 1));
    painter.setBrush(color());
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 5, 5);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(Qt::NoPen));
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRoundedRect(QRectF(rect()).adjusted(Room, Room, -Room, -Room), 3, 3);
}

void MarkPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) return Q_EMIT clicked();
    QFrame::keyPressEvent(event);
}

void MarkPanel::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    update();
}

void MarkPanel::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    update();
}

void MarkPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT clicked();
}

}  // namespace kelvane
