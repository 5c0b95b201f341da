#include "diagnostics/keypad/parameter_entries.h"

#include <algorithm>

#include "catalogue/parameter_record.h"
#include "diagnostics/keypad/keypad_families.h"

namespace kelvane {

std::vector<ParameterEntry> parameterEntries(const DriveStatusRecord& DriveStatus) {
    const auto family = static_cast<Family>(DriveStatus.DriveFamily);
    const bool oneList = keypadFamily(DriveStatus.DriveFamily).oneList;
    const auto groups = std::min<size_t>(DriveStatus.GroupCount, DriveStatus.GroupParamCount.size());
    std::vector<ParameterEntry> entries;
    for (size_t i = 0; i < groups; ++i) {
        const int group = oneList ? 0 : static_cast<int>(i);
        const int highest = DriveStatus.GroupParamCount[static_cast<size_t>(group)];
        for (int j = 0; j <= highest && entries.size() < MostParameterEntries; ++j)
            entries.push_back({parameterNumberText(family, group, j), addressText(group, j)});
    }
    return entries;
}

}  // namespace kelvane
