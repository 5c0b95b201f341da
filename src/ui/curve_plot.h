// A small still drawing of one curve over an axis cross, with a dashed line at a set point: the step
// responses of the PID guide. No text stands in it; captions are labels beside it.
#pragma once

#include <QList>
#include <QPointF>
#include <QWidget>

namespace kelvane {

class CurvePlot : public QWidget {
    Q_OBJECT
   public:
    explicit CurvePlot(QWidget* parent = nullptr);
    // x from 0 to xTop, y from 0 to yTop.
    void setCurve(const QList<QPointF>& curve, double xTop, double yTop, double setPoint);
    const QList<QPointF>& curve() const { return m_curve; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint() / 2; }

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QList<QPointF> m_curve;
    double m_xTop = 1;
    double m_yTop = 1;
    double m_setPoint = 0;
};

}  // namespace kelvane
