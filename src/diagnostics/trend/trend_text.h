// Texts of trend values and times as the window's edits and labels show them.
#pragma once

#include "base/trend_channel.h"
#include "link/link_records.h"

namespace kelvane {

// A digit through the present scale of its channel, as text of an item with these decimals and this divisor.
// A value that was recorded as 0.29 reads 0.29, whatever top the scale has.
QString trendValueText(const TrendChannel& channel, quint16 digit, quint8 StatusDecimals, quint8 StatusScale);

// The time of day and date of a record in the system's formats; "------" for a time that no calendar has.
QString trendTimeText(double Time);

inline const QString NoRecordText = QStringLiteral("------");
inline const QString ChannelOnText = QStringLiteral(" -- ");

}  // namespace kelvane
