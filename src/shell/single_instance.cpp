#include "shell/single_instance.h"

#include <QLocalSocket>

namespace kelvane {

namespace {

constexpr int ConnectMs = 500;

}  // namespace

SingleInstance::SingleInstance(const QString& name, QObject* parent) : QObject(parent), m_name(name) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* caller = m_server.nextPendingConnection()) caller->deleteLater();
        Q_EMIT raiseWanted();
    });
}

bool SingleInstance::tellRunning() {
    QLocalSocket socket;
    socket.connectToServer(m_name);
    return socket.waitForConnected(ConnectMs);
}

bool SingleInstance::isFirst() {
    if (tellRunning()) return false;
    // Nobody answers: what is left of a crashed run is in the way.
    QLocalServer::removeServer(m_name);
    m_server.listen(m_name);
    return true;
}

}  // namespace kelvane
