// TConnectForm, shown over Communication Setup while the line settings are being tried. Closing it ends the
// walk.
#pragma once

#include <QDialog>

#include "link/com_setup.h"

class QLabel;
class QProgressBar;

namespace kelvane {

class VrScanner;

class TConnectForm : public QDialog {
    Q_OBJECT
   public:
    // parent is the setup window, so that it stands above it.
    TConnectForm(ComSetup& setup, TickClock& clock, QWidget* parent = nullptr);

    TickTimer Timer1;

   protected:
    void done(int result) override;

   private:
    void Timer1Timer();
    void showRecord();
    void park();
    ComSetup& m_setup;
    VrScanner* VrScanner1;
    QLabel* m_baud;
    QLabel* m_protocol;
    QProgressBar* m_progress;  // combinations that were tried
};

}  // namespace kelvane
