// Whole sessions of the parameter window with the practice drive of each family, over a paced line that
// fails.

#include <QTemporaryDir>
#include <map>

#include "base/manual_tick_clock.h"
#include "bench/decimal_sep.h"
#include "bench/scripted_operator.h"
#include "drive/practice_port.h"
#include "link/number_text.h"
#include "parameters/files/sheet_transfer.h"
#include "parameters/files/table_text_file.h"
#include "parameters/parameter_session.h"
#include "parameters/sample_table.h"
#include "spreadsheet/biff_reader.h"

namespace kelvane {

namespace {

using drive::LineFault;

drive::LineOptions lineOf(drive::LineMode mode) {
    drive::LineOptions options{.mode = mode};
    options.wire = {.Baud = 38400, .DataBits = mode == drive::LineMode::Rtu ? 8 : 7};
    return options;
}

struct PracticeBench {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    ScriptedOperator person;
    LangTable lang = LangTable::builtInEnglish();
    drive::PracticeStation station;
    RequestScheduler link;
    GroupNameTable names;
    ParameterSession session{link, clock, names};
    const drive::FamilyData& data;

    PracticeBench(Family family, drive::LineMode mode)
        : station(clock, drive::familyData(family), lineOf(mode)),
          link({clock, wall, person, station.port, lang}),
          data(drive::familyData(family)) {
        link.Initial();
        link.emptyQueues();
        station.port.setSettings(lineOf(mode).wire);
        link.ComMode = mode == drive::LineMode::Rtu;
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = 5;
        link.ActiveFunction = OwnerParameter;
        link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        link.ParamRead.fixedParaName = fixedParaName;
        link.DriveStatus.DriveReady = 1;
        link.DriveStatus.DriveFamily = static_cast<quint8>(family);
        link.DriveStatus.ReservedEnabled = 1;
        const int groups = station.drive.parameters().groupCount();
        link.DriveStatus.GroupCount = static_cast<quint8>(groups);
        for (int G = 0; G <= groups; ++G)
            link.DriveStatus.GroupParamCount[static_cast<size_t>(G)] =
                station.drive.parameters().highestNumber(G).value_or(0);
        session.opened();
        for (const LineFault fault : {LineFault::Silent, LineFault::BadCheck, LineFault::Late})
            station.line.faults().setChance(fault, 1);
    }
    void readTable() {
        session.reader.ShowReservedParametersClick();
        clock.advanceUntil([&] { return !session.progress.shown; }, 3600 * 1000);
    }
};

QString valueOf(const drive::ParamRow& row, int value) {
    return InsertDecimalPoint(QString::number(value), row.dot);
}

class PracticeSession : public testing::TestWithParam<Family> {};

TEST_P(PracticeSession, ReadsEveryRowOverALineThatFails) {
    for (const drive::LineMode mode : {drive::LineMode::Ascii, drive::LineMode::Rtu}) {
        PracticeBench b(GetParam(), mode);
        b.readTable();
        ASSERT_EQ(b.session.reader.DriveTableComplete, 1);
        const StringGrid& grid = b.session.DriveAdvStringGrid;
        int row = 1;
        for (size_t G = 0; G < b.data.groups.size(); ++G) {
            if (GetParam() != Family::Rowan) {
                EXPECT_TRUE(isGroupRow(grid, row++));
            }
            for (size_t N = 0; N < b.data.groups[G].rows.size(); ++N, ++row) {
                const drive::ParamRow& held = b.data.groups[G].rows[N];
                EXPECT_EQ(grid.cell(column::Address, row), addressText(int(G), int(N)));
                EXPECT_EQ(grid.cell(column::Data, row), valueOf(held, held.value));
                EXPECT_EQ(grid.cell(column::Min, row), valueOf(held, held.min));
                EXPECT_EQ(grid.cell(column::Max, row), valueOf(held, held.max));
                if (GetParam() == Family::Hazel) continue;
                EXPECT_EQ(grid.cell(column::Default, row), valueOf(held, held.defaultValue));
                EXPECT_EQ(grid.cell(column::Description, row).trimmed().toStdString(), held.name);
            }
        }
        EXPECT_EQ(grid.RowCount(), row);
        EXPECT_GT(b.station.line.faults().replies(), quint64(b.session.progress.total)) << "nothing failed";
    }
}

// Every writable parameter goes to its maximum; what the drive would not take stands in the record.
TEST_P(PracticeSession, WritesWhatTheListShows) {
    PracticeBench b(GetParam(), drive::LineMode::Rtu);
    b.readTable();
    StringGrid& grid = b.session.DriveAdvStringGrid;
    for (int row = 1; row < grid.RowCount(); ++row)
        if (isWritable(grid, row)) grid.setCell(column::Data, row, grid.cell(column::Max, row));
    std::map<QString, QString> refused;
    QObject::connect(&b.session.writer, &ParameterWriter::errorRecordWanted, [&] {
        const StringGrid& record = b.session.writer.ErrorAdvStringGrid;
        for (int row = 1; row < record.RowCount(); ++row) refused[record.cell(1, row)] = record.cell(3, row);
        b.session.writer.errorRecordClosed();
    });
    b.session.WriteAllTransparentButtonClick();
    b.person.expectBox("Do you want to write the parameter(s) to drive ?", "Cofirm", BoxAnswer::Yes);
    b.session.writer.OKTransparentButtonClick();
    b.clock.advanceUntil([&] { return !b.session.writer.form.shown; }, 3600 * 1000);
    ASSERT_FALSE(b.session.writer.form.shown);

    int written = 0;
    for (int row = 1; row < grid.RowCount(); ++row) {
        if (!isWritable(grid, row)) continue;
        const auto reg = static_cast<uint16_t>(BaseStrToInt(grid.cell(column::Address, row), 16));
        const std::optional<uint16_t> word = b.station.drive.word(reg);
        ASSERT_TRUE(word);
        EXPECT_EQ(grid.cell(column::Data, row), InsertDecimalPoint(QString::number(*word), dotOf(grid, row)));
        const bool isMaximum = registerWordOf(grid.cell(column::Max, row)) == IntToBaseStr(*word, 16, 4);
        if (isMaximum) ++written;
        EXPECT_TRUE(isMaximum || refused.contains(grid.cell(column::PrNo, row)))
            << grid.cell(column::PrNo, row).toStdString() << " " << *word;
    }
    EXPECT_GT(written, 20);
}

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
        PracticeBench b(GetParam(), drive::LineMode::Rtu);
        b.readTable();
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
    }
}

INSTANTIATE_TEST_SUITE_P(Families, PracticeSession, testing::ValuesIn(AllFamilies),
                         [](const auto& tested) { return std::string(familyName(tested.param)); });

}  // namespace

}  // namespace kelvane
