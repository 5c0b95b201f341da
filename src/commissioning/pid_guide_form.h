// The troubleshooting guide of the PID window: four cases by lamp, each with advice and a before and an after
// curve. Nothing of the drive reaches it.
#pragma once

#include <QWidget>
#include <array>

class QPlainTextEdit;
class QStackedWidget;

namespace kelvane {

class AbLED;

// A lamp that only heads a part of the window: always lit, in a colour and weight of its own.
void setUpHeading(AbLED& heading);

class PidGuide : public QWidget {
    Q_OBJECT
   public:
    explicit PidGuide(QWidget* parent = nullptr);
    void showCase(int number);  // 1 to 4

   private:
    QWidget* page(int number);

    std::array<AbLED*, 4> m_lamps{};
    QStackedWidget* PageControl1;
};

}  // namespace kelvane
