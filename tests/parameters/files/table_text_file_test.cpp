#include "parameters/files/table_text_file.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "bench/scripted_operator.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

using test::fillSample;
using test::rowTexts;

const QByteArray SampleText =
    "Larch|2.05|150A|460V|75 ( 100 )|2|2|1|0|\r\n"
    "Check    |Pr. No   |MODBUS   |Description     |Unit     |Data     |Default  |Min      |Max      "
    "|Attribute|Address  |Dot      |Run Set  |\r\n"
    "X        |*****    |*****    |0 - User|*****    |*****    |*****    |*****    |*****    |*****    "
    "|*****    |*****    |         |\r\n"
    "X        |00-00    |0000H    |Identity Code   |####     |33       |33       |0        |65535    "
    "|Read-Only|0000     |0        |false    |\r\n"
    "X        |00-01    |0001H    |Rated Current   |A        |150.0    |150.0    |0.0      |6553.5   "
    "|Read-Only|0001     |1        |false    |\r\n"
    "X        |*****    |*****    |1 - Basic|*****    |*****    |*****    |*****    |*****    |*****    "
    "|*****    |*****    |         |\r\n"
    "V        |01-00    |0100H    |Max. Output Freq|Hz       |50.00    |60.00    |50.00    |400.00   "
    "|Writable |0100     |2        |false    |\r\n";

void loadInto(ParameterTable& table, const QByteArray& bytes, TextFormat format = TextFormat::Txt) {
    const LoadedFile file = readTableText(bytes, format, table.identity);
    ASSERT_TRUE(file.table) << file.error.toStdString();
    applyTable(*file.table, table);
}

const QByteArray ComparisonTextOfSample =
    "[Comparison Type]\r\nDrive vs. default\r\n\r\n"
    "[Drive Info]\r\nTable Source =drive\r\nDrive Series =Larch\r\nVersion      =2.05\r\nRated "
    "Current=150A\r\n"
    "Rated Voltage=460V\r\nkW(Hp)       =75 ( 100 )\r\n\r\n"
    "[File Info]\r\nTable Source =\r\nDrive Series =\r\nVersion      =\r\nRated Current=\r\nRated "
    "Voltage=\r\n"
    "kW(Hp)       =\r\n\r\n"
    "[Result]\r\n"
    "Pr. No   |MODBUS   |Description     |Unit     |Data     |Default  |Min      |Max      "
    "|Attribute|Address  |\r\n"
    "*****    |*****    |1 - Basic|*****    |*****    |*****    |*****    |*****    |*****    |Drive    |\r\n"
    "01-00    |0100H    |Max. Output Freq|Hz       |50.00    |60.00    |50.00    |400.00   |Writable |Drive  "
    "  |\r\n";

TEST(TableTextFile, WritesTheSampleToTheByte) {
    ParameterTable table;
    fillSample(table);
    EXPECT_EQ(writeTableText(table, false, TextFormat::Txt), SampleText);
    EXPECT_EQ(writeTableText(table, false, TextFormat::Csv), QByteArray(SampleText).replace('|', ','));
    table.identity.groupParamCount[2] = 3;  // the reserved group counts while it is shown
    EXPECT_TRUE(writeTableText(table, true, TextFormat::Txt)
                    .startsWith("Larch|2.05|150A|460V|75 ( 100 )|2|3|1|0|3|\r\n"));
    table.grid.setCell(column::Unit, 5, "1,000,000");  // nine characters of all but the description
    table.grid.setCell(column::Description, 5, "A description of any length");
    EXPECT_TRUE(writeTableText(table, false, TextFormat::Csv)
                    .contains(",A description of any length,\"1,000,00,50.00    ,"));
}

TEST(TableTextFile, LoadsEveryCellOfTheSampleWithBareLineEnds) {
    ParameterTable table;
    table.grid.setRowCount(40);
    table.grid.addCheckBox(1, true);
    table.identity.groupParamCount[7] = 9;
    loadInto(table, QByteArray(SampleText).replace("\r\n", "\n").chopped(1));
    EXPECT_EQ(table.grid.RowCount(), 6);
    EXPECT_EQ(rowTexts(table.grid, 5).join('|'),
              "01-00|0100H|Max. Output Freq|Hz|50.00|60.00|50.00|400.00|Writable|0100|2|false");
    EXPECT_EQ(table.grid.cell(column::Unit, 2), "");
    EXPECT_TRUE(table.grid.checkBox(5) && table.grid.hasCheckBox(3));
    EXPECT_FALSE(table.grid.checkBox(3) || table.grid.hasCheckBox(1));
}

TEST(TableTextFile, KeepsCountsBehindTheFileAndFieldsThatAreNoNumber) {
    ParameterTable table;
    table.identity.family = Family::Tilia;
    table.identity.groupCount = 3;
    table.identity.groupParamCount = {7, 8, 9, 10};
    loadInto(table, "M|1|2|3|4|x|99999|5|y|\r\nCheck|Pr. No|\r\n");
    EXPECT_EQ(table.identity.family, Family::Tilia);
    EXPECT_EQ(table.identity.groupCount, 3);
    EXPECT_EQ(table.identity.groupParamCount[0], 5);
    EXPECT_EQ(table.identity.groupParamCount[1], 8);
    EXPECT_EQ(table.identity.groupParamCount[3], 10);
    EXPECT_EQ(table.grid.RowCount(), 1);
}

TEST(TableTextFile, KeepsJoiningTheFieldBehindAQuote) {
    ParameterTable table;
    loadInto(table, "M|\r\nCheck|Pr. No|\r\nX|00-00|0000H|Pipe 5\" wide|mm       |5        |\r\n");
    EXPECT_EQ(rowTexts(table.grid, 1, 3, 5).join('/'), "Pipe 5 wide|mm       /5/");
    loadInto(table, "M|\r\nCheck|Pr. No|\r\nX|00-00|0000H|last\"");
    EXPECT_EQ(table.grid.cell(column::Description, 1), "last|");
}

TEST(TableTextFile, PassesTheMarkOfUtf8AndKeepsTakingALineInFrontForATable) {
    for (const QByteArray& text : {SampleText, ComparisonTextOfSample}) {
        const LoadedFile marked = readTableText("\xEF\xBB\xBF" + text, TextFormat::Txt, {});
        EXPECT_EQ(marked.table.has_value(), text == SampleText);
        EXPECT_EQ(marked.comparison.has_value(), text != SampleText);
        EXPECT_TRUE(!marked.table || marked.table->identity.model == "Larch");
        EXPECT_TRUE(readTableText("\r\n" + text, TextFormat::Txt, {}).table);
    }
}

TEST(TableTextFile, RefusesWhatCannotBeATable) {
    const QByteArray endless = "a|b|\r\n" + QByteArray("\n").repeated(MaxTableRows + 2);
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("one line"), endless, QByteArray("[Comparison Type]\r\n"),
          QByteArray("[Comparison Type]\r\n[File Info]"), QByteArray("to do\r\nbuy milk\r\ncall Ann\r\n"),
          QByteArray("\x7F"
                     "ELF\0\1|\n\xFF\xFE|x\n",
                     13)
              .repeated(40)}) {
        const LoadedFile file = readTableText(bytes, TextFormat::Txt, {});
        EXPECT_FALSE(file.table || file.comparison);
        EXPECT_FALSE(file.error.isEmpty());
    }
}

struct ComparedSample {
    ComparedSample() {
        fillSample(drive);
        file.TableFileName = "/tables/a.txt";
    }
    void compare(const char* kind) { ComparisonEngine(drive, file, sheet, person, lang).compare(kind); }
    ParameterTable drive;
    ParameterTable file;
    ComparisonSheet sheet;
    ScriptedOperator person;
    LangTable lang;
};

TEST(ComparisonTextFile, WritesAndLoadsTheSample) {
    ComparedSample sample;
    sample.compare(DriveVsDefault);
    EXPECT_EQ(writeComparisonText(sample.sheet, TextFormat::Txt), ComparisonTextOfSample);

    ComparisonSheet loaded;
    loaded.CompareAdvStringGrid.setRowCount(90);
    const LoadedFile file = readTableText(ComparisonTextOfSample, TextFormat::Txt, {});
    ASSERT_TRUE(file.comparison);
    applyComparison(*file.comparison, loaded);
    EXPECT_EQ(loaded.CompKindLabel, DriveVsDefault);
    EXPECT_TRUE(loaded.CompInfoAdvStringGrid.rowHidden(2));
    EXPECT_EQ(writeComparisonText(loaded, TextFormat::Txt), ComparisonTextOfSample);
}

TEST(ComparisonTextFile, KeepsTheInfoRowsShownAfterASaveOfDriveVsDefault) {
    ComparedSample sample;
    sample.compare(DriveVsDefault);
    writeComparisonText(sample.sheet, TextFormat::Csv);
    EXPECT_FALSE(sample.sheet.CompInfoAdvStringGrid.rowHidden(2));
    fillSample(sample.file);
    sample.compare(FileVsDefault);
    EXPECT_TRUE(writeComparisonText(sample.sheet, TextFormat::Csv).contains("Table Source =/tables/a.txt"));
    EXPECT_TRUE(sample.sheet.CompInfoAdvStringGrid.rowHidden(1));
}

TEST(ComparisonTextFile, KeepsQuotedDescriptionsApartAndTheAddressHead) {
    ComparedSample sample;
    sample.drive.grid.setCell(column::Description, 5, "Max, Freq");
    sample.compare(DriveVsDefault);
    const QByteArray text = writeComparisonText(sample.sheet, TextFormat::Csv);
    EXPECT_TRUE(text.contains(",Attribute,Address  ,\r\n"));
    const LoadedFile file = readTableText(text, TextFormat::Csv, {});
    ASSERT_TRUE(file.comparison);
    EXPECT_EQ(file.comparison->rows[1][column::Description], "\"Max");
    EXPECT_EQ(file.comparison->rows[1][column::Note], "Writable");
}

TEST(TableFileNames, KeepsTheExtensionExactInCase) {
    EXPECT_EQ(tableFileKind("x.csv.CSV"), TableFileKind::Csv);
    for (const char* name : {"x.Txt", "x.Csv", "x.xlsx", "x", "txt"})
        EXPECT_EQ(tableFileKind(name), TableFileKind::Unsupported) << name;
}

}  // namespace
}  // namespace kelvane
