#include "link/port_directory.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "base/whole_file.h"

namespace kelvane {
namespace {

QString text(const PortTarget& target) {
    if (target.kind == PortTarget::Kind::Device) return target.devicePath;
    if (target.kind == PortTarget::Kind::Gateway)
        return target.host % QLatin1Char(' ') % QString::number(target.tcpPort);
    return target.kind == PortTarget::Kind::Practice ? QString::fromLatin1(familyName(target.family))
                                                     : QString();
}

TEST(PortDirectory, FollowsTheFixedRule) {
    const PortDirectory directory;
    QStringList targets;
    for (const int number : {1, 4, 5, 12, 13, 19, 20, 0, 21}) targets += text(directory.target(number));
    EXPECT_EQ(targets.join(' '),
              "/dev/ttyS0 /dev/ttyS3 /dev/ttyUSB0 /dev/ttyUSB7 /dev/ttyACM0 /dev/ttyACM6 Larch  ");
    EXPECT_TRUE(directory.isPresent(20));
    EXPECT_FALSE(directory.isPresent(0));
}

TEST(PortDirectory, TakesGoodLinesOfTheFileAndTellsTheOthers) {
    const PortDirectory directory = PortDirectory::fromText(QStringLiteral(
        "# my ports\r\n\r\n 3 = /dev/serial/by-id/one \r\n4=practice:tilia\r\n20=/dev/ttyXR0 # on the board\n"
        "21=/dev/ttyUSB0\nfive=/dev/ttyUSB0\n5\n6=practice:Oak\n7=ttyUSB0\n8=\n"
        "9=tcp: 10.0.0.7:4001\n10=TCP:[fe80::1%eth0]:502\n11=tcp:gw.hall-2:65535\n12=tcp:gw\n13=tcp:gw:0\n"
        "14=tcp:gw:65536\n15=tcp::502\n16=tcp:a b:502\n17=tcp:fe80::1:502"));
    EXPECT_EQ(text(directory.target(3)), QStringLiteral("/dev/serial/by-id/one"));
    EXPECT_EQ(text(directory.target(4)), QStringLiteral("Tilia"));
    EXPECT_EQ(text(directory.target(20)), QStringLiteral("/dev/ttyXR0"));
    EXPECT_EQ(text(directory.target(9)), QStringLiteral("10.0.0.7 4001"));
    EXPECT_EQ(text(directory.target(10)), QStringLiteral("fe80::1%eth0 502"));
    EXPECT_EQ(text(directory.target(11)), QStringLiteral("gw.hall-2 65535"));
    for (const int n : {5, 6, 7, 8, 12, 13, 14, 15, 16, 17})
        EXPECT_EQ(directory.target(n), PortDirectory().target(n)) << n;
    EXPECT_TRUE(directory.isPresent(9));
    EXPECT_TRUE(
        PortDirectory::describe(directory.target(9)).text().startsWith("gateway 10.0.0.7, port 4001, "));
    ASSERT_EQ(directory.complaints().size(), 12);
    EXPECT_TRUE(directory.complaints().first().startsWith(QStringLiteral("serial_ports.txt line 6: ")));
}

TEST(PortDirectory, ReadsTheFileOfAFolderAndDescribesWhatItFinds) {
    const QTemporaryDir folder;
    EXPECT_TRUE(PortDirectory::ofFile({}).complaints().isEmpty());
    const QString device = folder.filePath(QStringLiteral("device"));
    writeWhole(folder.filePath(QStringLiteral("serial_ports.txt")), "2=" + device.toUtf8());
    const PortDirectory directory =
        PortDirectory::ofFile(folder.filePath(QStringLiteral("serial_ports.txt")));
    EXPECT_FALSE(directory.isPresent(2));
    EXPECT_EQ(PortDirectory::describe(directory.target(2)).text(),
              device + QStringLiteral(", not connected"));
    writeWhole(device, "x");
    EXPECT_TRUE(directory.isPresent(2));
    EXPECT_EQ(PortDirectory::describe(directory.target(2)).text(), device);
    EXPECT_EQ(PortDirectory::describe(directory.target(99)).text(), QStringLiteral("no such port"));

    const QTemporaryDir damaged;
    QDir(damaged.path()).mkdir(QStringLiteral("serial_ports.txt"));
    EXPECT_EQ(PortDirectory::ofFile(damaged.filePath(QStringLiteral("serial_ports.txt"))).complaints().size(),
              1);
}

}  // namespace
}  // namespace kelvane
