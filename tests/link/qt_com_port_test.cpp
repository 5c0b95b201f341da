#include "link/qt_com_port.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTemporaryDir>

#include "tests/link/real_time.h"

namespace kelvane {
namespace {

// The far end of the line: the master of a pseudo terminal.
class FarEnd {
   public:
    FarEnd() : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        grantpt(m_master);
        unlockpt(m_master);
        termios raw{};
        tcgetattr(m_master, &raw);
        cfmakeraw(&raw);
        tcsetattr(m_master, TCSANOW, &raw);
    }
    ~FarEnd() { hangUp(); }
    QString device() const { return QString::fromLocal8Bit(ptsname(m_master)); }
    void send(const QByteArray& bytes) const {
        ASSERT_EQ(write(m_master, bytes.data(), bytes.size()), bytes.size());
    }
    QByteArray receive() const {
        char buffer[256];
        const ssize_t n = read(m_master, buffer, sizeof buffer);
        return n > 0 ? QByteArray(buffer, n) : QByteArray();
    }
    termios line() const {
        termios result{};
        tcgetattr(m_master, &result);
        return result;
    }
    void setLine(const termios& line) const { tcsetattr(m_master, TCSANOW, &line); }
    void hangUp() {
        if (m_master >= 0) ::close(std::exchange(m_master, -1));
    }

   private:
    int m_master;
};

struct RealPort : testing::Test {
    RealPort() {
        port.OnTriggerAvail = [this](int count) {
            for (int i = 0; i < count; ++i) taken += *port.GetChar();
        };
    }
    FarEnd far;
    QtComPort port{far.device()};
    QByteArray taken;
};

TEST_F(RealPort, CarriesFramesBothWaysOnAPseudoTerminal) {
    ASSERT_TRUE(port.open()) << port.openError().toStdString();
    EXPECT_TRUE(port.open());
    QByteArray every;
    for (int i = 0; i < 256; ++i) every += static_cast<char>(i);
    EXPECT_TRUE(port.PutBlock(every));
    QByteArray arrived;
    EXPECT_TRUE(waitFor([&] { return (arrived += far.receive()).size() >= every.size(); }));
    EXPECT_EQ(arrived, every);
    far.send(every);
    EXPECT_TRUE(waitFor([&] { return taken.size() >= every.size(); }));
    EXPECT_EQ(taken, every);
    EXPECT_EQ(port.GetChar(), std::nullopt);
    port.close();
    port.close();
    EXPECT_FALSE(port.PutString("x"));
    EXPECT_TRUE(port.open());
}

TEST_F(RealPort, AppliesSettingsAtOnceAndDropsOldInput) {
    port.setSettings({.Baud = 4800, .DataBits = 7, .Parity = ComParity::Even, .StopBits = 1});
    ASSERT_TRUE(port.open());
    const termios opened = far.line();
    EXPECT_EQ(cfgetospeed(&opened), static_cast<speed_t>(B4800));
    EXPECT_FALSE(opened.c_cflag & CSTOPB);
    port.OnTriggerAvail = nullptr;
    far.send("old");
    waitFor([&] { return port.GetChar() == 'o'; });
    port.setSettings({.Baud = 115200});
    EXPECT_EQ(port.GetChar(), std::nullopt);
    const termios line = far.line();
    EXPECT_EQ(cfgetospeed(&line), static_cast<speed_t>(B115200));
    EXPECT_TRUE(line.c_cflag & CSTOPB);
    EXPECT_FALSE(line.c_cflag & CRTSCTS || line.c_iflag & (IXON | IXOFF));
}

// Between the system's notice and the read somebody may have taken the bytes; the device is still there.
TEST_F(RealPort, IsNotLostWhenThereIsNothingToRead) {
    QStringList reasons;
    port.onLost = [&](const QString& reason) { reasons << reason; };
    const int device = ::open(far.device().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    int ends[2];
    ASSERT_TRUE(device >= 0 && pipe(ends) == 0);
    // Woken in the same turn as the port; some of them are called before it.
    std::vector<std::unique_ptr<QSocketNotifier>> thieves;
    for (int i = 0; i < 8; ++i) {
        thieves.push_back(std::make_unique<QSocketNotifier>(dup(ends[0]), QSocketNotifier::Read));
        QObject::connect(thieves.back().get(), &QSocketNotifier::activated,
                         [&] { tcflush(device, TCIFLUSH); });
    }
    ASSERT_TRUE(port.open());
    for (int round = 0; round < 10; ++round) {
        far.send("reply");
        ASSERT_EQ(write(ends[1], "x", 1), 1);
        if (round % 2) port.dropInput();
        QCoreApplication::processEvents();
        char drained = 0;
        ASSERT_EQ(read(ends[0], &drained, 1), 1);
        runFor(1);
    }
    thieves.clear();
    ::close(device);
    EXPECT_TRUE(port.Open());
    EXPECT_TRUE(reasons.isEmpty()) << reasons.value(0).toStdString();
    taken.clear();
    far.send("after");
    EXPECT_TRUE(waitFor([&] { return taken.endsWith("after"); }));
}

TEST_F(RealPort, NeverCallsTheHandlerInsideAnotherCallOrInsideItself) {
    ASSERT_TRUE(port.open());
    int depth = 0;
    int deepest = 0;
    bool inCall = false;
    bool calledInside = false;
    port.OnTriggerAvail = [&](int count) {
        calledInside = calledInside || inCall;
        deepest = std::max(deepest, ++depth);
        for (int i = 0; i < count; ++i) taken += *port.GetChar();
        if (taken == "first") {
            far.send("second");
            runFor(200);
        }
        --depth;
    };
    far.send("first");
    inCall = true;
    port.PutBlock("request");
    port.GetChar();
    port.setSettings(port.settings());
    inCall = false;
    far.send("first");
    EXPECT_TRUE(waitFor([&] { return taken.endsWith("second"); })) << taken.toStdString();
    EXPECT_EQ(deepest, 1);
    EXPECT_FALSE(calledInside);
}

TEST_F(RealPort, HoldsBackUntilItIsToldToGoOn) {
    EXPECT_FALSE(port.holdBack(true));
    ASSERT_TRUE(port.open());
    far.send("ab");
    EXPECT_TRUE(waitFor([&] { return taken == "ab"; }));
    EXPECT_TRUE(port.holdBack(true));
    far.send("cd");
    EXPECT_TRUE(port.PutBlock("x"));
    runFor(50);
    EXPECT_EQ(taken, "ab");
    port.holdBack(false);
    EXPECT_TRUE(waitFor([&] { return taken == "abcd"; }));
    port.holdBack(true);
    port.close();
    ASSERT_TRUE(port.open());
    far.send("ef");
    EXPECT_TRUE(waitFor([&] { return taken == "abcdef"; }));
}

TEST_F(RealPort, MayBeDestroyedByItsHandler) {
    auto own = std::make_unique<QtComPort>(far.device());
    ASSERT_TRUE(own->open());
    own->OnTriggerAvail = [&](int) { own.reset(); };
    far.send("x");
    EXPECT_TRUE(waitFor([&] { return !own; }));
}

TEST_F(RealPort, LosesWhatComesOnTopOfAFullBuffer) {
    ASSERT_TRUE(port.open());
    port.OnTriggerAvail = nullptr;
    const QByteArray block(1000, 'a');
    for (int i = 0; i < 6; ++i) {
        far.send(block);
        runFor(50);
    }
    qsizetype kept = 0;
    while (port.GetChar() == 'a') ++kept;
    EXPECT_EQ(kept, QtComPort::BufferSize);
}

double cpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

// Under a name of its own, as an adapter has: the number of a pseudo terminal is soon somebody else's.
TEST(LostPort, ClosesItselfOnceWhenTheOtherEndGoesAway) {
    FarEnd far;
    const QTemporaryDir folder;
    const QString adapter = folder.filePath(QStringLiteral("adapter"));
    ASSERT_TRUE(QFile::link(far.device(), adapter));
    QtComPort port{adapter};
    ASSERT_TRUE(port.open());
    QStringList reasons;
    port.onLost = [&](const QString& reason) {
        EXPECT_FALSE(port.Open());
        reasons << reason;
    };
    const double before = cpuSeconds();
    far.hangUp();
    QFile::remove(adapter);
    EXPECT_TRUE(waitFor([&] { return !port.Open(); }));
    runFor(1000);
    EXPECT_EQ(reasons.size(), 1);
    EXPECT_LT(cpuSeconds() - before, 0.25);
    EXPECT_FALSE(port.open());
    EXPECT_TRUE(port.openError().contains(QStringLiteral("does not exist")));
}

TEST_F(RealPort, TellsWhyItCannotOpen) {
    ASSERT_TRUE(port.open());
    QtComPort second(far.device());
    EXPECT_FALSE(second.open());
    EXPECT_TRUE(second.openError().contains(QStringLiteral("in use by another program")))
        << second.openError().toStdString();
    const termios asKilled = far.line();
    port.close();
    far.setLine(asKilled);
    EXPECT_TRUE(second.open()) << "also if the one before could not put its settings back";
    const QTemporaryDir folder;
    QtComPort noDevice(folder.path());
    EXPECT_FALSE(noDevice.open());
    EXPECT_FALSE(noDevice.openError().isEmpty());
}

// Administrators may open everything, so the question is asked by a child that is none.
TEST(RealPortDeathTest, TellsWhichGroupToJoin) {
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(QStringLiteral("device")).toLocal8Bit();
    ASSERT_EQ(chmod(folder.path().toLocal8Bit().data(), 0755), 0);
    ASSERT_GE(::close(::open(path.data(), O_CREAT | O_WRONLY, 0)), 0);
    const group* const dialout = getgrnam("dialout");
    const bool owned = geteuid() == 0 && dialout && chown(path.data(), 0, dialout->gr_gid) == 0;
    const auto ask = [&] {
        if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(1);
        const QString told =
            whyNotOpened(QString::fromLocal8Bit(path), QSerialPort::PermissionError, QString());
        const bool namesGroup = told.contains(QStringLiteral("\"dialout\""));
        _exit(told.contains(QStringLiteral("no permission")) && namesGroup >= owned ? 0 : 2);
    };
    EXPECT_EXIT(ask(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace kelvane
