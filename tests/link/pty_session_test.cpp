// A few sessions in real time: the scheduler on the real port, kelvane-drive behind a pseudo terminal, and a
// gateway between them. Limits are wide, so that a busy machine fails none of them.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include "base/qt_tick_clock.h"
#include "bench/scripted_operator.h"
#include "catalogue/identification.h"
#include "link/com_setup.h"
#include "link/qt_com_port.h"
#include "link/routed_port.h"
#include "link/tcp_com_port.h"
#include "tests/link/real_time.h"

namespace kelvane {
namespace {

constexpr int WideLimitMs = 60000;

class DriveProcess {
   public:
    DriveProcess(bool rtu, int Baud) {
        m_process.start(QStringLiteral(KELVANE_DRIVE_PROGRAM),
                        {"--family", "tilia", "--mode", rtu ? "rtu" : "ascii", "--baud",
                         QString::number(Baud), "--until-eof"});
        while (m_process.state() != QProcess::NotRunning && !m_process.canReadLine())
            if (!m_process.waitForReadyRead(WideLimitMs)) break;
        m_device = QString::fromLocal8Bit(m_process.readLine().trimmed());
    }
    ~DriveProcess() { vanish(); }
    void vanish() {
        m_process.kill();
        m_process.waitForFinished(WideLimitMs);
    }
    QString device() const { return m_device; }

   private:
    QProcess m_process;
    QString m_device;
};

// Hands on what comes between the network and a serial line.
struct Gateway {
    explicit Gateway(const QString& device) : serial(device) {
        serial.setSettings({.ComNumber = 4, .Baud = 38400});
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost) && serial.open());
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            client = server.nextPendingConnection();
            QObject::connect(client, &QTcpSocket::readyRead, [this] { serial.PutBlock(client->readAll()); });
        });
        serial.OnTriggerAvail = [this](int count) {
            for (; count > 0; --count)
                if (const auto byte = serial.GetChar()) client->putChar(*byte);
        };
    }
    QString target() const { return QStringLiteral("tcp:127.0.0.1:%1").arg(server.serverPort()); }
    QTcpServer server;
    QTcpSocket* client = nullptr;
    QtComPort serial;
};

std::unique_ptr<TApdComPort> makePort(const PortTarget& target) {
    if (target.kind == PortTarget::Kind::Gateway)
        return std::make_unique<TcpComPort>(target.host, target.tcpPort);
    return std::make_unique<QtComPort>(target.devicePath);
}

struct PtySession {
    PtySession(bool rtu, int Baud, const QString& target)
        : ports(PortDirectory::fromText(QStringLiteral("4=") + target)),
          port(ports, makePort, LinkPortAtCreation) {
        port.setSettings({.ComNumber = 4, .Baud = Baud, .DataBits = rtu ? 8 : 7});
        QObject::connect(&link, &RequestScheduler::historyLine,
                         [this](const QString& line) { history += line; });
        QObject::connect(&link, &RequestScheduler::statusDecoded, [this] { ++polls; });
        link.Initial();
        link.ComMode = rtu;
        link.BaudTimeoutTicks = baudTimeoutTicks(Baud);
    }
    bool polled(int times) {
        const int until = polls + times;
        return waitFor([&] { return polls >= until; }, WideLimitMs);
    }

    QtTickClock clock;
    SystemWallClock wall;
    ScriptedOperator person;
    PortDirectory ports;
    RoutedPort port;
    LangTable lang = LangTable::builtInEnglish();
    RequestScheduler link{{clock, wall, person, port, lang}};
    GroupNameTable groupNames;
    DriveIdentification identification{link, groupNames, {person, lang}};
    QStringList history;
    int polls = 0;
};

class PtyLine : public testing::TestWithParam<std::pair<bool, int>> {};

TEST_P(PtyLine, IdentifiesADriveAndPolls) {
    const auto [rtu, Baud] = GetParam();
    const DriveProcess drive(rtu, Baud);
    ASSERT_FALSE(drive.device().isEmpty());
    PtySession session(rtu, Baud, drive.device());
    session.link.TxTimer.setEnabled(true);
    EXPECT_TRUE(session.polled(3));
    EXPECT_TRUE(session.link.Lamp.onLine());
    EXPECT_EQ(session.link.DriveStatus.DriveReady, 1);
    EXPECT_EQ(session.link.Labels.DriveVrLabel, "Tilia");
    session.link.Initial();
    EXPECT_FALSE(session.port.Open());
}

INSTANTIATE_TEST_SUITE_P(Lines, PtyLine,
                         testing::Values(std::pair(false, 9600), std::pair(true, 38400),
                                         std::pair(true, 115200)));

TEST(GatewayLine, LeadsFromSerialPortsTxtToADrive) {
    const DriveProcess drive(true, 38400);
    Gateway gateway(drive.device());
    PtySession session(true, 38400, gateway.target());
    session.link.TxTimer.setEnabled(true);
    EXPECT_TRUE(session.polled(3));
    EXPECT_EQ(session.link.Labels.DriveVrLabel, "Tilia");
    EXPECT_EQ(session.link.TimeoutCount, 0);
}

TEST(KelvaneDrive, EndsWithACodeThatSaysWhy) {
    const auto ends = [](const QStringList& arguments) {
        QProcess drive;
        drive.setStandardInputFile(QProcess::nullDevice());
        drive.start(QStringLiteral(KELVANE_DRIVE_PROGRAM), arguments);
        drive.waitForFinished(WideLimitMs);
        return std::pair(drive.exitCode(), drive.readAllStandardError());
    };
    EXPECT_EQ(ends({"--help"}), std::pair(0, QByteArray()));
    EXPECT_EQ(ends({"--until-eof"}).first, 0);
    EXPECT_EQ(ends({"--baud", "7"}).first, 2);
    EXPECT_TRUE(ends({"oak"}).second.contains("Try kelvane-drive --help"));
}

TEST(PtyLoss, IsToldOnceAndTheLinkComesBackWithTheDevice) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("device"));
    DriveProcess first(true, 38400);
    ASSERT_TRUE(QFile::link(first.device(), path));
    PtySession session(true, 38400, path);
    session.link.TxTimer.setEnabled(true);
    ASSERT_TRUE(session.polled(1));
    session.history.clear();

    first.vanish();
    EXPECT_TRUE(waitFor([&] { return !session.port.Open(); }));
    EXPECT_EQ(session.history.filter(QStringLiteral("was lost")).size(), 1);

    const DriveProcess second(true, 38400);
    QFile::remove(path);
    ASSERT_TRUE(QFile::link(second.device(), path));
    EXPECT_TRUE(session.polled(2));
    EXPECT_TRUE(session.link.Lamp.onLine());
    EXPECT_EQ(session.link.TimeoutCount, 0);
    EXPECT_EQ(session.history.filter(QStringLiteral("was lost")).size(), 1);
}

}  // namespace
}  // namespace kelvane
