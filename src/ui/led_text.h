// LedText, the small lamps of the keypad: a word whose colour is the lamp, red when lit, white when dark.
// Over it a dot is filled or hollow, so that the colour is never the only sign.
#pragma once

#include <QColor>
#include <QWidget>

namespace kelvane {

class LedText : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool lit READ lit WRITE setLit)
    Q_PROPERTY(bool flashing READ flashing WRITE setFlashing)
    Q_PROPERTY(QColor color READ color)
   public:
    explicit LedText(const QString& text, QWidget* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    bool lit() const { return m_lit; }
    void setLit(bool lit);
    // What a screen reader says beside the light of this moment; whoever sets it makes the lamp blink by
    // setLit().
    bool flashing() const { return m_flashing; }
    void setFlashing(bool flashing);
    QColor color() const;

    QSize sizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    void tellReader();
    QString m_text;
    bool m_lit = false;
    bool m_flashing = false;
};

}  // namespace kelvane
