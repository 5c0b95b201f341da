// The whole run on a strip: every visible channel from the first record to the last, with a frame around the
// part that the plot shows. A click or a drag brings the plot there.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "ui/trend_plot.h"

namespace kelvane {

class TrendOverview : public QWidget {
    Q_OBJECT
   public:
    // Both outlive the strip.
    TrendOverview(const TrendData& data, TrendPlot& plot, QWidget* parent = nullptr);
    // The data are others; painted at the next chance.
    void refresh();
    QSize sizeHint() const override { return {710, 40}; }
    QSize minimumSizeHint() const override { return {200, 32}; }

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

   private:
    void drawCanvas();
    void bringPlotTo(int x);
    const TrendData& m_data;
    TrendPlot& m_plot;
    TrendView m_view;
    QPixmap m_canvas;
    bool m_dirty = true;
};

}  // namespace kelvane
