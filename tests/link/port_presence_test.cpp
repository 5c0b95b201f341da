#include "link/port_presence.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/whole_file.h"
#include "bench/stub_port.h"
#include "tests/link/real_time.h"

namespace kelvane {
namespace {

const QString Fail = QStringLiteral("The connecting com port is fail !!");
const QString Recovery = QStringLiteral("The connecting com port is recovery !!");

struct Presence : testing::Test {
    Presence() {
        port.setSettings({.ComNumber = 12});
        port.open();
    }
    StubPort port;
    QSet<int> listed{12};
    QStringList history;
    PortPresence presence{port, [this](int n) { return listed.contains(n); },
                          [this](const QString& line) { history << line; }};
};

TEST_F(Presence, AnswersDeviceMessages) {
    EXPECT_EQ(presence.ComPortPresent, 1);
    struct Row {
        quint8 presentBefore;
        bool isListed;
        int parameter;
        quint8 presentAfter;
        QStringList lines;
        int closed;
    };
    const Row rows[] = {
        {1, false, DeviceNodesChanged, 1, {}, 0},
        {0, true, DeviceNodesChanged, 0, {}, 0},
        {1, false, DeviceRemoveComplete, 0, {Fail}, 0},
        {1, true, DeviceRemoveComplete, 1, {}, 0},
        {0, false, DeviceRemoveComplete, 0, {}, 0},
        {0, true, DeviceRemoveComplete, 1, {}, 0},
        {0, true, DeviceArrival, 1, {Recovery}, 1},
        {0, false, DeviceArrival, 0, {}, 1},
        {1, false, DeviceArrival, 1, {}, 0},
        {0, true, 0x8001, 0, {}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << row.parameter << " from " << int(row.presentBefore) << row.isListed);
        presence.ComPortPresent = row.presentBefore;
        listed = row.isListed ? QSet<int>{12} : QSet<int>{1};
        history.clear();
        port.closes = 0;
        presence.deviceChange(row.parameter);
        EXPECT_EQ(presence.ComPortPresent, row.presentAfter);
        EXPECT_EQ(port.closes, row.closed);
        EXPECT_EQ(history, row.lines);
    }
}

struct WatchedFolder : testing::Test {
    bool reached(const QStringList& lines) {
        return waitFor([&] { return history == lines; });
    }
    void plug(const QString& name) {
        QDir().mkpath(folder);
        writeWhole(folder + QLatin1Char('/') + name, "x");
    }
    void pull(const QString& name) { QFile::remove(folder + QLatin1Char('/') + name); }

    const QTemporaryDir root;
    const QString folder = root.filePath(QStringLiteral("serial/by-id"));
    const QString device = folder + QStringLiteral("/adapter");
    StubPort port;
    QStringList history;
    PortPresence presence{port, [this](int) { return QFile::exists(device); },
                          [this](const QString& line) { history << line; }};
    PortWatcher watcher{presence};
};

// A link in the place of another keeps its name, and one to a device that has gone leads nowhere.
TEST_F(WatchedFolder, SeesALinkComeBackUnderItsName) {
    plug(QStringLiteral("tty"));
    const QString target = root.filePath(QStringLiteral("target"));
    ASSERT_TRUE(writeWhole(target, "x").ok);
    ASSERT_TRUE(QFile::link(target, device));
    watcher.follow(device);
    QFile::remove(target);
    EXPECT_TRUE(reached({Fail}));
    const QString other = folder + QStringLiteral("/.new");
    ASSERT_TRUE(QFile::link(folder + QStringLiteral("/tty"), other));
    ASSERT_EQ(rename(other.toLocal8Bit().constData(), device.toLocal8Bit().constData()), 0);
    EXPECT_TRUE(reached({Fail, Recovery}));
}

TEST_F(WatchedFolder, DoesNotCloseANewlyChosenPortAtAnothersArrival) {
    plug(QStringLiteral("adapter"));
    watcher.follow(device);
    pull(QStringLiteral("adapter"));
    EXPECT_TRUE(reached({Fail}));
    const QString working = root.filePath(QStringLiteral("ttyACM0"));
    ASSERT_TRUE(writeWhole(working, "x").ok);
    watcher.follow(working);
    port.open();
    port.closes = 0;
    ASSERT_TRUE(writeWhole(root.filePath(QStringLiteral("ttyACM1")), "x").ok);
    watcher.look();
    EXPECT_EQ(port.closes, 0);
    EXPECT_EQ(history, QStringList(Fail));
}

TEST_F(WatchedFolder, GivesAMessageForEveryNameAndAFolderThatGoesOrComes) {
    plug(QStringLiteral("adapter"));
    plug(QStringLiteral("mouse"));
    watcher.follow(device);
    pull(QStringLiteral("adapter"));
    EXPECT_TRUE(reached({Fail}));
    plug(QStringLiteral("adapter"));
    EXPECT_TRUE(reached({Fail, Recovery}));
    pull(QStringLiteral("mouse"));
    watcher.look();
    EXPECT_EQ(presence.ComPortPresent, 1);
    QDir(root.filePath(QStringLiteral("serial"))).removeRecursively();
    EXPECT_TRUE(reached({Fail, Recovery, Fail}));
    plug(QStringLiteral("adapter"));
    EXPECT_TRUE(reached({Fail, Recovery, Fail, Recovery}));
}

TEST_F(WatchedFolder, TellsALostLinkOnceWhetherTheDeviceWentOrNot) {
    plug(QStringLiteral("adapter"));
    watcher.follow(device);
    watcher.portLost(QStringLiteral("hung up"));
    EXPECT_EQ(history, QStringList{QStringLiteral("hung up")});
    pull(QStringLiteral("adapter"));
    watcher.portLost(QStringLiteral("gone"));
    watcher.look();
    EXPECT_EQ(history, (QStringList{QStringLiteral("hung up"), Fail}));
}

}  // namespace
}  // namespace kelvane
