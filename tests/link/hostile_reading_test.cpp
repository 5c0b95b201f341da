// Reading a table, end to end, over a line that delays, doubles and breaks its replies, and with windows that
// open and close in the middle of an exchange: every row is the drive's, or the read does not call itself
// complete.
#include <gtest/gtest.h>

#include <QMap>

#include "bench/hostile_line.h"
#include "bench/on_line_bench.h"
#include "parameters/exchange/write_list.h"

namespace kelvane {
namespace {

using drive::LineMode;
using ReadingCase = std::tuple<Family, LineMode>;

constexpr int bauds[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};

class HostileReading : public testing::TestWithParam<ReadingCase> {};

std::string lines(const QStringList& wrong) {
    return "  " + wrong.mid(0, 6).join(QStringLiteral("\n  ")).toStdString() +
           (wrong.size() > 6 ? "\n  and " + std::to_string(wrong.size() - 6) + " more" : "");
}

// Reads the table over a good line and writes a few rows of it.
struct WriteBench : OnLineBench {
    QMap<QString, int> wanted;  // by address, the words that are written
    QMap<QString, int> before;  // by address, of every row
    QStringList refused;        // addresses in the record
    bool leftByCancel = false;

    explicit WriteBench(const LineChoice& choice) : OnLineBench(choice) {
        credits.compareState = false;
        EXPECT_TRUE(goOnLine());
        openParameterWindow();
        readTable();
        QObject::connect(&session.writer, &ParameterWriter::errorRecordWanted, [this] {
            const StringGrid& record = session.writer.ErrorAdvStringGrid;
            for (int row = 1; row < record.RowCount(); ++row) refused += record.cell(1, row);
            session.writer.errorRecordClosed();
        });
    }
    int heldAt(const QString& address) const {
        return station.drive.word(uint16_t(BaseStrToInt(address, 16))).value_or(0);
    }
    void changeSomeRows() {
        StringGrid& grid = session.DriveAdvStringGrid;
        const auto wordOf = [&](int column, int row) {
            return registerWordOf(grid.cell(column, row)).value_or("0").toInt(nullptr, 16);
        };
        for (int row = 1; row < grid.RowCount(); ++row) {
            if (isGroupRow(grid, row)) continue;
            const QString address = grid.cell(column::Address, row);
            before[address] = heldAt(address);
            const int next = wordOf(column::Data, row) + 1;
            if (!isWritable(grid, row) || next > wordOf(column::Max, row) || row % 3 || wanted.size() >= 8)
                continue;
            grid.setCell(column::Data, row, InsertDecimalPoint(QString::number(next), dotOf(grid, row)));
            grid.setCheckBox(row, true);
            wanted[address] = next;
        }
    }
    // A read-back that waits for nothing is left by Cancel.
    void writeThem() {
        session.WriteCheckTransparentButtonClick();
        session.writer.OKTransparentButtonClick();
        clock.advanceUntil([this] { return !session.writer.form.shown; }, 600 * 1000);
        if (!session.progress.shown) return;
        session.progress.CancelTransparentButtonClick();
        session.writer.FormClose();
        leftByCancel = true;
    }
    QStringList wrongAfterwards() const {
        QStringList wrong = credits.miscredited;
        if (session.writer.form.shown) return wrong + QStringList{"the list waits for ever"};
        const StringGrid& grid = session.DriveAdvStringGrid;
        for (int row = 1; row < grid.RowCount(); ++row) {
            if (isGroupRow(grid, row)) continue;
            const QString address = grid.cell(column::Address, row);
            const int held = heldAt(address);
            if (wanted.contains(address)
                    ? held != wanted[address] && !refused.contains(grid.cell(column::PrNo, row))
                    : held != before[address])
                wrong += QStringLiteral("%1 holds %2").arg(address).arg(held);
            const QString shown = registerWordOf(grid.cell(column::Data, row)).value_or(QString());
            if (shown != IntToBaseStr(held, 16, 4) && !leftByCancel)
                wrong += address + " holds " + shown + " and shows " + grid.cell(column::Data, row);
        }
        return wrong;
    }
};

// One read in which every eleventh reply fails, from the given one on.
TEST_P(HostileReading, FillsEveryRowWithItsOwnRecord) {
    const auto& [family, mode] = GetParam();
    constexpr int Apart = 11;
    int number = 0;
    int failed = 0;
    for (const int Baud : bauds)
        for (const Harm& harm : lateReplies() + brokenReplies() + lateCopies())
            for (int first = 1; first <= Apart; ++first) {
                if (++number % 67 && !everyCase()) continue;
                OnLineBench bench(
                    {.family = family, .mode = mode, .Baud = Baud, .holdsBack = number % 2 == 0});
                ASSERT_TRUE(bench.goOnLine());
                bench.openParameterWindow();
                harm.setOn(bench.station.line.options());
                for (int reply = first; reply < 600; reply += Apart) bench.faults().failAt(reply, harm.fault);
                bench.readTable();
                QStringList wrong = bench.credits.miscredited;
                // Kept: a piece whose check happens to be good has the wrong length, and the read stops
                // there.
                const bool told = bench.history.contains("Receive data length is not correct !!");
                if (bench.session.progress.shown && !told) wrong += "the read waits for ever";
                if (!bench.session.reader.DriveTableComplete && !told) wrong += "not complete";
                if (bench.session.reader.DriveTableComplete) wrong += bench.wrongRows();
                if (wrong.isEmpty() || ++failed > 5) continue;
                ADD_FAILURE() << Baud << " baud, " << harm.name << " from reply " << first << " on\n"
                              << lines(wrong);
            }
    EXPECT_EQ(failed, 0) << "of " << number << " reads";
}

// The Parameter window opens at every phase of a poll, reads a little at once or soon, and closes at a phase
// of its own; now and then the link is taken down and comes on line again.
TEST_P(HostileReading, SurvivesWindowsThatOpenAndCloseInMidExchange) {
    const auto& [family, mode] = GetParam();
    constexpr int Rows = 6;
    int number = 0;
    int failed = 0;
    for (const int Baud : bauds) {
        const LineChoice choice{.family = family, .mode = mode, .Baud = Baud, .turnaroundMs = 20};
        auto bench = std::make_unique<OnLineBench>(choice);
        ASSERT_TRUE(bench->goOnLine());
        const qint64 exchangeUs = bench->station.port.settings().wireTimeUs(110) + 40000;
        for (int phase = 0; phase < 40; ++phase)
            for (const int waitMs : {0, 2, 30, 120, 400, 900}) {
                if (++number % 5 && !everyCase()) continue;
                OnLineBench& b = *bench;
                QStringList wrong;
                const auto nextFrame = [&] {
                    return b.clock.advanceUntil([&, n = b.sent()] { return b.sent() > n; }, 20000);
                };
                if (!nextFrame()) wrong += "no poll";
                b.clock.advanceUs(exchangeUs * phase / 40);
                b.openParameterWindow();
                b.clock.advance(waitMs);
                b.session.reader.ReadDriveTransparentButtonClick();
                b.clock.advanceUntil(
                    [&] { return b.session.reader.ReadRow > Rows || !b.session.progress.shown; }, 60000);
                if (b.session.reader.ReadRow <= Rows) wrong += "the read waits for ever";
                wrong += b.wrongRows(Rows);
                nextFrame();
                b.clock.advanceUs(exchangeUs * (39 - phase) / 40);
                b.closeParameterWindow();
                if (!b.awaitPolls(2)) wrong += "no poll afterwards";
                if (number % 4 == 0) {
                    nextFrame();
                    b.clock.advanceUs(exchangeUs * phase / 40);
                    b.link.Initial();
                    b.clock.advance(waitMs);
                    if (!b.goOnLine() || !b.awaitPolls(1)) wrong += "not on line again";
                    wrong += b.wrongIdentity();
                }
                wrong += b.credits.miscredited;
                if (wrong.isEmpty()) continue;
                bench = std::make_unique<OnLineBench>(choice);
                ASSERT_TRUE(bench->goOnLine());
                if (++failed > 5) continue;
                ADD_FAILURE() << Baud << " baud, phase " << phase << " of 40, read after " << waitMs
                              << " ms\n"
                              << lines(wrong);
            }
    }
    EXPECT_EQ(failed, 0) << "of " << number << " windows";
}

// A few rows of the table get another value, which is written and read back while every fourth reply fails:
// the drive holds what was asked for and nothing else has changed, or the record says what was refused.
TEST_P(HostileReading, WritesWhatWasAskedForAndNothingElse) {
    const auto& [family, mode] = GetParam();
    constexpr int Apart = 4;
    int number = 0;
    int failed = 0;
    for (const int Baud : bauds)
        for (const Harm& harm : plainHarms() + lateReplies() + brokenReplies() + lateCopies())
            for (int first = 1; first <= Apart; ++first) {
                if (++number % 29 && !everyCase()) continue;
                WriteBench bench(
                    {.family = family, .mode = mode, .Baud = Baud, .holdsBack = number % 2 == 0});
                bench.changeSomeRows();
                harm.setOn(bench.station.line.options());
                for (int reply = first; reply < 100; reply += Apart) bench.faults().failAt(reply, harm.fault);
                bench.writeThem();
                const QStringList wrong = bench.wrongAfterwards();
                if (wrong.isEmpty() || ++failed > 5) continue;
                ADD_FAILURE() << Baud << " baud, " << harm.name << " from reply " << first << " on\n"
                              << lines(wrong);
            }
    EXPECT_EQ(failed, 0) << "of " << number << " writes";
}

std::vector<ReadingCase> readingCases() {
    std::vector<ReadingCase> cases;
    for (const Family family : AllFamilies)
        for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) cases.emplace_back(family, mode);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Lines, HostileReading, testing::ValuesIn(readingCases()), [](const auto& tested) {
    return std::string(familyName(std::get<0>(tested.param))) +
           (std::get<1>(tested.param) == LineMode::Rtu ? "Rtu" : "Ascii");
});

}  // namespace
}  // namespace kelvane
