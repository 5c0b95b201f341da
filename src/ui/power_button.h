// VrPowerButton, the switch of Trend and Monitor: on or off, with the power sign and a caption. On it is a
// filled disc with a bright sign, off an empty one.
#pragma once

#include <QAbstractButton>
#include <QColor>

namespace kelvane {

class VrPowerButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QColor color READ color WRITE setColor)
   public:
    explicit VrPowerButton(QWidget* parent = nullptr);
    explicit VrPowerButton(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);
    QColor color() const { return m_color; }
    void setColor(const QColor& color);  // of the disc when on

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

   protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

   private:
    QColor m_color{0, 140, 60};
};

}  // namespace kelvane
