#include "diagnostics/trend/auto_range.h"

#include <algorithm>
#include <limits>

namespace kelvane {

namespace {

constexpr double Headroom = 1.1;

int wholeCounts(double counts) {
    constexpr double Most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(counts, -Most, Most));
}

}  // namespace

// A product, not a division: 6600 counts must give exactly 6000.
bool passesScale(const TrendChannel& channel, quint32 raw) {
    return static_cast<qint64>(channel.DigitalTo * (1 / Headroom)) < static_cast<qint64>(raw);
}

int digitalOf(double ValueTo, quint8 StatusScale) {
    return wholeCounts(StatusScale ? ValueTo * StatusScale : ValueTo);
}

void growScale(TrendChannel& channel, quint32 raw, quint8 StatusScale) {
    // Kept: whole units only, so a value below one unit has no scale yet.
    channel.ValueTo = (StatusScale ? raw / StatusScale : raw) * Headroom;
    channel.DigitalTo = digitalOf(channel.ValueTo, StatusScale);
}

bool autoRange(TrendChannel& channel, quint32 raw, quint8 StatusScale) {
    if (!passesScale(channel, raw)) return false;
    const double ValueTo = channel.ValueTo;
    const int DigitalTo = channel.DigitalTo;
    growScale(channel, raw, StatusScale);
    return channel.ValueTo != ValueTo || channel.DigitalTo != DigitalTo;
}

}  // namespace kelvane
