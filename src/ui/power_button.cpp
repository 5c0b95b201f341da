#include "ui/power_button.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <algorithm>

#include "ui/accessible_kit.h"
#include "ui/mnemonic.h"
#include "ui/readable_colours.h"

namespace kelvane {
namespace {

constexpr int Gap = 6;

void drawPowerSign(QPainter& painter, const QRectF& disc, const QColor& colour) {
    const QPointF middle = disc.center();
    const double radius = disc.width() * 0.26;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, disc.width() * 0.1, Qt::SolidLine, Qt::RoundCap));
    const QRectF ring(middle.x() - radius, middle.y() - radius * 0.9, 2 * radius, 2 * radius);
    painter.drawArc(ring, 130 * 16, 280 * 16);
    painter.drawLine(QPointF(middle.x(), disc.top() + disc.height() * 0.18), middle);
}

}  // namespace

VrPowerButton::VrPowerButton(QWidget* parent) : VrPowerButton(QString(), parent) {}

VrPowerButton::VrPowerButton(const QString& text, QWidget* parent) : QAbstractButton(parent) {
    installAccessibleKit();
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setText(text);
}

void VrPowerButton::setText(const QString& text) {
    if (text == this->text()) return;
    QAbstractButton::setText(text);
    updateGeometry();
}

void VrPowerButton::setColor(const QColor& color) {
    if (color == m_color) return;
    m_color = color;
    update();
}

QSize VrPowerButton::sizeHint() const {
    const int height = fontMetrics().height() + 12;
    const int textWidth = text().isEmpty() ? 0 : Gap + captionWidth(fontMetrics(), text());
    return {height + textWidth + 4, height};
}

void VrPowerButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::ButtonText);
    const QColor paper = palette().color(group, QPalette::Button);
    const QColor fill = isEnabled() ? m_color : mix(m_color, paper, 0.6);
    const double side = std::min(height(), fontMetrics().height() + 12) - 4;
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    const QRectF disc(fromRight ? width() - side - 2 : 2, (height() - side) / 2, side, side);
    painter.setPen(QPen(mix(ink, paper, underMouse() ? 0 : 0.4), isDown() ? 2.5 : 1.5));
    painter.setBrush(isChecked() ? fill : paper);
    painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
    const QColor onFill = contrast(fill, Qt::white) > 2.5 ? Qt::white : Qt::black;
    drawPowerSign(painter, disc, isChecked() ? onFill : mix(ink, paper, 0.2));
    QRect caption = rect();
    const int room = static_cast<int>(side) + 2 + Gap;
    fromRight ? caption.setRight(width() - room) : caption.setLeft(room);
    painter.setPen(palette().color(group, QPalette::WindowText));
    painter.drawText(caption, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine | Qt::TextShowMnemonic,
                     text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void VrPowerButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat()) return click();
    QAbstractButton::keyPressEvent(event);
}

}  // namespace kelvane
