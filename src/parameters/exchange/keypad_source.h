// Reads the table that a keypad holds, in place of a drive's. A hidden function: the menu item "Read from
// Keypad" works once its mark is set, which a password does. Sets the line to the keypad's own settings and
// starts its identification; the reader takes over when that has ended.
#pragma once

#include <QObject>
#include <functional>

#include "link/com_port.h"
#include "parameters/exchange/parameter_site.h"
#include "parameters/parameter_screen.h"

namespace kelvane {

// What com setup's boxes are set to, as a person would.
struct ComSetupChoice {
    LinkMode mode = LinkMode::Rtu;
    int Baud = 9600;
    int DataBits = 8;
    ComParity Parity = ComParity::None;
    int StopBits = 2;
};

class KeypadSource : public QObject {
    Q_OBJECT
   public:
    KeypadSource(ParameterSite& site, ParameterScreen& screen) : m_site(site), m_screen(screen) {}

    void ReadfromKeypadClick();
    // The right password was given: sets the mark of the menu item.
    void enable();

    // Sets the boxes of com setup, runs their change handlers (ComMode, BaudTimeoutTicks) and gives the
    // settings that its port has then.
    std::function<PortSettings(const ComSetupChoice&)> setComSetup;
    // closeTableClick of the table from drive; goes on when the tab has closed.
    std::function<void(std::function<void()> then)> closeTable;

   Q_SIGNALS:
    void passwordWanted();  // TPasswordForm; the right password leads to enable()
    void screenChanged();

   private:
    void goOn();
    bool keypadIsConnected();
    void takeLineSettings();
    void becomeKeypad();

    ParameterSite& m_site;
    ParameterScreen& m_screen;
};

}  // namespace kelvane
