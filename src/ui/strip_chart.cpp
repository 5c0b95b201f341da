#include "ui/strip_chart.h"

#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvane {

namespace {

constexpr int ValueSteps = 4;
constexpr std::array<QRgb, StripChart::Lines> Colours{0xffd03030, 0xff2060d0, 0xff209040, 0xffb06000};

// A round step that gives about so many of them.
double roundStep(double range, int steps) {
    const double raw = range / steps;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (raw <= factor * power) return factor * power;
    return 10 * power;
}

}  // namespace

StripChart::StripChart(QWidget* parent) : QWidget(parent) {
    for (size_t i = 0; i < m_lines.size(); ++i) {
        m_lines[i] = new StripLine(this);
        m_lines[i]->setObjectName(QStringLiteral("Series%1").arg(i + 1));
        m_lines[i]->setColor(QColor::fromRgb(Colours[i]));
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void StripChart::setLine(int index, bool visible, int count, qint64 firstX, const QList<double>& values) {
    StripLine& at = line(index);
    at.m_visible = visible;
    at.m_count = count;
    at.m_firstX = firstX;
    at.m_values = values;
    update();
}

void StripChart::setBottomAxis(qint64 minimum, qint64 maximum) {
    m_minimum = minimum;
    m_maximum = maximum;
    update();
}

void StripChart::setLineColor(int index, const QColor& color) {
    line(index).setColor(color);
    update();
}

QSize StripChart::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 14};
}

StripChart::Scale StripChart::valueScale() const {
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    for (const StripLine* line : m_lines) {
        if (!line->visible()) continue;
        for (const double value : line->m_values) {
            low = std::min(low, value);
            high = std::max(high, value);
        }
    }
    if (low > high) return {};
    if (high - low < 1e-9) return {low - 1, high + 1};
    const double step = roundStep(high - low, ValueSteps);
    return {std::floor(low / step) * step, std::ceil(high / step) * step};
}

QRectF StripChart::plotRect() const {
    const QFontMetrics metrics = fontMetrics();
    const int left = metrics.horizontalAdvance(QStringLiteral("-000000.00"));
    return QRectF(rect()).adjusted(left, metrics.height(), -metrics.height(), -metrics.height() * 1.8);
}

void StripChart::paintAxes(QPainter& painter, const QRectF& plot, const Scale& scale) const {
    const QColor ink = palette().color(QPalette::Text);
    QColor faint = ink;
    faint.setAlphaF(0.2F);
    const double lineHeight = fontMetrics().height();
    const double step = roundStep(scale.high - scale.low, ValueSteps);
    for (double value = scale.low; value <= scale.high + step / 2; value += step) {
        const double y = plot.bottom() - (value - scale.low) / (scale.high - scale.low) * plot.height();
        painter.setPen(faint);
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(ink);
        painter.drawText(QRectF(0, y - lineHeight / 2, plot.left() - 6, lineHeight),
                         Qt::AlignRight | Qt::AlignVCenter, QLocale::c().toString(value, 'g', 7));
    }
    painter.setPen(ink);
    painter.drawRect(plot);
    const QRectF below(plot.left(), plot.bottom() + 2, plot.width(), lineHeight * 1.5);
    painter.drawText(below, Qt::AlignLeft | Qt::AlignTop, QString::number(m_minimum));
    painter.drawText(below, Qt::AlignRight | Qt::AlignTop, QString::number(m_maximum));
}

void StripChart::paintLine(QPainter& painter, const QRectF& plot, const Scale& scale,
                           const StripLine& line) const {
    const double range = std::max<double>(1, static_cast<double>(m_maximum - m_minimum));
    QPolygonF points;
    for (qsizetype i = 0; i < line.m_values.size(); ++i) {
        const auto x = static_cast<double>(line.m_firstX + i - m_minimum);
        points << QPointF(
            plot.left() + x / range * plot.width(),
            plot.bottom() - (line.m_values[i] - scale.low) / (scale.high - scale.low) * plot.height());
    }
    painter.setPen(QPen(line.color(), 2));
    painter.setBrush(line.color());
    painter.drawPolyline(points);
    if (points.size() == 1) painter.drawEllipse(points.front(), 2, 2);
}

void StripChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plot = plotRect();
    painter.fillRect(plot, palette().color(QPalette::Base));
    const Scale scale = valueScale();
    paintAxes(painter, plot, scale);
    painter.setClipRect(plot.adjusted(-2, -2, 2, 2));
    for (const StripLine* line : m_lines)
        if (line->visible()) paintLine(painter, plot, scale, *line);
}

}  // namespace kelvane
