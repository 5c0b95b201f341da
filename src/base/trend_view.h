// Which part of a trend a plot shows and where its records and values lie on it, in pixels. Records stand in
// columns of one pixel: one record a column at first, more when a long range is shown, or several columns a
// record. 110 pixels of the width are kept for scale and margins.
#pragma once

#include <algorithm>

#include "base/trend_channel.h"

namespace kelvane {

// What stands under the cursor.
struct ValueAtCursor {
    bool DataValid = false;
    qint64 RecordNo = 0;  // from 0
    double Time = 0;
    std::array<quint16, TrendChannelRoom> Digit{};
    std::array<double, TrendChannelRoom> ValueCh{};  // through the present scale
};

class TrendView {
   public:
    static constexpr int KeptWidth = 110;
    static constexpr int LeftMargin = 80;

    int width = 710;
    int height = 400;
    int topMargin = 20;
    int bottomMargin = 30;

    int left() const { return LeftMargin; }
    int top() const { return topMargin; }
    int columns() const { return std::max(1, width - KeptWidth); }
    int rows() const { return std::max(1, height - topMargin - bottomMargin); }
    int right() const { return left() + columns(); }  // first pixel behind the plot
    int bottom() const { return top() + rows(); }
    bool contains(double x) const { return x >= left() && x < right(); }

    // Shows the records from to to over the whole width.
    void PaintRecords(qint64 from, qint64 to);
    // One record a pixel, the newest at the right edge, or all from the left while they fit.
    void showLastScreen(qint64 total);
    // Keeps the scale and moves by whole columns, positive to later records. The last record stays in reach.
    void pan(qint64 columns, qint64 total);
    // Shows factor times as many records, the one under x staying where it is.
    void zoomAbout(double x, double factor, qint64 total);
    // The same columns at the same scale as another plot.
    void showSame(const TrendView& other) {
        m_perPixel = other.m_perPixel;
        m_fromColumn = other.m_fromColumn;
    }
    double recordsPerPixel() const { return m_perPixel; }
    qint64 fromColumn() const { return m_fromColumn; }

    double columnOf(qint64 record) const { return static_cast<double>(record) / m_perPixel; }
    double xOf(qint64 record) const { return left() + columnOf(record) - static_cast<double>(m_fromColumn); }
    // The record whose place is nearest to x, whether it exists or not.
    qint64 recordAt(double x) const;
    // First record of a column (counted from record 0).
    qint64 firstOfColumn(qint64 column) const;
    qint64 FirstDisplayedRec() const { return std::max<qint64>(0, firstOfColumn(m_fromColumn)); }
    qint64 LastDisplayedRec(qint64 total) const;

    // Value axis. A share of 0 is the bottom of every scale, 1 its top.
    void ZoomYIn() { zoomY(1 / YStep); }
    void ZoomYOut() { zoomY(YStep); }
    void SetYDefault();
    void MoveY(int pixels);  // positive moves the curves up
    double lowShare() const { return m_low; }
    double highShare() const { return m_high; }
    double yOf(double share) const { return bottom() - (share - m_low) / (m_high - m_low) * rows(); }
    double shareAt(double y) const { return m_low + (bottom() - y) / rows() * (m_high - m_low); }

    ValueAtCursor valueAt(double x, const TrendData& data) const;

   private:
    static constexpr double YStep = 1.25;
    void zoomY(double factor);
    double m_perPixel = 1;
    qint64 m_fromColumn = 0;
    double m_low = 0;
    double m_high = 1;
};

}  // namespace kelvane
