// Item boxes of Trend and Monitor: which status item an entry stands for, and what the poll holds of an item.
#pragma once

#include "catalogue/family_profiles.h"
#include "link/link_records.h"

namespace kelvane {

// Willow's list leaves out items 3 to 5; every other list is in item order. -1 stays -1: no entry selected.
// Without a family the entry counts as it stands, as does one behind a shorter list, which was kept from a
// longer one.
inline int statusItemOfEntry(quint8 DriveFamily, int ItemIndex) {
    const FamilyProfile* profile = familyProfile(DriveFamily);
    if (ItemIndex < 0 || !profile) return ItemIndex;
    const int item = itemOfListIndex(*profile, ItemIndex);
    return item < 0 ? ItemIndex : item;
}

// What the status tables hold of item k; empty or 0 for a number that they have no room for.
struct StatusItemView {
    quint32 word = 0;
    quint8 scale = 0;  // divisor, 0 for none
    quint8 decimals = 0;
    QString text;
    QString unit;
    QString format;
};
inline quint32 statusWordOf(const DriveStatusRecord& DriveStatus, int k) {
    const auto at = static_cast<size_t>(k) + 2;
    return k >= 0 && at < DriveStatus.StatusWords.size() ? DriveStatus.StatusWords[at] : 0;
}
inline StatusItemView statusItem(const DriveStatusRecord& DriveStatus, int k) {
    const auto at = static_cast<size_t>(k);
    if (k < 0 || at >= DriveStatus.StatusScale.size()) return {};
    return {statusWordOf(DriveStatus, k), DriveStatus.StatusScale[at], DriveStatus.StatusDecimals[at],
            DriveStatus.StatusText[at],   DriveStatus.StatusUnit[at],  DriveStatus.StatusFormat[at]};
}

}  // namespace kelvane
