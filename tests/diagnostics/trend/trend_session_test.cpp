// The Trend window's engine: from status words to digits, runs, switches, cursor texts and files.
#include "diagnostics/trend/trend_session.h"

#include <gtest/gtest.h>

#include <QSet>

#include "bench/decimal_sep.h"
#include "bench/on_line_bench.h"
#include "diagnostics/status_items.h"
#include "trend_bench.h"

namespace kelvane {
namespace {

TEST(StatusItems, AreNothingBehindTheirEnd) {
    const DriveStatusRecord status;
    for (const int k : {-1, 14, 5000}) {
        EXPECT_EQ(statusWordOf(status, k), 0u);
        EXPECT_EQ(statusItem(status, k).scale, 0);
    }
}

TEST(TrendSession, StateBitsMoveTheLogicLinesAndPrimeTheCommandsOnce) {
    TrendSessionBench b;
    auto& trend = b.session.AbTrend2;
    const auto word = [&](quint32 value) {
        b.link.DriveStatus.StatusWords[1] = value;
        b.tick();
    };
    const auto digits = [&] {
        QStringList all;
        for (int c = 1; c <= 4; ++c) all += QString::number(trend.Channel(c).Digit);
        return all.join(' ');
    };
    word(1 | 8);
    EXPECT_EQ(digits(), "10 30 40 60");
    for (const quint32 running : {1u, 2u, 3u}) {
        word(running);
        EXPECT_EQ(trend.Channel(2).Digit, 30);
    }
    word(0);
    EXPECT_EQ(digits(), "10 20 40 70") << "the command lines wait for a command";
    for (const auto& [task, digit] : {std::pair{3, 0}, {2, 10}, {3, 0}, {6, 10}}) {
        b.session.commandAnswered(static_cast<quint8>(task));
        EXPECT_EQ(trend.Channel(1).Digit, digit);
    }
    b.session.commandAnswered(5);
    EXPECT_EQ(trend.Channel(3).Digit, 40);
    word(8);
    b.session.commandAnswered(5);
    EXPECT_EQ(trend.Channel(3).Digit, 50);
}

TEST(TrendSession, ChannelsTakeTheirItemsHiddenOnesToo) {
    TrendSessionBench b;
    b.setItem(2, 123);
    b.setItem(9, 0xFFFB);  // a torque of -5
    b.session.ChComboBoxCloseUp(1, 2);
    b.session.ChComboBoxCloseUp(8, 9);
    b.session.ChVrPowerButtonClick(8, false);
    b.tick();
    EXPECT_EQ(b.session.AbTrend1.Channel(1).Digit, 123);
    EXPECT_EQ(b.session.AbTrend1.Channel(8).Digit, 65531);
    EXPECT_EQ(b.session.AbTrend1.Channel(1).DigitalTo, 132);
    b.session.ChComboBoxCloseUp(1, 3);
    EXPECT_EQ(b.session.AbTrend1.Channel(1).DigitalTo, 0);
    b.session.ChComboBoxCloseUp(1, -1);  // nothing chosen: as it was
    EXPECT_EQ(b.session.ChannelItem[1], 3);
}

TEST(TrendSession, ARunRecordsBothTrendsTogetherAndSuspendsWithTheLink) {
    TrendSessionBench b;
    b.session.StartVrPowerButtonClick(true);  // off line, and com setup does not help
    b.record(5);
    EXPECT_EQ(b.total(), 0);
    b.session.openComSetup = [&](const std::function<void()>& then) {
        b.goOnLine();
        b.link.DriveStatus.DriveReady = 0;
        then();
    };
    b.session.StartVrPowerButtonClick(true);
    EXPECT_FALSE(b.session.TrendScrollBarEnabled);
    b.record(20);
    EXPECT_EQ(b.total(), 0) << "no zeros before the first poll";
    b.link.DriveStatus.DriveReady = 1;
    b.record(10);
    EXPECT_EQ(b.total(), 10);
    b.session.suspend();
    b.record(10);
    EXPECT_EQ(b.total(), 10);
    EXPECT_TRUE(b.session.StartVrPowerButtonOn);
    b.session.resume();
    b.session.resume();
    b.record(2);
    EXPECT_EQ(b.total(), 17);
    EXPECT_EQ(b.session.AbTrend2.TotalRecords(), 17);
    b.session.StartVrPowerButtonClick(false);
    EXPECT_TRUE(b.session.TrendScrollBarEnabled);
    b.session.resume();
    b.record(5);
    EXPECT_EQ(b.total(), 17);
    b.session.FormClose();
    EXPECT_EQ(b.total() + b.session.AbTrend2.TotalRecords(), 0);
}

// All data come from the idle poll; the drive sees nothing of the trend.
TEST(TrendSession, ARunAddsNoFrameOfItsOwn) {
    for (const Family family : AllFamilies) {
        OnLineBench b({.family = family});
        QTemporaryDir dir;
        TrendSession session({b.clock, b.wall, b.link, b.person, dir.filePath("journal")});
        ASSERT_TRUE(b.goOnLine());
        const auto sent = [&] {
            b.station.port.clearTranscript();
            b.clock.advance(3000);
            const QStringList frames = b.transcript();
            return QSet<QString>(frames.begin(), frames.end());
        };
        const QSet<QString> polls = sent();
        b.link.ActiveFunction = OwnerTrend;
        session.ChComboBoxCloseUp(1, family == Family::Yarrow ? 6 : 3);
        session.StartVrPowerButtonClick(true);
        EXPECT_EQ(sent(), polls) << familyName(family);
        EXPECT_NEAR(double(session.AbTrend1.TotalRecords()), 30, 1);
        EXPECT_GT(session.AbTrend1.data.records.last().Ch[0], 100) << familyName(family);  // the DC bus
    }
}

TEST(TrendSession, KeepsTheFormatOfItemCMinusOneAndASelectionBehindAShorterList) {
    TrendSessionBench b(Family::Tilia);
    b.session.ChComboBoxCloseUp(3, 12);
    b.recognise(Family::Aspen);
    EXPECT_EQ(b.session.items.size(), 9);
    EXPECT_EQ(b.session.ChannelItem[3], 12);
    EXPECT_EQ(b.session.AbTrend1.Channel(3).ValueUnit, "A");  // of item 2
    b.link.DriveStatus.StatusWords[14] = 77;                  // stale, and recorded without complaint
    b.tick();
    EXPECT_EQ(b.session.AbTrend1.Channel(3).Digit, 77);
    b.recognise(Family::Willow);
    b.session.ChComboBoxCloseUp(1, 3);
    EXPECT_EQ(b.session.ChannelItem[1], 6);
    EXPECT_EQ(b.session.AbTrend1.Channel(1).ValueUnit, "V");
}

TEST(TrendSession, CursorTextsGoThroughThePresentScale) {
    const UsingDecimalSep point(".");
    TrendSessionBench b;
    b.goOnLine();
    b.setItem(0, 6000);
    b.setItem(10, 1450);
    b.session.ChComboBoxCloseUp(1, 0);
    b.session.ChComboBoxCloseUp(2, 10);
    for (const int c : {1, 2}) b.session.ChVrPowerButtonClick(c, true);
    EXPECT_EQ(b.session.ChLabeledEdit[1], " -- ");
    b.tick();
    b.session.StartVrPowerButtonClick(true);
    b.record(3);
    b.session.AbTrend1NewCursorPos(b.at(1));
    EXPECT_EQ(b.session.ChLabeledEdit[1], "60.00");
    EXPECT_EQ(b.session.ChLabeledEdit[2], "1450");
    EXPECT_EQ(b.session.ChLabeledEdit[3], "");  // switched off
    EXPECT_EQ(b.session.RecNoLabel, "1");
    EXPECT_NE(b.session.RecTimeLabel, "------");
    b.session.CursorTransparentButtonClick();
    EXPECT_EQ(b.session.RecNoLabel + b.session.RecTimeLabel, "------------");
    EXPECT_EQ(b.session.ChLabeledEdit[1], "60.00");
    b.session.CursorTransparentButtonClick();
    ValueAtCursor logic = b.at(1);
    logic.Digit = {10, 30, 40, 60};
    b.session.AbTrend2NewCursorPos(logic);
    EXPECT_EQ(b.session.LogicLabel, (std::array<QString, 5>{"", "H", "H", "L", "L"}));
    EXPECT_EQ(b.session.RecNoLabel, "1");
    b.session.AbTrend2NewCursorPos({});
    EXPECT_EQ(b.session.LogicLabel, (std::array<QString, 5>{}));
    EXPECT_EQ(b.session.RecNoLabel, "------");
    b.session.AbTrend1NewCursorPos({});
    EXPECT_EQ(b.session.ChLabeledEdit[1], "");
    b.session.ChComboBoxCloseUp(1, 3);  // another item: the same digits on another scale
    b.setItem(3, 5000);
    b.tick();
    b.session.AbTrend1NewCursorPos(b.at(1));
    EXPECT_EQ(b.session.ChLabeledEdit[1], "600.0");
}

TEST(TrendSession, OptionDialogSetsTheTopOfALeftScale) {
    const UsingDecimalSep point(".");
    TrendSessionBench b;
    std::array<int, 9> widths{};
    widths.fill(3);
    widths[8] = 9;
    b.session.ChComboBoxCloseUp(1, 0);
    b.session.OKTransparentButtonClick(1, "80.5", widths);
    EXPECT_EQ(b.session.AbTrend1.Channel(1).ValueTo, 80.5);
    EXPECT_EQ(b.session.AbTrend1.Channel(1).DigitalTo, 8050);
    EXPECT_EQ(b.session.AbTrend1.Channel(2).penWidth, 3);
    EXPECT_EQ(b.session.AbTrend1.Channel(8).penWidth, 5);
    b.session.ChComboBoxCloseUp(2, 10);
    b.session.OKTransparentButtonClick(2, "80.5", widths);
    EXPECT_EQ(b.session.LeftScaleCh, 2);
    EXPECT_EQ(b.session.ChLeftEdit(2), "80");
    for (const auto& [places, text, wanted] :
         {std::tuple{2, "80.567", 80.56}, {2, "80", 80.0}, {1, ".57", 0.5}, {2, "x.y", 0.0}, {2, "", 0.0}})
        EXPECT_EQ(ParseFixed(places, text), wanted) << text;
}

TEST(TrendSession, StatusTabShowsTextsByFamily) {
    const char* seven = "0 1 2 3 4 5 6";
    for (const auto& [family, first, fifth] : {std::tuple{Family::Larch, seven, "7 8 9 10 11 12 13"},
                                               {Family::Aspen, seven, "7 8"},
                                               {Family::Willow, "0 1 2 6 7 8", ""},
                                               {Family::Yarrow, "", ""}}) {
        TrendSessionBench b(family);
        for (int k = 0; k < 16; ++k) b.link.DriveStatus.StatusText[size_t(k)] = QString::number(k);
        b.tick();
        const auto column = [&](int at) {
            QStringList items;
            for (int r = 1; r <= 7; ++r) items += b.session.InfoAdvStringGrid.cell(at, r);
            return items.join(' ').trimmed();
        };
        EXPECT_EQ(column(1), first) << familyName(family);
        EXPECT_EQ(column(5), fifth) << familyName(family);
    }
}

TEST(TrendSession, SavesLoadsAndOffersTheSettingsBeside) {
    const QString filter = "Trd - scope data|*.trd";
    TrendSessionBench b;
    b.goOnLine();
    b.setItem(2, 123);
    b.session.ChComboBoxCloseUp(3, 2);
    b.session.ChComboBoxCloseUp(4, 1);
    for (const int c : {3, 4}) b.session.ChVrPowerButtonClick(c, true);
    b.session.GetDataTimerTimer();
    b.session.StartVrPowerButtonClick(true);
    b.record(20);
    b.session.addMarker(7, "load on");
    b.link.Labels.DriveVrLabel = "Larch";
    const QString path = b.dir.filePath("a.trd");
    b.person.expectSave(filter, "trd", path);
    b.session.SaveScopeDataTransparentButtonClick();
    EXPECT_TRUE(b.session.AbTrend1.recording());
    EXPECT_EQ(readWhole(path).bytes.size(), 20 * 24);

    b.person.expectOpen(filter, path);
    b.session.LoadScopeDataTransparentButtonClick();
    EXPECT_FALSE(b.session.AbTrend1.recording());
    EXPECT_TRUE(b.session.StartVrPowerButtonOn && b.session.GetDataTimer.Enabled());  // kept: both stay
    EXPECT_EQ(b.total(), 45);
    EXPECT_EQ(b.session.AbTrend2.TotalRecords(), 20);

    TrendSessionBench other(Family::Tilia);
    other.session.loadFrom(path);
    ASSERT_TRUE(other.session.offeredInfo);
    EXPECT_FALSE(other.session.AbTrend1.Channel(4).visible);  // nothing is taken unasked
    other.session.takeOfferedInfo();
    EXPECT_TRUE(other.session.AbTrend1.Channel(4).visible);
    EXPECT_EQ(other.session.ChComboBox[4], 1);
    EXPECT_EQ(other.session.markers, (QList<TrendMarker>{{7, "load on"}}));
    EXPECT_FALSE(other.session.offeredInfo);
    // As it was recorded, with one decimal; Tilia's current has two.
    other.session.AbTrend1NewCursorPos(other.at(3));
    EXPECT_EQ(other.session.ChLabeledEdit[3], "12" + DecimalSep + "3");
    other.session.OKTransparentButtonClick(3, "20" + DecimalSep + "5", {});
    EXPECT_EQ(other.session.AbTrend1.Channel(3).DigitalTo, 205);
    // Loaded again, it has its markers behind the break, and saved it keeps the drive that it came from.
    other.session.loadFrom(path);
    other.session.takeOfferedInfo();
    EXPECT_EQ(other.session.markers, (QList<TrendMarker>{{7, "load on"}, {20 + 5 + 7, "load on"}}));
    other.link.Labels.DriveVrLabel = "Tilia";
    EXPECT_TRUE(other.session.info().drive.startsWith("Larch"));
    other.session.ChComboBoxCloseUp(3, 2);
    other.setItem(2, 500);
    other.tick();
    other.session.AbTrend1NewCursorPos(other.at(3));
    EXPECT_EQ(other.session.ChLabeledEdit[3], "1" + DecimalSep + "23");

    other.session.loadFrom(other.dir.filePath("none.trd"));
    EXPECT_TRUE(other.session.notice.contains("none.trd"));
}

TEST(TrendSession, AnUnsavedRunIsOfferedAndASavedOneIsNot) {
    TrendSessionBench b;
    b.goOnLine();
    b.session.StartVrPowerButtonClick(true);
    b.record(50);
    b.session.FormClose();
    ASSERT_EQ(b.session.offeredRuns().size(), 1);
    EXPECT_EQ(b.session.offeredRuns()[0].records, 50);
    EXPECT_EQ(b.total(), 0);  // never by itself
    b.session.openRun(b.session.offeredRuns()[0]);
    EXPECT_EQ(b.total(), 50);
    EXPECT_TRUE(b.session.offeredRuns().isEmpty()) << "it is open";
    b.session.FormClose();
    EXPECT_EQ(b.session.offeredRuns().size(), 1) << "and still not saved";
    b.session.openRun(b.session.offeredRuns()[0]);
    b.session.StartVrPowerButtonClick(true);
    b.record(30);
    b.session.StartVrPowerButtonClick(false);
    EXPECT_TRUE(b.session.saveTo(b.dir.filePath("b.trd")).ok);
    b.session.FormClose();
    EXPECT_TRUE(b.session.offeredRuns().isEmpty());
}

}  // namespace
}  // namespace kelvane
