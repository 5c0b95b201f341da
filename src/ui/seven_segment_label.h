// SevenSegmentLabel, the digits of the keypad's display: a text in the look of a segment display, as large as
// its room allows. Letters that seven segments cannot form take the two diagonals in.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <vector>

class QPainter;

namespace kelvane {

// One place of the display: a bit for each lit segment, and the point behind it.
struct SegmentPlace {
    quint16 segments = 0;
    bool point = false;
    bool operator==(const SegmentPlace&) const = default;
};

// A point stands behind the character before it and takes no place of its own; without one it gets an empty
// place.
std::vector<SegmentPlace> segmentPlaces(const QString& text);

class SevenSegmentLabel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QColor color READ color WRITE setColor)
    Q_PROPERTY(int places READ places WRITE setPlaces)
   public:
    explicit SevenSegmentLabel(QWidget* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    QColor color() const { return m_color; }  // of lit segments; dark ones are a shadow of it
    void setColor(const QColor& color);
    // Places that fill the width; a longer text gets narrower ones. It stands at the alignment's side.
    int places() const { return m_places; }
    void setPlaces(int places);
    void setAlignment(Qt::Alignment alignment);

    QSize sizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QString m_text;
    std::vector<SegmentPlace> m_shown;
    QColor m_color{0x7C, 0xF0, 0xC0};
    Qt::Alignment m_alignment = Qt::AlignRight;
    int m_places = 5;
};

}  // namespace kelvane
