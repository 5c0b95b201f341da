// The list of a drive's parameters as the keypad offers it, made of the group counts of its identification.
#pragma once

#include <QString>
#include <vector>

#include "link/link_records.h"

namespace kelvane {

struct ParameterEntry {
    QString number;   // "01-00", "116"
    QString address;  // four hexadecimal digits
    bool operator==(const ParameterEntry&) const = default;
};

inline constexpr size_t MostParameterEntries = 600;  // more are not listed

// The reserved group, number GroupCount, is not listed.
std::vector<ParameterEntry> parameterEntries(const DriveStatusRecord& DriveStatus);

}  // namespace kelvane
