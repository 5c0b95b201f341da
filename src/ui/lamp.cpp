#include "ui/lamp.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <algorithm>

#include "ui/accessible_kit.h"
#include "ui/mnemonic.h"
#include "ui/readable_colours.h"

namespace kelvane {
namespace {

constexpr int Gap = 5;
constexpr int FlashTickMs = 50;
constexpr int TicksPerPhase = 6;

}  // namespace

AbLED::AbLED(QWidget* parent) : AbLED(QString(), parent) {}

AbLED::AbLED(const QString& text, QWidget* parent) : QAbstractButton(parent) {
    installAccessibleKit();
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

void AbLED::setText(const QString& text) {
    if (text == this->text()) return;
    QAbstractButton::setText(text);
    followMnemonic();
    updateGeometry();
}

void AbLED::setFlashing(bool on) {
    if (on == m_flashing) return;
    m_flashing = on;
    update();
    Q_EMIT flashingChanged(on);
}

void AbLED::setColor(const QColor& color) {
    if (color == m_color) return;
    m_color = color;
    update();
}

void AbLED::setClickable(bool on) {
    m_clickable = on;
    setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
    followMnemonic();
}

void AbLED::followMnemonic() { setShortcut(m_clickable ? QKeySequence::mnemonic(text()) : QKeySequence()); }

void AbLED::setBrightPhase(bool bright) {
    if (bright == m_brightPhase) return;
    m_brightPhase = bright;
    if (m_flashing && isChecked()) update();
}

QSize AbLED::sizeHint() const {
    const int height = fontMetrics().height() + 6;
    const int textWidth = text().isEmpty() ? 0 : Gap + captionWidth(fontMetrics(), text());
    return {height + textWidth + 4, height};
}

QRectF AbLED::discRect() const {
    const double side = std::min<double>(fontMetrics().height() + 6, height()) - 6;
    const double left = layoutDirection() == Qt::RightToLeft ? width() - side - 3 : 3;
    return {left, (height() - side) / 2, side, side};
}

void AbLED::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::WindowText);
    const QColor lamp = isEnabled() ? m_color : mix(m_color, palette().color(QPalette::Window), 0.6);
    const QRectF disc = discRect();
    if (lit()) {
        painter.setPen(QPen(mix(lamp, ink, 0.5), 1.5));
        painter.setBrush(lamp);
        painter.drawEllipse(disc);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 150));
        painter.drawEllipse(QRectF(disc.left() + disc.width() * 0.2, disc.top() + disc.height() * 0.15,
                                   disc.width() * 0.38, disc.height() * 0.32));
    } else if (m_clickable) {
        painter.setPen(QPen(mix(ink, palette().color(QPalette::Window), 0.35), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(mix(ink, palette().color(QPalette::Window), 0.5));
        const double inset = disc.width() * 0.27;
        painter.drawEllipse(disc.adjusted(inset, inset, -inset, -inset));
    }
    QRect caption = rect();
    const int room = static_cast<int>(disc.width()) + 3 + Gap;
    layoutDirection() == Qt::RightToLeft ? caption.setRight(width() - room) : caption.setLeft(room);
    painter.setPen(ink);
    const int marks = m_clickable ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.drawText(caption, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine | marks, text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(0, 0, -1, -1);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void AbLED::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked();
    QAbstractButton::mouseDoubleClickEvent(event);
}

bool AbLED::hitButton(const QPoint& pos) const { return m_clickable && QAbstractButton::hitButton(pos); }

void AbLED::nextCheckState() {
    if (autoExclusive()) QAbstractButton::nextCheckState();
}

LampFlasher::LampFlasher(TickClock& clock, QObject* parent)
    : QObject(parent), m_timer(clock, TickKind::RealTime, FlashTickMs, [this] { tick(); }) {}

void LampFlasher::watch(AbLED* lamp) {
    m_lamps.emplace_back(lamp);
    connect(lamp, &AbLED::flashingChanged, this, &LampFlasher::follow);
    follow();
}

void LampFlasher::follow() {
    std::erase_if(m_lamps, [](const QPointer<AbLED>& lamp) { return lamp.isNull(); });
    const bool any =
        std::any_of(m_lamps.begin(), m_lamps.end(), [](const auto& lamp) { return lamp->flashing(); });
    m_timer.setEnabled(any);
    if (!any) {
        m_ticks = 0;
        m_bright = true;
    }
    for (const QPointer<AbLED>& lamp : m_lamps) lamp->setBrightPhase(m_bright);
}

void LampFlasher::tick() {
    if (++m_ticks < TicksPerPhase) return;
    m_ticks = 0;
    m_bright = !m_bright;
    follow();
}

}  // namespace kelvane
