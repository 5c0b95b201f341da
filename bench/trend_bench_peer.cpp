#include "bench/trend_bench_peer.h"

#include <qcustomplot.h>

#include <algorithm>

#include "bench/cpu_time.h"

namespace kelvane {

namespace {

QSharedPointer<QCPGraphDataContainer> pointsOf(const TrendData& data, size_t channel) {
    QVector<QCPGraphData> points(data.records.size());
    for (qint64 i = 0; i < points.size(); ++i)
        points[i] = {data.records[i].Time, double(data.records[i].Ch[channel])};
    auto container = QSharedPointer<QCPGraphDataContainer>::create();
    container->set(points, true);
    return container;
}

}  // namespace

double qCustomPlotRepaintMs(const TrendData& data, QSize size) {
    QCustomPlot plot;
    plot.resize(size);
    plot.setNotAntialiasedElements(QCP::aeAll);
    plot.setPlottingHints(QCP::phFastPolylines);
    // Of ten million records all graphs show the data of one channel: eight of them would not fit everywhere.
    const bool shared = data.records.size() > 2000000;
    QSharedPointer<QCPGraphDataContainer> points;
    for (size_t c = 0; c < data.channels.size(); ++c) {
        QCPGraph* graph = plot.addGraph();
        graph->setPen(QPen(QColor::fromRgb(data.channels[c].color), 1));
        if (!points || !shared) points = pointsOf(data, c);
        graph->setData(points);
    }
    plot.rescaleAxes();
    plot.show();
    double least = 1e300;
    for (int i = 0; i < 3; ++i) {
        const double before = cpuMs();
        plot.replot(QCustomPlot::rpImmediateRefresh);
        least = std::min(least, cpuMs() - before);
    }
    return least;
}

}  // namespace kelvane
