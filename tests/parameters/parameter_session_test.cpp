#include "parameters/parameter_session.h"

#include "parameters/parameter_link_bench.h"

namespace kelvane {

namespace {

const char* const PuMode =
    "The baudrate and protocol will be changed to PU mode.\nPlease make sure keypad had connected to PC !";

TEST(KeypadSource, ReadsValuesOnly) {
    ParameterLinkBench b;
    b.reader.ReadDriveTransparentButtonClick();
    b.readAll();
    ComSetupChoice chosen{LinkMode::Ascii, 0, 0, ComParity::Even, 0};
    b.session.keypad.setComSetup = [&](const ComSetupChoice& choice) {
        chosen = choice;
        b.link.ComMode = 1;
        b.link.BaudTimeoutTicks = 7;
        return PortSettings{6, choice.Baud, choice.DataBits, choice.Parity, choice.StopBits};
    };
    b.screen.ReadfromKeypadChecked = true;
    b.person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::No);
    b.person.expectBox(PuMode, "Warning", BoxAnswer::Ok,
                       [&] { EXPECT_FALSE(b.screen.DriveTabSheetVisible); });
    b.session.keypad.ReadfromKeypadClick();
    EXPECT_EQ(chosen.mode, LinkMode::Rtu);
    EXPECT_EQ(b.port.line, (PortSettings{6, 9600, 8, ComParity::None, 2}));
    EXPECT_EQ(b.send(), "FF0321110001");
    b.answerWords({2});
    for (const char* counts : {"FF0303000001", "FF0303010001", "FF0303020001"}) {
        EXPECT_EQ(b.send(), counts);
        b.answerWords({1});
    }
    EXPECT_EQ(b.link.DriveStatus.DriveReady, 1);
    EXPECT_EQ(b.readAll({{7}}),
              (QStringList{"FF0300000001", "FF0300010001", "FF0301000001", "FF0301010001"}));
    EXPECT_EQ(b.screen.driveRoot.children.last(), "1 - Group1");
    QStringList row;
    for (int c = column::PrNo; c <= column::RunSet; ++c) row += b.table.grid.cell(c, 3);
    EXPECT_EQ(row,
              (QStringList{"00-01", "0001H", "", "", "7", "0", "0", "0", "Writable", "0001", "0", "false"}));
}

TEST(ParameterSession, WriteAsksForTheSourceWhenBothTablesAreOpen) {
    ParameterLinkBench b(2);
    QString label;
    QObject::connect(&b.session, &ParameterSession::writeSourceWanted,
                     [&](const QString& text) { label = text; });
    b.link.Lamp.ComStatusAbLED = QStringLiteral("Off Line");
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.session.WriteAllTransparentButtonClick();
    b.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");

    b.openTable({"60.00"});
    b.session.fileTable.identity.model = "Tilia";
    b.session.fileTable.identity.family = Family::Tilia;
    fillParameterRow(b.session.FileAdvStringGrid, 1, Family::Tilia, 1, 7, {1, 2, 0, 0, 1, R1.name, R1.unit});
    b.session.fileLoaded();
    QList<TableSide> lit;
    QObject::connect(&b.session, &ParameterSession::sourceLit, [&](TableSide side) { lit += side; });
    b.session.WriteAllTransparentButtonClick();
    b.session.show(ParameterTab::Drive);
    b.session.WriteAllTransparentButtonClick();
    EXPECT_EQ(lit, (QList<TableSide>{TableSide::File, TableSide::Drive})) << "the side of the tab in front";
    EXPECT_EQ(label, "Select Parameter Source to Write");
    EXPECT_FALSE(b.writer.form.shown);
    b.session.writeSourceChosen(TableSide::File);
    EXPECT_EQ(b.writer.AdvStringGrid1.cell(column::PrNo, 1), "01-07");
    EXPECT_EQ(b.session.writeSummaryLine(),
              "1 with no value read from the drive; "
              "the table is of the family Tilia, the drive of the family Larch");
    b.writer.CancelTransparentButtonClick();
    b.session.ResetParameterClick();
    EXPECT_TRUE(b.writer.form.shown) << "asks nothing";
}

TEST(ParameterSession, ClosedAndOpenedAgainIsBare) {
    ParameterLinkBench b;
    b.link.DriveStatus.ReservedEnabled = 1;
    b.session.opened();
    b.reader.ShowReservedParametersClick();
    b.readAll();
    b.session.ParaTreeViewChange(TableSide::Drive, 1);
    b.session.FormClose();
    b.session.opened();
    ParameterScreen bare;
    bare.ModelVrLabel = "Tilia";
    bare.ShowReservedParametersEnabled = true;
    EXPECT_EQ(b.screen, bare);
    EXPECT_EQ(b.table.grid.RowCount(), 2);
    EXPECT_EQ(b.table.grid.cell(column::PrNo, 1), "");
}

}  // namespace

}  // namespace kelvane
