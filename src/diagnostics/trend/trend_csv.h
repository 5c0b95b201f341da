// A trend as a table for a spreadsheet: time, the eight channels in engineering units with their names and
// units in the head, the four logic lines. Numbers are written with DecimalSep; fields are parted by "," or,
// where that is the decimal separator, by ";". UTF-8 with a mark in front, by which spreadsheets know it.
#pragma once

#include <functional>

#include "base/trend_channel.h"
#include "base/whole_file.h"
#include "diagnostics/trend/trend_info.h"

namespace kelvane {

struct TrendCsv {
    const TrendData& data;
    const TrendData& logic;  // of the same run; may be shorter
    const TrendInfo& info;   // names, units, decimals
    qint64 from = 0;
    qint64 to = 0;  // included
};

// Rows of the table, one a record; a break is one row of its own with the word "break". They come in pieces,
// so that a record of days needs no room, and no more of them when a piece is refused.
void writeTrendCsv(const TrendCsv& csv, const std::function<bool(const QByteArray&)>& take);
// Errors: as of writeWhole().
FileResult saveTrendCsv(const QString& path, const TrendCsv& csv);

}  // namespace kelvane
