// TMonitorForm, the Monitor window: a large dial, two meters whose kind can be exchanged, and a small trend.
#pragma once

#include <QDialog>

#include "diagnostics/monitor/monitor_session.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QStackedWidget;

namespace kelvane {

class DialMeter;
class ScaleMeter;
class TransparentButton;
class TrendPlot;
class VrLabel;
class VrPowerButton;

class TMonitorForm : public QDialog {
    Q_OBJECT
   public:
    TMonitorForm(MonitorSession& monitor, RequestScheduler& link, QWidget* parent = nullptr);

    void done(int result) override;

   Q_SIGNALS:
    void keypadWanted();
    // The dialog over session.meterType; then is called when it has closed.
    void meterTypeWanted(const std::function<void()>& then);

   protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

   private:
    // One exchangeable meter on the screen.
    struct MeterPart {
        ExchangeableMeter* meter = nullptr;
        QComboBox* box = nullptr;
        QStackedWidget* pages = nullptr;
        DialMeter* dial = nullptr;
        ScaleMeter* thermometer = nullptr;
        ScaleMeter* bar = nullptr;
        QLabel* value = nullptr;
    };
    QLayout* buildButtons();
    QLayout* buildIdentity();
    QWidget* buildBigDial();
    QWidget* buildMeter(int number, ExchangeableMeter& meter, MeterPart& part);
    QWidget* buildTrend();
    TransparentButton* button(const char* name, int iconNumber, const QString& text, const QString& hint);
    QComboBox* itemBox(const char* name, const QString& what);
    void selectMeterType(ExchangeableMeter& meter);
    void askMaximum(void (MonitorSession::*take)(const QString& text));
    void listen();
    void showSession();
    void showValues();
    void showMeter(const MeterPart& part);
    void showItems(QComboBox& box, int index);
    void showIdentity();

    MonitorSession& m_monitor;
    RequestScheduler& m_link;
    VrPowerButton* StartVrPowerButton;
    TransparentButton* KeypadTransparentButton;
    DialMeter* VrMeter;
    QComboBox* VrMeterComboBox;
    MeterPart m_first;
    MeterPart m_second;
    TrendPlot* AbTrend1;
    QComboBox* Ch1ComboBox;
    QLineEdit* Ch1LabeledEdit;
    QLabel* Label1;
    TransparentButton* CussorTransparentButton;
    std::array<VrLabel*, 5> m_identity{};
};

}  // namespace kelvane
