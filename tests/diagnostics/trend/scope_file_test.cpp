// Scope files byte for byte.
#include "diagnostics/trend/scope_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "base/manual_tick_clock.h"
#include "diagnostics/trend/trend_recorder.h"

namespace kelvane {
namespace {

struct ScopeFile : testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath("x.trd");
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2008, 2, 14), QTime(12, 0))};
    TrendRecorder trend{clock, wall, 8};

    void take(int count) {
        for (int i = 0; i < count; ++i) trend.GetData();
    }
    QByteArray bytes() { return readWhole(path).bytes; }
};

TEST_F(ScopeFile, OneSampleIsTheseBytes) {
    const std::array<quint16, 8> digits{6000, 5998, 123, 5400, 2200, 0, 65535, 256};
    for (int c = 1; c <= 8; ++c) trend.Channel(c).Digit = digits[size_t(c - 1)];
    take(1);
    ASSERT_TRUE(trend.SaveToFile(path).ok);
    EXPECT_EQ(bytes().toHex(), "000000009048e34070176e177b00181598080000ffff0001");
}

TEST_F(ScopeFile, BreaksAndAppendedRunsAsTheyStand) {
    writeWhole(path, QByteArray(500, 'x'));
    ASSERT_TRUE(trend.SaveToFile(path).ok);
    EXPECT_EQ(bytes().size(), 0);  // an empty run; what was there is replaced
    ASSERT_TRUE(trend.LoadFromFile(path).ok);
    EXPECT_EQ(trend.TotalRecords(), 0);

    take(7);
    trend.SetStartRecording(true);
    ASSERT_TRUE(trend.SaveToFile(path).ok);
    EXPECT_EQ(bytes().size(), 24 * 7 + 120);
    EXPECT_TRUE(trend.recording());

    trend.Channel(1).Digit = 9;
    take(1);
    ASSERT_TRUE(trend.LoadFromFile(path).ok);
    EXPECT_FALSE(trend.recording());
    EXPECT_EQ(trend.TotalRecords(), 13 + 5 + 12);
    EXPECT_TRUE(trend.data.records[13].isSeparator());  // behind the last record, with its digits
    EXPECT_EQ(trend.data.records[13].Ch[0], 9);
    EXPECT_EQ(trend.data.records[12].Ch[0], 9);

    TrendRecorder other{clock, wall, 8};
    ASSERT_TRUE(other.LoadFromFile(path).ok);
    const QString again = dir.filePath("again.trd");
    ASSERT_TRUE(other.SaveToFile(again).ok);
    EXPECT_EQ(readWhole(again).bytes, bytes());
}

TEST_F(ScopeFile, AFileCutAnywhereLoadsItsWholeRecords) {
    QByteArray content;
    for (int i = 0; i < 24 * 6; ++i) content += char(i * 37 + 11);
    for (int length = 0; length <= content.size(); ++length) {
        writeWhole(path, content.left(length));
        TrendRecords records;
        ASSERT_TRUE(loadScopeFile(path, records).ok);
        ASSERT_EQ(records.size(), length / 24);
        EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(records.all().data()), length / 24 * 24),
                  content.left(length / 24 * 24));
    }
}

TEST_F(ScopeFile, KeepsTheBreakOfALoadThatFailsAndSaysWhy) {
    take(2);
    trend.SetStartRecording(true);
    const qint64 before = trend.TotalRecords();
    const FileResult missing = trend.LoadFromFile(dir.filePath("none.trd"));
    EXPECT_FALSE(missing.ok);
    EXPECT_TRUE(missing.error.contains("none.trd"));
    EXPECT_FALSE(trend.recording());
    EXPECT_EQ(trend.TotalRecords(), before + 5);
    EXPECT_FALSE(trend.LoadFromFile(dir.path()).ok);
    EXPECT_FALSE(trend.LoadFromFile("/dev/zero").ok);
    EXPECT_FALSE(trend.SaveToFile(dir.filePath("no/such.trd")).ok);
    // A file that says it is larger than the machine's memory.
    QFile huge(path);
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    ASSERT_TRUE(huge.resize(qint64(1) << 42));
    huge.close();
    EXPECT_FALSE(loadScopeFile(path, trend.data.records).ok);
}

}  // namespace
}  // namespace kelvane
