// The meters of the Monitor window: how their scales follow values, items and hands, and what Start and
// closing do.
#include "diagnostics/monitor/monitor_session.h"

#include <gtest/gtest.h>

#include "bench/link_bench.h"
#include "link/number_text.h"

namespace kelvane {
namespace {

struct MonitorStand : SchedulerBench {
    MonitorSession monitor{{clock, wall, link, person, lang}};

    explicit MonitorStand(Family family = Family::Tilia) {
        beOnLine(family);
        monitor.InitialDrive({"a", "b", "c"});
    }
    void value(int k, quint32 raw) {
        DriveStatusRecord& status = link.DriveStatus;
        status.StatusWords[size_t(k) + 2] = raw;
        status.StatusText[size_t(k)] =
            InsertDecimalPoint(QString::number(raw), status.StatusDecimals[size_t(k)]);
    }
    void tick(int k, quint32 raw) {
        value(k, raw);
        monitor.ProcessScopeData(link.DriveStatus);
    }
};
// Items of Tilia: 0 output frequency with scale 100, 3 voltage with scale 10, 5 a plain number.

TEST(Monitor, GrowsEachScaleByItsOwnRule) {
    MonitorStand b;
    b.tick(0, 6000);
    EXPECT_EQ(b.monitor.VrMeter.MaxValue, 61);
    b.tick(0, 6099);
    EXPECT_EQ(b.monitor.VrMeter.Position, 60) << "whole units";
    EXPECT_EQ(b.monitor.VrMeter.caption, "60 Hz");
    b.tick(0, 6050);
    for (const ExchangeableMeter* meter : {&b.monitor.Meter1, &b.monitor.Meter2}) {
        EXPECT_EQ(meter->VrAngularMeter.Position, 60.5);
        EXPECT_EQ(meter->ValueLabel, "60.50 Hz");
        EXPECT_EQ(meter->AbThermometer.Digit, 6050);
        EXPECT_EQ(meter->AbHMeter.DigitalTo, 6000) << "clipped at the top";
    }
    EXPECT_EQ(b.monitor.AbTrend1.Channel(1).DigitalTo, 6600);
    EXPECT_EQ(b.monitor.AbTrend1.Channel(1).ValueFormat, "##0.00");
    b.tick(0, 100);
    EXPECT_EQ(b.monitor.VrMeter.MaxValue, 61) << "scales only grow";
}

TEST(Monitor, TakesAPlainNumberAsItStands) {
    MonitorStand b;
    b.monitor.VrMeterComboBoxCloseUp(5);
    b.monitor.ComboBoxCloseUp(b.monitor.Meter2, 5);
    b.tick(5, 1450);
    EXPECT_EQ(b.monitor.VrMeter.MaxValue, 1450);
    EXPECT_EQ(b.monitor.Meter2.AbThermometer.DigitalTo, 1450);
    EXPECT_EQ(b.monitor.Meter2.ValueLabel, "1450 ");
    EXPECT_EQ(b.monitor.Meter1.ValueLabel, "0.00 Hz") << "the first meter has its own item";
}

// Kept: the raw scale goes down with the decimals, never up.
TEST(Monitor, KeepsTheRawScaleWhenDecimalsGrow) {
    constexpr int ItemOf[] = {5, 3, 0};  // with 0, 1 and 2 decimals
    const int expected[3][3] = {{6000, 6000, 6000}, {600, 6000, 6000}, {60, 600, 6000}};
    for (int p = 0; p < 3; ++p) {
        for (int n = 0; n < 3; ++n) {
            MonitorStand b;
            b.monitor.ComboBoxCloseUp(b.monitor.Meter1, ItemOf[p]);
            b.monitor.Meter1.AbThermometer.DigitalTo = b.monitor.Meter1.AbHMeter.DigitalTo = 6000;
            b.monitor.ComboBoxCloseUp(b.monitor.Meter1, ItemOf[n]);
            EXPECT_EQ(b.monitor.Meter1.AbThermometer.DigitalTo, expected[p][n]) << p << " to " << n;
            EXPECT_EQ(b.monitor.Meter1.AbHMeter.DigitalTo, expected[p][n]);
            EXPECT_EQ(b.monitor.Meter1.Decimals, n);
        }
    }
    MonitorStand b;
    b.monitor.AbTrend1.Channel(1).DigitalTo = 500;
    b.monitor.Ch1ComboBoxCloseUp(3);
    EXPECT_EQ(b.monitor.AbTrend1.Channel(1).DigitalTo, 1);
    EXPECT_EQ(b.monitor.AbTrend1.Channel(1).ValueUnit, "Vdc");
}

TEST(Monitor, TakesKindAndTopFromTheDialog) {
    MonitorStand b;
    b.monitor.meterType.MeterType = 2;
    for (const char* text : {"80", "", "x"}) b.monitor.meterType.setMaxValue(text);
    b.monitor.takeMeterType(b.monitor.Meter1);
    EXPECT_EQ(b.monitor.Meter1.AbThermometer.DigitalTo, 8000);
    b.monitor.Meter1.page = MeterKind::Angular;
    b.monitor.openMeterType(b.monitor.Meter1);
    EXPECT_EQ(b.monitor.meterType.MeterType, 2) << "kept: the kind chosen last";
    b.monitor.meterType.MeterType = 7;
    b.monitor.takeMeterType(b.monitor.Meter2);
    EXPECT_EQ(b.monitor.Meter2.page, MeterKind::Angular);
}

TEST(Monitor, TakesATypedMaximum) {
    MonitorStand b;
    b.monitor.setMeterMaximum("");
    b.person.expectBox("Value is not Legal !! Please check it ...", "Error Message");
    b.monitor.setMeterMaximum("1.5");
    b.person.expectBox("The value can not smaller then zero !!", "Error Message");
    b.monitor.setMeterMaximum("-1");
    EXPECT_EQ(b.monitor.VrMeter.MaxValue, 50);
    b.monitor.setMeterMaximum("0");
    EXPECT_EQ(b.monitor.VrMeter.MaxValue, 0);
    b.monitor.setTrendMaximum("80");
    EXPECT_EQ(b.monitor.AbTrend1.Channel(1).DigitalTo, 8000);
}

// Willow's boxes have no entries for items 3 to 5; an entry that a shorter list has no more selects nothing
// that could crash.
TEST(Monitor, FindsTheItemOfAnEntry) {
    MonitorStand b(Family::Willow);
    b.monitor.takeIndexes({.ComboBox1st = 3, .ComboBox2nd = 12, .VrMeterComboBox = -1, .Ch1ComboBox = 4});
    EXPECT_EQ(b.monitor.Meter1.Item, 6);
    b.tick(6, 3100);
    EXPECT_EQ(b.monitor.Meter1.ValueLabel, "310.0 V");
    EXPECT_EQ(b.monitor.TrendItem, 7);
    EXPECT_EQ(b.monitor.indexes().ComboBox2nd, 12) << "kept for the next drive";
    EXPECT_EQ(b.monitor.indexes().VrMeterComboBox, -1);
}

TEST(Monitor, StartsStopsAndClears) {
    MonitorStand b;
    int asked = 0;
    b.monitor.openComSetup = [&](std::function<void()> then) {
        ++asked;
        then();
    };
    b.link.Lamp.ComStatusAbLED = QStringLiteral("Off Line");
    b.monitor.StartVrPowerButtonClick(true);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(b.monitor.GetDataTimer.Enabled());
    b.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
    b.value(0, 6000);
    b.monitor.StartVrPowerButtonClick(true);
    b.clock.advance(1000);
    EXPECT_TRUE(b.monitor.GetDataTimer.Enabled());
    EXPECT_EQ(b.monitor.AbTrend1.TotalRecords(), 10);
    b.monitor.StartVrPowerButtonClick(false);
    b.clock.advance(1000);
    EXPECT_FALSE(b.monitor.AbTrend1.recording());
    EXPECT_EQ(b.monitor.AbTrend1.TotalRecords(), 10);
    b.monitor.AbTrend1NewCursorPos({.DataValid = true, .Time = 39492.5, .Digit = {29}});
    EXPECT_EQ(b.monitor.Ch1LabeledEdit, "0.29");
    EXPECT_FALSE(b.monitor.Label1.isEmpty());
    b.monitor.StartVrPowerButtonClick(true);
    b.monitor.FormClose();
    EXPECT_FALSE(b.monitor.GetDataTimer.Enabled() || b.monitor.AbTrend1.recording());
    b.link.DriveStatus.DriveReady = 0;
    b.monitor.StartVrPowerButtonClick(true);
    b.clock.advance(1000);
    EXPECT_EQ(b.monitor.AbTrend1.TotalRecords(), 0) << "nothing but zeros before the first poll";
}

}  // namespace
}  // namespace kelvane
