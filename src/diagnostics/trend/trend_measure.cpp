#include "diagnostics/trend/trend_measure.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

namespace {

constexpr double SecondsOfDay = 86400;

// Sums stay whole numbers: ten million squares of 16 bits fit into 64.
struct Sums {
    std::array<quint64, TrendChannelRoom> plain{};
    std::array<quint64, TrendChannelRoom> squares{};
};

}  // namespace

TrendMeasure measureTrend(const TrendData& data, qint64 first, qint64 second) {
    TrendMeasure measure;
    const TrendRecords& records = data.records;
    if (records.isEmpty()) return measure;
    const qint64 from = std::clamp<qint64>(std::min(first, second), 0, records.size() - 1);
    const qint64 to = std::clamp<qint64>(std::max(first, second), 0, records.size() - 1);
    Sums sums;
    bool inBreak = false;
    for (qint64 i = from; i <= to; ++i) {
        const TrendRecord& record = records[i];
        if (record.isSeparator() && !inBreak) ++measure.breaks;
        inBreak = record.isSeparator();
        if (inBreak) continue;
        ++measure.samples;
        for (size_t c = 0; c < TrendChannelRoom; ++c) {
            sums.plain[c] += record.Ch[c];
            sums.squares[c] += quint64(record.Ch[c]) * record.Ch[c];
        }
    }
    if (measure.samples == 0) return measure;
    const TrendExtremes extremes = records.extremes(from, to + 1);
    const qint64 firstSample = records.nearestSample(std::clamp<qint64>(first, 0, records.size() - 1));
    const qint64 secondSample = records.nearestSample(std::clamp<qint64>(second, 0, records.size() - 1));
    const bool both = firstSample >= 0 && secondSample >= 0;
    if (both) measure.seconds = (records[secondSample].Time - records[firstSample].Time) * SecondsOfDay;
    const auto count = static_cast<double>(measure.samples);
    for (size_t c = 0; c < data.channels.size(); ++c) {
        const TrendChannel& channel = data.channels[c];
        const double unit = channel.DigitalTo > 0 ? channel.ValueTo / channel.DigitalTo : 0;
        ChannelMeasure& of = measure.channels[c];
        if (both) of.atFirst = records[firstSample].Ch[c] * unit;
        if (both) of.atSecond = records[secondSample].Ch[c] * unit;
        of.minimum = extremes.low[c] * unit;
        of.maximum = extremes.high[c] * unit;
        of.mean = static_cast<double>(sums.plain[c]) / count * unit;
        of.rms = std::sqrt(static_cast<double>(sums.squares[c]) / count) * unit;
    }
    return measure;
}

}  // namespace kelvane
