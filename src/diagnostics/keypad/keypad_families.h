// What the keypad does differently with each family: one row a family.
#pragma once

#include <QString>
#include <QtGlobal>

namespace kelvane {

enum class DisplayDecimals : quint8 {
    Bits8And9,  // of the format word
    HighByte,   // of the format word
    TwoOrNone,  // 2 with any format word but 0
};

struct KeypadFamily {
    // User display.
    DisplayDecimals displayDecimals = DisplayDecimals::Bits8And9;
    bool signedValues = false;  // where the format says so
    bool segmentLead = false;   // lead character as a seven-segment pattern, hexadecimal values
    bool letterLead = true;     // lead character as a letter
    bool pointBehindLead = true;
    int userDisplayWords = 3;  // that are kept of what task 7 reads
    // Parameters.
    bool oneList = false;  // numbers without groups
    bool tellsDefault = true;
    const char* recordLength = "000F";
    // Faults and keys.
    bool tellsFaultText = true;
    // Name of a fault; from the drive where there is no table.
    QString (*faultName)(int code) = nullptr;
    // Kept: with a refusal, and in the history, only one of the two tables is looked at.
    QString (*otherFaultName)(int code) = nullptr;
    const char* leftArrow = nullptr;
};

// The row of a family; that of Larch without a left arrow for any other value.
const KeypadFamily& keypadFamily(quint8 DriveFamily);

}  // namespace kelvane
