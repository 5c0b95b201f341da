#include "parameters/files/sheet_transfer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "bench/decimal_sep.h"
#include "bench/scripted_operator.h"
#include "parameters/sample_table.h"
#include "spreadsheet/biff_reader.h"
#include "spreadsheet/compound_file.h"

namespace kelvane {
namespace {

using test::rowTexts;

class SheetTransfer : public ::testing::Test {
   protected:
    SheetTransfer() {
        test::fillSample(table);
        progress.info = [this](const QString& text) { said << text; };
        progress.para = progress.info;
    }
    Workbook saved(bool RparaAbLED = false) {
        const FileResult result = saveTableSheets(*application, path, table, RparaAbLED, progress);
        EXPECT_TRUE(result.ok) << result.error.toStdString();
        return readBiff(readWhole(path).bytes).workbook;
    }
    LoadedFile load() { return loadSheets(*application, path, {}, progress); }
    static QString text(const Sheet& sheet, int row, int column) {
        const SheetCell* cell = sheet.find(row, column);
        return cell != nullptr ? cell->text : QString();
    }
    static int interior(const Sheet& sheet, int row, int column) {
        const SheetCell* cell = sheet.find(row, column);
        return cell != nullptr ? cell->format.interiorColour : 0;
    }
    static QString line(const Sheet& sheet, int row, int columns) {
        QStringList texts;
        for (int c = 1; c <= columns; ++c) texts << text(sheet, row, c);
        return texts.join('|');
    }

    QTemporaryDir folder;
    QString path = folder.filePath("t.xls");
    std::unique_ptr<SpreadsheetApplication> application = builtInSpreadsheet().create();
    ParameterTable table;
    TransferProgress progress;
    QStringList said;
};

TEST_F(SheetTransfer, WritesTheSample) {
    const Workbook book = saved();
    ASSERT_EQ(book.sheets.size(), 3U);
    const Sheet& info = book.sheets[0];
    QStringList column;
    for (int row = 1; row <= 8; ++row) column << text(info, row, 1) % "=" % text(info, row, 2);
    EXPECT_EQ(column.join('|'),
              "Model=Larch|Version=2.05|Rated Current=150A|Rated Voltage=460V|HP=75 ( 100 )|Drive ID=2|Group "
              "Number=2"
              "|Function Number=1");
    EXPECT_EQ(text(info, 8, 3), "0");
    EXPECT_TRUE(info.rows.at(6).hidden && info.rows.at(7).hidden && info.rows.at(8).hidden);

    const Sheet& group = book.sheets[2];
    EXPECT_EQ(group.name, "Group 1");
    EXPECT_EQ(group.merged, std::vector<CellRange>({{1, 1, 1, 10}}));
    EXPECT_EQ(line(group, 3, 13),
              "Check|Pr. No|MODBUS|Description|Unit|Data|Default|Min|Max|Attribute|Address|Dot|Run Set");
    EXPECT_EQ(group.find(3, 13)->format, (CellFormat{true, false, TealIndex, WhiteIndex}));
    EXPECT_EQ(line(group, 4, 13),
              "V|01-00|0100H|Max. Output Freq|Hz  |50.00|60.00|50.00|400.00|Writable|0100|2|false");
    EXPECT_EQ(interior(group, 4, 6), YellowIndex);
    EXPECT_EQ(interior(book.sheets[1], 5, 6), 0);
    for (const Sheet& sheet : {book.sheets[1], group}) {
        EXPECT_TRUE(sheet.columns.at(11).hidden && sheet.columns.at(12).hidden &&
                    sheet.columns.at(13).hidden);
        for (const auto& [row, content] : sheet.rows)
            for (const SheetCell& cell : content.cells) EXPECT_TRUE(cell.text.isEmpty() || cell.format.text);
    }
    table.identity.family = Family::Hazel;
    EXPECT_EQ(interior(saved().sheets[2], 4, 6), YellowIndex) << "kept, though it has no defaults";
    EXPECT_EQ(said.front(), "Saving parameters from Larch ...");
    EXPECT_EQ(said.back(), "Process Pr 01-00:  Max. Output Freq");
}

// What a spreadsheet program leaves of a value that a person typed anew: a number, without the places it had.
TEST_F(SheetTransfer, NumbersGetThePlacesOfTheirRow) {
    saved();
    QByteArray stream = readCompoundStream(readWhole(path).bytes, {"Workbook"}).bytes;
    // Makes the text of a cell a number, in hundredths; both records are of the same length.
    const auto makeNumber = [&](int sheet, int row, int column, int hundredths) {
        const auto u16 = [&](qsizetype at) { return quint8(stream[at]) | quint8(stream[at + 1]) << 8; };
        int begun = 0;
        for (qsizetype at = 0; at + 4 <= stream.size(); at += 4 + u16(at + 2)) {
            if (u16(at) == 0x0809) ++begun;  // the globals, then each sheet
            if (u16(at) != 0x00FD || begun != sheet + 1 || u16(at + 4) != row - 1 ||
                u16(at + 6) != column - 1)
                continue;
            stream[at] = 0x7E;
            stream[at + 1] = 0x02;
            const quint32 rk = quint32(hundredths) << 2 | 3;
            for (int i = 0; i < 4; ++i) stream[at + 10 + i] = char(rk >> 8 * i);
            return;
        }
        ADD_FAILURE() << "no text in sheet " << sheet << ", row " << row << ", column " << column;
    };
    makeNumber(3, 4, 6, 5000);   // 01-00, two places
    makeNumber(3, 4, 9, 655);    // its maximum
    makeNumber(2, 5, 6, 12345);  // 00-01, one place
    makeNumber(2, 4, 6, 3300);   // 00-00, none
    writeWhole(path, writeCompoundFile("Workbook", stream).bytes);
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        const LoadedFile file = load();
        ASSERT_TRUE(file.table) << file.error.toStdString();
        const auto cell = [&](size_t row, int c) {
            return QString(file.table->rows[row].cells[size_t(c)]).replace(sep, ".");
        };
        EXPECT_EQ(cell(4, column::Data), "50.00");
        EXPECT_EQ(cell(4, column::Max), "6.55");
        EXPECT_EQ(cell(1, column::Data), "33");
        EXPECT_EQ(cell(2, column::Data), "") << "no value rather than a wrong one";
        EXPECT_EQ(file.remarks, QStringList("Pr 00-01: 123.45 does not fit 1 decimal places"));
    }
}

TEST_F(SheetTransfer, WritesAndLoadsAComparison) {
    ComparisonSheet sheet;
    ParameterTable none;
    ScriptedOperator person;
    const LangTable lang;
    none.TableFileName = "f.txt";
    test::fillSample(none);
    ComparisonEngine(table, none, sheet, person, lang).compare(FileVsDefault);
    ASSERT_TRUE(saveComparisonSheet(*application, path, sheet, progress).ok);
    const Workbook book = readBiff(readWhole(path).bytes).workbook;
    ASSERT_EQ(book.sheets.size(), 1U);
    const Sheet& page = book.sheets[0];
    EXPECT_EQ(line(page, 3, 3), "Tabel Source||f.txt");
    EXPECT_EQ(line(page, 10, 2), "CompareRow|3");
    EXPECT_TRUE(page.rows.at(10).hidden);
    EXPECT_EQ(page.find(12, 1)->format, (CellFormat{true, false, TealIndex, WhiteIndex}));

    const LoadedFile file = load();
    ASSERT_TRUE(file.comparison) << file.error.toStdString();
    ComparisonSheet loaded;
    applyComparison(*file.comparison, loaded);
    EXPECT_EQ(rowTexts(loaded.CompareAdvStringGrid, 2, 1, 10),
              rowTexts(sheet.CompareAdvStringGrid, 2, 1, 10));
    EXPECT_TRUE(loaded.CompInfoAdvStringGrid.rowHidden(1));
    EXPECT_EQ(loaded.CompInfoAdvStringGrid.visibleCell(1, 1), "f.txt");
}

TEST_F(SheetTransfer, RefusesForeignWorkbooksAndTellsFailures) {
    const auto tryBook = [&](const std::function<void(SpreadsheetApplication&)>& fill) {
        application->addWorkbook(path);
        fill(*application);
        EXPECT_TRUE(application->close(true).ok);
        const LoadedFile file = load();
        return file.table || file.comparison || file.error.isEmpty();
    };
    EXPECT_FALSE(tryBook([](SpreadsheetApplication& app) { app.setValue(1, 1, "Shopping list"); }));
    EXPECT_FALSE(tryBook([](SpreadsheetApplication& app) { app.setValue(7, 2, "3"); }));
    EXPECT_FALSE(tryBook([](SpreadsheetApplication& app) {
        app.setValue(1, 1, "Comparison Type:");
        app.setValue(10, 2, "999999999");
    }));
    EXPECT_FALSE(loadSheets(*application, folder.filePath("none.xls"), {}, {}).error.isEmpty());
    EXPECT_FALSE(saveTableSheets(*application, folder.filePath("no/such/t.xls"), table, false, {}).ok);
}

}  // namespace
}  // namespace kelvane
