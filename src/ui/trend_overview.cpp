#include "ui/trend_overview.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace kelvane {

TrendOverview::TrendOverview(const TrendData& trendData, TrendPlot& plot, QWidget* parent)
    : QWidget(parent), m_data(trendData), m_plot(plot) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setToolTip(tr("The whole run; click or drag to look at a part of it"));
    setAccessibleName(tr("Overview of the whole run"));
    connect(&plot, &TrendPlot::viewChanged, this, [this] { update(); });
}

void TrendOverview::refresh() {
    m_dirty = true;
    update();
}

void TrendOverview::drawCanvas() {
    const qreal ratio = devicePixelRatioF();
    m_canvas = QPixmap((QSizeF(size()) * ratio).toSize());
    m_canvas.setDevicePixelRatio(ratio);
    m_view.width = width();
    m_view.height = height();
    m_view.topMargin = m_view.bottomMargin = 2;
    m_view.PaintRecords(0, std::max<qint64>(m_data.records.size(), m_view.columns()));
    TrendLook look = m_plot.look;
    look.opGrid = false;
    QPainter painter(&m_canvas);
    painter.fillRect(rect(), look.background);
    ShapedTexts noTexts;
    TrendPainter(m_data, m_view, look, noTexts).paintColumns(painter, 0, m_view.columns());
    m_dirty = false;
}

void TrendOverview::paintEvent(QPaintEvent*) {
    if (m_dirty) drawCanvas();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_canvas);
    if (m_data.records.isEmpty()) return;
    const double from = std::max<double>(m_view.xOf(m_plot.FirstDisplayedRec()), m_view.left());
    const double to = std::min<double>(m_view.xOf(m_plot.LastDisplayedRec()), m_view.right() - 1);
    const QRectF frame(from, 0.5, std::max(3.0, to - from), height() - 1.0);
    painter.fillRect(frame, QColor(255, 255, 255, 40));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(frame);
}

void TrendOverview::resizeEvent(QResizeEvent* event) {
    m_dirty = true;
    QWidget::resizeEvent(event);
}

void TrendOverview::bringPlotTo(int x) {
    const qint64 middle = m_view.recordAt(x);
    const auto column = static_cast<qint64>(m_plot.view().columnOf(std::max<qint64>(middle, 0)));
    m_plot.pan(column - m_plot.view().columns() / 2 - m_plot.view().fromColumn());
}

void TrendOverview::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) bringPlotTo(event->position().toPoint().x());
}

void TrendOverview::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) bringPlotTo(event->position().toPoint().x());
}

}  // namespace kelvane
