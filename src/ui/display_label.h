// VrLabel, the display label that shows a value of the drive: plain text only (a drive's text never becomes
// mark-up), flat, since nobody can edit it; sunken in its own colours where they are set.
#pragma once

#include <QColor>
#include <QLabel>

namespace kelvane {

class VrLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor)
    Q_PROPERTY(bool digital READ digital WRITE setDigital)
   public:
    explicit VrLabel(QWidget* parent = nullptr);
    explicit VrLabel(const QString& text, QWidget* parent = nullptr);

    // Text and background; an invalid colour gives the part back to the palette. A text colour alone keeps to
    // a background on which it can be read.
    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    QColor backgroundColor() const { return m_background; }
    void setBackgroundColor(const QColor& color);
    // Digits of equal width, bold.
    bool digital() const { return m_digital; }
    void setDigital(bool digital);
    // Room for that many characters, whatever the text; 0: as wide as the text.
    void setCharacters(int characters);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

   protected:
    void changeEvent(QEvent* event) override;

   private:
    void applyColours();
    QColor m_color;
    QColor m_background;
    int m_characters = 0;
    bool m_digital = false;
    bool m_applying = false;
};

}  // namespace kelvane
