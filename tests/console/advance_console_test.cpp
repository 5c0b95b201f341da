// Single commands, list runs, log, time-outs and files of the console, frame by frame.
#include "console/advance_console.h"

#include "console/connection/console_texts.h"
#include "console/console_bench.h"

namespace kelvane {
namespace {

struct Console : ConsoleBenchWithoutDrive, testing::Test {};

TEST_F(Console, MakesTheFixedCommandFromItsFields) {
    EXPECT_EQ(console->caption, "Advance - Com 3 , BaudRate 9600 , Protocol < RTU , 8 , N , 2 >");
    run(5000);
    EXPECT_TRUE(sentFrames().isEmpty()) << "nothing goes out while nobody asks";

    const auto send = [this] {
        console->SendFixTransparentButtonClick();
        run(10);
        port.arrive(QByteArray::fromHex("0103021234B533"));
        run(300);
        return sentFrames().join(' ');
    };
    EXPECT_EQ(send(), "0103210000018E36");
    console->settings().Orlan = false;
    EXPECT_EQ(send(), "0103210000013F9A");
    console->settings().Orlan = true;
    console->settings().AddChksumCheckBoxChecked = false;
    EXPECT_EQ(send(), "010321000001");
    console->settings().AddChksumCheckBoxChecked = true;
    console->writeOption = true;
    console->AddressLabeledEdit = "2000";
    console->DataLabeledEdit = "2";
    EXPECT_EQ(send(), "01062000000203CB");
    console->IDLabeledEdit = "255";
    console->DataLabeledEdit = "300000";
    EXPECT_TRUE(send().startsWith("FF06200093E0"));
    console->hexData = true;
    console->DataLabeledEdit = "1F";
    EXPECT_TRUE(send().startsWith("FF062000001F"));
    console->DataLabeledEdit = "12345";  // kept: it goes out without its data
    person.expectBox(lang.MsgStr(Message::ValueNotLegal), "Error");
    EXPECT_TRUE(send().startsWith("FF062000"));

    for (const char* bad : {"256", "", "-1"}) {
        console->IDLabeledEdit = bad;
        person.expectBox(QString("'%1' is not a valid integer value").arg(bad), "Error");
        EXPECT_EQ(send(), "");
    }
}

TEST_F(Console, ShowsASingleReadAndLeavesItAtAWrite) {
    console->SendAnyTransparentButtonClick("010321000002");
    run(10);
    reply("01030412344142");
    run(300);
    StringGrid& grid = console->RxAdvStringGrid;
    EXPECT_EQ(grid.RowCount(), 4);
    const auto row = [&grid](int at) {
        QStringList cells;
        for (int column = 0; column < 5; ++column) cells += grid.cell(column, at);
        return cells;
    };
    EXPECT_EQ(row(1), QStringList({"2100H", "1234H", "4660", "0001.0010-0011.0100", "\x12\x34"}));
    EXPECT_EQ(row(2), QStringList({"2101H", "4142H", "16706", "0100.0001-0100.0010", "AB"}));
    EXPECT_EQ(binaryWord(0x80A5), "1000.0000-1010.0101");

    console->SendAnyTransparentButtonClick("0106210000FF");
    run(10);
    reply("0106210000FF");
    run(300);
    EXPECT_EQ(grid.cell(1, 1), "1234H");
    EXPECT_EQ(console->record().CanSend, 1);
}

TEST_F(Console, SendsByEnterOnlyWhenTheLastOneIsDealtWith) {
    EXPECT_TRUE(console->InputDataEditEnter("010321000001"));
    EXPECT_FALSE(console->InputDataEditEnter("010321000002"));
    run(5);
    console->SendAnyTransparentButtonClick("010321000003");  // the button does not look; it waits its turn
    EXPECT_EQ(sent(), QStringList("010321000001"));
    run(5);
    port.arrive(QByteArray::fromHex("0103021234B533"));
    run(50);
    EXPECT_EQ(sent(), QStringList("010321000003")) << "once, and not the first one again";
    person.expectLinkFailure("Communication Timeout", true, LinkAnswer::Ignore);
    run(20000);
    EXPECT_EQ(sent().size(), 4) << "four times again";
    EXPECT_EQ(console->record().totalRecords, 6);
    EXPECT_EQ(console->record().timeoutRecords, 5);
    EXPECT_EQ(topColour(), ConsoleRed);
    EXPECT_TRUE(topLine().endsWith(" .......  Receive > No response"));
    EXPECT_EQ(console->record().CanSend, 1);
    console->log.ClearTransparentButtonClick();
    EXPECT_EQ(console->record().totalRecords + console->record().timeoutRecords, 0);
}

// Rows by what came back: replied message, replied data.
TEST_F(Console, FillsTheListByOutcome) {
    typeCommands(
        {"010321000002", "010321000001", "010321000001", "010321000002", "011021000001", "0106210000FF"});
    console->RepeatLabeledEdit = "1";
    console->showConnectionPage(ConnectionPage::B);
    console->RUNTransparentButtonClick();
    const QList<QByteArray> replies{"010304123400FF", "", "018302C0F1", "0103021234B533", "011021000001",
                                    "0106210000FF"};
    for (int row = 1; row <= 6; ++row) {
        EXPECT_TRUE(clock.advanceUntil([&] { return port.written.size() == row; }, 1000)) << row;
        if (row == 3 || row == 4) port.arrive(QByteArray::fromHex(replies[row - 1]));
        if (row == 1 || row > 4) reply(QString::fromLatin1(replies[row - 1]));
    }
    run(160);
    EXPECT_EQ(sent().size(), 6);
    EXPECT_EQ(data(1), "1234H, 00FFH");
    EXPECT_EQ(message(2) + data(2), "Time Out");
    EXPECT_EQ(message(3) + " / " + data(3), "018302C0F1 / CE2");
    EXPECT_EQ(data(4), "Receive data length is not correct!!");
    EXPECT_EQ(data(5), "Function code error!!");
    EXPECT_EQ(data(6), "00FFH");
    EXPECT_EQ(console->record().errorRecords, 3);

    // A bad check, in decimals; the reply still lands after the run has ended.
    console->list.toggleFormat();
    for (int row = 2; row <= 6; ++row) console->list.clickCheckBox(row, false);
    for (const bool good : {true, false}) {
        console->RUNTransparentButtonClick();
        EXPECT_EQ(message(1), "") << "a run begins with empty columns";
        run(15);
        EXPECT_EQ(sent().size(), 1);
        QByteArray wire = buildFrame(LinkMode::Rtu, "010304123400FF", FrameCheck::Standard).wire;
        if (!good) wire.back() = char(wire.back() + 1);
        port.arrive(wire);
        run(160);
        EXPECT_EQ(data(1), good ? "4660, 255" : "Checksum Error");
        EXPECT_EQ(topColour(), good ? ConsoleBlack : ConsolePurple);
        run(300);
        EXPECT_FALSE(console->running());
    }
}

TEST_F(Console, RunsTheCheckedRowsAsOftenAsAsked) {
    console->showConnectionPage(ConnectionPage::B);
    person.expectBox(lang.MsgStr(Message::NoCommandSelected), "Cofirm");
    console->RUNTransparentButtonClick();
    typeCommands({"010321000001", "01032", "", "010321000003"});
    person.expectBox(lang.MsgStr(Message::CommandLengthOdd), "Error");
    console->RUNTransparentButtonClick();
    run(100);
    EXPECT_TRUE(sent().isEmpty());
    console->list.clickCheckBox(2, false);

    const auto answerAll = [this](int sends) {
        QStringList commands;
        for (int i = 0; i < sends; ++i) {
            run(12);
            commands += sent();
            port.arrive(QByteArray::fromHex("0103021234B533"));
            run(40);
        }
        return commands;
    };
    console->RepeatLabeledEdit = "3";
    console->RUNTransparentButtonClick();
    EXPECT_EQ(answerAll(8), QStringList({"010321000001", "010321000003", "010321000001", "010321000003",
                                         "010321000001", "010321000003"}));
    EXPECT_FALSE(console->running());

    // For ever, until STOP; what is on its way is still shown.
    console->RepeatLabeledEdit = "0";
    console->RUNTransparentButtonClick();
    EXPECT_EQ(answerAll(20).size(), 20);
    run(12);
    EXPECT_EQ(sent(), QStringList("010321000001"));
    console->STOPTransparentButtonClick();
    EXPECT_FALSE(console->running());
    port.arrive(QByteArray::fromHex("0103021234B533"));
    run(5000);
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_TRUE(topLine().endsWith("Receive > 0103021234B533"));
    EXPECT_EQ(message(1), "0103021234B533");
}

TEST_F(Console, KeepsZeroForTheLastRowWhenThePassHasWrapped) {
    typeCommands({"010321000001", "010321000002"});
    console->list.clickCheckBox(1, false);
    console->showConnectionPage(ConnectionPage::B);
    console->RUNTransparentButtonClick();
    run(12);
    EXPECT_EQ(console->list.CurrentRow, 0);
    reply("01030412340000");
    run(40);
    EXPECT_EQ(data(2), "1234H, 0000H");
}

TEST_F(Console, EndsARunByItsStopConditions) {
    typeCommands({"010321000001", "010321000002"});
    console->showConnectionPage(ConnectionPage::B);
    for (const bool byTimeOut : {true, false}) {
        console->settings().TimeOutCheckBoxChecked = byTimeOut;
        console->settings().ErrorCheckBoxChecked = !byTimeOut;
        console->RUNTransparentButtonClick();
        run(20);
        if (!byTimeOut) port.arrive("\x01\x83\x02\xC0\xF2");
        run(2000);
        EXPECT_EQ(sent().size(), 1);
        EXPECT_FALSE(console->running());
        EXPECT_EQ(console->record().CanSend, 1);
    }
    console->settings() = {};
    console->settings().CheckRuleCheckBoxChecked = false;
    console->SendAnyTransparentButtonClick("010321000001");
    run(5);
    port.arrive("nonsense");
    run(300);
    EXPECT_EQ(sent().size(), 1) << "without rules anything is good";
    EXPECT_EQ(console->record().errorRecords, 1);

    console->settings() = {};
    console->RUNTransparentButtonClick();
    run(400);
    EXPECT_EQ(sent().join(' ').left(38), "010321000001 010321000002 010321000001")
        << "the next row, not the same again";
}

TEST_F(Console, EditsTheListAsTheButtonsSay) {
    console->showConnectionPage(ConnectionPage::B);
    EXPECT_EQ(list().RowCount(), 2);
    console->NewTransparentButtonClick();
    EXPECT_TRUE(list().checkBox(2));
    typeCommands({"AA", "BB"});
    console->InsertTransparentButtonClick(2);
    EXPECT_EQ(list().cell(1, 3), "BB");
    EXPECT_TRUE(list().checkBox(2));
    console->DelTransparentButtonClick(-1);
    EXPECT_EQ(list().RowCount(), 4);
    console->DelTransparentButtonClick(2);
    console->DelTransparentButtonClick(1);
    EXPECT_EQ(list().cell(1, 1), "BB");
    list().setCell(CommandList::NoteColumn, 1, "note");
    console->DelTransparentButtonClick(1);
    EXPECT_EQ(list().RowCount(), 2);
    EXPECT_EQ(list().cell(1, 1) + list().cell(4, 1), "note");
}

// ---- Time-outs, com setup, closing ----

TEST_F(Console, StoresTimeOutsWithTheirCaptions) {
    for (const auto& [text, caption] :
         {std::pair{"500", "500 ms"}, {"99999", "99.999"}, {"100000", "100 s"}}) {
        EXPECT_TRUE(console->storeTimeOut(TimeOutTag::First, text));
        EXPECT_EQ(console->TimeOutCaption, caption);
        EXPECT_EQ(console->settings().TimeOut1, QString(text).toUInt());
    }
    EXPECT_TRUE(console->storeTimeOut(TimeOutTag::Second, "30"));
    EXPECT_EQ(console->TimeOut2Caption + console->TimeOutCaption, "30 ms100 s");
    person.expectBox("'1.5' is not a valid integer value", "Error");
    EXPECT_FALSE(console->storeTimeOut(TimeOutTag::Second, "1.5"));

    comSetup.shown.SuccessAbLEDLit = true;
    port.open();
    comSetup.OKBitBtnClick();
    EXPECT_EQ(console->TimeOutCaption, "100 s") << "only a lower one is raised";
    console->settings().TimeOut1 = 5;
    comSetup.BaudComboBoxChange("9600");
    comSetup.OKBitBtnClick();
    EXPECT_EQ(console->settings().TimeOut1, 7u);
    EXPECT_EQ(console->TimeOutCaption, "7 ms");
}

TEST_F(Console, KeepsItsStateInFiles) {
    typeCommands({"010321000001"});
    console->storeTimeOut(TimeOutTag::First, "500");
    console->panel.selectSeries(9);
    console->panel.typeCommand("010321100003");
    console->panel.addRow();
    table().setCell(DrivePanel::NameColumn, 1, "first");
    const QString path = dir.filePath("mine.cml");
    person.expectSave("Command List File(*.cml)|*.cml", "", path);
    console->SaveClick();
    list().setCell(1, 1, "FF");
    table().setCell(DrivePanel::NameColumn, 1, "changed");
    person.expectOpen("Command List File(*.cml)|*.cml", path);
    console->OpenClick();
    EXPECT_EQ(console->projectName, "mine.cml");
    EXPECT_EQ(list().cell(1, 1), "010321000001");
    EXPECT_EQ(table().cell(DrivePanel::NameColumn, 1), "first");
    EXPECT_EQ(table().cell(DrivePanel::AddressColumn, 2), "2111");
    EXPECT_EQ(console->panel.DefCmdLabeledEdit, "010321100003");

    // The next start, with "Others" as it was; a damaged file ends silently.
    console->FormClose();
    ConsoleBenchWithoutDrive next(readWhole(dir.filePath("default.cml")).bytes);
    next.console->panel.selectSeries(9);
    EXPECT_EQ(next.table().cell(DrivePanel::NameColumn, 1), "first");
    EXPECT_EQ(next.console->TimeOutCaption, "500 ms");
    EXPECT_EQ(next.console->projectName, "default");
    ConsoleBenchWithoutDrive damaged("[Page A]\r\nx=\r\nno number");
    EXPECT_EQ(damaged.list().RowCount(), 2);
    person.expectOpen("Command List File(*.cml)|*.cml", dir.filePath("gone.cml"));
    person.expectBox(readWhole(dir.filePath("gone.cml")).error, "Error");
    console->OpenClick();
}

TEST_F(Console, BoundsItsLogAndKeepsItsCounters) {
    for (int i = 0; i < ConsoleLog::Room + 10; ++i) {
        link.Console.sent("01");
        link.Console.completeReply("02");
    }
    EXPECT_EQ(int(console->log.lines().size()), ConsoleLog::Room);
    EXPECT_EQ(console->record().totalRecords, ConsoleLog::Room + 10);
    EXPECT_TRUE(console->log.text(true).isEmpty());
}

}  // namespace
}  // namespace kelvane
