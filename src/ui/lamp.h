// AbLED, the lamp of the windows: a disc with a caption. Lit it is a large disc, dark a small dot, so that
// its colour is never the only sign. A lamp may be clickable (a choice between sources), and is a ring when
// dark, as other choices are; flashing lamps of a window share one LampFlasher, so that they blink together.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QPointer>
#include <vector>

#include "base/tick_clock.h"

namespace kelvane {

class AbLED : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool flashing READ flashing WRITE setFlashing NOTIFY flashingChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor)
    Q_PROPERTY(bool clickable READ clickable WRITE setClickable)
   public:
    explicit AbLED(QWidget* parent = nullptr);
    explicit AbLED(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);
    bool flashing() const { return m_flashing; }
    void setFlashing(bool on);
    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    // A clickable lamp takes the focus, and click or Space emits clicked(). It changes its state by itself
    // only when it is autoExclusive; otherwise the window decides.
    bool clickable() const { return m_clickable; }
    void setClickable(bool on);

    // What is on the screen at this moment: checked, and when flashing only in the bright phase.
    bool lit() const { return isChecked() && (!m_flashing || m_brightPhase); }
    void setBrightPhase(bool bright);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

   Q_SIGNALS:
    void flashingChanged(bool flashing);
    void doubleClicked();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool hitButton(const QPoint& pos) const override;
    void nextCheckState() override;

   private:
    void followMnemonic();  // a lamp that nobody can press has no letter
    QRectF discRect() const;
    QColor m_color{0, 160, 0};
    bool m_flashing = false;
    bool m_brightPhase = true;
    bool m_clickable = false;
};

// Blinks the lamps of a window: 50 ms ticks, the phase changes every sixth. It ticks only while a lamp
// flashes.
class LampFlasher : public QObject {
    Q_OBJECT
   public:
    explicit LampFlasher(TickClock& clock, QObject* parent = nullptr);
    void watch(AbLED* lamp);

   private:
    void tick();
    void follow();
    TickTimer m_timer;
    std::vector<QPointer<AbLED>> m_lamps;
    int m_ticks = 0;
    bool m_bright = true;
};

}  // namespace kelvane
