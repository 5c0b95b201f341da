#include "ui/panel_key.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

#include "ui/readable_colours.h"

namespace kelvane {
namespace {

constexpr int RepeatGap = 20;  // ms

bool presses(const QKeyEvent& event) {
    return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

PanelKey::PanelKey(TickClock& clock, const QString& text, QWidget* parent)
    : QAbstractButton(parent),
      m_releaseSoon(clock, TickKind::RealTime, RepeatGap, [this] { keyReleased(); }) {
    setText(text);
    setShortcut({});
    setFocusPolicy(Qt::StrongFocus);
}

void PanelKey::setColor(const QColor& color) {
    if (color == m_color) return;
    m_color = color;
    update();
}

QSize PanelKey::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 16, fontMetrics().height() + 14};
}

void PanelKey::hold() {
    if (!std::exchange(m_held, true)) Q_EMIT heldDown();
}

void PanelKey::release() {
    if (std::exchange(m_held, false)) Q_EMIT letGo();
}

void PanelKey::endHold() {
    if (m_releaseSoon.Enabled()) keyReleased();
    release();
}

void PanelKey::keyReleased() {
    m_releaseSoon.setEnabled(false);
    release();
    QKeyEvent space(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
    QAbstractButton::keyReleaseEvent(&space);
}

bool PanelKey::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusOut:
        case QEvent::Hide:
        case QEvent::WindowDeactivate:
        case QEvent::WindowBlocked: endHold(); break;
        case QEvent::EnabledChange:
            if (!isEnabled()) endHold();
            break;
        default: break;
    }
    return QAbstractButton::event(event);
}

void PanelKey::mousePressEvent(QMouseEvent* event) {
    QAbstractButton::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) hold();
}

void PanelKey::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) release();
    QAbstractButton::mouseReleaseEvent(event);
}

// Enter is Space: held as long, and pressed once however long.
void PanelKey::keyPressEvent(QKeyEvent* event) {
    if (!presses(*event)) return QAbstractButton::keyPressEvent(event);
    if (event->isAutoRepeat()) return m_releaseSoon.setEnabled(false);
    if (m_releaseSoon.Enabled()) keyReleased();
    QKeyEvent space(event->type(), Qt::Key_Space, event->modifiers());
    QAbstractButton::keyPressEvent(&space);
    hold();
}

void PanelKey::keyReleaseEvent(QKeyEvent* event) {
    if (!presses(*event)) return QAbstractButton::keyReleaseEvent(event);
    if (event->isAutoRepeat()) return;
    // The second half of a repeat, its press, may be on its way; an event that was made here has no time.
    event->timestamp() != 0 ? m_releaseSoon.setEnabled(true) : keyReleased();
}

void PanelKey::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double round = height() * 0.22;
    QRectF cap = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -3);
    const QColor edge = mix(m_color, Qt::black, 0.55);
    painter.setPen(Qt::NoPen);
    painter.setBrush(edge);
    painter.drawRoundedRect(cap.translated(0, 1.5), round, round);
    if (isDown()) cap.translate(0, 1.5);
    QLinearGradient light(cap.topLeft(), cap.bottomLeft());
    light.setColorAt(0, mix(m_color, isDown() ? Qt::black : Qt::white, isDown() ? 0.25 : 0.22));
    light.setColorAt(1, mix(m_color, Qt::black, isDown() ? 0.1 : 0.08));
    painter.setBrush(light);
    painter.setPen(QPen(hasFocus() ? QColor(0xFF, 0xE0, 0x66) : edge, hasFocus() ? 2 : 1));
    painter.drawRoundedRect(cap, round, round);
    painter.setPen(Qt::white);
    painter.drawText(cap, Qt::AlignCenter | Qt::TextDontClip, text());
}

}  // namespace kelvane
