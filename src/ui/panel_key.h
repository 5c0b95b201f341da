// PanelKey, a key of the keypad: a raised cap with a word on it, that sinks while it is held. It keeps its
// own colours in every palette. Beside a click it tells how long it is held, for keys that act as long as
// that.
#pragma once

#include <QAbstractButton>
#include <QColor>

#include "base/tick_clock.h"

namespace kelvane {

class PanelKey : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QString hint READ toolTip WRITE setToolTip)
    Q_PROPERTY(QColor color READ color WRITE setColor)
   public:
    PanelKey(TickClock& clock, const QString& text, QWidget* parent = nullptr);

    QColor color() const { return m_color; }  // of the cap
    void setColor(const QColor& color);

    QSize sizeHint() const override;

   Q_SIGNALS:
    void heldDown();  // left mouse button, Space or Enter; a repeated key is no new press
    // Released anywhere, or out of reach: focus, window or key gone, or a box in front.
    void letGo();

   protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

   private:
    void hold();
    void release();
    void endHold();
    void keyReleased();
    QColor m_color{0x56, 0x61, 0x6E};
    bool m_held = false;
    TickTimer m_releaseSoon;  // a key went up; it may have repeated
};

}  // namespace kelvane
