// The 40 slots of Quick Setup: the control of each, its title, and the register that it stands for in each
// family. One matrix, read by the engine, the window and the tests.
#pragma once

#include <QString>
#include <array>
#include <span>

#include "base/drive_family.h"

namespace kelvane {

inline constexpr int SlotCount = 40;

enum class SlotControl : quint8 {
    List,   // "...ComboBox"; the value is the selected index
    Edit,   // "...LabeledEdit"; the value with its decimals
    Whole,  // "...LabeledEdit"; a plain integer, whatever decimals its attribute tells
};

// First and last slot of a page of the wizard.
struct SlotRange {
    int first;
    int last;
};
inline constexpr SlotRange StepOneSlots{1, 7};
inline constexpr SlotRange StepTwoSlots{8, 21};
inline constexpr SlotRange StepThreeSlots{22, 24};
inline constexpr SlotRange OutputSlots{25, 32};
inline constexpr SlotRange InputSlots{33, 40};

struct SlotRow {
    const char* name;  // of the control, without its kind: "S1para1"
    SlotControl control;
    const char* title;
    const char* unit;  // beside the control; empty where there is none or where it is the family's
    std::array<const char*, AllFamilies.size()>
        address;  // in the order of AllFamilies; empty: no such parameter
};

// Slots count from 1.
const SlotRow& quickSlot(int slot);
// Register as four hexadecimal digits; empty where the family has no such parameter, and outside the nine.
QString slotAddress(int slot, Family family);
// objectName of the slot's control.
QString slotControlName(int slot);

}  // namespace kelvane
