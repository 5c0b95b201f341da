// The drive families as the plant numbers them. Open to every folder, also to the practice drive.
#pragma once

#include <QtGlobal>
#include <array>

namespace kelvane {

enum class Family : quint8 {
    Rowan = 0,
    Aspen = 1,
    Larch = 2,
    Hazel = 3,
    Tilia = 4,
    Osier = 5,
    Willow = 6,
    Yarrow = 8,
    Sorrel = 9,
    Keypad = 20,  // a keypad as data source; no drive
};

inline constexpr std::array<Family, 9> AllFamilies{Family::Rowan,  Family::Aspen,  Family::Larch,
                                                   Family::Hazel,  Family::Tilia,  Family::Osier,
                                                   Family::Willow, Family::Yarrow, Family::Sorrel};

// Name of a family ("Larch"); empty for any other value, Keypad included.
inline constexpr const char* familyName(quint8 DriveFamily) {
    constexpr std::array<const char*, 10> names{"Rowan", "Aspen",  "Larch", "Hazel",  "Tilia",
                                                "Osier", "Willow", "",      "Yarrow", "Sorrel"};
    return DriveFamily < names.size() ? names[DriveFamily] : "";
}
inline constexpr const char* familyName(Family family) { return familyName(static_cast<quint8>(family)); }

}  // namespace kelvane
