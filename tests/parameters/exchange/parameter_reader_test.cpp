#include "parameters/exchange/parameter_reader.h"

#include "parameters/parameter_link_bench.h"

namespace kelvane {

namespace {

const QStringList PlainRead{"FF030000000F", "FF030001000F", "FF030100000F", "FF030101000F", "FF030102000F"};

TEST(ParameterReader, ReadsGroupByGroupAndNothingElse) {
    ParameterLinkBench b;
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.progress.maximum, 3);
    EXPECT_EQ(b.reader.DriveTableComplete, 0);
    EXPECT_TRUE(b.screen.DriveTabSheetVisible && b.screen.ResetParameterEnabled);
    EXPECT_EQ(b.screen.active, ParameterTab::Drive);

    EXPECT_EQ(b.readAll(), PlainRead);
    EXPECT_EQ(ParameterLinkBench::column(b.table.grid, column::PrNo),
              (QStringList{"*****", "00-00", "00-01", "*****", "01-00", "01-01", "01-02"}));
    EXPECT_EQ(b.table.grid.RowCount(), 8);
    EXPECT_EQ(b.table.grid.cell(column::Data, 5), "60.00");
    EXPECT_EQ(b.table.grid.cell(column::Description, 4), "1 - Basic");
    EXPECT_FALSE(b.table.grid.hasCheckBox(4));
    EXPECT_EQ(b.screen.driveRoot.text, "Drive [ Tilia ]");
    EXPECT_EQ(b.screen.driveRoot.children, (QStringList{"All Parameters", "0 - User", "1 - Basic"}));
    EXPECT_EQ(b.reader.DriveTableComplete, 1);
    EXPECT_EQ(b.complete, 1);
    EXPECT_FALSE(b.progress.shown || b.link.Notice.TProgressFormShown);
    EXPECT_FALSE(b.screen.RparaAbLEDShown);
    EXPECT_EQ(b.table.identity.groupParamCount[1], 2);
}

TEST(ParameterReader, ProgressStepsWithinGroupsAndTellsNameAndTimeLeft) {
    ParameterLinkBench b;
    b.readSome(0);
    EXPECT_TRUE(b.link.Notice.TProgressFormShown);
    EXPECT_EQ(b.progress.InfoLabel, "Reading parameters from Tilia ...");
    EXPECT_EQ(b.progress.width, 400);
    EXPECT_EQ(b.progress.msLeft(), -1);
    b.answerRecord();
    b.send();
    b.clock.advance(3);
    b.answerRecord(DriveRecord{{100, 200, 0, TwoPlacesRunSet, 100}});
    b.send();
    EXPECT_EQ(b.progress.ParaLabel, "Process Pr 00-01:  Max Output Freq.");
    EXPECT_EQ(b.progress.position, 1);
    EXPECT_EQ(b.progress.count, 2);
    EXPECT_EQ(b.progress.total, 5);
    EXPECT_EQ(b.progress.msLeft(), 57);  // three more at 19 ms each
    b.answerRecord();
    b.send();
    EXPECT_EQ(b.progress.position, 2);
}

TEST(ParameterReader, ReservedGroupOnceOnRequest) {
    ParameterLinkBench b;
    b.screen.ShowReservedParametersEnabled = true;
    b.reader.ShowReservedParametersClick();
    EXPECT_EQ(b.progress.maximum, 4);
    EXPECT_TRUE(b.screen.RparaAbLEDShown);
    EXPECT_EQ(b.readAll(), PlainRead + QStringList{"FF030200000F"});
    EXPECT_EQ(b.table.grid.RowCount(), 10);
    EXPECT_EQ(b.table.grid.cell(column::Description, 8), "Reserved Parameters");
    EXPECT_EQ(b.screen.driveRoot.children.last(), "2 - Reserved");
    EXPECT_EQ(b.reader.ReadReservedWanted, 0);

    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_FALSE(b.screen.RparaAbLEDShown);
    EXPECT_EQ(b.readAll(), PlainRead);
    EXPECT_EQ(b.table.grid.RowCount(), 8);
}

TEST(ParameterReader, OffLineAsksForComSetupAndStopsWhenThatDidNotHelp) {
    ParameterLinkBench b;
    b.link.Lamp = {};
    bool onLineNow = false;
    b.session.site.openComSetup = [&](const std::function<void()>& then) {
        if (onLineNow) b.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        then();
    };
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.person.expectBox("The serial port is not yet functioning !\nCan not perform this function !", "Cofirm");
    b.screen.ShowReservedParametersEnabled = true;
    b.reader.ShowReservedParametersClick();
    EXPECT_EQ(b.send(), "");
    EXPECT_FALSE(b.screen.DriveTabSheetVisible);
    EXPECT_FALSE(b.screen.RparaAbLEDShown || b.reader.ReadReservedWanted)
        << "no lamp and no wish stays behind";

    onLineNow = true;
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.person.lastIcon, BoxIcon::Information);
    EXPECT_EQ(b.readAll(), PlainRead);
}

TEST(ParameterReader, NoGroupToLoad) {
    ParameterLinkBench b;
    b.link.DriveStatus.GroupCount = 0;
    b.person.expectBox("There is no group to load !!", "Cofirm");
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.send(), "");
    EXPECT_FALSE(b.progress.shown);
}

TEST(ParameterReader, HazelHasShortRecordsAndNamesOfOurs) {
    ParameterLinkBench b(3);
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_TRUE(b.table.grid.columnHidden(column::Unit) && b.table.grid.columnHidden(column::Default));
    const QStringList asked = b.readAll({{6000, 60000, 5000, TwoPlacesRunSet}});
    EXPECT_EQ(asked[2], "FF0301000004");
    EXPECT_EQ(b.table.grid.cell(column::Description, 5), "Max Output Freq.");
    EXPECT_EQ(b.table.grid.cell(column::Unit, 5), "");
    EXPECT_EQ(b.table.grid.cell(column::Default, 5), "0.00");
    EXPECT_EQ(b.table.grid.cell(column::Description, 6), "Max Volt Freq.");
}

// Rowan's groups have no rows of their own, and its numbers run on, except into the reserved group.
TEST(ParameterReader, KeepsRowansNumbersRunningOn) {
    ParameterLinkBench b(0);
    b.link.DriveStatus.GroupCount = 1;
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.table.grid.RowCount(), 3);
    EXPECT_EQ(b.readAll(), (QStringList{"FF030000000F", "FF030001000F"}));
    EXPECT_EQ(ParameterLinkBench::column(b.table.grid, column::PrNo), (QStringList{"0", "1"}));
    EXPECT_EQ(b.screen.driveRoot.children, QStringList{"All Parameters"});

    b.screen.ShowReservedParametersEnabled = true;
    b.reader.ShowReservedParametersClick();
    EXPECT_EQ(b.readAll(),
              (QStringList{"FF030000000F", "FF030001000F", "FF030100000F", "FF030101000F", "FF030102000F"}));
    EXPECT_EQ(b.table.grid.cell(column::PrNo, 3), "0256");

    b.link.DriveStatus.GroupCount = 2;
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.readAll(), (QStringList{"FF030000000F", "FF030001000F", "FF030101000F", "FF030102000F"}));
}

TEST(ParameterReader, CancelIsAskedAfterTheReplyAndNoGoesOn) {
    ParameterLinkBench b;
    b.readSome(1);
    b.progress.CancelTransparentButtonClick();
    EXPECT_TRUE(b.progress.shown);
    b.person.expectBox("Are you sure terminate ?", "Cofirm", BoxAnswer::No, [&] {
        EXPECT_EQ(b.table.grid.cell(column::PrNo, 3), "00-01");
        EXPECT_FALSE(b.reader.ReadPending);
    });
    b.answerRecord();
    b.clock.advanceUntil([&] { return b.person.allAsked(); }, 10);
    EXPECT_EQ(b.person.lastIcon, BoxIcon::Question);
    EXPECT_TRUE(b.progress.shown);
    EXPECT_FALSE(b.progress.cancelMark);
    EXPECT_EQ(b.readAll(), PlainRead.mid(2));
    EXPECT_EQ(b.reader.DriveTableComplete, 1);
}

TEST(ParameterReader, CancelWithYesKeepsFinishedRows) {
    for (const int replies : {1, 4}) {  // in the middle, and on the very last reply
        ParameterLinkBench b;
        b.readSome(replies);
        b.progress.CancelTransparentButtonClick();
        b.person.expectBox("Are you sure terminate ?", "Cofirm", BoxAnswer::Yes);
        b.answerRecord();
        EXPECT_EQ(b.send(), "");
        EXPECT_EQ(b.table.grid.RowCount(), replies == 1 ? 4 : 8);
        EXPECT_EQ(b.table.grid.cell(column::Data, 3), "60.00");
        EXPECT_EQ(b.reader.DriveTableComplete, 0);
        EXPECT_EQ(b.complete, 0);
        EXPECT_FALSE(b.progress.shown);
        EXPECT_EQ(b.progress.ParaLabel, "");
        EXPECT_EQ(b.progress.position, 0);
    }
}

// One question for the exception's text, then silence with the dialog up, whatever Cancel does.
TEST(ParameterReader, KeepsWaitingAfterAnException) {
    ParameterLinkBench b;
    b.readSome(1);
    b.answer("FF8304");
    EXPECT_EQ(b.send(), "FF0333040008");
    b.answer("FF0310" + hexOf("Illegal value   "));
    EXPECT_EQ(b.send(), "");
    b.progress.CancelTransparentButtonClick();
    b.clock.advance(60000);
    EXPECT_TRUE(b.progress.shown && b.reader.ReadPending);
    EXPECT_EQ(b.progress.noAnswer, "No answer is coming for Pr 00-01: refused, CE 4 Illegal value.");
    EXPECT_EQ(b.history.last(), "CE 4 : Illegal value   ");
}

TEST(ParameterReader, RetryGoesOnAtTheSameParameterAlsoAfterAnUnplug) {
    for (const bool unplugged : {false, true}) {
        ParameterLinkBench b;
        b.readSome(2);
        if (unplugged) {
            b.port.isOpen = b.port.canOpen = false;
        }
        b.person.expectLinkFailure("Communication Timeout", false, LinkAnswer::Retry,
                                   [&] { b.port.canOpen = true; });
        for (int i = 0; i < 5; ++i) b.staySilent();
        EXPECT_EQ(b.link.Lamp.ComStatusAbLED, "Off Line");
        EXPECT_EQ(b.readAll(), PlainRead.mid(2));
        EXPECT_EQ(b.table.grid.RowCount(), 8);
        EXPECT_EQ(b.reader.DriveTableComplete, 1);
        EXPECT_TRUE(b.link.Lamp.onLine());
    }
}

TEST(ParameterReader, AbortKeepsTheRowsAndStopsEverything) {
    ParameterLinkBench b;
    b.readSome(2);
    b.person.expectLinkFailure("Communication Timeout", false, LinkAnswer::Abort);
    b.person.expectBox("On-Line Fail !!", "Error", BoxAnswer::Ok,
                       [&] { EXPECT_FALSE(b.progress.shown || b.reader.reading()); });
    for (int i = 0; i < 5; ++i) b.staySilent();
    EXPECT_EQ(b.send(), "");
    EXPECT_TRUE(b.link.TaskQueue.empty());
    EXPECT_EQ(b.table.grid.cell(column::PrNo, 3), "00-01");
    EXPECT_EQ(b.reader.DriveTableComplete, 0);
}

// The group list is not offered to anyone, but a list with gaps is read as it says.
TEST(ParameterReader, UncheckedGroupsArePassed) {
    ParameterLinkBench b;
    b.link.DriveStatus.GroupCount = 3;
    b.reader.ReadDriveTransparentButtonClick();
    b.reader.GrpNameCheckListBox[0].checked = false;
    b.reader.GrpNameCheckListBox[2].checked = false;
    EXPECT_EQ(b.readAll(), PlainRead.mid(2));
    EXPECT_EQ(ParameterLinkBench::column(b.table.grid, column::PrNo),
              (QStringList{"*****", "01-00", "01-01", "01-02"}));
    EXPECT_EQ(b.screen.driveRoot.children, (QStringList{"All Parameters", "1 - Basic"}));
    EXPECT_FALSE(b.progress.shown);
}

TEST(ParameterReader, NothingOfALongerTableIsLeftOver) {
    ParameterLinkBench b;
    b.reader.ReadDriveTransparentButtonClick();
    b.readAll();
    b.link.DriveStatus.GroupParamCount[0] = b.link.DriveStatus.GroupParamCount[1] = 0;
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.table.grid.cell(column::Dot, 1), "");
    b.readAll({{7, 9, 0, 0, 7}, "Short", "    "});
    EXPECT_EQ(b.table.grid.RowCount(), 5);
    EXPECT_FALSE(b.table.grid.hasCheckBox(1) || b.table.grid.hasCheckBox(3));
}

}  // namespace

}  // namespace kelvane
