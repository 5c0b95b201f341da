// A table of every family, its reserved group with it, as a drive gives it: what is saved, loaded and saved
// again is the same.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "bench/decimal_sep.h"
#include "bench/on_line_bench.h"
#include "parameters/files/sheet_transfer.h"
#include "parameters/files/table_text_file.h"
#include "parameters/sample_table.h"
#include "spreadsheet/biff_reader.h"

namespace kelvane {

namespace {

class PracticeSession : public testing::TestWithParam<Family> {};

LoadedFile sheetsOf(const QString& path) {
    const auto application = builtInSpreadsheet().create();
    return loadSheets(*application, path, {}, {});
}

Workbook savedSheets(const ParameterTable& table, bool RparaAbLED, const QString& path) {
    const auto application = builtInSpreadsheet().create();
    const FileResult saved = saveTableSheets(*application, path, table, RparaAbLED, {});
    EXPECT_TRUE(saved.ok) << saved.error.toStdString();
    return readBiff(readWhole(path).bytes).workbook;
}

TEST_P(PracticeSession, SavedLoadedAndSavedAgainIsTheSame) {
    QTemporaryDir folder;
    const QString path = folder.filePath("x.xls");
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        OnLineBench b({.family = GetParam(), .mode = drive::LineMode::Rtu, .Baud = 38400});
        ASSERT_TRUE(b.goOnLine());
        b.openParameterWindow();
        b.session.screen.ShowReservedParametersEnabled = true;
        b.session.reader.ShowReservedParametersClick();
        b.clock.advanceUntil([&] { return !b.session.progress.shown; }, 3600 * 1000);
        ASSERT_EQ(b.session.reader.DriveTableComplete, 1);
        ParameterTable& table = b.session.driveTable;
        table.identity.model = QString::fromLatin1(familyName(GetParam()));
        for (const TextFormat format : {TextFormat::Txt, TextFormat::Csv}) {
            QByteArray first = writeTableText(table, true, format);
            const LoadedFile file = readTableText(first, format, {});
            ASSERT_TRUE(file.table) << file.error.toStdString();
            ParameterTable loaded;
            applyTable(*file.table, loaded);
            ASSERT_EQ(loaded.grid.RowCount(), table.grid.RowCount());
            // A unit of four blanks is the one cell that does not come back.
            EXPECT_EQ(writeTableText(loaded, false, format), first.replace("####     ", "         "));
        }
        const Workbook first = savedSheets(table, true, path);
        const LoadedFile file = sheetsOf(path);
        ASSERT_TRUE(file.table) << file.error.toStdString();
        ParameterTable loaded;
        applyTable(*file.table, loaded);
        for (int row = 1; row < table.grid.RowCount(); ++row)
            EXPECT_EQ(test::rowTexts(loaded.grid, row), test::rowTexts(table.grid, row)) << row;
        EXPECT_EQ(savedSheets(loaded, false, path), first);
        // Kept: Rowan stands on one sheet, with a row more for each group behind the first.
        const bool rowan = GetParam() == Family::Rowan;
        EXPECT_EQ(first.sheets[1].name == QLatin1String("Parameter"), rowan);
        EXPECT_EQ(loaded.grid.RowCount() > table.grid.RowCount(), rowan);
    }
}

INSTANTIATE_TEST_SUITE_P(Families, PracticeSession, testing::ValuesIn(AllFamilies),
                         [](const auto& tested) { return std::string(familyName(tested.param)); });

}  // namespace

}  // namespace kelvane
