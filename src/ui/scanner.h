// The proof-of-life bars: VrIndicator, whose lit cells move with every frame of the link, and VrScanner,
// which runs while the line settings are being tried. The owner sets the position; nothing moves by itself.
#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace kelvane {

class VrIndicator : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int position READ position WRITE setPosition NOTIFY positionChanged)
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
   public:
    explicit VrIndicator(QWidget* parent = nullptr);

    int position() const { return m_position; }
    void setPosition(int position);  // -1 parked, else 0 to maximum; other numbers are clipped
    int maximum() const { return m_maximum; }
    void setMaximum(int maximum);  // default 100

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   Q_SIGNALS:
    void positionChanged(int position);

   protected:
    void paintEvent(QPaintEvent* event) override;
    // Strength of cell n of Cells, 0 dark to 1 fully lit; the position is given as a share of the maximum.
    virtual double strength(int cell, double share) const;
    static constexpr int Cells = 10;
    static constexpr int LeastPaintMs = 120;  // between two paintings of a bar that moves

   private:
    double strengthAt(int cell, int position) const;
    QRectF cellRoom(int cell) const;
    void paintChanges();

    int m_position = 0;
    int m_painted = 0;  // the position that is seen
    QElapsedTimer m_sincePainted;
    int m_maximum = 100;
};

// One bright cell with a fading tail; the maximum is 10 and it starts parked.
class VrScanner : public VrIndicator {
    Q_OBJECT
   public:
    explicit VrScanner(QWidget* parent = nullptr);

   protected:
    double strength(int cell, double share) const override;
};

}  // namespace kelvane
