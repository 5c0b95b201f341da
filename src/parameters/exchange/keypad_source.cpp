#include "parameters/exchange/keypad_source.h"

#include <algorithm>

namespace kelvane {

void KeypadSource::ReadfromKeypadClick() {
    if (!m_screen.ReadfromKeypadChecked) {
        Q_EMIT passwordWanted();
        return;
    }
    if (closeTable) {
        closeTable([this] { goOn(); });
    } else {
        goOn();
    }
}

void KeypadSource::enable() {
    m_screen.ReadfromKeypadChecked = true;
    Q_EMIT screenChanged();
}

void KeypadSource::goOn() {
    if (!keypadIsConnected()) return;
    m_site.link.emptyQueues();
    takeLineSettings();
    becomeKeypad();
    m_site.link.push(80);
    m_site.link.push(81);
    m_site.link.start();
}

bool KeypadSource::keypadIsConnected() {
    return m_site.voice.person.box(QStringLiteral("The baudrate and protocol will be changed to PU mode.\n"
                                                  "Please make sure keypad had connected to PC !"),
                                   QStringLiteral("Warning"), BoxIcon::Exclamation,
                                   BoxButtons::OkCancel) == BoxAnswer::Ok;
}

// As "Accept" of com setup takes them over.
void KeypadSource::takeLineSettings() {
    if (!setComSetup) return;
    m_site.link.port().setSettings(setComSetup(ComSetupChoice{}));
    m_site.link.ReplyTimeoutTicks = m_site.link.BaudTimeoutTicks;
}

void KeypadSource::becomeKeypad() {
    RequestScheduler& link = m_site.link;
    m_screen.ModelVrLabel = QStringLiteral("Keypad");
    link.setLamp(LampState::KeypadAsSource);
    link.DriveStatus.DriveReady = 0;
    link.DriveStatus.DriveFamily = static_cast<quint8>(Family::Keypad);
    // A keypad tells values only; what an earlier drive said of its parameters must not stand beside them.
    std::fill(link.ParamRead.ReadField.begin() + 1, link.ParamRead.ReadField.end(), quint16(0));
    link.ParamRead.ReadName.clear();
    link.ParamRead.ReadUnit.clear();
    link.notifyChanged();
    Q_EMIT screenChanged();
}

}  // namespace kelvane
