// Every line that a technician may have, on a hand-driven clock: whatever the baud rate, the adapter and the
// drive's pace, a drive that answers is never declared silent and its replies are never cut. And the sessions
// of both modes, word for word, as they stand on the wire.
#include <gtest/gtest.h>

#include "bench/on_line_bench.h"

namespace kelvane {
namespace {

using drive::ByteFlow;
using drive::LineMode;

constexpr int Group = 1;  // Basic: the maximum output frequency and what goes with it

// On line with a Larch, in the Parameter window; what stood on the wire since then.
struct LineSession : OnLineBench {
    QStringList wire;
    quint64 repliesBefore = 0;

    explicit LineSession(const LineChoice& choice) : OnLineBench(choice) {
        EXPECT_TRUE(goOnLine());
        awaitPolls(1);
        openParameterWindow();
        clock.advance(3000);
        repliesBefore = faults().replies();
        QObject::connect(&link, &RequestScheduler::cycleEnded, [this] {
            wire += "> " % link.TxFrameText;
            wire += "< " % link.Rx.RxLogText;
        });
    }
    void ask(quint8 task, const QString& command) {
        link.ParamRead.ReadDone = link.ParamRead.WriteDone = 0;
        link.request(task, command);
        goOn(1);
    }
    void goOn(int exchanges) {
        const int until = cycles + exchanges;
        clock.advanceUntil([&] { return cycles >= until; }, 60000);
    }
};

using LineCase = std::tuple<LineMode, int, ByteFlow, int>;

std::string caseName(const testing::TestParamInfo<LineCase>& info) {
    const auto& [mode, Baud, flow, turnaroundMs] = info.param;
    const char* const flows[] = {"BytesSingly", "BurstsOfEight", "UsbPackets"};
    return std::string(mode == LineMode::Rtu ? "Rtu" : "Ascii") + std::to_string(Baud) + flows[size_t(flow)] +
           "After" + std::to_string(turnaroundMs) + "ms";
}

class LineMatrix : public testing::TestWithParam<LineCase> {};

TEST_P(LineMatrix, HasNoFalseTimeOutAndNoBrokenReply) {
    const auto& [mode, Baud, flow, turnaroundMs] = GetParam();
    LineSession session(
        {.family = Family::Larch, .mode = mode, .Baud = Baud, .flow = flow, .turnaroundMs = turnaroundMs});
    const auto rows = drive::familyData(Family::Larch).groups[Group].rows;
    for (size_t number = 0; number < rows.size(); ++number) {
        session.ask(12, QString::asprintf("FF03%02X%02X000F", Group, unsigned(number)));
        ASSERT_EQ(session.link.ParamRead.ReadDone, 1) << number;
        const ParamReadRecord& read = session.link.ParamRead;
        EXPECT_EQ(read.ReadField[0], rows[number].value);
        EXPECT_EQ(read.ReadField[1], rows[number].max);
        EXPECT_EQ(read.ReadField[2], rows[number].min);
        EXPECT_EQ(read.ReadField[4], rows[number].defaultValue);
        EXPECT_EQ(read.ReadName.trimmed().toStdString(), rows[number].name);
        EXPECT_EQ(read.ReadUnit.trimmed().toStdString(), rows[number].unit);
        EXPECT_EQ(session.link.TimeoutCount, 0);
    }
    session.closeParameterWindow();
    for (int poll = 0; poll < 20; ++poll) {
        session.goOn(1);
        EXPECT_EQ(session.link.TimeoutCount, 0);
        EXPECT_EQ(session.link.DriveStatus.StatusWords[1], session.station.drive.word(0x2119)) << "not 2101h";
    }
    EXPECT_EQ(session.link.DriveStatus.StatusWords[5], session.station.drive.word(0x2105));  // DC bus
    EXPECT_EQ(session.history, QStringList());
    EXPECT_EQ(session.faults().replies() - session.repliesBefore,
              rows.size() + 20);  // nothing was asked twice
}

// The console waits in milliseconds that a person sets; 20 of them are less than the gap between two bursts
// of eight at a low baud rate.
TEST_P(LineMatrix, BreaksNoReplyInTheConsole) {
    const auto& [mode, Baud, flow, turnaroundMs] = GetParam();
    LineSession session(
        {.family = Family::Larch, .mode = mode, .Baud = Baud, .flow = flow, .turnaroundMs = turnaroundMs});
    session.link.ActiveFunction = OwnerAdvance;
    for (const char* command : {"FF0321000010", "FF0621010001", "FF032100007D"}) {
        session.link.request(19, QString::fromLatin1(command));
        session.goOn(1);
    }
    const ConsoleRecord& log = session.link.Console.Log;
    EXPECT_EQ(log.totalRecords, 3);
    EXPECT_EQ(log.timeoutRecords, 0);
    // The drive refuses both last ones in whole frames.
    EXPECT_EQ(log.errorRecords, 2) << session.wire.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(session.link.DriveStatus.ExceptionPending, 1);
}

INSTANTIATE_TEST_SUITE_P(Lines, LineMatrix,
                         testing::Combine(testing::Values(LineMode::Ascii, LineMode::Rtu),
                                          testing::Values(1200, 9600, 38400, 115200),
                                          testing::Values(ByteFlow::Single, ByteFlow::Fifo, ByteFlow::Usb),
                                          testing::Values(2, 20)),
                         caseName);

// Reads and writes the maximum output frequency, writes a value that is refused and asks why, polls.
std::string sessionOn(LineMode mode) {
    LineSession session({.family = Family::Larch, .mode = mode});
    session.ask(12, QStringLiteral("FF030100000F"));  // value, limits, attribute, default, name, unit
    session.ask(13, QStringLiteral("FF0601001388"));  // 50.00 Hz; answered by its echo
    session.ask(13, QStringLiteral("FF060100FFFF"));  // above the maximum: exception 3
    session.goOn(1);                                  // its text, asked for by the link itself
    session.closeParameterWindow();
    session.goOn(2);  // 16 status words, then the second state word
    return session.wire.join(QLatin1Char('\n')).toStdString();
}

TEST(Wire, StandsWordForWordInAscii) {
    EXPECT_EQ(sessionOn(LineMode::Ascii), R"(> :FF030100000FEE\x0D\x0A
< :FF031E17709C401388020017704D6178204F757470757420467265712E487A2020A4\x0D\x0A
> :FF06010013885F\x0D\x0A
< :FF06010013885F\x0D\x0A
> :FF060100FFFFFC\x0D\x0A
< :FF860378\x0D\x0A
> :FF0333030008C0\x0D\x0A
< :FF031056616C7565206E6F74206C6567616C203B\x0D\x0A
> :FF0321000010CD\x0D\x0A
< :FF03200000050A000000000000184F000000000000000000000000000000000000000068\x0D\x0A
> :FF0321190001C3\x0D\x0A
< :FF03020520D7\x0D\x0A)");
}

TEST(Wire, StandsWordForWordInRtu) {
    EXPECT_EQ(sessionOn(LineMode::Rtu), R"(> FF030100000F11EC
< FF031E17709C401388020017704D6178204F757470757420467265712E487A2020D9A8
> FF060100138890BE
< FF060100138890BE
> FF060100FFFF9C58
< FF86036391
> FF0333030008AE96
< FF031056616C7565206E6F74206C6567616C2090BC
> FF03210000105BE4
< FF03200000050A000000000000184F00000000000000000000000000000000000000000A6C
> FF03211900014A2F
< FF030205209318)");
}

}  // namespace
}  // namespace kelvane
