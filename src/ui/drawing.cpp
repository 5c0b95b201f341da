#include "ui/drawing.h"

#include <QPainter>

namespace kelvane {

Drawing::Drawing(const QString& resource, const QString& heard, QWidget* parent)
    : QWidget(parent), m_renderer(resource) {
    setAccessibleName(heard);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

// As large as its texts need to be read beside those of the window.
QSize Drawing::sizeHint() const {
    constexpr double DrawnLineHeight = 15;
    const QSizeF drawn = m_renderer.viewBoxF().size();
    return (drawn * (fontMetrics().height() / DrawnLineHeight)).toSize();
}

QRectF Drawing::pictureRect() const {
    const QSizeF scaled = m_renderer.viewBoxF().size().scaled(size(), Qt::KeepAspectRatio);
    return {QPointF((width() - scaled.width()) / 2, (height() - scaled.height()) / 2), scaled};
}

QPointF Drawing::placeOf(const QPointF& point) const {
    const QRectF rect = pictureRect();
    const QRectF drawn = m_renderer.viewBoxF();
    return {rect.x() + (point.x() - drawn.x()) * rect.width() / drawn.width(),
            rect.y() + (point.y() - drawn.y()) * rect.height() / drawn.height()};
}

void Drawing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_renderer.render(&painter, pictureRect());
}

}  // namespace kelvane
