#include <gtest/gtest.h>

#include "drive/drive_arguments.h"

#ifdef KELVANE_DRIVE_PROGRAM
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#endif

namespace kelvane::drive {
namespace {

TEST(DriveArguments, AreReadOrRefusedInWords) {
    const auto read = [](const QString& line) { return readArguments(line.split(QLatin1Char(' '))); };
    const auto good = read(QStringLiteral(
        "kelvane-drive --family Tilia --mode rtu --baud 19200 --parity e --stop 1 "
        "--bytes usb --turnaround 2.5 --lose 1 --fail late:7 --seed 9 --address 17 --until-eof"));
    EXPECT_EQ(good.error, QString());
    EXPECT_EQ(good.family, Family::Tilia);
    EXPECT_EQ(good.line.mode, LineMode::Rtu);
    EXPECT_EQ(good.line.wire, (PortSettings{1, 19200, 8, ComParity::Even, 1}));
    EXPECT_EQ(good.line.turnaroundUs, 2500);
    EXPECT_EQ(good.planned, LineFault::Late);
    EXPECT_EQ(good.plannedAt, 7);
    EXPECT_EQ(good.drive.address, 17);
    EXPECT_TRUE(good.untilEof);
    EXPECT_EQ(read(QStringLiteral("kelvane-drive")).line.wire.DataBits, 7);
    for (const char* bad : {"--family elm", "--baud 300", "--lose 101", "--address 0", "--elm", "elm",
                            "--fail late", "--fail late:0", "--fail melt:1"}) {
        const auto refused = read(QStringLiteral("kelvane-drive ").append(QLatin1String(bad)));
        EXPECT_FALSE(refused.error.isEmpty()) << bad;
    }
}

#ifdef KELVANE_DRIVE_PROGRAM

constexpr int WideLimitMs = 20000;

// A started kelvane-drive and an open device of it.
struct Running {
    explicit Running(const QStringList& arguments) {
        process.start(QStringLiteral(KELVANE_DRIVE_PROGRAM), arguments);
        while (process.state() != QProcess::NotRunning && !process.canReadLine()) {
            if (!process.waitForReadyRead(WideLimitMs)) break;
        }
        const QByteArray path = process.readLine().trimmed();
        device = path.isEmpty() ? -1 : ::open(path.constData(), O_RDWR | O_NOCTTY);
    }
    ~Running() {
        if (device >= 0) ::close(device);
        process.kill();
        process.waitForFinished(WideLimitMs);
    }
    QByteArray ask(const QByteArray& frame, qsizetype length, int limitMs) {
        if (::write(device, frame.constData(), size_t(frame.size())) != frame.size()) return {};
        QByteArray reply;
        pollfd waiting{device, POLLIN, 0};
        while (reply.size() < length && ::poll(&waiting, 1, limitMs) > 0) {
            char buffer[256];
            const ssize_t count = ::read(device, buffer, sizeof buffer);
            if (count <= 0) break;
            reply.append(buffer, qsizetype(count));
        }
        return reply;
    }
    bool ended() {
        return process.waitForFinished(WideLimitMs) && process.exitStatus() == QProcess::NormalExit;
    }

    QProcess process;
    int device = -1;
};

TEST(KelvaneDrive, AnswersPacedOnAPtyAndEndsWell) {
    Running drive({"--family", "osier", "--mode", "rtu", "--until-eof"});
    ASSERT_GE(drive.device, 0);
    const QByteArray request = wrap(QByteArray::fromHex("FF0321100003"), LineMode::Rtu);
    QElapsedTimer took;
    took.start();
    const auto body = unwrap(drive.ask(request, 11, WideLimitMs), LineMode::Rtu);
    ASSERT_TRUE(body);
    EXPECT_EQ(body->left(7).toHex().toUpper(), "FF03060500000C");
    EXPECT_GE(took.elapsed(), 25);  // 19 characters at 9600 baud and 5 ms

    termios settings{};
    ASSERT_EQ(::tcgetattr(drive.device, &settings), 0);
    ::cfsetspeed(&settings, B19200);
    ::tcsetattr(drive.device, TCSANOW, &settings);
    EXPECT_EQ(drive.ask(request, 1, 300), QByteArray());
    ::cfsetspeed(&settings, B9600);
    ::tcsetattr(drive.device, TCSANOW, &settings);
    EXPECT_EQ(drive.ask(request, 11, WideLimitMs).size(), 11);

    drive.process.closeWriteChannel();
    EXPECT_TRUE(drive.ended());
    EXPECT_EQ(drive.process.exitCode(), 0);
}

TEST(KelvaneDrive, EndsWellWhenAskedToTerminate) {
    Running drive({"--mode", "ascii", "--baud", "115200"});
    ASSERT_GE(drive.device, 0);
    EXPECT_EQ(drive.ask(wrap(QByteArray::fromHex("FF0322000001"), LineMode::Ascii), 11, WideLimitMs),
              ":FF83027C\r\n");
    drive.process.terminate();
    EXPECT_TRUE(drive.ended());
    EXPECT_EQ(drive.process.exitCode(), 0);
}

#endif

}  // namespace
}  // namespace kelvane::drive
