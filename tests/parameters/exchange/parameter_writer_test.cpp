#include "parameters/exchange/parameter_writer.h"

#include "parameters/parameter_link_bench.h"

namespace kelvane {

namespace {

constexpr quint8 Larch = 2;
constexpr quint8 Aspen = 1;
constexpr quint8 Rowan = 0;

TEST(ParameterWriter, OrdersGoOutTopDownAndAreReadBack) {
    // Family, values of the rows from 01-00, the row whose box is cleared again in the list, what goes out.
    const struct {
        quint8 DriveFamily;
        QStringList values;
        int cleared;
        QStringList wire;
    } orders[] = {
        {Larch,
         {"60.00", "7", "15.00"},
         2,
         {"FF0620050003", "FF0601001770", "FF06010205DC", "FF0620050005", "FF0301000001", "FF0301020001"}},
        {Aspen, {"1.5", "2.00", "-.5"}, 1, {"FF06010100C8", "FF060102FFFB", "FF0301010001", "FF0301020001"}},
        {Rowan, {"1.5"}, 0, {"FF0620050003", "FF060100000F", "FF0620050005", "FF0301000001"}}};
    for (const auto& order : orders) {
        ParameterLinkBench b(order.DriveFamily);
        b.openTable(order.values);
        b.session.WriteCheckTransparentButtonClick();
        ASSERT_TRUE(b.writer.form.shown && b.link.Notice.TWriteCheckFormShown);
        if (order.cleared) b.writer.AdvStringGrid1.setCheckBox(order.cleared, false);
        b.pressOk();
        EXPECT_FALSE(b.writer.form.enabled);
        EXPECT_EQ(b.writeAll(0xFFF4), order.wire);
        EXPECT_FALSE(b.writer.form.shown || b.progress.shown || b.link.Notice.TWriteCheckFormShown);
        EXPECT_TRUE(b.writer.form.enabled);
        for (int row = 0; row < order.values.size(); ++row)
            EXPECT_EQ(b.table.grid.cell(column::Data, row + 2),
                      row + 1 == order.cleared ? order.values[row] : QStringLiteral("655.24"))
                << "kept: unsigned";
    }
}

TEST(ParameterWriter, WhatIsTaken) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "61.00", "62.00"});
    b.table.grid.setCell(column::Attribute, 3, "Read-Only");
    b.table.grid.setCheckBox(4, false);
    StringGrid& list = b.writer.AdvStringGrid1;
    const auto taken = [&] {
        const QStringList numbers = ParameterLinkBench::column(list, column::PrNo);
        b.writer.CancelTransparentButtonClick();
        return numbers;
    };
    b.session.WriteCheckTransparentButtonClick();
    EXPECT_EQ(taken(), (QStringList{"01-00", "01-01"}));
    EXPECT_EQ(list.RowCount(), 2);
    b.session.WriteAllTransparentButtonClick();
    EXPECT_EQ(taken(), (QStringList{"01-00", "01-02"}));
    EXPECT_EQ(b.table.grid.cell(column::Data, 2), "60.00");

    b.session.WriteCheckTransparentButtonClick();
    b.person.expectBox("Do you want to write the parameter(s) to drive ?", "Cofirm", BoxAnswer::No);
    b.writer.OKTransparentButtonClick();
    b.link.Lamp = {};
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.writer.OKTransparentButtonClick();
    EXPECT_TRUE(b.writer.form.shown && b.writer.form.enabled);
    EXPECT_EQ(b.send(), "");
    b.writer.CancelTransparentButtonClick();
    b.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");

    for (int row = 2; row <= 4; ++row) b.table.grid.setCheckBox(row, false);
    b.person.expectBox("There is no item selected !", "Cofirm");
    b.session.WriteCheckTransparentButtonClick();
    EXPECT_FALSE(b.writer.form.shown);
}

// A table from file may hold what no editor lets through: what is doubtful is marked before it is sent, and
// what no register holds is not sent.
TEST(ParameterWriter, MarksWhatWouldNotBeSentAsItReads) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "50", "-70000", "655.36", "abc", "1.5", "3.00"});
    b.table.grid.setCell(column::Address, 8, "01");
    b.session.WriteCheckTransparentButtonClick();
    StringGrid& list = b.writer.AdvStringGrid1;
    QStringList doubts;
    for (int row = 1; row < list.RowCount(); ++row) {
        const auto doubt = doubtOf(list, row);
        doubts += doubt ? doubt->text : QString();
        EXPECT_EQ(list.cellColours(column::Data, row).background.has_value(), doubt.has_value()) << row;
    }
    EXPECT_EQ(doubts, (QStringList{"", "goes out as 0.50 (0032H)", "does not fit a register, not sent",
                                   "does not fit a register, not sent", "is no number, not sent",
                                   "goes out as 0.15 (000FH)", ""}));
    EXPECT_TRUE(b.session.writeSummaryLine().contains("5 doubtful"));
    b.pressOk();
    QStringList record;
    QObject::connect(&b.writer, &ParameterWriter::errorRecordWanted,
                     [&] { record = ParameterLinkBench::column(b.writer.ErrorAdvStringGrid, 5); });
    const QStringList asked = b.writeAll();
    EXPECT_EQ(asked,
              (QStringList{"FF0620050003", "FF0601001770", "FF0601010032", "FF060105000F", "FF0620050005"}));
    EXPECT_EQ(record, (QStringList{"does not fit a register, not sent", "does not fit a register, not sent",
                                   b.lang.MsgStr(Message::ValueNotLegal),
                                   b.lang.MsgStr(Message::ValueNotLegal), ""}));
}

// Rowan with several groups has numbers twice: a value goes back to the row that it came from.
TEST(ParameterWriter, CopiesBackByNumberAndAddress) {
    ParameterLinkBench b(0);
    fillParameterRow(b.table.grid, 1, Family::Rowan, 0, 5, {1, 9, 0, 2, 1, R1.name, R1.unit});
    fillParameterRow(b.table.grid, 2, Family::Rowan, 2, 5, {1, 9, 0, 2, 1, R1.name, R1.unit});
    ASSERT_EQ(b.table.grid.cell(column::PrNo, 1), b.table.grid.cell(column::PrNo, 2));
    b.session.driveHistory.tableRead();
    b.screen.DriveTabSheetVisible = true;
    b.table.grid.setCheckBox(2, true);
    b.session.WriteCheckTransparentButtonClick();
    b.writer.AdvStringGrid1.setCell(column::Data, 1, "7");
    b.writer.CancelTransparentButtonClick();
    EXPECT_EQ(b.table.grid.cell(column::Data, 1), "1");
    EXPECT_EQ(b.table.grid.cell(column::Data, 2), "7");
}

// The list goes back to the table in whatever way it closes: a cancelled reset leaves the defaults there.
TEST(ParameterWriter, KeepsDefaultsOfACancelledReset) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "61.00"});
    b.session.ResetParameterClick();
    EXPECT_EQ(b.writer.AdvStringGrid1.cell(column::Data, 1), "40.00");
    b.writer.AdvStringGrid1.setCheckBox(2, false);
    b.writer.CancelTransparentButtonClick();
    EXPECT_EQ(ParameterLinkBench::column(b.table.grid, column::Data),
              (QStringList{"*****", "40.00", "61.00"}));
    EXPECT_TRUE(b.table.grid.edited(2));
    b.session.driveHistory.undo();
    EXPECT_EQ(b.table.grid.cell(column::Data, 2), "60.00");
}

TEST(ParameterWriter, RefusalsAreRecordedAndTheRunGoesOn) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "15.00"});
    b.link.DriveStatus.ExceptionTextDone = 1;  // of long ago
    int shown = 0;
    QObject::connect(&b.writer, &ParameterWriter::errorRecordWanted, [&] { ++shown; });
    b.session.WriteCheckTransparentButtonClick();
    b.pressOk();
    b.send();
    b.refuse(1, "Illegal function");  // the opening command too
    EXPECT_EQ(b.asked15, "FF0333010008");
    EXPECT_EQ(b.send(), "FF0601001770");
    b.refuse(4, "Not while running");
    EXPECT_EQ(b.asked15, "FF0333040008");
    EXPECT_EQ(b.history.back(), "CE 4 : Not while runnin");
    EXPECT_EQ(b.send(), "FF06010105DC");
    b.answer("FF06010105DC");
    EXPECT_EQ(b.send(), "FF0620050005");
    b.refuse(4, "Not while running");
    EXPECT_EQ(b.send(), "");  // not before the record is closed
    EXPECT_EQ(shown, 1);
    const StringGrid& record = b.writer.ErrorAdvStringGrid;
    EXPECT_EQ(ParameterLinkBench::column(record, 2),
              (QStringList{"Copy Mode", "Max Output Freq.", "Copy Mode", ""}));
    EXPECT_EQ(ParameterLinkBench::column(record, 4), (QStringList{"1", "4", "4", ""}));
    EXPECT_EQ(record.cell(5, 2), "Not while runnin");
    b.writer.errorRecordClosed();
    EXPECT_EQ(record.RowCount(), 2);
    EXPECT_EQ(b.writeAll(), (QStringList{"FF0301000001", "FF0301010001"}));
}

TEST(ParameterWriter, IgnoreAndRetryAtTheFifthTimeout) {
    // Retry with the adapter out until then: the row goes out once more, and nothing else.
    for (const LinkAnswer answer : {LinkAnswer::Ignore, LinkAnswer::Retry}) {
        ParameterLinkBench b(Larch);
        b.openTable({"60.00", "15.00"});
        b.session.WriteCheckTransparentButtonClick();
        b.pressOk();
        b.send();
        b.answer("FF0620050003");
        b.send();
        b.port.isOpen = b.port.canOpen = answer == LinkAnswer::Ignore;
        b.person.expectLinkFailure("Communication Timeout", true, answer, [&] { b.port.canOpen = true; });
        for (int i = 0; i < 5; ++i) b.staySilent();
        QStringList rest{"FF06010105DC", "FF0620050005", "FF0301000001", "FF0301010001"};
        if (answer == LinkAnswer::Retry) rest.prepend("FF0601001770");
        EXPECT_EQ(b.writeAll(), rest);
        EXPECT_FALSE(b.writer.errorRecordShown);
    }
}

TEST(ParameterWriter, AbortEndsTheRunWithALineAndStillReadsBack) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "15.00"});
    b.session.WriteCheckTransparentButtonClick();
    b.pressOk();
    b.send();
    b.person.expectLinkFailure("Communication Timeout", true, LinkAnswer::Abort);
    for (int i = 0; i < 5; ++i) b.staySilent();
    b.clock.advance(1);
    EXPECT_TRUE(b.writer.errorRecordShown);
    EXPECT_EQ(b.writer.ErrorAdvStringGrid.cell(2, 1), "Copy Mode");
    EXPECT_EQ(b.link.Notice.LinkAction, 0);
    b.writer.errorRecordClosed();
    // The read-back has the line as the run had: no poll comes between, rows get their own values.
    EXPECT_EQ(b.link.ActiveFunction, OwnerParameter);
    EXPECT_EQ(b.send(), "FF0301000001");
    b.answerWords({1200});
    EXPECT_EQ(b.send(), "FF0301010001");
    b.answerWords({1500});
    EXPECT_EQ(b.send(), "");
    EXPECT_EQ(ParameterLinkBench::column(b.table.grid, column::Data),
              (QStringList{"*****", "12.00", "15.00"}));
    // Behind it the link is at rest and Off Line, and the window asks for com setup first.
    EXPECT_FALSE(b.writer.form.shown);
    EXPECT_TRUE(b.link.idle() && b.link.TaskQueue.empty());
    EXPECT_EQ(b.link.Lamp.ComStatusAbLED, "Off Line");
    EXPECT_EQ(b.link.ActiveFunction, OwnerParameter);
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.session.WriteAllTransparentButtonClick();
    EXPECT_EQ(b.send(), "");
}

const char* const StopWriting = "Parameters are being written. Stop now and read back what was sent ?";

TEST(ParameterWriter, ClosingARunAsksAndEndsItInOrder) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "15.00", "3.00"});
    b.session.WriteCheckTransparentButtonClick();
    b.pressOk();
    b.send();
    b.answer("FF0620050003");
    EXPECT_EQ(b.send(), "FF0601001770");
    b.person.expectBox(StopWriting, "Cofirm", BoxAnswer::No);
    b.writer.closeWanted();
    b.answer("FF0601001770");
    EXPECT_EQ(b.send(), "FF06010105DC");
    b.person.expectBox(StopWriting, "Cofirm", BoxAnswer::Yes);
    b.writer.closeWanted();
    EXPECT_TRUE(b.writer.form.shown);
    int written = -1;
    QObject::connect(&b.writer, &ParameterWriter::runEnded, [&](int rows, int) { written = rows; });
    b.answer("FF06010105DC");
    EXPECT_EQ(b.writeAll(), (QStringList{"FF0620050005", "FF0301000001", "FF0301010001"}));
    EXPECT_EQ(written, 2);
    EXPECT_FALSE(b.writer.form.shown);
    EXPECT_EQ(b.table.grid.cell(column::Data, 4), "3.00");
}

// A drive that refuses to tell why it refuses costs a line without a text, not the run.
TEST(ParameterWriter, ARefusedOrBrokenRefusalTextLetsTheRunGoOn) {
    ParameterLinkBench b(Larch);
    b.openTable({"60.00", "15.00", "3.00"});
    b.session.WriteCheckTransparentButtonClick();
    b.pressOk();
    b.send();
    b.answer("FF0620050003");
    for (const char* text : {"FF8302",
                             "FF0304"
                             "00010002"}) {
        b.send();
        b.answer("FF8604");
        EXPECT_EQ(b.send(), "FF0333040008");
        b.answer(text);
    }
    QStringList codes;
    QObject::connect(&b.writer, &ParameterWriter::errorRecordWanted,
                     [&] { codes = ParameterLinkBench::column(b.writer.ErrorAdvStringGrid, 4); });
    EXPECT_EQ(b.writeAll(), (QStringList{"FF060102012C", "FF0620050005"}));
    EXPECT_EQ(codes, (QStringList{"4", "4", ""}));
}

TEST(ParameterWriter, ReadBackThatCannotGoOnLetsThePersonOut) {
    for (const bool abort : {true, false}) {
        ParameterLinkBench b(Aspen);
        b.openTable({"60.00", "15.00"});
        b.session.WriteCheckTransparentButtonClick();
        b.pressOk();
        for (const char* command : {"FF0601001770", "FF06010105DC"}) {
            b.send();
            b.answer(command);
        }
        EXPECT_EQ(b.send(), "FF0301000001");
        b.progress.CancelTransparentButtonClick();
        EXPECT_TRUE(b.progress.shown);  // a reply may still come
        if (abort) {
            b.person.expectLinkFailure("Communication Timeout", false, LinkAnswer::Abort);
            b.person.expectBox("On-Line Fail !!", "Error");
            for (int i = 0; i < 5; ++i) b.staySilent();
        } else {
            b.refuse(2, "Illegal address ");
            b.send();
            b.progress.CancelTransparentButtonClick();
        }
        EXPECT_FALSE(b.progress.shown);
        EXPECT_EQ(b.link.Notice.LinkAction, 0) << "it would be the next reply's";
        b.writer.FormClose();
        EXPECT_TRUE(b.writer.form.enabled);
        EXPECT_FALSE(b.writer.form.shown || b.writer.readBack.running());
        EXPECT_EQ(b.send(), "");
    }
}

TEST(ParameterWriter, ClosingInTheMiddleLeavesACleanLink) {
    for (const bool abortFirst : {false, true}) {
        ParameterLinkBench b(Larch);
        b.openTable({"60.00"});
        b.session.WriteCheckTransparentButtonClick();
        b.pressOk();
        b.send();
        if (abortFirst) b.person.expectLinkFailure("Communication Timeout", true, LinkAnswer::Abort);
        for (int i = 0; abortFirst && i < 5; ++i) b.staySilent();
        b.session.FormClose();
        EXPECT_FALSE(b.writer.form.shown || b.link.RxTimer.Enabled());
        EXPECT_TRUE(b.link.TaskQueue.empty());
        EXPECT_EQ(b.link.Notice.LinkAction, 0) << "it would be the next reply's";
    }
}

}  // namespace

}  // namespace kelvane
