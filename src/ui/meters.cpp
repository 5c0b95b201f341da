#include "ui/meters.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "ui/accessible_kit.h"
#include "ui/readable_colours.h"

namespace kelvane {
namespace {

constexpr int Divisions = 10;
constexpr int MinorMarks = 5;          // in one division
constexpr double WidestNumber = 0.33;  // of the radius
const QColor Quicksilver(0xD0, 0x20, 0x20);

struct Inks {
    QColor ink;
    QColor faint;
    QColor paper;
    QColor value;
};

Inks inksOf(const QWidget& widget) {
    const QPalette::ColorGroup group = widget.isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor paper = widget.palette().color(group, QPalette::Base);
    const QColor ink = widget.palette().color(group, QPalette::Text);
    const QColor value = contrast(Quicksilver, paper) > 3 ? Quicksilver : Quicksilver.lighter(150);
    return {ink, mix(ink, paper, 0.55), paper, value};
}

QPointF polar(QPointF middle, double radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return middle + QPointF(std::cos(angle), -std::sin(angle)) * radius;
}

// As short as the scale allows: places are shown where a division needs them.
QString numberText(double value, int places, const QString& decimalSep) {
    return QString::number(value, 'f', std::clamp(places, 0, 3)).replace(QLatin1Char('.'), decimalSep);
}

int placesOfDivision(double top, int wanted) {
    const double step = top / Divisions;
    if (step <= 0 || step == std::floor(step)) return std::min(wanted, 0);
    return step * 10 == std::floor(step * 10) ? 1 : 2;
}

double clippedShare(double value, double top) { return top > 0 ? std::clamp(value / top, 0.0, 1.0) : 0; }

}  // namespace

// ---- DialMeter ----

DialMeter::DialMeter(QWidget* parent, int sweepDegrees) : QWidget(parent), m_sweep(sweepDegrees) {
    installAccessibleKit();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DialMeter::setMaxValue(double maximum) {
    if (maximum == m_maximum) return;
    m_maximum = maximum;
    update();
}

void DialMeter::setPosition(double position) {
    if (position == m_position) return;
    m_position = position;
    update();
}

void DialMeter::setDecimals(int decimals) {
    if (decimals == m_decimals) return;
    m_decimals = decimals;
    update();
}

void DialMeter::setText(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    update();
}

double DialMeter::share() const { return clippedShare(m_position, m_maximum); }

QString DialMeter::valueText() const { return numberText(m_position, m_decimals, decimalSep); }

QSize DialMeter::sizeHint() const {
    const int side = fontMetrics().height() * 13;
    return {side, m_sweep > 180 ? side : side * 2 / 3};
}

QSize DialMeter::minimumSizeHint() const { return sizeHint() / 2; }

double DialMeter::angleOf(double share) const { return 90 + m_sweep / 2.0 - share * m_sweep; }

// A dial of more than half a turn fills a square, a flatter one hangs from its top.
QPointF DialMeter::centre(double& radius) const {
    const double margin = 4;
    if (m_sweep > 180) {
        radius = std::min(width(), height()) / 2.0 - margin;
        return {width() / 2.0, height() / 2.0};
    }
    const double half = m_sweep / 2.0 * std::numbers::pi / 180;
    radius = std::min((width() / 2.0 - margin) / std::sin(half), (height() - margin) * 0.95);
    return {width() / 2.0, radius + margin};
}

void DialMeter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    double radius = 0;
    const QPointF middle = centre(radius);
    const Inks inks = inksOf(*this);
    painter.setPen(QPen(inks.faint, 1.5));
    painter.setBrush(inks.paper);
    if (m_sweep > 180) {
        painter.drawEllipse(middle, radius, radius);
    } else {
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    }
    paintScale(painter, middle, radius);
    painter.setPen(inks.ink);
    const double captionTop = middle.y() + radius * (m_sweep > 180 ? 0.42 : -0.42);
    painter.drawText(QRectF(middle.x() - radius, captionTop, 2 * radius, fontMetrics().height() * 1.3),
                     Qt::AlignCenter, m_text);
    paintNeedle(painter, middle, radius);
}

void DialMeter::paintScale(QPainter& painter, QPointF middle, double radius) const {
    const Inks inks = inksOf(*this);
    QFont font = painter.font();
    const bool flat = m_sweep <= 180;
    const int places = placesOfDivision(m_maximum, m_decimals);
    font.setPointSizeF(std::clamp(radius / (flat ? 14 : 9.5), 6.0, font.pointSizeF() * 1.6));
    // Long numbers are made small enough to stand side by side.
    const double widest = QFontMetricsF(font).horizontalAdvance(numberText(m_maximum, places, decimalSep));
    const double allowed = radius * WidestNumber;
    if (!flat && widest > allowed) font.setPointSizeF(std::max(5.0, font.pointSizeF() * allowed / widest));
    painter.setFont(font);
    const double rim = radius * 0.93;
    for (int mark = 0; mark <= Divisions * MinorMarks; ++mark) {
        const double share = double(mark) / (Divisions * MinorMarks);
        const bool major = mark % MinorMarks == 0;
        painter.setPen(QPen(major ? inks.ink : inks.faint, major ? 2 : 1));
        painter.drawLine(polar(middle, rim, angleOf(share)),
                         polar(middle, rim * (major ? 0.88 : 0.94), angleOf(share)));
        // On a flat dial the numbers stand closer than they are wide.
        if (!major || (flat && mark / MinorMarks % 2)) continue;
        const QString text = numberText(m_maximum * share, places, decimalSep);
        const QPointF at = polar(middle, rim * 0.74, angleOf(share));
        const QSizeF room(QFontMetricsF(font).horizontalAdvance(text) + 2, QFontMetricsF(font).height());
        painter.drawText(QRectF(at - QPointF(room.width() / 2, room.height() / 2), room), Qt::AlignCenter,
                         text);
    }
    painter.setFont(this->font());
}

void DialMeter::paintNeedle(QPainter& painter, QPointF middle, double radius) const {
    const Inks inks = inksOf(*this);
    const double angle = angleOf(share());
    QPainterPath needle;
    needle.moveTo(polar(middle, radius * 0.84, angle));
    needle.lineTo(polar(middle, radius * 0.05, angle + 90));
    needle.lineTo(polar(middle, radius * 0.12, angle + 180));
    needle.lineTo(polar(middle, radius * 0.05, angle - 90));
    needle.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(inks.value);
    painter.drawPath(needle);
    painter.setBrush(inks.ink);
    painter.drawEllipse(middle, radius * 0.05, radius * 0.05);
}

void DialMeter::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked();
}

// ---- ScaleMeter ----

ScaleMeter::ScaleMeter(Shape shape, QWidget* parent) : QWidget(parent), m_shape(shape) {
    installAccessibleKit();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ScaleMeter::setDigitalTo(int digits) {
    if (digits == m_digitalTo) return;
    m_digitalTo = digits;
    update();
}

void ScaleMeter::setValueTo(double value) {
    if (value == m_valueTo) return;
    m_valueTo = value;
    update();
}

void ScaleMeter::setValueUnit(const QString& unit) {
    if (unit == m_unit) return;
    m_unit = unit;
    update();
}

void ScaleMeter::setValueFormat(const QString& format) {
    if (format == m_format) return;
    m_format = format;
    update();
}

void ScaleMeter::setDigit(int digit) {
    if (digit == m_digit) return;
    m_digit = digit;
    update();
}

double ScaleMeter::value() const { return m_digitalTo > 0 ? m_digit * m_valueTo / m_digitalTo : 0; }

double ScaleMeter::share() const { return clippedShare(m_digit, m_digitalTo); }

QSize ScaleMeter::sizeHint() const {
    const int line = fontMetrics().height();
    return m_shape == Shape::Thermometer ? QSize(line * 7, line * 13) : QSize(line * 13, line * 6);
}

QSize ScaleMeter::minimumSizeHint() const { return sizeHint() / 2; }

QString ScaleMeter::markText(int mark) const {
    const auto point = m_format.indexOf(QLatin1Char('.'));
    const int places = point < 0 ? 0 : static_cast<int>(m_format.size() - point - 1);
    return numberText(m_valueTo * mark / Divisions, placesOfDivision(m_valueTo, places), decimalSep);
}

void ScaleMeter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Inks inks = inksOf(*this);
    painter.setPen(QPen(inks.faint, 1));
    painter.setBrush(inks.paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    QFont font = painter.font();
    const double room = m_shape == Shape::Thermometer ? height() / 22.0 : width() / 34.0;
    font.setPointSizeF(std::clamp(room, 6.0, font.pointSizeF() * 1.3));
    painter.setFont(font);
    m_shape == Shape::Thermometer ? paintThermometer(painter) : paintBar(painter);
}

void ScaleMeter::paintThermometer(QPainter& painter) const {
    const Inks inks = inksOf(*this);
    const double line = QFontMetricsF(painter.font()).height();
    const double bulb = std::min(width() * 0.14, line);
    const double tube = bulb * 0.9;
    const double x = width() * 0.66;
    const double top = line * 1.6;
    const double bottom = height() - 2 * bulb - line * 0.6;
    const QRectF glass(x - tube / 2, top - tube / 2, tube, bottom - top + tube);
    painter.setPen(QPen(inks.faint, 1.5));
    painter.setBrush(inks.paper);
    painter.drawRoundedRect(glass, tube / 2, tube / 2);
    const double level = bottom - (bottom - top) * share();
    painter.setPen(Qt::NoPen);
    painter.setBrush(inks.value);
    painter.drawRect(QRectF(x - tube * 0.28, level, tube * 0.56, bottom - level + bulb));
    painter.drawEllipse(QPointF(x, bottom + bulb), bulb, bulb);
    painter.setPen(inks.ink);
    for (int mark = 0; mark <= Divisions; ++mark) {
        const double y = bottom - (bottom - top) * mark / Divisions;
        painter.drawLine(QPointF(x - tube * 0.7, y), QPointF(x - tube * 1.3, y));
        painter.drawText(QRectF(0, y - line / 2, x - tube * 1.5, line), Qt::AlignRight | Qt::AlignVCenter,
                         markText(mark));
    }
    painter.drawText(QRectF(0, 2, width(), line), Qt::AlignCenter, m_unit);
}

void ScaleMeter::paintBar(QPainter& painter) const {
    const Inks inks = inksOf(*this);
    const double line = QFontMetricsF(painter.font()).height();
    const double edge =
        std::max(QFontMetricsF(painter.font()).horizontalAdvance(markText(Divisions)) / 2 + 4, 10.0);
    const double left = edge;
    const double right = width() - edge;
    const double thick = std::clamp(height() * 0.22, 6.0, line * 1.6);
    const double y = height() / 2.0 - thick;
    painter.setPen(QPen(inks.faint, 1.5));
    painter.setBrush(inks.paper);
    painter.drawRect(QRectF(left, y, right - left, thick));
    painter.setPen(Qt::NoPen);
    painter.setBrush(inks.value);
    painter.drawRect(QRectF(left, y + 2, (right - left) * share(), thick - 4));
    painter.setPen(inks.ink);
    for (int mark = 0; mark <= Divisions; ++mark) {
        const double x = left + (right - left) * mark / Divisions;
        painter.drawLine(QPointF(x, y + thick + 3), QPointF(x, y + thick + (mark % 2 ? 7 : 10)));
        if (mark % 2) continue;
        painter.drawText(QRectF(x - edge * 2, y + thick + 11, edge * 4, line), Qt::AlignHCenter,
                         markText(mark));
    }
    painter.drawText(QRectF(0, y - line - 4, width(), line), Qt::AlignCenter, m_unit);
}

void ScaleMeter::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked();
}

}  // namespace kelvane
