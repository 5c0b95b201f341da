// The recorder: when it takes records, where breaks go, and how scales grow.
#include "diagnostics/trend/trend_recorder.h"

#include <gtest/gtest.h>

#include "base/manual_tick_clock.h"
#include "diagnostics/trend/auto_range.h"

namespace kelvane {
namespace {

struct Recorder {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2008, 2, 14), QTime(12, 0))};
    TrendRecorder trend{clock, wall, 8};
    std::vector<quint16> digits() const {
        std::vector<quint16> all;
        for (const TrendRecord& record : trend.data.records.all())
            all.push_back(record.isSeparator() ? quint16(60000 + record.Ch[0]) : record.Ch[0]);
        return all;
    }
    void take(std::initializer_list<quint16> values) {
        for (const quint16 value : values) {
            trend.Channel(1).Digit = value;
            trend.GetData();
        }
    }
};

TEST(TrendRecorder, SmallDelaysDoNotAddUp) {
    Recorder r;
    QObject::connect(&r.trend, &TrendRecorder::OnInterval, [&] { r.clock.advance(4); });
    r.trend.SetStartRecording(true);
    while (r.trend.TotalRecords() < 10) r.clock.advance(1);
    EXPECT_EQ(r.clock.nowUs(), 1004000);
}

TEST(TrendRecorder, OneRecordAnIntervalAndALateTimerDoesNotCatchUp) {
    Recorder r;
    r.trend.Channel(8).Digit = 256;
    r.trend.SetStartRecording(true);
    r.clock.advance(1000);
    EXPECT_EQ(r.trend.TotalRecords(), 10);
    EXPECT_EQ(r.trend.data.records[9].Time, 39492.5);
    EXPECT_EQ(r.trend.data.records[9].Ch[7], 256);
    // A handler that blocks for a second costs the records of that second, and none come in a bunch.
    QObject::connect(&r.trend, &TrendRecorder::OnInterval, [&, first = true]() mutable {
        if (std::exchange(first, false)) r.clock.advance(1000);
    });
    r.clock.advance(100);
    r.clock.advance(250);
    EXPECT_LE(r.trend.TotalRecords(), 14);
    r.trend.SetStartRecording(false);
    const qint64 stands = r.trend.TotalRecords();
    r.clock.advance(1000);
    EXPECT_EQ(r.trend.TotalRecords(), stands);
}

TEST(TrendRecorder, RefusesShortIntervalsAndFewRecords) {
    Recorder r;
    for (const int ms : {99, 0, -5}) r.trend.SetInterval(ms);
    r.trend.SetMaxRecords(99);
    EXPECT_EQ(r.trend.Interval(), 100);
    EXPECT_EQ(r.trend.MaxRecords(), 1000000000);
    r.trend.SetInterval(250);
    EXPECT_EQ(r.trend.Interval(), 250);
}

TEST(TrendRecorder, KeepsTheBreakBeforeTheLastRecordWithTheDigitsBeforeIt) {
    Recorder r;
    r.trend.SetStartRecording(true);  // none with 0 records
    r.trend.SetStartRecording(false);
    r.take({1});
    r.trend.SetStartRecording(true);  // none with 1
    r.trend.SetStartRecording(true);  // none while recording
    r.trend.SetStartRecording(false);
    r.take({2, 3});
    r.trend.SetStartRecording(true);
    EXPECT_EQ(r.digits(), (std::vector<quint16>{1, 2, 60002, 60002, 60002, 60002, 60002, 3}));
    for (int i = 2; i < 7; ++i) EXPECT_EQ(r.trend.data.records[i].Time, 0.0);
    r.trend.SetInterval(200);
    EXPECT_EQ(r.digits(), (std::vector<quint16>{1, 2, 60002, 60002, 60002, 60002, 60002, 60002, 60002, 60002,
                                                60002, 60002, 3}));
}

TEST(TrendRecorder, AtTheLimitTheOldestMakeRoomOrNothingIsTaken) {
    Recorder r;
    r.trend.SetMaxRecords(100);
    r.trend.DeleteCount = 40;
    for (quint16 i = 0; i < 150; ++i) r.take({i});
    EXPECT_EQ(r.trend.TotalRecords(), 100);
    EXPECT_EQ(r.trend.data.records.last().Ch[0], 99);
    r.trend.SetFlow(true);
    r.take({200});
    EXPECT_EQ(r.trend.TotalRecords(), 41);
    EXPECT_EQ(r.trend.data.records[0].Ch[0], 60);
    EXPECT_EQ(r.trend.data.records.last().Ch[0], 200);
}

TEST(AutoRange, GrowsByATenthPastItsMark) {
    struct Row {
        quint8 scale;
        int DigitalTo;
        quint32 raw;
        double ValueTo;
        int expected;
    };
    const Row rows[] = {
        {100, 0, 6000, 66, 6600},   {100, 6600, 6001, 66, 6600}, {100, 6600, 6100, 67.1, 6710},
        {10, 0, 350, 38.5, 385},    {0, 0, 1450, 1595, 1595},    {0, 0, 65531, 72084.1, 72084},
        {100, 0, 99, 0, 0},            // kept: below one unit there is no scale
        {100, 6650, 6099, 66, 6600}};  // kept: a top set by hand may come down
    for (const Row& row : rows) {
        TrendChannel channel;
        channel.DigitalTo = row.DigitalTo;
        channel.ValueTo = row.scale ? double(row.DigitalTo) / row.scale : row.DigitalTo;
        EXPECT_EQ(autoRange(channel, row.raw, row.scale), row.expected != row.DigitalTo) << row.raw;
        // The value that made it does not change it again.
        for (int again = 0; again < 2; ++again) {
            EXPECT_EQ(channel.DigitalTo, row.expected) << row.raw;
            EXPECT_NEAR(channel.ValueTo, row.ValueTo, 1e-9);
            autoRange(channel, row.raw, row.scale);
        }
    }
}

}  // namespace
}  // namespace kelvane
