// One sample of a trend: the same 24 bytes in memory and in a scope file, little-endian.
#pragma once

#include <QtGlobal>
#include <array>
#include <bit>
#include <type_traits>

namespace kelvane {

inline constexpr int TrendChannelRoom = 8;

struct TrendRecord {
    double Time;  // local days since 30 December 1899, the fraction is the time of day; 0 marks a break
    std::array<quint16, TrendChannelRoom> Ch;  // raw digits of channels 1 to 8

    // A separator: the plot breaks here, scale search and cursor pass over it.
    bool isSeparator() const { return Time == 0; }
    bool operator==(const TrendRecord&) const = default;
};

static_assert(sizeof(TrendRecord) == 24 && std::is_trivially_copyable_v<TrendRecord>);
static_assert(std::endian::native == std::endian::little, "a scope file is read straight into memory");

}  // namespace kelvane
