#include "shell/window_rules.h"

namespace kelvane {

bool WindowRules::refusedOffLine(const WindowRule& rule) {
    if (rule.offLine == OffLineBox::NotNeeded || m_link.Lamp.onLine()) return false;
    if (rule.offLine == OffLineBox::QuickSetup)
        m_voice.person.tell(m_voice.text(Message::OnLineFirst), QStringLiteral("Warning Message"));
    else
        m_voice.person.tell(m_voice.text(Message::OffLineNow), QStringLiteral("Cofirm"));
    // Kept: Quick Setup has run its prelude by now and ends with its tail; the keypad brings its user back.
    if (rule.prelude) m_link.tail();
    if (rule.beside) Q_EMIT focusWanted(m_link.ActiveFunction);
    return true;
}

bool WindowRules::begin(const WindowRule& rule) {
    if (rule.prelude) m_link.prelude();
    if (refusedOffLine(rule)) return false;
    if (!rule.ownsLink()) return true;
    if (rule.stopsKeypad) Q_EMIT stopKeypad();
    if (rule.closesKeypad) Q_EMIT closeKeypad();
    if (rule.marksRead) m_link.ParamRead.ReadDone = 1;
    if (rule.marksWritten) m_link.ParamRead.WriteDone = 1;
    m_link.ActiveFunction = rule.ActiveFunction;
    m_link.notifyChanged();
    return true;
}

void WindowRules::finished(const WindowRule& rule) {
    if (rule.beside) return;
    const auto keypadAsSource = static_cast<quint8>(Family::Keypad);
    if (rule.endsKeypadSource && m_link.DriveStatus.DriveFamily == keypadAsSource) {
        m_link.DriveStatus.DriveReady = 0;
        m_link.rest();
        m_link.setLamp(LampState::Silent);
    }
    if (rule.takesLine()) {
        m_link.tail();
    } else {
        m_link.ActiveFunction = OwnerMain;
    }
}

void WindowRules::giveBack(const WindowRule& rule) {
    if (rule.takesLine()) m_link.prelude();
    m_link.ActiveFunction = rule.ActiveFunction;
    m_link.notifyChanged();
}

}  // namespace kelvane
