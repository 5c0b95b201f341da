// The array of trend records with its index, and the arithmetic of the view over it.
#include "base/trend_records.h"

#include <gtest/gtest.h>

#include <random>

#include "base/trend_time.h"
#include "base/trend_view.h"

namespace kelvane {
namespace {

TrendRecord sample(double Time, quint16 digit) {
    TrendRecord record{Time, {}};
    record.Ch.fill(digit);
    return record;
}

void fill(TrendRecords& records, qint64 count) {
    for (qint64 i = 0; i < count; ++i)
        ASSERT_TRUE(records.append(sample(40000 + double(i) / 864000, quint16((i * 7919) % 65536))));
}

TrendExtremes slowly(const TrendRecords& records, qint64 from, qint64 to) {
    TrendExtremes all;
    for (qint64 i = from; i < to; ++i) all.add({&records[i], 1});
    return all;
}

TEST(TrendRecords, TheIndexTellsWhatAWalkOverTheRecordsTells) {
    TrendRecords records;
    fill(records, 40000);
    std::mt19937 random(1);
    const auto compare = [&] {
        for (int round = 0; round < 400; ++round) {
            const qint64 from = random() % (records.size() + 1);
            const qint64 to = from + random() % (records.size() - from + 1);
            const TrendExtremes quick = records.extremes(from, to), slow = slowly(records, from, to);
            ASSERT_TRUE(quick.low == slow.low && quick.high == slow.high) << from << ' ' << to;
            ASSERT_TRUE(quick.any == slow.any && quick.breaks == slow.breaks) << from << ' ' << to;
        }
    };
    compare();
    ASSERT_TRUE(records.insert(records.size() - 1, 5, sample(0, 60000)));
    ASSERT_TRUE(records.insert(64, 5, sample(0, 1)));
    compare();
    fill(records, 30000);
    compare();
    records.dropFront(12345);
    compare();
    EXPECT_EQ(records.extremes(-5, 0).any, false);
    EXPECT_FALSE(records.extremes(records.size(), records.size() + 9).any);
}

TEST(TrendRecords, HoldsLittleMoreThanTheRecords) {
    TrendRecords records;
    fill(records, 300000);
    static_cast<void>(records.extremes(0, 1));
    EXPECT_LT(double(records.bytesHeld()) / double(records.size()), 24 * 1.7);
    TrendRecords loaded;
    ASSERT_NE(loaded.roomFor(1000), nullptr);
    EXPECT_EQ(loaded.bytesHeld(), 24000);
    EXPECT_EQ(loaded.roomFor(qint64(1) << 60), nullptr);
    EXPECT_EQ(loaded.size(), 0);
}

TEST(TrendRecords, TheNearestSamplePassesOverABreak) {
    TrendRecords records;
    for (const double Time : {40000.0, 0.0, 0.0, 0.0, 0.0, 0.0, 40001.0})
        ASSERT_TRUE(records.append(sample(Time, 1)));
    EXPECT_EQ(records.nearestSample(2), 0);
    EXPECT_EQ(records.nearestSample(4), 6);
    TrendRecords onlyBreaks;
    ASSERT_TRUE(onlyBreaks.append(sample(0, 1)));
    EXPECT_EQ(onlyBreaks.nearestSample(0), -1);
}

TEST(TrendTime, CountsDaysFromTheEndOf1899AndTakesAnyNumber) {
    EXPECT_EQ(trendTime(QDateTime(QDate(2008, 2, 14), QTime(12, 0))), 39492.5);
    EXPECT_EQ(trendMoment(39492.5)->date, QDate(2008, 2, 14));
    EXPECT_EQ(trendMoment(-1.25)->date, QDate(1899, 12, 29));
    EXPECT_EQ(trendMoment(-1.25)->time, QTime(6, 0));
    EXPECT_EQ(trendMoment(39492.999999999)->time, QTime(0, 0));  // of the next day, not 24:00
    for (const double none : {1e300, -1e300, double(NAN), double(INFINITY)}) EXPECT_FALSE(trendMoment(none));
}

TEST(TrendView, ZoomKeepsTheRecordUnderThePointer) {
    TrendView view;
    view.PaintRecords(3, 3);
    EXPECT_GT(view.recordsPerPixel(), 0);
    view.PaintRecords(0, 100000);
    const double x = view.left() + 333;
    const qint64 under = view.recordAt(x);
    for (int i = 0; i < 12; ++i) view.zoomAbout(x, 0.7, 100000);
    EXPECT_NEAR(double(view.recordAt(x)), double(under), 100000.0 / 600);  // within a pixel of the start
    for (int i = 0; i < 60; ++i) view.zoomAbout(x, 1.5, 100000);
    EXPECT_NEAR(view.recordsPerPixel(), 100000.0 / 600, 1e-9);  // no farther out than everything
    view.pan(1000000, 100000);
    EXPECT_LT(view.FirstDisplayedRec(), 100000);
    view.pan(-10000000, 100000);
    EXPECT_EQ(view.FirstDisplayedRec(), 0);
}

TEST(TrendView, TheValueAxisBearsAnyZoomAndComesBack) {
    TrendView view;
    const double top = view.yOf(1), bottom = view.yOf(0);
    view.ZoomYIn();
    EXPECT_GT(view.yOf(0) - view.yOf(1), bottom - top);
    for (int i = 0; i < 1000; ++i) view.ZoomYOut();
    for (int i = 0; i < 1000; ++i) view.MoveY(50);
    for (int i = 0; i < 5000; ++i) view.ZoomYIn();
    EXPECT_GT(view.highShare(), view.lowShare());
    view.SetYDefault();
    EXPECT_EQ(view.yOf(1), top);
}

TEST(TrendView, NoValueOutsideTheData) {
    TrendData data;
    data.channels.resize(1);
    TrendView view;
    EXPECT_FALSE(view.valueAt(100, data).DataValid);
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(data.records.append(sample(40000 + i, quint16(100 * i))));
    data.channels[0].ValueTo = 66;
    data.channels[0].DigitalTo = 6600;
    EXPECT_EQ(view.valueAt(view.left() + 2, data).ValueCh[0], 2);
    EXPECT_FALSE(view.valueAt(view.left() + 3, data).DataValid);
    EXPECT_FALSE(view.valueAt(view.left() - 1, data).DataValid);
    data.channels[0].DigitalTo = 0;
    EXPECT_EQ(view.valueAt(view.left() + 2, data).ValueCh[0], 0);
}

}  // namespace
}  // namespace kelvane
