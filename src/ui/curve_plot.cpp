#include "ui/curve_plot.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/readable_colours.h"

namespace kelvane {
namespace {

constexpr double Edge = 8;
constexpr double Arrow = 5;
const QColor CurveOnLight(0x1a, 0x7f, 0xc1);
const QColor CurveOnDark(0x62, 0xb8, 0xf0);

void drawArrow(QPainter& painter, QPointF from, QPointF to) {
    painter.drawLine(from, to);
    const bool up = from.x() == to.x();
    painter.drawLine(to, to + (up ? QPointF(-Arrow, Arrow) : QPointF(-Arrow, -Arrow)));
    painter.drawLine(to, to + (up ? QPointF(Arrow, Arrow) : QPointF(-Arrow, Arrow)));
}

}  // namespace

CurvePlot::CurvePlot(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CurvePlot::setCurve(const QList<QPointF>& curve, double xTop, double yTop, double setPoint) {
    m_curve = curve;
    m_xTop = xTop;
    m_yTop = yTop;
    m_setPoint = setPoint;
    update();
}

QSize CurvePlot::sizeHint() const { return {fontMetrics().height() * 14, fontMetrics().height() * 8}; }

void CurvePlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor paper = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    painter.fillRect(rect(), paper);
    const QRectF room = QRectF(rect()).adjusted(Edge, Edge, -Edge, -Edge);
    const auto at = [&](QPointF p) {
        return QPointF(room.left() + room.width() * p.x() / m_xTop,
                       room.bottom() - room.height() * p.y() / m_yTop);
    };
    painter.setPen(QPen(mix(ink, paper, 0.4), 1, Qt::DashLine));
    painter.drawLine(at({0, m_setPoint}), at({m_xTop, m_setPoint}));
    painter.setPen(QPen(ink, 1.2));
    drawArrow(painter, room.bottomLeft(), room.topLeft());
    drawArrow(painter, room.bottomLeft(), room.bottomRight());
    QPainterPath path;
    for (qsizetype i = 0; i < m_curve.size(); ++i)
        i ? path.lineTo(at(m_curve[i])) : path.moveTo(at(m_curve[i]));
    const QColor curve =
        contrast(CurveOnLight, paper) > contrast(CurveOnDark, paper) ? CurveOnLight : CurveOnDark;
    painter.setPen(QPen(curve, 2));
    painter.setClipRect(room);
    painter.drawPath(path);
}

}  // namespace kelvane
