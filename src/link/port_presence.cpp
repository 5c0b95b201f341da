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
        const bool wasPresent = std::exchange(ComPortPresent, quint8(0)) == 1;
        lookForPort();
        // Kept: the port stays as it is, and the exchanges fail by time-out.
        if (ComPortPresent == 0 && wasPresent)
            ShowHistoryMsg(QStringLiteral("The connecting com port is fail !!"));
    }
}

PortWatcher::PortWatcher(PortPresence& presence, QObject* parent) : QObject(parent), m_presence(presence) {
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &PortWatcher::look);
}

// Another number is another port: what was known of the old one says nothing about it.
void PortWatcher::follow(const QString& devicePath) {
    m_device = devicePath;
    m_presence.ComPortPresent = 1;
    watchFolders();
    m_names = namesInFolders();
}

void PortWatcher::look() {
    watchFolders();
    const QSet<QString> before = std::exchange(m_names, namesInFolders());
    // What came first: a port that is back among others that go is a recovery.
    if (!(m_names - before).isEmpty()) m_presence.deviceChange(DeviceArrival);
    if (!(before - m_names).isEmpty()) m_presence.deviceChange(DeviceRemoveComplete);
}

void PortWatcher::portLost(const QString& reason) {
    look();
    if (m_presence.ComPortPresent == 1) m_presence.ShowHistoryMsg(reason);
}

// The folder of the device, and of what it leads to when it is a link.
QStringList PortWatcher::folders() const {
    if (m_device.isEmpty()) return {};
    QStringList found{QFileInfo(m_device).absolutePath()};
    const QString target = QFileInfo(m_device).symLinkTarget();
    if (!target.isEmpty()) found << QFileInfo(target).absolutePath();
    found.removeDuplicates();
    return found;
}

// Each with what it leads to: a link that is put in the place of another, or that leads nowhere, has changed.
QSet<QString> PortWatcher::namesInFolders() const {
    QSet<QString> names;
    for (const QString& folder : folders())
        for (const QFileInfo& entry :
             QDir(folder).entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot))
            if (entry.exists()) names.insert(entry.filePath() % QLatin1Char('>') % entry.symLinkTarget());
    return names;
}

// A folder of links to devices goes away with its last link, so the folder that is still there is watched.
void PortWatcher::watchFolders() {
    QStringList wanted;
    for (QString folder : folders()) {
        while (!QFileInfo(folder).isDir() && folder != QFileInfo(folder).absolutePath())
            folder = QFileInfo(folder).absolutePath();
        wanted << folder;
    }
    wanted.removeDuplicates();
    const QStringList watched = m_watcher.directories();
    if (QSet<QString>(watched.begin(), watched.end()) == QSet<QString>(wanted.begin(), wanted.end())) return;
    if (!watched.isEmpty()) m_watcher.removePaths(watched);
    if (!wanted.isEmpty()) m_watcher.addPaths(wanted);
}

}  // namespace kelvane
