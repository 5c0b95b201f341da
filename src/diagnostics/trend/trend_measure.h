// What lies between two measuring cursors: time, and of each channel first and last value, lowest, highest,
// mean and root mean square, all in engineering units through the present scale.
#pragma once

#include <array>

#include "base/trend_channel.h"

namespace kelvane {

struct ChannelMeasure {
    double atFirst = 0;
    double atSecond = 0;
    double minimum = 0;
    double maximum = 0;
    double mean = 0;
    double rms = 0;
    double delta() const { return atSecond - atFirst; }
};

struct TrendMeasure {
    qint64 samples = 0;  // records between the cursors, both included, breaks left out
    double seconds = 0;  // from the first cursor to the second
    int breaks = 0;      // runs of separators between them
    std::array<ChannelMeasure, TrendChannelRoom> channels{};
};

// first and second in any order; clipped to what exists. No samples when there is nothing.
TrendMeasure measureTrend(const TrendData& data, qint64 first, qint64 second);

}  // namespace kelvane
