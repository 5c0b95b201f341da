// A port on a gateway in the network: the frames of the serial line, RTU or ASCII as they stand, over TCP.
// Made by the shell for a number that serial_ports.txt leads to "tcp:host:port". Baud rate and line format
// are the gateway's own affair: they are kept, since the waits are counted from them, and go nowhere.
#pragma once

#include <QDeadlineTimer>
#include <QTcpSocket>
#include <memory>

#include "link/com_port.h"

namespace kelvane {

class TcpComPort final : public TApdComPort {
   public:
    // A frame that could not leave so soon (ms) is dropped: its exchange is over, and a command must not
    // reach a drive when nobody expects it any more.
    static constexpr int FrameLife = 100;
    static constexpr int ConnectLife = 2000;  // ms; later the attempt counts as failed

    TcpComPort(const QString& host, quint16 tcpPort);
    ~TcpComPort() override;

    // Begins to connect and is open at once; a frame waits for the connection for FrameLife. Nothing blocks.
    bool open() override;
    void close() override;
    bool Open() const override { return m_open; }
    // Why it could not be reached, also behind a close(); empty again when it is opened.
    QString openError() const override { return m_openError; }
    const PortSettings& settings() const override { return m_settings; }
    void setSettings(const PortSettings& settings) override;
    bool PutBlock(const QByteArray& bytes) override;
    bool PutString(const QByteArray& text) override { return PutBlock(text); }
    std::optional<char> GetChar() override;
    void dropInput() override;

   private:
    bool connected() const { return m_socket->state() == QAbstractSocket::ConnectedState; }
    bool send(const QByteArray& bytes);
    void takeConnection();
    void announce();
    void later(const std::function<void()>& call);
    void fail(const QString& reason);
    QString whyFailed(QAbstractSocket::SocketError error) const;
    QString name() const;

    QString m_host;
    quint16 m_tcpPort;
    PortSettings m_settings;
    QTcpSocket* m_socket;  // deletes itself later, as it may be in a call to us when we go
    bool m_open = false;
    bool m_wasConnected = false;
    bool m_inHandler = false;
    qint64 m_taken = 0;    // bytes, by the handler at work
    int m_connection = 0;  // counts openings and closings
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    QByteArray m_waiting;  // frame that waits for the connection
    QDeadlineTimer m_waitingUntil;
    QDeadlineTimer m_connectUntil;
    QString m_openError;
    QString m_reported;  // last reason given; a resend's further attempts are no news
};

}  // namespace kelvane
