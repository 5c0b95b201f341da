// The steps of saving and loading, with the questions that they ask and the order in which they come.
#include "parameters/files/table_saver.h"

#include <QFile>
#include <QTemporaryDir>

#include "parameters/files/table_loader.h"
#include "parameters/files/table_text_file.h"
#include "parameters/parameter_link_bench.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

struct Saving : SchedulerBench, testing::Test {
    GroupNameTable names;
    ParameterSession session{link, clock, names, {person, lang}};
    TableSaver& saver = session.saver;
    TableLoader& loader = session.loader;
    SpreadsheetBackend& spreadsheet = session.fileWork.spreadsheet;
    QTemporaryDir folder;
    QStringList steps;
    std::optional<int> chosen = 0;
    TableFileKind kind = TableFileKind::Text;

    Saving() {
        session.choices.chooseTab = [this](const QString& title, const std::vector<ParameterTab>& tabs,
                                           int selected, const TableChoices::ThenTab& then) {
            steps << title;
            for (const ParameterTab tab : tabs) steps << QString::number(static_cast<int>(tab));
            steps << QStringLiteral("selected %1").arg(selected);
            then(chosen ? std::optional(tabs[static_cast<size_t>(*chosen)]) : std::nullopt);
        };
        session.choices.chooseFormat = [this](const TableChoices::ThenKind& then) {
            steps << "format";
            then(kind);
        };
    }
    void openDrive(bool complete) {
        test::fillSample(session.driveTable);
        session.reader.DriveTableComplete = complete;
        session.show(ParameterTab::Drive);
    }
    void openFile() {
        test::fillSample(session.fileTable);
        session.fileLoaded();
    }
};

TEST_F(Saving, APartialTableFromDriveIsRefusedOrLeftOut) {
    openDrive(false);
    person.expectBox("Parameter table is not completed !", "Cofirm");
    saver.SaveTransparentButtonClick();
    EXPECT_TRUE(steps.isEmpty());
    openFile();
    chosen.reset();
    bool wentOn = false;
    saver.save(ParameterTab::Drive, [&] { wentOn = true; });
    EXPECT_EQ(steps, (QStringList{"Select Parameter Source to Save", "2", "selected 0"}));
    EXPECT_FALSE(wentOn) << "nothing was saved";
}

TEST_F(Saving, ACancelledDialogLeavesTheTextAndNoFile) {
    openDrive(true);
    person.expectSave("CSV Fiels(*.csv)|*.CSV", ".CSV", std::nullopt);
    kind = TableFileKind::Csv;
    saver.SaveTransparentButtonClick();
    EXPECT_EQ(person.suggestedName, "Larch");
    EXPECT_EQ(saver.SaveMemo, writeTableText(session.driveTable, false, TextFormat::Csv));
    session.screen.DriveTabSheetVisible = false;
    person.expectBox("There is no parameter table be opened !", "Cofirm");
    saver.SaveTransparentButtonClick();
    EXPECT_EQ(saver.SaveMemo, "");
}

TEST_F(Saving, WithoutASpreadsheetProgramNoFileDialogComes) {
    openDrive(true);
    spreadsheet.present = [] { return false; };
    kind = TableFileKind::Spreadsheet;
    person.expectBox("Please install the Microsoft Excel first !!", "Error");
    saver.SaveTransparentButtonClick();
    person.expectBox("Please install the Microsoft Excel first !!", "Error");
    EXPECT_FALSE(loader.load("t.xls"));
}

TEST_F(Saving, ASavedComparisonComesBackAndLeavesTheTableFromFile) {
    openDrive(true);
    openFile();
    session.compare(QLatin1String(DriveVsDefault));
    chosen = 2;
    for (const TableFileKind each : {TableFileKind::Text, TableFileKind::Csv, TableFileKind::Spreadsheet}) {
        kind = each;
        const QString path = folder.filePath("c" + saveSuffix(kind));
        person.expectSave(saveFilter(kind), saveSuffix(kind), path);
        saver.SaveTransparentButtonClick();
        session.screen.CompareTabSheetVisible = false;
        session.CompareAdvStringGrid.setRowCount(1);
        person.expectOpen(openTableFilter(), path);
        loader.ReadFileTransparentButtonClick();
        EXPECT_TRUE(session.screen.CompareTabSheetVisible);
        EXPECT_EQ(session.CompareAdvStringGrid.RowCount(), 3) << path.toStdString();
        EXPECT_EQ(session.CompareAdvStringGrid.cell(column::Note, 2), "Drive");
        EXPECT_EQ(session.fileTable.TableFileName, "");
        EXPECT_EQ(session.FileAdvStringGrid.RowCount(), 6);
    }
}

TEST_F(Saving, AFailedLoadLeavesTheOpenTable) {
    openFile();
    for (const char* name : {"empty.txt", "noise.xls"}) {
        const QString path = folder.filePath(QLatin1String(name));
        writeWhole(path, QByteArray(name).startsWith("noise") ? QByteArray(600, 'x') : QByteArray());
        const bool sheet = path.endsWith("xls");
        const QString error = sheet ? spreadsheet.create()->openWorkbook(path).error
                                    : path + ": " + readTableText({}, TextFormat::Txt, {}).error;
        person.expectBox(error, "Error");
        EXPECT_FALSE(loader.load(path)) << name;
        EXPECT_FALSE(session.progress.shown);
        EXPECT_EQ(session.FileAdvStringGrid.cell(column::PrNo, 5), "01-00");
    }
}

}  // namespace
}  // namespace kelvane
