// What a scope file cannot hold: which item each channel showed, on which scale and in which colour, from
// which drive and since when, and the markers. Kept as a small text file "x.trd.info" beside "x.trd", UTF-8,
// one "key=value" a line with a section for each channel; a person may read and change it. A scope file
// without one is as good.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <array>
#include <optional>

#include "base/trend_record.h"

namespace kelvane {

struct TrendChannelInfo {
    int entry = -1;  // of the item box, -1 for none
    QString name;
    QString unit;
    QString format = QStringLiteral("##0");
    int scale = 0;     // divisor from raw counts to units, 0 for none
    int decimals = 0;  // of texts
    double ValueTo = 0;
    int DigitalTo = 0;
    quint32 color = 0x00FF00;  // 0xRRGGBB
    int penWidth = 1;
    bool visible = true;
    bool operator==(const TrendChannelInfo&) const = default;
};

struct TrendMarker {
    qint64 record = 0;  // from 0
    QString name;
    bool operator==(const TrendMarker&) const = default;
};

struct TrendInfo {
    QDateTime start;  // of the first record; local time
    QString drive;    // family, version and ratings in words
    int DriveFamily = -1;
    std::array<TrendChannelInfo, TrendChannelRoom> channels;
    QList<TrendMarker> markers;
    bool operator==(const TrendInfo&) const = default;
};

QString trendInfoPath(const QString& trdPath);
QByteArray trendInfoBytes(const TrendInfo& info);
// Takes what it can read; values out of their range keep their defaults. Nothing when the head line is
// missing.
std::optional<TrendInfo> readTrendInfo(const QByteArray& bytes);

}  // namespace kelvane
