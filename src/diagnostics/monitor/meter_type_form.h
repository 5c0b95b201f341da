// TMeterTypeForm: kind and top of one exchangeable meter of the Monitor. Whatever way it closes, what stands
// in it is taken.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "diagnostics/monitor/monitor_session.h"

class QLineEdit;

namespace kelvane {

class DialMeter;
class MarkPanel;
class ScaleMeter;

class TMeterTypeForm : public QDialog {
    Q_OBJECT
   public:
    explicit TMeterTypeForm(MeterTypeChoice& choice, QWidget* parent = nullptr);

    // Shows what choice holds; then is called when it has closed.
    void ask(std::function<void()> then);

   private:
    QLayout* buildSamples();
    MarkPanel* panel(int kind, const char* name, QWidget* sample, const QString& caption);
    void choose(int kind);
    void showSamples();

    MeterTypeChoice& m_choice;
    DialMeter* VrAngularMeter;
    ScaleMeter* AbThermometer;
    ScaleMeter* AbHMeter;
    QLineEdit* LabeledEdit1;
    std::array<MarkPanel*, 3> m_panels{};  // M1Panel, M2Panel, M3Panel
    std::function<void()> m_then;
};

}  // namespace kelvane
