#include "quicksetup/family_setup.h"

#include <algorithm>

#include "link/number_text.h"
#include "quicksetup/families/family_setups.h"
#include "quicksetup/quick_slots.h"

namespace kelvane {

namespace {

constexpr std::array Setups{&RowanSetup, &AspenSetup,  &LarchSetup,  &HazelSetup, &TiliaSetup,
                            &OsierSetup, &WillowSetup, &YarrowSetup, &SorrelSetup};
static_assert(Setups.size() == AllFamilies.size());

constexpr int InputModeSlot = InputSlots.first;
const QString InputModeTitle = QStringLiteral("2-wire/3-wire Operation Mode");

QString slotTitle(const FamilySetup& family, int slot) {
    if (slot == InputModeSlot && !family.lists.inputMode.empty()) return InputModeTitle;
    return QString::fromLatin1(quickSlot(slot).title);
}

QString twoDigits(int number) { return QString::number(number).rightJustified(2, QLatin1Char('0')); }

// The number of a parameter as the drive's manual prints it.
QString slotNumber(Family family, const QString& address) {
    const int group = BaseStrToInt(address.left(2), 16);
    const int number = BaseStrToInt(address.right(2), 16);
    if (family == Family::Rowan) return QStringLiteral("Pr.") % twoDigits(number);
    return twoDigits(group) % QLatin1Char('-') % twoDigits(number);
}

}  // namespace

const FamilySetup* familySetup(quint8 DriveFamily) {
    const auto found = std::ranges::find_if(Setups, [=](const FamilySetup* setup) {
        return static_cast<quint8>(setup->DriveFamily) == DriveFamily;
    });
    return found == Setups.end() ? nullptr : *found;
}

ChoiceList slotChoices(const FamilySetup& family, int slot) {
    const ChoiceLists& lists = family.lists;
    if (slot >= OutputSlots.first && slot <= OutputSlots.last) return lists.outputs;
    if (slot == InputModeSlot && !lists.inputMode.empty()) return lists.inputMode;
    if (slot >= InputSlots.first) return lists.inputs;
    switch (slot) {
        case 1: return lists.S1para1;
        case 2: return lists.S1para2;
        case 4: return lists.S1para4;
        case 22: return lists.S3para1;
        case 23: return lists.S3para2;
        case 24: return lists.S3para3;
        default: return {};
    }
}

QString slotLabel(const FamilySetup& family, int slot) {
    const QString address = slotAddress(slot, family.DriveFamily);
    if (address.isEmpty()) return {};
    return slotNumber(family.DriveFamily, address) % QStringLiteral("  ") % slotTitle(family, slot);
}

QString slotUnit(const FamilySetup& family, int slot) {
    switch (slot) {
        case 5:
        case 6: return QString::fromLatin1(family.currentUnit);
        case 18:
        case 19: return QString::fromLatin1(family.boundUnit);
        default: return QString::fromLatin1(quickSlot(slot).unit);
    }
}

}  // namespace kelvane
