#include "link/port_directory.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "base/whole_file.h"

namespace kelvane {
namespace {

QString text(const PortTarget& target) {
    if (target.kind == PortTarget::Kind::Device) return target.devicePath;
    return target.kind == PortTarget::Kind::Practice ? QString::fromLatin1(familyName(target.family))
                                                     : QString();
}

TEST(PortDirectory, FollowsTheFixedRule) {
    const std::pair<int, const char*> expected[] = {{1, "/dev/ttyS0"},
                                                    {4, "/dev/ttyS3"},
                                                    {5, "/dev/ttyUSB0"},
                                                    {12, "/dev/ttyUSB7"},
                                                    {13, "/dev/ttyACM0"},
                                                    {19, "/dev/ttyACM6"},
                                                    {20, "Larch"},
                                                    {0, ""},
                                                    {21, ""},
                                                    {-1, ""}};
    const PortDirectory directory;
    for (const auto& [number, target] : expected) {
        EXPECT_EQ(text(directory.target(number)), QString::fromLatin1(target)) << number;
    }
    EXPECT_TRUE(directory.isPresent(20));
    EXPECT_FALSE(directory.isPresent(0));
}

TEST(PortDirectory, TakesGoodLinesOfTheFileAndTellsTheOthers) {
    const PortDirectory directory = PortDirectory::fromText(QStringLiteral(
        "# my ports\r\n\r\n 3 = /dev/serial/by-id/one \r\n4=practice:tilia\r\n20=/dev/ttyXR0 # on the board\n"
        "21=/dev/ttyUSB0\nfive=/dev/ttyUSB0\n5\n6=practice:Oak\n7=ttyUSB0\n8="));
    EXPECT_EQ(text(directory.target(3)), QStringLiteral("/dev/serial/by-id/one"));
    EXPECT_EQ(text(directory.target(4)), QStringLiteral("Tilia"));
    EXPECT_EQ(text(directory.target(20)), QStringLiteral("/dev/ttyXR0"));
    for (int n = 5; n <= 8; ++n) EXPECT_EQ(directory.target(n), PortDirectory().target(n)) << n;
    ASSERT_EQ(directory.complaints().size(), 6);
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
    EXPECT_EQ(PortDirectory::describe(directory.target(20)).text(),
              QStringLiteral("practice drive Larch, answers at ASCII, 9600, 7, N, 2"));
    EXPECT_EQ(PortDirectory::describe(directory.target(99)).text(), QStringLiteral("no such port"));

    const QTemporaryDir damaged;
    QDir(damaged.path()).mkdir(QStringLiteral("serial_ports.txt"));
    EXPECT_EQ(PortDirectory::ofFile(damaged.filePath(QStringLiteral("serial_ports.txt"))).complaints().size(),
              1);
}

}  // namespace
}  // namespace kelvane
