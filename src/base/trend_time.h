// Times of trend records: local days since 30 December 1899, built from date and time of day, so that a
// change to summer time neither stretches nor folds a day.
#pragma once

#include <QDateTime>
#include <cmath>
#include <optional>

namespace kelvane {

inline constexpr double MsOfDay = 86400000.0;

inline double trendTime(const QDateTime& local) {
    const auto days = QDate(1899, 12, 30).daysTo(local.date());
    return static_cast<double>(days) + local.time().msecsSinceStartOfDay() / MsOfDay;
}

// Date and time of day of a record; nothing for a time that no calendar has (a damaged file).
// A time before the first day has its whole days negative and its fraction, as it stands, as the time of day.
struct TrendMoment {
    QDate date;
    QTime time;
};
inline std::optional<TrendMoment> trendMoment(double Time) {
    constexpr double MostDays = 2958466;  // the year 10000
    if (!std::isfinite(Time) || std::abs(Time) >= MostDays) return {};
    const double days = std::trunc(Time);
    const auto ms = static_cast<int>(std::lround(std::abs(Time - days) * MsOfDay));
    constexpr int Whole = 86400000;
    const QDate date = QDate(1899, 12, 30).addDays(static_cast<qint64>(days) + ms / Whole);
    return TrendMoment{date, QTime::fromMSecsSinceStartOfDay(ms % Whole)};
}

}  // namespace kelvane
