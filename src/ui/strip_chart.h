// A strip chart: up to four lines over a running number, the newest at the right. The window hands it what
// lies in the frame; it finds the scale of the values by itself.
#pragma once

#include <QColor>
#include <QList>
#include <QWidget>
#include <array>

namespace kelvane {

// One line of the chart; its object name is that of the series.
class StripLine : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool visible READ visible)
    Q_PROPERTY(QColor color READ color WRITE setColor)
    Q_PROPERTY(int count READ count)  // values in all, not only in the frame
   public:
    using QObject::QObject;
    bool visible() const { return m_visible; }
    QColor color() const { return m_color; }
    void setColor(const QColor& color) { m_color = color; }
    int count() const { return m_count; }

   private:
    friend class StripChart;
    bool m_visible = false;
    QColor m_color;
    int m_count = 0;
    qint64 m_firstX = 0;
    QList<double> m_values;
};

class StripChart : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint64 bottomMinimum READ bottomMinimum)
    Q_PROPERTY(qint64 bottomMaximum READ bottomMaximum)
   public:
    static constexpr int Lines = 4;

    explicit StripChart(QWidget* parent = nullptr);

    StripLine& line(int index) { return *m_lines[static_cast<size_t>(index)]; }
    // Values from number firstX on; count is that of the whole series.
    void setLine(int index, bool visible, int count, qint64 firstX, const QList<double>& values);
    void setBottomAxis(qint64 minimum, qint64 maximum);
    void setLineColor(int index, const QColor& color);
    qint64 bottomMinimum() const { return m_minimum; }
    qint64 bottomMaximum() const { return m_maximum; }

    QSize sizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    struct Scale {
        double low = 0;
        double high = 1;
    };
    Scale valueScale() const;
    QRectF plotRect() const;
    void paintAxes(QPainter& painter, const QRectF& plot, const Scale& scale) const;
    void paintLine(QPainter& painter, const QRectF& plot, const Scale& scale, const StripLine& line) const;

    std::array<StripLine*, Lines> m_lines;
    qint64 m_minimum = 0;
    qint64 m_maximum = 20;
};

}  // namespace kelvane
