// Drawing, a vector picture from the resources at its own proportions in whatever room it has, such as the
// V/f curve and the terminals of Quick Setup.
#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace kelvane {

class Drawing : public QWidget {
    Q_OBJECT
   public:
    // resource is a path such as ":/kelvane/quicksetup/terminals.svg"; heard is what a screen reader says.
    Drawing(const QString& resource, const QString& heard, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint() / 2; }
    // Where a point of the drawing, in its own units, lies in the widget.
    QPointF placeOf(const QPointF& point) const;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QRectF pictureRect() const;
    mutable QSvgRenderer m_renderer;
};

}  // namespace kelvane
