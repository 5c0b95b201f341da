// What stands beside the scope file: settings of a recording, its table, measuring cursors, the journal.
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "base/manual_tick_clock.h"
#include "bench/decimal_sep.h"
#include "diagnostics/trend/trend_csv.h"
#include "diagnostics/trend/trend_info.h"
#include "diagnostics/trend/trend_journal.h"
#include "diagnostics/trend/trend_measure.h"
#include "diagnostics/trend/trend_text.h"

namespace kelvane {
namespace {

TrendRecord sample(double Time, quint16 first) {
    TrendRecord record{Time, {}};
    record.Ch[0] = first;
    return record;
}

// Two seconds at 100 ms with a break after the first: 0.00 to 9.00 Hz, then 50.00 Hz.
void fillRun(TrendData& data) {
    data.channels.resize(8);
    data.channels[0].ValueTo = 66;
    data.channels[0].DigitalTo = 6600;
    const double start = 39492.5;
    const auto add = [&](const TrendRecord& record) { ASSERT_TRUE(data.records.append(record)); };
    for (int i = 0; i < 10; ++i) add(sample(start + i * 0.1 / 86400, quint16(100 * i)));
    for (int i = 0; i < 5; ++i) add(sample(0, 900));
    for (int i = 10; i < 20; ++i) add(sample(start + i * 0.1 / 86400, 5000));
}

TEST(TrendText, ARecordedValueNeverReadsBelowItself) {
    const UsingDecimalSep point(".");
    TrendChannel channel;
    for (const int raw : {6000, 6100, 35, 143, 29, 5799, 65535}) {
        channel.ValueTo = (raw / 100 + 1) * 1.1;
        channel.DigitalTo = int(channel.ValueTo * 100);
        for (quint16 digit = 0; digit <= 200; ++digit)
            ASSERT_EQ(trendValueText(channel, digit, 2, 100), QString::number(digit / 100.0, 'f', 2)) << raw;
    }
    channel.ValueTo = channel.DigitalTo = 1595;
    EXPECT_EQ(trendValueText(channel, 1450, 0, 0), "1450");
    channel.DigitalTo = 0;
    EXPECT_EQ(trendValueText(channel, 1450, 2, 100), "0.00");
    EXPECT_EQ(trendTimeText(1e300), "------");
}

TEST(TrendMeasure, BetweenTwoCursors) {
    TrendData data;
    fillRun(data);
    const TrendMeasure all = measureTrend(data, 0, 24);
    EXPECT_EQ(all.samples, 20);
    EXPECT_EQ(all.breaks, 1);
    EXPECT_NEAR(all.seconds, 1.9, 1e-4);
    const ChannelMeasure& hz = all.channels[0];
    EXPECT_NEAR(hz.delta(), 50, 1e-9);
    EXPECT_EQ(hz.minimum, 0);
    EXPECT_NEAR(hz.maximum, 50, 1e-9);
    EXPECT_NEAR(hz.mean, (45.0 + 500) / 20, 1e-9);
    EXPECT_NEAR(hz.rms, std::sqrt((285.0 + 25000) / 20), 1e-9);
    EXPECT_NEAR(measureTrend(data, 24, 0).seconds, -1.9, 1e-4);
    EXPECT_EQ(measureTrend(data, 10, 14).samples, 0);
    EXPECT_EQ(measureTrend(data, -50, 5000).samples, 20);
    EXPECT_EQ(measureTrend(TrendData(), 0, 9).samples, 0);
}

TEST(TrendCsv, UnitsInTheHeadAndBreaksMarked) {
    const UsingDecimalSep comma(",");
    TrendData data;
    fillRun(data);
    TrendData logic;
    ASSERT_TRUE(logic.records.append(TrendRecord{39492.5, {10, 20, 50, 60}}));
    TrendInfo info;
    info.channels[0].name = "Output \"Frequency\"";
    info.channels[0].unit = "Hz";
    info.channels[0].decimals = 2;
    QTemporaryDir dir;
    const auto saved = [&](qint64 from, qint64 to) {
        EXPECT_TRUE(saveTrendCsv(dir.filePath("t.csv"), {data, logic, info, from, to}).ok);
        return readWhole(dir.filePath("t.csv")).bytes;
    };
    const QByteArray bytes = saved(0, 24);
    ASSERT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    const QStringList lines = QString::fromUtf8(bytes.mid(3)).split("\r\n");
    ASSERT_EQ(lines.size(), 1 + 10 + 1 + 10 + 1);
    EXPECT_TRUE(lines[0].startsWith("\"Time\";\"s\";\"Ch1 Output \"\"Frequency\"\" [Hz]\";\"Ch2 \";"));
    EXPECT_EQ(lines[1], "2008-02-14 12:00:00,000;0,000;0,00;0;0;0;0;0;0;0;1;0;1;0");
    EXPECT_EQ(lines[2], "2008-02-14 12:00:00,100;0,100;1,00;0;0;0;0;0;0;0;;;;");
    EXPECT_EQ(lines[11], "\"break\"");
    EXPECT_TRUE(lines[12].startsWith("2008-02-14 12:00:01,000;1,000;50,00;"));
    EXPECT_EQ(saved(3, 4).count("\r\n"), 3);
    EXPECT_FALSE(saveTrendCsv(dir.filePath("no/t.csv"), {data, logic, info, 0, 24}).ok);
}

TEST(TrendInfo, ComesBackAsItWasWritten) {
    TrendInfo info;
    info.start = QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7, 60));
    info.drive = QStringLiteral("Larch, 2.05");
    info.DriveFamily = 2;
    info.channels[3] = {3,        QStringLiteral("DC-BUS Voltage U = \u96fb\u58d3"),
                        "V",      "##0.0",
                        10,       1,
                        660.1,    6601,
                        0xFF8040, 3,
                        false};
    info.markers = {{17, "load on | 50 %"}, {900, ""}};
    EXPECT_EQ(readTrendInfo(trendInfoBytes(info)), info);
    info.drive = "two\nlines";
    EXPECT_EQ(readTrendInfo(trendInfoBytes(info))->drive, "two lines");
    EXPECT_FALSE(readTrendInfo("").has_value());
    EXPECT_FALSE(readTrendInfo("[Tre").has_value());
    const auto hostile = readTrendInfo(
        "[Trend]\nMarker=-4|x\nMarker=99\n[Channel 1]\nPenWidth=9\nValueTo=nan\n"
        "DigitalTo=99999999999\nScale=-1\nColor=#1234567\nDecimals=77\n");
    ASSERT_TRUE(hostile);
    EXPECT_EQ(hostile->channels[0], TrendChannelInfo());
    EXPECT_TRUE(hostile->markers.isEmpty());
}

struct Journal : testing::Test {
    QTemporaryDir dir;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    QString folder = dir.filePath("journal");
    TrendRecords records;

    void record(TrendJournal& journal, int count) {
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(records.append(sample(40000 + double(records.size()), 1)));
            ASSERT_TRUE(journal.follow(records).ok);
        }
    }
};

TEST_F(Journal, ARunThatNobodyFinishedIsThereToTheLastSecond) {
    {
        TrendJournal killed(folder, wall);
        ASSERT_TRUE(killed.begin(0).ok);
        record(killed, 100);
        killed.writeInfo("[Trend]\n");
        EXPECT_TRUE(killed.unsaved().isEmpty());  // it is being written
    }
    TrendJournal next(folder, wall);
    const auto runs = next.unsaved();
    ASSERT_EQ(runs.size(), 1);
    EXPECT_GE(runs[0].records, 90);
    EXPECT_EQ(runs[0].start, wall.now());
    EXPECT_EQ(readWhole(runs[0].infoFile).bytes, "[Trend]\n");
    next.remove(runs[0]);
    EXPECT_TRUE(QDir(folder).isEmpty());
}

TEST_F(Journal, BreaksFinishDiscardAndTheNumberOfRuns) {
    TrendJournal journal(folder, wall);
    ASSERT_TRUE(journal.begin(0).ok);
    record(journal, 20);
    ASSERT_TRUE(records.insert(records.size() - 1, 5, sample(0, 1)));
    record(journal, 3);
    journal.finish(records);
    ASSERT_EQ(journal.unsaved().size(), 1);
    EXPECT_EQ(readWhole(journal.unsaved()[0].files[0]).bytes,
              QByteArray(reinterpret_cast<const char*>(records.all().data()), records.size() * 24));

    ASSERT_TRUE(journal.begin(records.size()).ok);
    record(journal, 30);
    journal.discard();
    EXPECT_EQ(journal.unsaved().size(), 1);
    for (int run = 0; run < 9; ++run) {
        ASSERT_TRUE(journal.begin(records.size()).ok);
        record(journal, run == 8 ? 5 : 20);
        journal.finish(records);
    }
    EXPECT_EQ(journal.unsaved().size(),
              TrendJournal::MostRuns - 1);  // the last one was too short to be offered
    EXPECT_EQ(journal.unsaved()[0].records, 20);
}

TEST_F(Journal, ALongRunKeepsItsNewestSegmentsAndAFullDiskIsTold) {
    TrendJournal journal(folder, wall);
    ASSERT_TRUE(journal.begin(0).ok);
    const qint64 count = 2 * TrendJournal::SegmentRecords + 500000;
    TrendRecord* room = records.roomFor(count);
    ASSERT_NE(room, nullptr);
    for (qint64 i = 0; i < count; ++i) room[i] = sample(double(i + 1), 0);
    records.grown(count);
    journal.finish(records);
    const auto runs = journal.unsaved();
    ASSERT_EQ(runs.size(), 1);
    EXPECT_EQ(runs[0].files.size(), 2);
    EXPECT_EQ(runs[0].records, TrendJournal::SegmentRecords + 500000);

    TrendJournal nowhere("/proc/none/journal", wall);
    EXPECT_FALSE(nowhere.begin(0).ok);
}

}  // namespace
}  // namespace kelvane
