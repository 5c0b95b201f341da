#include "base/trend_view.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

namespace {

constexpr double LeastPerPixel = 1.0 / 50;  // fifty pixels a record
constexpr double SmallestSpan = 0.001;
constexpr double LargestSpan = 100;
constexpr double Rounding = 1e-6;  // of a record: it must not fall out of its column

}  // namespace

void TrendView::PaintRecords(qint64 from, qint64 to) {
    const qint64 count = std::max<qint64>(to - from, 1);
    // Half a width, doubled, is one short of a width that is odd.
    const bool screenful = std::abs(count - columns()) <= 1;
    m_perPixel = screenful ? 1 : std::max(static_cast<double>(count) / columns(), LeastPerPixel);
    m_fromColumn = std::llround(static_cast<double>(from) / m_perPixel);
}

void TrendView::showLastScreen(qint64 total) {
    const auto last = static_cast<qint64>(std::floor(columnOf(std::max<qint64>(total - 1, 0))));
    m_fromColumn = std::max<qint64>(0, last + 1 - columns());
}

void TrendView::pan(qint64 by, qint64 total) {
    const auto last = static_cast<qint64>(columnOf(std::max<qint64>(total - 1, 0)));
    m_fromColumn = std::clamp<qint64>(m_fromColumn + by, 0, std::max<qint64>(0, last));
}

void TrendView::zoomAbout(double x, double factor, qint64 total) {
    const double most = std::max(1.0, static_cast<double>(total) / columns());
    const double fixed = (x - left() + static_cast<double>(m_fromColumn)) * m_perPixel;
    m_perPixel = std::clamp(m_perPixel * factor, LeastPerPixel, most);
    m_fromColumn = std::max<qint64>(0, std::llround(fixed / m_perPixel - (x - left())));
}

qint64 TrendView::recordAt(double x) const {
    return std::llround((x - left() + static_cast<double>(m_fromColumn)) * m_perPixel);
}

qint64 TrendView::firstOfColumn(qint64 column) const {
    return static_cast<qint64>(std::ceil(static_cast<double>(column) * m_perPixel - Rounding));
}

qint64 TrendView::LastDisplayedRec(qint64 total) const {
    return std::clamp<qint64>(firstOfColumn(m_fromColumn + columns()) - 1, 0, std::max<qint64>(0, total - 1));
}

void TrendView::SetYDefault() {
    m_low = 0;
    m_high = 1;
}

void TrendView::zoomY(double factor) {
    const double middle = (m_low + m_high) / 2;
    const double half = std::clamp((m_high - m_low) * factor, SmallestSpan, LargestSpan) / 2;
    m_low = middle - half;
    m_high = middle + half;
}

void TrendView::MoveY(int pixels) {
    const double span = m_high - m_low;
    // The scales stay within a screenful, so that nobody has to search for the curves.
    const double by = -pixels * span / rows();
    const double low = std::clamp(m_low + by, -std::max(span, 1.0), 1 + std::max(0.0, 1 - span));
    m_high = low + span;
    m_low = low;
}

ValueAtCursor TrendView::valueAt(double x, const TrendData& data) const {
    ValueAtCursor value;
    const qint64 total = data.records.size();
    const qint64 under = recordAt(x);
    if (!contains(x) || total == 0 || under < 0 || under >= total) return value;
    const qint64 record = data.records.nearestSample(under);
    if (record < 0) return value;
    value.DataValid = true;
    value.RecordNo = record;
    value.Time = data.records[record].Time;
    value.Digit = data.records[record].Ch;
    for (size_t c = 0; c < data.channels.size() && c < value.ValueCh.size(); ++c)
        value.ValueCh[c] = data.channels[c].valueOf(value.Digit[c]);
    return value;
}

}  // namespace kelvane
