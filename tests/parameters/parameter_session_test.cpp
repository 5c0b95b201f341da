#include "parameters/parameter_session.h"

#include "parameters/parameter_link_bench.h"

namespace kelvane {

namespace {

const char* const PuMode =
    "The baudrate and protocol will be changed to PU mode.\nPlease make sure keypad had connected to PC !";

TEST(KeypadSource, AsksForThePasswordUntilItsMarkIsSet) {
    ParameterLinkBench b;
    int asked = 0;
    QObject::connect(&b.session.keypad, &KeypadSource::passwordWanted, [&] { ++asked; });
    b.session.keypad.ReadfromKeypadClick();
    EXPECT_EQ(asked, 1);
    b.screen.ReadfromKeypadChecked = true;
    b.person.expectBox(PuMode, "Warning", BoxAnswer::Cancel);
    b.session.keypad.ReadfromKeypadClick();
    EXPECT_EQ(b.person.lastButtons, BoxButtons::OkCancel);
    EXPECT_EQ(b.link.DriveStatus.DriveFamily, 4);
    EXPECT_EQ(b.send(), "");
}

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
    EXPECT_EQ(b.link.DriveStatus.DriveReady, 0);
    EXPECT_EQ(b.screen.ModelVrLabel, "Keypad");

    EXPECT_EQ(b.send(), "FF0321110001");
    b.answerWords({2});
    for (const char* counts : {"FF0303000001", "FF0303010001", "FF0303020001"}) {
        EXPECT_EQ(b.send(), counts);
        b.answerWords({1});
    }
    EXPECT_EQ(b.link.DriveStatus.DriveReady, 1);
    EXPECT_EQ(b.readAll({{7}}),
              (QStringList{"FF0300000001", "FF0300010001", "FF0301000001", "FF0301010001"}));
    EXPECT_EQ(b.screen.driveRoot.text, "Drive [ Keypad ]");
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
    b.person.expectBox("There is no parameter table be opened !", "Cofirm");
    b.session.WriteAllTransparentButtonClick();
    b.link.Lamp.ComStatusAbLED = QStringLiteral("Off Line");
    b.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    b.session.WriteAllTransparentButtonClick();
    b.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");

    b.openTable({"60.00"});
    b.session.fileTable.identity.model = "Tilia";
    b.session.fileTable.identity.family = Family::Tilia;
    fillParameterRow(b.session.FileAdvStringGrid, 1, Family::Tilia, 1, 7, {1, 2, 0, 0, 1, R1.name, R1.unit});
    b.session.fileLoaded();
    EXPECT_EQ(b.screen.fileRoot.text, "File [ Tilia ]");
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
    b.session.ResetParameterClick();  // asks nothing
    EXPECT_EQ(b.writer.AdvStringGrid1.cell(column::PrNo, 1), "01-00");
}

TEST(ParameterSession, WrittenValuesReachSubTableMarksAndSummary) {
    ParameterLinkBench b;
    b.reader.ReadDriveTransparentButtonClick();
    b.readAll();
    b.session.ParaTreeViewChange(TableSide::Drive, 2);
    EXPECT_TRUE(b.screen.driveSubShown);
    EXPECT_EQ(b.session.SubDriveAdvStringGrid.cell(column::PrNo, 1), "01-00");
    b.session.driveHistory.edit([&] {
        b.table.grid.setCell(column::Data, 5, "50.00");
        b.table.grid.setCheckBox(5, true);
    });
    EXPECT_TRUE(b.table.grid.edited(5));
    b.session.WriteCheckTransparentButtonClick();
    EXPECT_EQ(b.session.writeSummaryLine(), "1 of 1 differ from what the drive held");
    b.pressOk();
    b.writeAll(5000);
    EXPECT_FALSE(b.table.grid.edited(5));
    EXPECT_EQ(b.session.SubDriveAdvStringGrid.cell(column::Data, 1), "50.00");
    b.session.WriteCheckTransparentButtonClick();
    EXPECT_EQ(b.session.writeSummaryLine(), "0 of 1 differ from what the drive held");
}

TEST(ParameterSession, ClosedAndOpenedAgainIsBare) {
    ParameterLinkBench b;
    b.link.DriveStatus.ReservedEnabled = 1;
    b.session.opened();
    b.reader.ShowReservedParametersClick();
    b.readAll();
    b.session.ParaTreeViewChange(TableSide::Drive, 1);
    QList<ParameterTab> saved;
    std::function<void()> goOn;
    b.session.choices.chooseTab = [&](const QString&, const std::vector<ParameterTab>& tabs, int selected,
                                      const TableChoices::ThenTab& then) {
        saved += tabs[static_cast<size_t>(selected)];
        goOn = [then] { then(std::nullopt); };
    };

    b.session.FormClose();
    b.session.opened();
    ParameterScreen bare;
    bare.ModelVrLabel = "Tilia";
    bare.ShowReservedParametersEnabled = true;
    EXPECT_EQ(b.screen, bare);
    EXPECT_EQ(b.table.grid.RowCount(), 2);
    EXPECT_EQ(b.table.grid.cell(column::PrNo, 1), "");

    b.reader.ReadDriveTransparentButtonClick();
    b.readAll();
    b.person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::Yes);
    b.session.closeTableClick(TableSide::Drive);
    EXPECT_EQ(saved, QList<ParameterTab>{ParameterTab::Drive});
    EXPECT_TRUE(b.screen.DriveTabSheetVisible);
    goOn();
    EXPECT_TRUE(b.screen.DriveTabSheetVisible) << "nothing was saved";
    b.person.expectBox("Do you want to save the parameter table before close ?", "Cofirm", BoxAnswer::No);
    b.session.closeTableClick(TableSide::Drive);
    EXPECT_EQ(b.screen.driveRoot, (TreeRoot{"Drive", {}, false}));
    EXPECT_FALSE(b.screen.DriveTabSheetVisible);
}

TEST(ParameterSession, ClosingWhileReadingStopsTheRead) {
    ParameterLinkBench b;
    b.readSome(2);
    b.session.FormClose();
    EXPECT_FALSE(b.progress.shown || b.reader.reading());
    EXPECT_EQ(b.table.grid.RowCount(), 2);
}

}  // namespace

}  // namespace kelvane
