// A panel around something that can be chosen: red around the one that is, in the colour of a button around
// the others. The frame is thicker too, so that the colour is not the only sign. One that takes the focus is
// chosen with Space as well.
#pragma once

#include <QColor>
#include <QFrame>

namespace kelvane {

class MarkPanel : public QFrame {
    Q_OBJECT
    Q_PROPERTY(bool marked READ marked WRITE setMarked)
    Q_PROPERTY(QColor color READ color)
   public:
    explicit MarkPanel(QWidget* parent = nullptr);

    bool marked() const { return m_marked; }
    void setMarked(bool on);
    QColor color() const;

   Q_SIGNALS:
    void clicked();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

   private:
    bool m_marked = false;
};

}  // namespace kelvane
