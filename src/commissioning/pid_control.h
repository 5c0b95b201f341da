// PID control: reads the family's PID parameters into a grid, writes them back, runs and stops the drive and
// watches its state word. Engine behind TPIDForm. While the window is open it drives the line itself with
// three chains, of which one runs at a time; it never repeats a request.
#pragma once

#include "catalogue/state_leds.h"
#include "commissioning/commissioning_link.h"
#include "commissioning/commissioning_tables.h"
#include "commissioning/parameter_rows.h"

namespace kelvane {

class PidControl : public QObject {
    Q_OBJECT
   public:
    explicit PidControl(const CommissioningSite& site);

    CommissioningLink line;
    ParameterRows rows;
    quint8 ParamRow = 0;  // row being read or written
    enum Request : quint8 { RunPressed = 2, StopPressed = 3, RequestSent = 4 };
    quint8 RunRequest = RequestSent;
    StateLeds leds;

    RequestChain RdTimer;
    RequestChain WrTimer;
    RequestChain MonitorTimer;

    int ParamCount() const { return rows.count(); }
    const PidFamily& family() const { return pidFamily(line.DriveFamily()); }

    // The window has been given the link: fills the grid's numbers and starts to read, behind the wait
    // notice.
    void opened();
    void ReadTransparentButtonClick();
    void WriteTransparentButtonClick();
    void RUNTransparentButtonClick();
    void STOPTransparentButtonClick();  // the next frame but for the exchange in hand
    void ParaAdvStringGridDblClickCell(int row);
    // Nothing is sent any more but a STOP that was pressed and has no answer; else the drive stays as it is.
    void FormClose();

   Q_SIGNALS:
    void changed();  // leds, which chain runs, why the window stands

   private:
    void startReading();
    void stopTimers();
    void dropUnsentRun();
    bool stopIsUnanswered() const;
    std::optional<LinkRequest> stopBefore(std::optional<LinkRequest> (PidControl::*next)());
    std::optional<LinkRequest> nextRead();
    void storeRead();
    std::optional<LinkRequest> nextWrite();
    std::optional<LinkRequest> nextOfMonitor();
    void watch();
    void showLeds();

    const CommissioningSite m_site;
};

}  // namespace kelvane
