// The refresh of the keypad: from the records of the link to the screen, in a fixed order.
#include "catalogue/parameter_record.h"
#include "catalogue/state_leds.h"
#include "diagnostics/keypad/keypad.h"
#include "diagnostics/keypad/keypad_families.h"
#include "diagnostics/keypad/keypad_tasks.h"
#include "diagnostics/keypad/user_display.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

QString faultTextRead(quint8 FaultCode) {
    return QStringLiteral("FF0332") % IntToBaseStr(FaultCode, 16, 2) % QStringLiteral("000A");
}

}  // namespace

// Both records by value: what a call changes in them stays in the call.
// NOLINTNEXTLINE(performance-unnecessary-value-param): so is the one that it only reads.
void Keypad::ProcessLEDstatus(DriveStatusRecord status, ParamReadRecord read) {
    if (!status.DriveReady) return;
    KeypadActive = true;
    askFaultText(status);
    showErrors(status);
    if (read.ReadDone && !ParamInfoShown) showParameter(status, read);
    if (!ComboFilled) fillCombo(status);
    showPage(status);
    showLeds(status.StatusWords[1]);
}

// Kept: asked for at every tick until it is in. The newest question takes the place of one that still waits.
void Keypad::askFaultText(DriveStatusRecord& status) {
    if (status.FaultCode == 0 || status.FaultTextValid) return;
    if (!keypadFamily(status.DriveFamily).tellsFaultText) {
        status.FaultTextValid = 1;
        return;
    }
    m_link.dropWaiting(FaultTextTask, m_faultTextCommand);
    m_faultTextCommand = faultTextRead(status.FaultCode);
    m_link.push(FaultTextTask, m_faultTextCommand);
}

void Keypad::showErrors(const DriveStatusRecord& status) {
    const KeypadFamily& family = keypadFamily(status.DriveFamily);
    if (status.FaultCode != 0 && status.FaultTextValid) {
        // Kept: a direct change of fault shows the new code's name with the old text until there was none.
        screen.ErrDescriptLabel = status.ExceptionText;
        screen.ErrNameVrLabel = family.faultName ? family.faultName(status.FaultCode) : status.FaultName;
        screen.sheet = KeypadSheet::ErrInfo;
    }
    const bool exception = status.ExceptionPending || m_refusal.shown();
    if (exception) {
        screen.ErrDescriptLabel = m_refusal.shown() ? m_refusal.text : status.ExceptionText;
        screen.ErrNameVrLabel =
            family.otherFaultName ? family.otherFaultName(status.FaultCode) : status.FaultName;
        screen.sheet = KeypadSheet::ErrInfo;
    }
    // Kept: an error over the parameter page ends on the main page.
    if (status.FaultCode == 0 && !exception && screen.sheet != KeypadSheet::ParaInfo)
        screen.sheet = KeypadSheet::Main;
}

void Keypad::showParameter(const DriveStatusRecord& status, const ParamReadRecord& read) {
    ParamInfoShown = true;
    const quint16 attribute = read.ReadField[3];
    const auto family = static_cast<Family>(status.DriveFamily);
    ParamDecimals = static_cast<quint8>(placesOf(family, attribute));
    const auto text = [&](quint16 word) { return valueText(family, attribute, word, ParamDecimals); };
    screen.LockImageVisible = readOnlyOf(attribute);
    screen.DataVrLabel = text(read.ReadField[0]);
    screen.MaxLabel = text(read.ReadField[1]);
    screen.MinLabel = text(read.ReadField[2]);
    screen.DefLabel =
        keypadFamily(status.DriveFamily).tellsDefault ? text(read.ReadField[4]) : QStringLiteral("--");
    screen.PrNameLabel = read.ReadName;
    screen.UnitVrLabel = read.ReadUnit;
    screen.PrNumVrLabel = screen.SelPrComboBox.value(screen.SelPrComboBoxItemIndex);
}

void Keypad::fillCombo(const DriveStatusRecord& status) {
    ComboFilled = true;
    ParamAddressList = parameterEntries(status);
    m_listFamily = status.DriveFamily;
    screen.SelPrComboBox.clear();
    for (const ParameterEntry& entry : ParamAddressList) screen.SelPrComboBox += entry.number;
    SelPrComboBoxChange(0);
}

void Keypad::showPage(const DriveStatusRecord& status) {
    switch (KeypadPage) {
        case 0:
            screen.FreqScrollBarMax = status.MaxFreqWord;
            screen.LeadChVrLabel.clear();
            screen.FreqScrollBarPosition =
                std::min<int>(static_cast<int>(status.StatusWords[2]), status.MaxFreqWord);
            screen.displayVrLabel = status.StatusText[0];
            break;
        case 1:
            screen.LeadChVrLabel.clear();
            screen.displayVrLabel = status.StatusText[1];
            break;
        case 2: showUserDisplay(status); break;
        case 3:
            screen.LeadChVrLabel = QStringLiteral("A");
            screen.displayVrLabel = status.StatusText[2];
            break;
        default:
            screen.FVrLabel = status.StatusText[0];
            screen.HVrLabel = status.StatusText[1];
            screen.AVrLabel = status.StatusText[2];
            break;
    }
}

void Keypad::showUserDisplay(const DriveStatusRecord& status) {
    const UserDisplay shown = userDisplay(status.DriveFamily, status.RatedWords[0], status.RatedWords[1]);
    screen.displayVrLabel = shown.displayVrLabel;
    if (shown.LeadChVrLabel) screen.LeadChVrLabel = *shown.LeadChVrLabel;
}

// A lamp that blinks is coloured by the flash timer alone.
void Keypad::showLeds(quint32 stateWord) {
    const StateLeds leds = codedStateLeds(stateWord);
    FreqFromLink = leds.frequencyFromLink;
    if (leds.EXT.on) {
        showEditing(false);
    } else if (screen.red[Fled]) {
        // Kept: so the underline winks off for one tick only.
        showEditing(true);
    }
    const auto steady = [this](KeypadLed led, const StateLed& state) {
        if (!state.flashing) screen.red[led] = state.on;
    };
    screen.RunFlash = leds.RUN.flashing;
    screen.StopFlash = leds.STOP.flashing;
    screen.FwdFlash = leds.FWD.flashing;
    screen.RevFlash = leds.REV.flashing;
    steady(RUNled, leds.RUN);
    steady(STOPled, leds.STOP);
    steady(JOGled, leds.JOG);
    steady(FWDled, leds.FWD);
    steady(REVled, leds.REV);
    steady(EXTled, leds.EXT);
    steady(PUled, leds.PU);
    if (JogHeld && leds.JOG.on) m_jogSeen = true;
}

}  // namespace kelvane
