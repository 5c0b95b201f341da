#include "drive/drive_arguments.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace kelvane::drive
