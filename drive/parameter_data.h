// What a practice drive of one family holds: identity, group names and the parameter rows of each group. The
// data stand in drive/families/<family>.cpp, one row a parameter, so that a person can edit them.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/drive_family.h"

namespace kelvane::drive {

// Attribute flags of a row.
enum : uint8_t {
    RunSet = 1,    // may be set while the drive runs
    ReadOnly = 2,  // refused by a write
    Signed = 4,    // the value words are signed (Tilia only)
};

// One parameter. Values are integers without decimal point; dot places stand behind it (Aspen: 0 or 2).
struct ParamRow {
    std::string_view name;  // at most 16 characters
    std::string_view unit;  // at most 4 characters
    int value;              // at power-up
    int defaultValue;
    int min;
    int max;
    uint8_t dot;
    uint8_t flags;
};

struct GroupRows {
    std::string_view name;  // at most 16 characters; answered at 31nnh
    std::span<const ParamRow> rows;
};

struct FamilyData {
    Family family;
    uint8_t modelCode;                  // DriveIdCode it answers
    uint16_t version;                   // version word, two decimals (205 is 2.05); Willow three, Hazel one
    std::span<const GroupRows> groups;  // ordinary groups 0 to n - 1, then the reserved group n
};

// Data of a family; one of the nine.
const FamilyData& familyData(Family family);

}  // namespace kelvane::drive
