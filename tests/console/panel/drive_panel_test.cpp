// Page "A": its tables, the polling, the six buttons and the chart.
#include "console/panel/drive_panel.h"

#include "console/console_bench.h"
#include "console/panel/series_tables.h"

namespace kelvane {
namespace {

struct Panel : ConsoleBenchWithoutDrive, testing::Test {
    DrivePanel& panel = console->panel;
    void answerWords(const QList<int>& words) {
        QString text = QStringLiteral("FF03") + hex(static_cast<int>(words.size() * 2), 2);
        for (const int word : words) text += hex(word, 4);
        reply(text);
        run(40);
    }
    // A table of two registers of one's own.
    void beOthers() {
        panel.selectSeries(9);
        panel.typeCommand("FF0321000002");
        panel.addRow();
        table().setCell(DrivePanel::NameColumn, 1, "fault");
        table().setCell(DrivePanel::NameColumn, 2, "state");
        panel.rebuildChannels();
    }
    QString shown(int row) { return table().cell(DrivePanel::DataColumn, row); }
};

// Decimals and unit of each row.
TEST_F(Panel, FillsItsTableBySeriesAndKeepsThePersonsOwn) {
    const char* const tables[] = {"10: 0 0 2Hz 2Hz 1A 1V 1V 0 0 0 1 2 0 1 2Hz 2Hz",
                                  "0B: 0 0 2Hz 2Hz 2A 0V 2V 0 0 0 2",
                                  "10: 0 0 2Hz 2Hz 1A 1V 1V 0 0 0 1 1 0 0 0 2KW",
                                  "0B: 0 0 2Hz 2Hz 1A 0V 0V 0 0 0 0",
                                  "10: 0 0 2Hz 2Hz 2A 1V 1V 0 0 0 1 1 0 0 0 2KW",
                                  "0E: 0 0 2Hz 2Hz 1A 1V 1V 2 2 1 2 2 0 0",
                                  "0B: 0 0 2Hz 2Hz 1A 0 0 0 1V 1V 1",
                                  "0E: 0 0 2Hz 2Hz 1A 0 2 0 1V 1V 1 0 1V 1mA 0 2kW",
                                  "10: 0 0 2Hz 2Hz 2A 1V 1V 0 0 0 1 1 0 0 0 2KW"};
    for (int series = 0; series < SeriesCount; ++series) {
        panel.selectSeries(series);
        QString all = panel.DefCmdLabeledEdit.mid(10) + ':';
        for (int row = 1; row < table().RowCount(); ++row)
            all += ' ' + table().cell(DrivePanel::DecimalColumn, row) +
                   table().cell(DrivePanel::UnitColumn, row);
        EXPECT_EQ(all.toStdString(), tables[series]);
        EXPECT_EQ(table().cell(DrivePanel::AddressColumn, 11), "210A");
    }
    panel.selectSeries(6);
    EXPECT_EQ(table().cell(DrivePanel::NameColumn, 9), "DC-BUS Voltage U");
    EXPECT_EQ(panel.channelItems, QStringList("-- Please Select --")) << "the fallback has no first names";
    TextGroup& labels = lang.form(FormSection::Trend).Label;
    for (int i = 6; i < 18; ++i) labels.Text[size_t(i)] = QString::number(i + 1);
    panel.selectSeries(7);
    EXPECT_EQ(panel.channelItems,
              QStringList({"-- Please Select --", "7", "8", "14", "15", "16", "17", "18"}));

    beOthers();
    panel.typeCommand("010320FE0004");
    while (table().RowCount() < 5) panel.addRow();
    EXPECT_EQ(table().cell(1, 1) + table().cell(1, 3), "20FE2100");
    panel.fillEmptyDecimals();
    panel.selectSeries(1);
    panel.selectSeries(9);
    EXPECT_EQ(table().cell(DrivePanel::NameColumn, 2) + table().cell(DrivePanel::DecimalColumn, 2), "state0");
    for (int i = 0; i < 30; ++i) panel.addRow();
    panel.insertRow(1);
    EXPECT_EQ(table().RowCount(), OthersRoom);
}

TEST_F(Panel, TakesTheDrivesAddressIntoItsCommand) {
    panel.typeId("5");
    EXPECT_EQ(panel.DefCmdLabeledEdit, "050321000010");
    panel.typeId("300");
    EXPECT_EQ(panel.monitorIDLabeledEdit, "255");
    panel.typeId("-1");
    EXPECT_EQ(panel.DefCmdLabeledEdit.left(2), "00");
    person.expectBox(lang.MsgStr(Message::ValueNotLegal), "Error Message");
    panel.typeId("abc");
    EXPECT_EQ(panel.monitorIDLabeledEdit, "255");
}

TEST_F(Panel, PollsAsOftenAsAsked) {
    beOthers();
    console->RepeatLabeledEdit = "3";
    console->RUNTransparentButtonClick();
    run(5);
    table().setCell(DrivePanel::DecimalColumn, 2, "2");
    for (int i = 0; i < 3; ++i) answerWords({0x1234, 0x04D2, 1, 2});
    run(3000);
    EXPECT_EQ(sent(), QStringList({"FF0321000002", "FF0321000002", "FF0321000002"}))
        << "each length error counts too";
    EXPECT_FALSE(console->running());
    EXPECT_EQ(shown(1), "") << "a reply of another length is no reading";

    console->RepeatLabeledEdit = "1";
    console->RUNTransparentButtonClick();
    run(5);
    answerWords({0x1234, 0x04D2});
    EXPECT_EQ(shown(1) + " " + shown(2), "4660 12.34");
    EXPECT_TRUE(topLine().contains("Receive > FF0304"));
    EXPECT_TRUE(panel.leds.RUN.on) << "the lamps stay lit behind a run that ended by itself";
    EXPECT_EQ(table().RowCount(), 3);
    panel.toggleFormat();
    console->RUNTransparentButtonClick();
    run(5);
    answerWords({0x1234, 0x04D2});
    EXPECT_EQ(shown(2), "04D2H");
    console->STOPTransparentButtonClick();
    EXPECT_EQ(panel.leds, StateLeds{});
}

TEST_F(Panel, DecodesTheStateWord) {
    for (const auto& [word, coded, wanted] : {std::tuple{0x0400, true, "0101001"},
                                              {0x0009, true, "f101f00"},
                                              {0x0012, true, "1f0f100"},
                                              {0x021F, true, "1010100"},  // EXT is never lit
                                              {0x0009, false, "1001000"},
                                              {0x0016, false, "0110100"},
                                              {0x0400, false, "0000001"}}) {
        const StateLeds lit = panelLeds(static_cast<quint16>(word), coded);
        QString all;
        for (const StateLed& lamp : {lit.RUN, lit.STOP, lit.JOG, lit.FWD, lit.REV, lit.EXT, lit.PU})
            all += QLatin1Char(lamp.flashing ? 'f' : lamp.on ? '1' : '0');
        EXPECT_EQ(all, wanted) << word;
    }
}

TEST_F(Panel, PollsOnAfterABadReplyUnlessItIsToStop) {
    beOthers();
    console->RUNTransparentButtonClick();
    for (const bool stops : {false, true}) {
        link.Console.ErrorCheckBoxChecked = stops;
        run(5);
        port.arrive(QByteArray::fromHex("FF0304000100020000"));
        run(30);
        EXPECT_EQ(topColour() == ConsolePurple, stops) << "the next read stands on top";
        EXPECT_EQ(console->running(), !stops);
    }
    EXPECT_EQ(console->record().errorRecords, 2);
    EXPECT_EQ(sent().size(), 2);
}

// A STOP leaves right behind the exchange in hand, whatever waits, and nothing is tried again behind it.
TEST_F(Panel, LetsStopGoFirst) {
    beOthers();
    console->RUNTransparentButtonClick();
    run(5);
    panel.press(DriveButton::Run);
    panel.press(DriveButton::Jog);
    run(5);
    panel.press(DriveButton::Stop);
    answerWords({1, 2});
    EXPECT_EQ(sent(), QStringList({"FF0321000002", "FF0620000001"}));
    reply("FF0620000001");
    run(60);
    EXPECT_EQ(sent(), QStringList("FF0321000002")) << "the polling goes on";
    EXPECT_TRUE(console->log.lines()[1].text.contains("Receive > FF0620000001"));

    // The read is not answered: its resend does not come before STOP.
    panel.press(DriveButton::Stop);
    run(200);
    EXPECT_EQ(sent(), QStringList("FF0620000001"));
    reply("FF0620000001");
    run(60);
    sent();
    // And once more in the pause before the resend.
    run(300);
    panel.press(DriveButton::Stop);
    run(5);
    EXPECT_EQ(sent(), QStringList("FF0620000001"));
}

// The STOP is lost on the line, and a late echo of another write comes in its place.
TEST_F(Panel, RepeatsAStopThatWasAnsweredByAnotherEcho) {
    panel.press(DriveButton::Stop);
    run(5);
    reply("FF0620000002");
    run(60);
    EXPECT_EQ(sent(), QStringList({"FF0620000001", "FF0620000001"}));
    reply("FF0620000001");
    run(5000);
    EXPECT_TRUE(sent().isEmpty());
    panel.press(DriveButton::Stop);
    for (int i = 0; i < 10; ++i) {
        run(60);
        port.arrive("\x55\x55\x55");
    }
    EXPECT_EQ(sent().size(), 5) << "not for ever";
}

TEST_F(Panel, WithdrawsARunThatWasNotAnswered) {
    panel.typeId("5");
    panel.press(DriveButton::Run);
    run(2);
    panel.press(DriveButton::Stop);
    run(3000);
    const QStringList commands = sent();
    EXPECT_EQ(commands.front(), "050620000002");
    EXPECT_EQ(commands[1], "050620000001");
    EXPECT_EQ(commands.count("050620000002"), 1);
    console->STOPTransparentButtonClick();
    link.rest();
}

TEST_F(Panel, SendsEachButtonWithItsAddress) {
    panel.typeId("5");
    const QList<std::pair<DriveButton, QString>> buttons{
        {DriveButton::Run, "0620000002"},   {DriveButton::Stop, "0620000001"},
        {DriveButton::Dir, "0620000030"},   {DriveButton::Jog, "0620000003"},
        {DriveButton::Reset, "0620020002"}, {DriveButton::Ef, "0620020001"}};
    for (const auto& [button, tail] : buttons) {
        panel.press(button);
        run(2);
        EXPECT_EQ(sent(), QStringList("05" + tail));
        reply("05" + tail);
        run(60);
    }
    // Polling: before the reading is counted, and kept to FFh.
    console->RepeatLabeledEdit = "1";
    console->RUNTransparentButtonClick();
    run(5);
    panel.press(DriveButton::Reset);
    port.arrive(QByteArray::fromHex("00"));
    run(50);
    EXPECT_EQ(sent(), QStringList({"050321000010", "FF0620020002"}));
}

TEST_F(Panel, EndsARunningListByStop) {
    typeCommands({"010620000002"});
    console->showConnectionPage(ConnectionPage::B);
    console->RUNTransparentButtonClick();
    run(12);
    panel.press(DriveButton::Stop);
    run(2000);
    const QStringList commands = sent();
    EXPECT_EQ(commands.front(), "010620000002");
    EXPECT_EQ(commands.count("010620000002"), 1);
    EXPECT_EQ(commands[1], "FF0620000001");
    EXPECT_FALSE(console->running());
    link.rest();
}

TEST_F(Panel, DrawsTheChosenRows) {
    beOthers();
    panel.chartShown = true;
    panel.ChComboBoxItemIndex[1] = 2;
    console->RUNTransparentButtonClick();
    run(5);
    for (int i = 0; i < 30; ++i) answerWords({0, i});
    EXPECT_EQ(panel.Series[1].values.size(), 30u);
    EXPECT_EQ(panel.Series[1].values.back(), 29.0);
    EXPECT_FALSE(panel.Series[0].shown);
    EXPECT_EQ(panel.axisMaximum, 29);
    EXPECT_EQ(panel.axisMinimum, 9);
    panel.clearChart();
    EXPECT_EQ(panel.axisMaximum, 20);
    // Kept: a hexadecimal cell ends the polling with its box, until STOP and RUN.
    panel.toggleFormat();
    person.expectBox("I got you !!", "Cofirm");
    answerWords({0, 1});
    sent();
    run(3000);
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_TRUE(console->running());
    panel.press(DriveButton::Stop);
    run(5);
    EXPECT_EQ(sent(), QStringList("FF0620000001")) << "but STOP leaves";
    link.rest();
    console->STOPTransparentButtonClick();
    EXPECT_FALSE(console->running());
}

}  // namespace
}  // namespace kelvane
