// What the keypad window shows: texts, pages, lamps and what of it is visible. The engine writes it, the
// window shows what differs from before.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace kelvane {

// Pages of PageControl1.
enum class KeypadSheet : quint8 { Main, ParaInfo, ErrInfo, StartUp };

// Lamps: the labels RUNledLabel to UledLabel.
enum KeypadLed : quint8 {
    RUNled,
    STOPled,
    JOGled,
    FWDled,
    REVled,
    EXTled,
    PUled,
    Fled,
    Hled,
    Uled,
    KeypadLedCount
};

struct KeypadScreen {
    KeypadSheet sheet = KeypadSheet::StartUp;
    bool keysVisible = false;  // the eight keys

    // MainTabSheet
    QString HeadInfoLabel;
    QString displayVrLabel;
    QString LeadChVrLabel;
    bool displayVisible = true;   // the three above
    bool summaryVisible = false;  // FVrLabel, HVrLabel, AVrLabel and their letters
    QString FVrLabel;
    QString HVrLabel;
    QString AVrLabel;
    bool FreqScrollBarVisible = false;
    bool underLineVrLabelVisible = false;
    bool InputEditVisible = false;
    int FreqScrollBarMax = 0;  // 0.01 Hz
    int FreqScrollBarPosition = 0;
    QString InputEdit;

    // ParaInfoTabSheet
    QStringList SelPrComboBox;
    int SelPrComboBoxItemIndex = -1;
    QString PrNumVrLabel;
    QString PrNameLabel;
    QString DataVrLabel;
    QString DefLabel;
    QString MinLabel;
    QString MaxLabel;
    QString UnitVrLabel;
    bool LockImageVisible = false;

    // ErrInfoTabSheet
    QString ErrNameVrLabel;
    QString ErrDescriptLabel;

    // StartUpTabSheet
    bool OnLineTransparentButtonVisible = true;
    bool InitialVrLabelVisible = false;  // with InitialVrIndicator
    int InitialVrIndicatorPosition = 0;

    std::array<bool, KeypadLedCount> red{};  // white where not
    bool RunFlash = false;
    bool StopFlash = false;
    bool FwdFlash = false;
    bool RevFlash = false;

    bool flashing(KeypadLed led) const {
        return (led == RUNled && RunFlash) || (led == STOPled && StopFlash) || (led == FWDled && FwdFlash) ||
               (led == REVled && RevFlash);
    }
    bool operator==(const KeypadScreen&) const = default;
};

}  // namespace kelvane
