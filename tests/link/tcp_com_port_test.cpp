// The port on a gateway, in real time over the loopback: a gateway that is slow, sends halves, closes,
// refuses and does not answer at all. Limits are wide.
#include "link/tcp_com_port.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTcpServer>

#include "tests/link/real_time.h"

namespace kelvane {
namespace {

const QString Loopback = QStringLiteral("127.0.0.1");

struct Gateway {
    explicit Gateway(quint16 tcpPort = 0) {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost, tcpPort));
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            client = server.nextPendingConnection();
            ++connections;
            QObject::connect(client, &QTcpSocket::readyRead, [this] { heard += client->readAll(); });
        });
    }
    void send(const QByteArray& bytes) const {
        client->write(bytes);
        client->flush();
    }
    QTcpServer server;
    QTcpSocket* client = nullptr;
    QByteArray heard;
    int connections = 0;
};

// A port with what it has announced.
struct Heard {
    explicit Heard(TcpComPort& port) {
        port.OnTriggerAvail = [this, &port](int count) {
            for (int i = 0; i < count; ++i) taken += *port.GetChar();
        };
        port.onLost = [this](const QString& reason) { reasons << reason; };
    }
    QByteArray taken;
    QStringList reasons;
};

TEST(TcpComPort, CarriesFramesBothWaysInWhateverPieces) {
    Gateway gateway;
    TcpComPort port(Loopback, gateway.server.serverPort());
    Heard heard(port);
    port.setSettings({.Baud = 1200, .DataBits = 7, .Parity = ComParity::Even});
    EXPECT_FALSE(port.PutBlock("closed"));
    ASSERT_TRUE(port.open() && port.open() && port.Open());
    EXPECT_TRUE(port.PutBlock(QByteArray("\x01\x00\xff", 3)));  // before the connection stands
    ASSERT_TRUE(waitFor([&] { return gateway.heard.size() == 3; }));
    port.PutString(":0103\r\n");
    ASSERT_TRUE(waitFor([&] { return gateway.heard == QByteArray("\x01\x00\xff:0103\r\n", 10); }));

    gateway.send("half");
    ASSERT_TRUE(waitFor([&] { return heard.taken == "half"; }));
    gateway.send(" and half");
    ASSERT_TRUE(waitFor([&] { return heard.taken == "half and half"; }));

    port.OnTriggerAvail = nullptr;
    gateway.send("old");
    runFor(50);
    port.dropInput();
    EXPECT_EQ(port.GetChar(), std::nullopt);
    port.OnTriggerAvail = [&](int) {
        heard.taken = QByteArray(1, *port.GetChar());
        gateway.send("!");
        runFor(50);  // a handler with a loop of its own
        port.close();
    };
    gateway.send("new");
    ASSERT_TRUE(waitFor([&] { return !port.Open(); }));
    EXPECT_EQ(heard.taken, "n");
    EXPECT_TRUE(heard.reasons.isEmpty());
    EXPECT_TRUE(port.openError().isEmpty());
}

TEST(TcpComPort, TellsOnceThatTheGatewayClosedOrRefusesAndComesBackWithIt) {
    quint16 number = 0;
    {
        Gateway gateway;
        number = gateway.server.serverPort();
        TcpComPort port(Loopback, number);
        const Heard heard(port);
        port.open();
        ASSERT_TRUE(waitFor([&] { return gateway.client; }));
        gateway.send(":01");
        gateway.client->disconnectFromHost();  // in mid-frame
        ASSERT_TRUE(waitFor([&] { return !port.Open(); }));
        EXPECT_EQ(heard.taken, ":01");
        ASSERT_EQ(heard.reasons.size(), 1);
        EXPECT_TRUE(heard.reasons[0].contains(QStringLiteral("closed the connection")))
            << heard.reasons[0].toStdString();
        EXPECT_TRUE(port.open());
        EXPECT_TRUE(waitFor([&] { return gateway.connections == 2; }));
    }
    TcpComPort port(Loopback, number);
    const Heard heard(port);
    for (int resend = 0; resend < 4; ++resend) {
        EXPECT_TRUE(port.open());
        EXPECT_TRUE(port.PutBlock("RUN"));
        ASSERT_TRUE(waitFor([&] { return !port.Open(); }));
    }
    EXPECT_EQ(heard.reasons.size(), 1);
    EXPECT_TRUE(port.openError().contains(QStringLiteral("refuses"))) << port.openError().toStdString();
    Gateway gateway(number);
    port.open();
    ASSERT_TRUE(waitFor([&] { return gateway.connections == 1; }));
    runFor(50);
    EXPECT_TRUE(gateway.heard.isEmpty());  // nothing of what could not be sent comes later
}

// A listener whose queue is full answers nobody, as a gateway that is switched off.
TEST(TcpComPort, NeitherWaitsForAGatewayThatIsSilentNorSendsItAFrameThatIsOver) {
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), length), 0);
    ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    ::listen(listener, 0);
    const quint16 number = ntohs(address.sin_port);
    QTcpSocket filling;
    filling.connectToHost(Loopback, number);
    ASSERT_TRUE(filling.waitForConnected());

    TcpComPort port(Loopback, number);
    const Heard heard(port);
    QElapsedTimer spent;
    spent.start();
    EXPECT_TRUE(port.open());
    EXPECT_TRUE(port.PutBlock("RUN"));
    EXPECT_LT(spent.elapsed(), 100);
    runFor(2 * TcpComPort::FrameLife);
    ::close(::accept(listener, nullptr, nullptr));  // room for one more: the system's next attempt gets in
    const int late = ::accept(listener, nullptr, nullptr);
    runFor(100);
    char byte = 0;
    EXPECT_EQ(::recv(late, &byte, 1, MSG_DONTWAIT), -1);
    EXPECT_TRUE(port.PutBlock("poll"));
    runFor(50);
    EXPECT_EQ(::recv(late, &byte, 1, MSG_DONTWAIT), 1);
    EXPECT_EQ(byte, 'p');
    EXPECT_TRUE(heard.reasons.isEmpty());

    QTcpSocket fillingAgain;
    fillingAgain.connectToHost(Loopback, number);
    ASSERT_TRUE(fillingAgain.waitForConnected());
    TcpComPort other(Loopback, number);
    const Heard othersWords(other);
    other.open();
    runFor(TcpComPort::ConnectLife + 100);
    EXPECT_FALSE(other.PutBlock("RUN"));
    EXPECT_FALSE(other.Open());
    ASSERT_EQ(othersWords.reasons.size(), 1);
    EXPECT_TRUE(othersWords.reasons[0].contains(QStringLiteral("does not answer")))
        << othersWords.reasons[0].toStdString();
    other.open();
    other.close();
    EXPECT_EQ(other.openError(), othersWords.reasons[0]);
    ::close(late);
    ::close(listener);
}

}  // namespace
}  // namespace kelvane
