#include "drive/line_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "base/manual_tick_clock.h"
#include "drive/practice_port.h"

namespace kelvane::drive {
namespace {

using Bursts = std::vector<std::pair<qint64, QByteArray>>;

LineOptions lineOf(LineMode mode, int baud = 9600, ByteFlow flow = ByteFlow::Single) {
    LineOptions options{.mode = mode, .flow = flow};
    options.wire = {.Baud = baud, .DataBits = mode == LineMode::Rtu ? 8 : 7};
    return options;
}

// A host on a hand-driven clock that notes when bytes come.
struct Host {
    explicit Host(const LineOptions& options, const FamilyData& data = familyData(Family::Larch))
        : mode(options.mode), station(clock, data, options) {
        station.port.setSettings(options.wire);
        station.port.open();
        station.port.OnTriggerAvail = [this](int count) {
            QByteArray bytes;
            for (int i = 0; i < count; ++i) bytes.append(*station.port.GetChar());
            bursts.push_back({clock.nowUs(), bytes});
        };
    }
    bool send(const char* command) {
        const QByteArray frame = wrap(QByteArray::fromHex(command), mode);
        return mode == LineMode::Rtu ? station.port.PutBlock(frame) : station.port.PutString(frame);
    }
    // Whole reply to a command; waits two seconds.
    QByteArray ask(const char* command) {
        bursts.clear();
        send(command);
        clock.advance(2000);
        QByteArray reply;
        for (const auto& burst : bursts) reply.append(burst.second);
        return reply;
    }
    QByteArray good(const char* body) const { return wrap(QByteArray::fromHex(body), mode); }

    ManualTickClock clock;
    LineMode mode;
    PracticeStation station;
    Bursts bursts;
};

constexpr auto Command = "FF0621000000";  // refused: read-only
constexpr auto Refused = "FF8604";

TEST(Line, PacesBothFramesToTheMicrosecond) {
    const auto firstAndLast = [](LineMode mode, int baud) {
        Host host(lineOf(mode, baud));
        host.ask(Command);
        return std::pair(double(host.bursts.front().first), double(host.bursts.back().first));
    };
    // 8 characters of 11 bits at 9600, 5 ms, then a character each 1.146 ms.
    const auto [first, last] = firstAndLast(LineMode::Rtu, 9600);
    EXPECT_NEAR(first, 8 * 1145.8 + 5000 + 1145.8, 2);
    EXPECT_NEAR(last, 8 * 1145.8 + 5000 + 5 * 1145.8, 2);
    EXPECT_NEAR(firstAndLast(LineMode::Ascii, 9600).second, 17 * 1041.7 + 5000 + 11 * 1041.7, 2);
    // At 1200 baud the 3.5 characters that end an RTU request outlast the turnaround.
    EXPECT_NEAR(firstAndLast(LineMode::Rtu, 1200).first, 8 * 9166.7 + 3.5 * 9166.7 + 9166.7, 3);
}

TEST(Line, BytesComeInBurstsAndPackets) {
    const auto sizes = [](ByteFlow flow) {
        Host host(lineOf(LineMode::Ascii, 9600, flow));
        EXPECT_EQ(host.ask(Command), host.good(Refused));
        std::vector<qsizetype> result;
        for (const auto& burst : host.bursts) {
            result.push_back(burst.second.size());
            EXPECT_TRUE(flow != ByteFlow::Usb || burst.first % 16000 == 0);
        }
        return result;
    };
    EXPECT_EQ(sizes(ByteFlow::Fifo), (std::vector<qsizetype>{8, 3}));
    EXPECT_EQ(sizes(ByteFlow::Usb), (std::vector<qsizetype>{8, 3}));
}

TEST(Line, IsDeafToOtherSettings) {
    Host host(lineOf(LineMode::Ascii));
    const PortSettings own = host.station.line.options().wire;
    for (const PortSettings& other : {PortSettings{.Baud = 19200, .DataBits = 7},
                                      {.DataBits = 8},
                                      {.DataBits = 7, .Parity = ComParity::Even},
                                      {.DataBits = 7, .StopBits = 1}}) {
        host.station.port.setSettings(other);
        EXPECT_EQ(host.ask(Command), QByteArray());
    }
    host.station.port.setSettings(own);
    EXPECT_EQ(host.ask(Command), host.good(Refused));
}

class LineFaults : public testing::TestWithParam<LineMode> {};
INSTANTIATE_TEST_SUITE_P(Modes, LineFaults, testing::Values(LineMode::Ascii, LineMode::Rtu));

TEST_P(LineFaults, FailAsPlannedAndOnlyThen) {
    Host host(lineOf(GetParam()));
    FaultPlan& faults = host.station.line.faults();
    const QByteArray good = host.good(Refused);
    const QByteArray noise = GetParam() == LineMode::Ascii ? QByteArray("#") : QByteArray(1, '\0');
    const std::vector<std::pair<LineFault, QByteArray>> cases{
        {LineFault::Silent, {}},
        {LineFault::BadCheck, withBadCheck(good, GetParam())},
        {LineFault::CutShort, good.left(good.size() / 2)},
        {LineFault::Noise, QByteArray(noise).append(good)},
        {LineFault::Exception, host.good("FF8604")},
        {LineFault::WrongFunction, host.good("FF8104")},
        {LineFault::Echo, host.good(Command)},
        {LineFault::Doubled, QByteArray(good).append(good)},
        {LineFault::InPieces, good},
    };
    for (const auto& [fault, reply] : cases) {
        faults.failAt(2, fault);
        EXPECT_EQ(host.ask(Command), good);
        EXPECT_EQ(host.ask(Command), reply) << int(fault);
        EXPECT_EQ(host.ask(Command), good);
    }
    const auto sinceWriteUs = [&](const auto& burst) {
        return burst.first - host.station.port.writes().back().atUs;
    };
    faults.failNext(LineFault::Late);
    host.ask(Command);
    EXPECT_GT(sinceWriteUs(host.bursts.front()), 400000);
    faults.failNext(LineFault::InPieces);
    host.ask(Command);
    EXPECT_LT(sinceWriteUs(host.bursts.front()), 50000);
    EXPECT_GT(sinceWriteUs(host.bursts.back()), 200000);
    // What a late drive still owes goes out before anything else.
    QByteArray both = host.ask("FF0321010001");
    both += good;
    faults.failNext(LineFault::Late);
    host.send("FF0321010001");
    host.clock.advance(100);
    EXPECT_EQ(host.ask(Command), both);
}

TEST(PracticePort, NeverCallsBackFromInsideACallNorIntoItsOwnHandler) {
    Host host(lineOf(LineMode::Rtu));
    PracticePort& port = host.station.port;
    int calls = 0;
    QByteArray taken;
    bool busy = true;
    port.OnTriggerAvail = [&](int count) {
        EXPECT_FALSE(busy);
        busy = true;
        for (int i = 0; i < count; ++i) taken.append(*port.GetChar());
        if (++calls == 1) host.clock.advance(1000);  // a nested event loop
        busy = false;
    };
    host.send(Command);
    port.setSettings(port.settings());
    busy = false;
    host.clock.advance(2000);
    EXPECT_EQ(taken, host.good(Refused));
    EXPECT_EQ(calls, 2);
}

TEST(Line, FaultsTakeEffectInTheDriveOrNot) {
    Host host(lineOf(LineMode::Rtu));
    FaultPlan& faults = host.station.line.faults();
    faults.failNext(LineFault::Exception);
    EXPECT_EQ(host.ask("FF0620010064"), host.good("FF8604"));
    EXPECT_EQ(host.station.drive.motor().commandHz(), 0);
    faults.failNext(LineFault::Silent);
    EXPECT_EQ(host.ask("FF0620010064"), QByteArray());
    EXPECT_EQ(host.station.drive.motor().commandHz(), 1);
}

TEST(PracticePort, LosesAnUnpluggedDriveAndFindsItAgain) {
    Host host(lineOf(LineMode::Rtu));
    PracticePort& port = host.station.port;
    int lost = 0;
    port.onLost = [&](const QString&) { ++lost; };
    host.station.line.faults().failNext(LineFault::Unplugged);
    EXPECT_EQ(host.ask(Command), QByteArray());
    EXPECT_EQ(lost, 1);
    EXPECT_FALSE(port.Open() || port.open());
    port.plugIn();
    EXPECT_TRUE(port.open());
    EXPECT_EQ(host.ask(Command), host.good(Refused));
}

}  // namespace
}  // namespace kelvane::drive
