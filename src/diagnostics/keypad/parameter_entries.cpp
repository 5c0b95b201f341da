#include "diagnostics/keypad/parameter_entries.h"

#include <algorithm>

#include "diagnostics/keypad/keypad_families.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint16 SignedAttribute = 0x80;

QString twoDigits(int number) { return QString::number(number).rightJustified(2, QLatin1Char('0')); }

ParameterEntry groupedEntry(int i, int j) {
    return {twoDigits(i) % QLatin1Char('-') % twoDigits(j), IntToBaseStr(i, 16, 2) % IntToBaseStr(j, 16, 2)};
}

ParameterEntry listedEntry(int j) { return {QString::number(j), IntToBaseStr(j, 16, 4)}; }

}  // namespace

std::vector<ParameterEntry> parameterEntries(const DriveStatusRecord& DriveStatus) {
    const bool oneList = keypadFamily(DriveStatus.DriveFamily).oneList;
    const auto groups = std::min<size_t>(DriveStatus.GroupCount, DriveStatus.GroupParamCount.size());
    std::vector<ParameterEntry> entries;
    for (size_t i = 0; i < groups; ++i) {
        const int highest = DriveStatus.GroupParamCount[oneList ? 0 : i];
        for (int j = 0; j <= highest && entries.size() < MostParameterEntries; ++j)
            entries.push_back(oneList ? listedEntry(j) : groupedEntry(static_cast<int>(i), j));
    }
    return entries;
}

quint8 parameterDecimals(quint8 DriveFamily, quint16 attribute) {
    if (keypadFamily(DriveFamily).decimalsInBit0) return attribute & 1 ? 2 : 0;
    return attribute >> 8 & 3;
}

QString parameterValueText(quint8 DriveFamily, quint16 attribute, quint16 word) {
    const bool isSigned = keypadFamily(DriveFamily).signedValues && attribute & SignedAttribute;
    return InsertDecimalPoint(QString::number(isSigned ? static_cast<qint16>(word) : int(word)),
                              parameterDecimals(DriveFamily, attribute));
}

}  // namespace kelvane
