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

    EXPECT_EQ(b.readAll(), PlainRead);
    EXPECT_EQ(ParameterLinkBench::column(b.table.grid, column::PrNo),
              (QStringList{"*****", "00-00", "00-01", "*****", "01-00", "01-01", "01-02"}));
    EXPECT_EQ(b.table.grid.cell(column::Description, 4), "1 - Basic");
    EXPECT_FALSE(b.table.grid.hasCheckBox(4));
    EXPECT_EQ(b.screen.driveRoot.children, (QStringList{"All Parameters", "0 - User", "1 - Basic"}));
    EXPECT_EQ(b.complete, 1);
    EXPECT_FALSE(b.progress.shown || b.link.Notice.TProgressFormShown);
    EXPECT_EQ(b.table.identity.groupParamCount[1], 2);
}

TEST(ParameterReader, ReservedGroupOnceOnRequest) {
    ParameterLinkBench b;
    b.screen.ShowReservedParametersEnabled = true;
    b.reader.ShowReservedParametersClick();
    EXPECT_TRUE(b.screen.RparaAbLEDShown);
    EXPECT_EQ(b.readAll(), PlainRead + QStringList{"FF030200000F"});
    EXPECT_EQ(b.table.grid.cell(column::Description, 8), "Reserved Parameters");
    EXPECT_EQ(b.screen.driveRoot.children.last(), "2 - Reserved");
    EXPECT_EQ(b.reader.ReadReservedWanted, 0);

    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_FALSE(b.screen.RparaAbLEDShown);
    EXPECT_EQ(b.table.grid.cell(column::Dot, 1), "") << "nothing of the longer table is left";
    EXPECT_EQ(b.readAll(), PlainRead);
    EXPECT_EQ(b.table.grid.RowCount(), 8);

    b.link.DriveStatus.GroupCount = 0;
    b.person.expectBox("There is no group to load !!", "Cofirm");
    b.reader.ReadDriveTransparentButtonClick();
    EXPECT_EQ(b.send(), "");
    EXPECT_FALSE(b.progress.shown);
}

TEST(ParameterReader, OffLineAsksForComSetupAndStopsWhenThatDidNotHelp) {
    ParameterLinkBench b;
    b.link.Lamp = {};
    b.session.site.openComSetup = [](const std::function<void()>& then) { then(); };
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.person.expectBox("The serial port is not yet functioning !\nCan not perform this function !", "Cofirm");
    b.screen.ShowReservedParametersEnabled = true;
    b.reader.ShowReservedParametersClick();
    EXPECT_EQ(b.send(), "");
    EXPECT_FALSE(b.screen.DriveTabSheetVisible);
    EXPECT_FALSE(b.screen.RparaAbLEDShown || b.reader.ReadReservedWanted)
        << "no lamp and no wish stays behind";
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
        EXPECT_EQ(b.complete, 0);
        EXPECT_FALSE(b.progress.shown);
    }
}

TEST(ParameterReader, RetryGoesOnAtTheSameParameterAlsoAfterAnUnplug) {
    for (const bool unplugged : {false, true}) {
        ParameterLinkBench b;
        b.readSome(2);
        if (unplugged) b.port.isOpen = b.port.canOpen = false;
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
    EXPECT_EQ(b.link.Lamp, LampRecord()) << "no panel says On - Line any more";
    EXPECT_EQ(b.send(), "");
    EXPECT_TRUE(b.link.TaskQueue.empty());
    EXPECT_EQ(b.table.grid.cell(column::PrNo, 3), "00-01");
    EXPECT_EQ(b.reader.DriveTableComplete, 0);
}

}  // namespace

}  // namespace kelvane
