// What Quick Setup shows for one family beside its registers: the choices of the list slots, units, terminal
// names and the picture of the V/f curve. One file a family in families/; the engine takes them through
// familySetup().
#pragma once

#include <QString>
#include <array>
#include <span>
#include <string_view>

#include "base/drive_family.h"

namespace kelvane {

// One line a value: two digits, ": " and the text. What is sent is the position, not the printed number.
using ChoiceList = std::span<const std::string_view>;

// Slots that share a list have it once. An empty list stands for the form's own.
struct ChoiceLists {
    ChoiceList S1para1;
    ChoiceList S1para2;
    ChoiceList S1para4;
    ChoiceList S3para1;
    ChoiceList S3para2;
    ChoiceList S3para3;
    ChoiceList outputs;
    ChoiceList inputMode;  // S4Inpara1 where it selects between two and three wires; empty: it is an input as
                           // the others
    ChoiceList inputs;
};

// The form's own units, for a family that has none of its own.
inline constexpr const char* FormCurrentUnit = "A";
inline constexpr const char* FormBoundUnit = "%";

struct FamilySetup {
    Family DriveFamily;
    ChoiceLists lists;
    const char* currentUnit = FormCurrentUnit;  // beside S1para5 and S1para6
    const char* boundUnit = FormBoundUnit;      // beside S2para11 and S2para12
    std::array<const char*, 7> terminals{"MI0", "MI1", "MI2", "MI3", "MI4", "MI5", "GND"};
    bool twoMidPoints = false;  // in the picture of the V/f curve
    int oneWordFrom = 41;       // slots from here on are read as one word: no limits, no attribute
};

// nullptr for a value that is none of the nine families.
const FamilySetup* familySetup(quint8 DriveFamily);

// The list of a slot, empty for an edit.
ChoiceList slotChoices(const FamilySetup& family, int slot);
// "01-00  Maximum Output Frequency", or "Pr.03  ..." in the older numbering; empty where the slot is not
// used.
QString slotLabel(const FamilySetup& family, int slot);
// Unit beside the slot's edit; empty for none.
QString slotUnit(const FamilySetup& family, int slot);

}  // namespace kelvane
