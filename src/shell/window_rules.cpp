#include "shell/window_rules.h"

#include <algorithm>
#include <array>

namespace kelvane {

namespace {

constexpr std::array<WindowRule, 8> rules{{
    {.ActiveFunction = OwnerParameter, .prelude = true, .closesKeypad = true, .tail = true},
    {.ActiveFunction = OwnerQuickSetup,
     .needsOnLine = true,
     .offLineMessage = 6,
     .offLineTitle = "Warning Message",
     .prelude = true,
     .closesKeypad = true,
     .marksRead = true,
     .tail = true},
    {.ActiveFunction = OwnerAdvance, .prelude = true, .closesKeypad = true, .tail = true},
    {.ActiveFunction = OwnerAutoTuning,
     .needsOnLine = true,
     .offLineMessage = 2,
     .stopsKeypad = true,
     .closesKeypad = true,
     .marksRead = true,
     .marksWritten = true,
     .tail = true},
    {.ActiveFunction = OwnerPid,
     .needsOnLine = true,
     .offLineMessage = 2,
     .stopsKeypad = true,
     .closesKeypad = true,
     .marksRead = true,
     .marksWritten = true,
     .tail = true},
    {.ActiveFunction = OwnerTrend, .closesKeypad = true},
    {.ActiveFunction = OwnerMonitor, .closesKeypad = true},
    {.ActiveFunction = OwnerKeypad, .needsOnLine = true, .offLineMessage = 2},
}};

}  // namespace

std::span<const WindowRule> windowRules() { return rules; }

const WindowRule* windowRule(quint8 ActiveFunction) {
    const auto* found = std::find_if(rules.begin(), rules.end(), [=](const WindowRule& rule) {
        return rule.ActiveFunction == ActiveFunction;
    });
    return found == rules.end() ? nullptr : found;
}

bool WindowRules::refusedOffLine(const WindowRule& rule) {
    if (!rule.needsOnLine || m_link.Lamp.onLine()) return false;
    m_link.operatorAsked().tell(m_link.lang().MsgStr(rule.offLineMessage),
                                QString::fromLatin1(rule.offLineTitle));
    // Kept: Quick Setup has run its prelude by now and ends with its tail; the keypad brings its user back.
    if (rule.prelude) m_link.tail();
    if (rule.ActiveFunction == OwnerKeypad) Q_EMIT focusWanted(m_link.ActiveFunction);
    return true;
}

bool WindowRules::begin(quint8 ActiveFunction) {
    const WindowRule* rule = windowRule(ActiveFunction);
    if (!rule) return false;
    if (rule->prelude) m_link.prelude();
    if (refusedOffLine(*rule)) return false;
    if (ActiveFunction == OwnerKeypad) return true;
    if (rule->stopsKeypad) m_link.Keypad.GetDataTimer = false;
    if (rule->closesKeypad) Q_EMIT closeKeypad();
    if (rule->marksRead) m_link.ParamRead.ReadDone = 1;
    if (rule->marksWritten) m_link.ParamRead.WriteDone = 1;
    if (!rule->tail) m_link.Trend.KeypadTransparentButton = m_link.Lamp.onLine();
    m_link.ActiveFunction = ActiveFunction;
    m_link.notifyChanged();
    return true;
}

void WindowRules::finished(quint8 ActiveFunction) {
    const WindowRule* rule = windowRule(ActiveFunction);
    if (!rule || ActiveFunction == OwnerKeypad) return;
    const auto keypadAsSource = static_cast<quint8>(Family::Keypad);
    if (ActiveFunction == OwnerParameter && m_link.DriveStatus.DriveFamily == keypadAsSource) {
        m_link.DriveStatus.DriveReady = 0;
        m_link.TxTimer.setEnabled(false);
        m_link.RxTimer.setEnabled(false);
        m_link.Lamp.ComStatusAbLED = QStringLiteral("Off Line");
        m_link.Lamp.green = false;
    }
    if (rule->tail) {
        m_link.tail();
    } else {
        m_link.ActiveFunction = OwnerMain;
    }
}

}  // namespace kelvane
