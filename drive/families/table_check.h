// Compile-time checks of a family's table: what the wire can carry and what a drive can mean. Each family
// file asserts them over its own groups, so a slip of the pen in a row does not compile.
#pragma once

#include <span>

#include "drive/parameter_data.h"

namespace kelvane::drive {

enum class SignedAllowed { No, Yes };

// Name, unit and decimals fit the record; value and default lie within limits that a 16-bit word can hold.
consteval bool rowFits(const ParamRow& row, SignedAllowed signedAllowed) {
    const bool isSigned = row.flags & Signed;
    if (isSigned && signedAllowed == SignedAllowed::No) return false;
    const int lowest = isSigned ? -32768 : 0;
    const int highest = isSigned ? 32767 : 65535;
    return !row.name.empty() && row.name.size() <= 16 && row.unit.size() <= 4 && row.dot <= 3 &&
           lowest <= row.min && row.max <= highest && row.min <= row.value && row.value <= row.max &&
           row.min <= row.defaultValue && row.defaultValue <= row.max;
}

// No group is empty or longer than its numbers 0 to 255 or its name's 16 characters, and every row fits.
consteval bool rowsFit(std::span<const GroupRows> groups, SignedAllowed signedAllowed) {
    for (const GroupRows& group : groups) {
        if (group.name.empty() || group.name.size() > 16) return false;
        if (group.rows.empty() || group.rows.size() > 256) return false;
        for (const ParamRow& row : group.rows)
            if (!rowFits(row, signedAllowed)) return false;
    }
    return true;
}

// A drive is there to be set: at least 60 % of the rows take a write.
consteval bool mostlyWritable(std::span<const GroupRows> groups) {
    size_t rows = 0;
    size_t writable = 0;
    for (const GroupRows& group : groups)
        for (const ParamRow& row : group.rows) {
            ++rows;
            if (!(row.flags & ReadOnly)) ++writable;
        }
    return writable * 10 >= rows * 6;
}

// A drive whose attribute word has a single bit for decimals knows no others.
consteval bool decimalsAreNoneOrTwo(std::span<const GroupRows> groups) {
    for (const GroupRows& group : groups)
        for (const ParamRow& row : group.rows)
            if (row.dot != 0 && row.dot != 2) return false;
    return true;
}

}  // namespace kelvane::drive
