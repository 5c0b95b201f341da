#include "link/port_presence.h"

#include <QDir>
#include <QFileInfo>

namespace kelvane {

PortPresence::PortPresence(TApdComPort& linkPort, std::function<bool(int)> isListed,
                           std::function<void(const QString&)> showHistoryMsg)
    : ShowHistoryMsg(std::move(showHistoryMsg)), m_linkPort(linkPort), m_isListed(std::move(isListed)) {}

void PortPresence::lookForPort() {
    if (m_isListed(m_linkPort.settings().ComNumber)) ComPortPresent = 1;
}

void PortPresence::deviceChange(int parameter) {
    if (parameter == DeviceArrival && ComPortPresent != 1) {
        lookForPort();
        if (ComPortPresent == 1) ShowHistoryMsg(QStringLiteral("The connecting com port is recovery !!"));
        // Kept: the port is closed whether it was found or not; the next send opens it.
        m_linkPort.close();
    } else if (parameter == DeviceRemoveComplete) {
        ComPortPresent = 0;
        lookForPort();
        // Kept: the port stays as it is, and the exchanges fail by time-out.
        if (ComPortPresent == 0) ShowHistoryMsg(QStringLiteral("The connecting com port is fail !!"));
    }
}

PortWatcher::PortWatcher(PortPresence& presence, QObject* parent) : QObject(parent), m_presence(presence) {
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &PortWatcher::look);
}

void PortWatcher::follow(const QString& devicePath) {
    m_folder = devicePath.isEmpty() ? QString() : QFileInfo(devicePath).absolutePath();
    watchNearestFolder();
    m_names = namesInFolder();
}

void PortWatcher::look() {
    watchNearestFolder();
    const QSet<QString> before = std::exchange(m_names, namesInFolder());
    if (!(before - m_names).isEmpty()) m_presence.deviceChange(DeviceRemoveComplete);
    if (!(m_names - before).isEmpty()) m_presence.deviceChange(DeviceArrival);
}

void PortWatcher::portLost(const QString& reason) {
    look();
    if (m_presence.ComPortPresent == 1) m_presence.ShowHistoryMsg(reason);
}

QSet<QString> PortWatcher::namesInFolder() const {
    if (m_folder.isEmpty()) return {};
    const QStringList names =
        QDir(m_folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    return {names.begin(), names.end()};
}

// A folder of links to devices goes away with its last link, so the folder that is still there is watched.
void PortWatcher::watchNearestFolder() {
    QString folder = m_folder;
    while (!folder.isEmpty() && !QFileInfo(folder).isDir()) {
        const QString above = QFileInfo(folder).absolutePath();
        if (above == folder) break;
        folder = above;
    }
    const QStringList watched = m_watcher.directories();
    if (watched.size() == 1 && watched.first() == folder) return;
    if (!watched.isEmpty()) m_watcher.removePaths(watched);
    if (!folder.isEmpty()) m_watcher.addPath(folder);
}

}  // namespace kelvane
