#include "ui/led_text.h"

#include <QAccessible>
#include <QPainter>

#include "ui/accessible_kit.h"

namespace kelvane {
namespace {

const QColor Red(0xFF, 0, 0);
const QColor White(0xFF, 0xFF, 0xFF);
const QColor ReadableRed(0xFF, 0x5A, 0x4D);  // the same red, to be read on a dark field

}  // namespace

LedText::LedText(const QString& text, QWidget* parent) : QWidget(parent), m_text(text) {
    installAccessibleKit();
}

void LedText::setText(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    update();
}

void LedText::setLit(bool lit) {
    if (lit == m_lit) return;
    m_lit = lit;
    update();
    if (!m_flashing) tellReader();
}

void LedText::setFlashing(bool flashing) {
    if (flashing == m_flashing) return;
    m_flashing = flashing;
    tellReader();
}

// A blink is not news: a screen reader hears that the lamp flashes, not each light and dark.
void LedText::tellReader() {
    if (!QAccessible::isActive()) return;
    QAccessibleValueChangeEvent event(this, m_flashing ? QVariant(2) : QVariant(m_lit ? 1 : 0));
    QAccessible::updateAccessibility(&event);
}

QColor LedText::color() const { return m_lit ? Red : White; }

QSize LedText::sizeHint() const {
    return {fontMetrics().horizontalAdvance(m_text) + 4, fontMetrics().height() * 3 / 2};
}

void LedText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double dot = height() * 0.3;
    const QRectF disc((width() - dot) / 2, height() * 0.04, dot, dot);
    const QColor ink = m_lit ? ReadableRed : White;
    QColor ring = ink;
    if (!m_lit) ring.setAlpha(120);
    painter.setPen(QPen(ring, 1));
    painter.setBrush(m_lit ? QBrush(ink) : Qt::NoBrush);
    painter.drawEllipse(disc);
    QFont face = font();
    face.setBold(m_lit);
    painter.setFont(face);
    painter.setPen(ink);
    painter.drawText(QRectF(0, height() * 0.36, width(), height() * 0.64), Qt::AlignCenter | Qt::TextDontClip,
                     m_text);
}

}  // namespace kelvane
