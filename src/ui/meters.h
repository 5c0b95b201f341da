// The meters of the windows: DialMeter, a needle over 270 degrees (or less) with ten major divisions, and
// ScaleMeter, a thermometer or a horizontal bar. They show numbers and decide nothing; a value above the top
// stands at the top.
#pragma once

#include <QWidget>

namespace kelvane {

class DialMeter : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double MaxValue READ MaxValue WRITE setMaxValue)
    Q_PROPERTY(double Position READ Position WRITE setPosition)
    Q_PROPERTY(double value READ Position WRITE setPosition)
    Q_PROPERTY(int Decimals READ Decimals WRITE setDecimals)
    Q_PROPERTY(QString text READ text WRITE setText)
   public:
    explicit DialMeter(QWidget* parent = nullptr, int sweepDegrees = 270);

    QString decimalSep = QStringLiteral(".");  // of the numbers on the scale

    double MaxValue() const { return m_maximum; }
    void setMaxValue(double maximum);  // top of the scale; the bottom is 0
    double Position() const { return m_position; }
    void setPosition(double position);
    // Places of the numbers on the scale.
    int Decimals() const { return m_decimals; }
    void setDecimals(int decimals);
    // Caption inside the dial: the unit, or value and unit.
    QString text() const { return m_text; }
    void setText(const QString& text);
    // Share of the scale at which the needle stands, 0 to 1.
    double share() const;
    QString valueText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   Q_SIGNALS:
    void doubleClicked();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

   private:
    double angleOf(double share) const;  // degrees, counterclockwise from the right
    QPointF centre(double& radius) const;
    void paintScale(class QPainter& painter, QPointF middle, double radius) const;
    void paintNeedle(QPainter& painter, QPointF middle, double radius) const;

    int m_sweep;
    double m_maximum = 50;
    double m_position = 0;
    int m_decimals = 0;
    QString m_text;
};

class ScaleMeter : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int DigitalTo READ DigitalTo WRITE setDigitalTo)
    Q_PROPERTY(double ValueTo READ ValueTo WRITE setValueTo)
    Q_PROPERTY(QString ValueUnit READ ValueUnit WRITE setValueUnit)
    Q_PROPERTY(QString ValueFormat READ ValueFormat WRITE setValueFormat)
    Q_PROPERTY(int Digit READ Digit WRITE setDigit)
    Q_PROPERTY(double value READ value)
   public:
    enum class Shape { Thermometer, Bar };  // upright, lying
    explicit ScaleMeter(Shape shape, QWidget* parent = nullptr);

    QString decimalSep = QStringLiteral(".");  // of the numbers on the scale

    // Top of the scale in raw counts and in units; the bottoms are 0.
    int DigitalTo() const { return m_digitalTo; }
    void setDigitalTo(int digits);
    double ValueTo() const { return m_valueTo; }
    void setValueTo(double value);
    QString ValueUnit() const { return m_unit; }
    void setValueUnit(const QString& unit);
    QString ValueFormat() const { return m_format; }  // "##0.00"
    void setValueFormat(const QString& format);
    int Digit() const { return m_digit; }  // present raw value
    void setDigit(int digit);
    // Digit x ValueTo / DigitalTo; 0 while the scale has no top.
    double value() const;
    double share() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   Q_SIGNALS:
    void doubleClicked();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

   private:
    void paintThermometer(class QPainter& painter) const;
    void paintBar(QPainter& painter) const;
    QString markText(int mark) const;

    Shape m_shape;
    int m_digitalTo = 5000;
    double m_valueTo = 50;
    int m_digit = 0;
    QString m_unit;
    QString m_format = QStringLiteral("##0");
};

}  // namespace kelvane
