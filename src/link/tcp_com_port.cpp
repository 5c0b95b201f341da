#include "link/tcp_com_port.h"

#include <QNetworkProxy>

#ifdef Q_OS_LINUX
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace kelvane {

namespace {

// What nobody has received after so long is given up with its connection. Else the system would send it again
// for minutes, and a RUN could reach the drive when its cable is plugged in again.
constexpr int UnreceivedMs = 1000;

void setUp(QTcpSocket& socket) {
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
#ifdef Q_OS_LINUX
    const int fd = static_cast<int>(socket.socketDescriptor());
    const int life = UnreceivedMs;
    ::setsockopt(fd, IPPROTO_TCP, TCP_USER_TIMEOUT, &life, sizeof life);
#endif
}

// Also what the socket has not fetched from the system yet.
void readAway(QTcpSocket& socket) {
    socket.readAll();
#ifdef Q_OS_LINUX
    const int fd = static_cast<int>(socket.socketDescriptor());
    char bytes[256];
    while (fd >= 0 && ::recv(fd, bytes, sizeof bytes, MSG_DONTWAIT) > 0) {
    }
#endif
}

}  // namespace

TcpComPort::TcpComPort(const QString& host, quint16 tcpPort)
    : m_host(host), m_tcpPort(tcpPort), m_socket(new QTcpSocket) {
    m_socket->setProxy(QNetworkProxy::NoProxy);
    QObject::connect(m_socket, &QTcpSocket::connected, m_socket, [this] { takeConnection(); });
    QObject::connect(m_socket, &QTcpSocket::readyRead, m_socket, [this] { announce(); });
    QObject::connect(m_socket, &QTcpSocket::errorOccurred, m_socket,
                     [this](QAbstractSocket::SocketError error) {
                         // It may come out of a call of ours.
                         later([this, why = whyFailed(error)] { fail(why); });
                     });
}

TcpComPort::~TcpComPort() {
    m_socket->disconnect();
    m_socket->abort();
    m_socket->deleteLater();
}

QString TcpComPort::name() const {
    return (m_host.contains(QLatin1Char(':')) ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2"))
        .arg(m_host)
        .arg(m_tcpPort);
}

bool TcpComPort::open() {
    if (m_open) return true;
    m_openError.clear();
    m_waiting.clear();
    m_wasConnected = false;
    m_open = true;
    ++m_connection;
    m_connectUntil.setRemainingTime(ConnectLife);
    m_socket->connectToHost(m_host, m_tcpPort);
    return true;
}

void TcpComPort::close() {
    m_reported.clear();
    if (!m_open) return;
    if (!m_wasConnected && m_openError.isEmpty())
        m_openError = whyFailed(QAbstractSocket::SocketTimeoutError);
    m_open = false;
    ++m_connection;
    m_waiting.clear();
    // What was sent still arrives, a STOP above all: the connection ends with its end and not with a reset.
    m_socket->flush();
    readAway(*m_socket);
    m_socket->abort();
}

void TcpComPort::setSettings(const PortSettings& settings) {
    m_settings = settings;
    dropInput();
}

bool TcpComPort::PutBlock(const QByteArray& bytes) {
    if (!m_open) return false;
    if (connected()) return send(bytes);
    if (m_connectUntil.hasExpired()) {
        fail(whyFailed(QAbstractSocket::SocketTimeoutError));
        return false;
    }
    m_waiting = bytes;
    m_waitingUntil.setRemainingTime(FrameLife);
    return true;
}

bool TcpComPort::send(const QByteArray& bytes) {
    if (m_socket->write(bytes) != bytes.size()) return false;
    m_socket->flush();
    return true;
}

void TcpComPort::takeConnection() {
    setUp(*m_socket);
    m_wasConnected = true;
    m_reported.clear();
    const QByteArray frame = std::exchange(m_waiting, {});
    if (!frame.isEmpty() && !m_waitingUntil.hasExpired()) send(frame);
}

std::optional<char> TcpComPort::GetChar() {
    char byte = 0;
    if (!m_socket->getChar(&byte)) return std::nullopt;
    ++m_taken;
    return byte;
}

void TcpComPort::dropInput() {
    m_waiting.clear();
    if (connected()) readAway(*m_socket);
}

// The handler may close the port, end it, or run a loop of its own in which more bytes come.
void TcpComPort::announce() {
    const qint64 before = m_socket->bytesAvailable();
    if (m_inHandler || !m_open || before == 0 || !OnTriggerAvail) return;
    const std::weak_ptr<bool> alive = m_alive;
    const auto handler = OnTriggerAvail;
    m_inHandler = true;
    m_taken = 0;
    handler(static_cast<int>(before));
    if (alive.expired()) return;
    m_inHandler = false;
    if (m_socket->bytesAvailable() > before - m_taken) later([this] { announce(); });
}

// From the event loop, unless the connection has been closed by then.
void TcpComPort::later(const std::function<void()>& call) {
    const auto ifStillIt = [this, call, connection = m_connection, alive = std::weak_ptr<bool>(m_alive)] {
        if (!alive.expired() && connection == m_connection) call();
    };
    QMetaObject::invokeMethod(m_socket, ifStillIt, Qt::QueuedConnection);
}

void TcpComPort::fail(const QString& reason) {
    if (!m_open) return;
    m_open = false;
    ++m_connection;
    m_waiting.clear();
    m_socket->abort();
    m_openError = reason;
    const auto handler = onLost;
    if (std::exchange(m_reported, reason) != reason && handler) handler(reason);
}

QString TcpComPort::whyFailed(QAbstractSocket::SocketError error) const {
    switch (error) {
        case QAbstractSocket::HostNotFoundError:
            return QStringLiteral(
                       "There is no gateway %1 in the network. Look at its name in serial_ports.txt.")
                .arg(m_host);
        case QAbstractSocket::ConnectionRefusedError:
            return QStringLiteral(
                       "The gateway %1 refuses the connection. Look at its port number, and whether "
                       "another program holds the line.")
                .arg(name());
        case QAbstractSocket::RemoteHostClosedError:
            return QStringLiteral("The gateway %1 has closed the connection.").arg(name());
        case QAbstractSocket::SocketTimeoutError:
            if (!m_wasConnected) break;
            [[fallthrough]];
        case QAbstractSocket::NetworkError:
            if (m_wasConnected)
                return QStringLiteral("The connection to the gateway %1 was lost. Look at the network.")
                    .arg(name());
            break;
        default:
            return QStringLiteral("The gateway %1 cannot be reached: %2.")
                .arg(name(), m_socket->errorString());
    }
    return QStringLiteral("The gateway %1 does not answer. Look at its power, its cable and its address.")
        .arg(name());
}

}  // namespace kelvane
