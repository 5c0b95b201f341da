// What a trend object keeps of each of its channels, and its options: recorder and plot share them.
#pragma once

#include <QString>
#include <vector>

#include "base/trend_records.h"

namespace kelvane {

struct TrendChannel {
    quint16 Digit = 0;   // present raw value
    int DigitalTo = 0;   // top of the scale in raw counts; 0: no scale yet
    double ValueTo = 0;  // top of the scale in engineering units
    QString ValueFormat = QStringLiteral("##0");
    QString ValueUnit;
    QString Caption;
    quint32 color = 0x00FF00;  // 0xRRGGBB
    int penWidth = 1;
    bool visible = true;

    // A digit as a share of the scale; 0 without a scale.
    double shareOf(quint16 digit) const { return DigitalTo > 0 ? static_cast<double>(digit) / DigitalTo : 0; }
    double valueOf(quint16 digit) const { return DigitalTo > 0 ? digit * ValueTo / DigitalTo : 0; }
};

// Places behind the point of a display format such as "##0.00".
inline int placesOfFormat(const QString& ValueFormat) {
    const qsizetype point = ValueFormat.indexOf(QLatin1Char('.'));
    return point < 0 ? 0 : static_cast<int>(ValueFormat.size() - point - 1);
}

// The records of a trend object with the channels they belong to; what a plot paints.
struct TrendData {
    TrendRecords records;
    std::vector<TrendChannel> channels;  // [0] is channel 1
};

}  // namespace kelvane
