// Whether the adapter of the link port is there: what the main window does on a device message, and the
// watcher that makes such messages out of changes in the device's folder. Owned by the shell; writes history
// lines and closes the link port, which the next send opens afresh.
#pragma once

#include <QFileSystemWatcher>
#include <QSet>
#include <QString>
#include <functional>

#include "link/com_port.h"

namespace kelvane {

// First parameter of a device message.
inline constexpr int DeviceNodesChanged = 7;
inline constexpr int DeviceArrival = 0x8000;
inline constexpr int DeviceRemoveComplete = 0x8004;

class PortPresence {
   public:
    // isListed(ComNumber) tells whether the device behind a port number is there.
    PortPresence(TApdComPort& linkPort, std::function<bool(int)> isListed,
                 std::function<void(const QString&)> ShowHistoryMsg);

    void deviceChange(int parameter);

    quint8 ComPortPresent = 1;  // 1 while the port is believed to be there
    const std::function<void(const QString&)> ShowHistoryMsg;

   private:
    void lookForPort();
    TApdComPort& m_linkPort;
    std::function<bool(int)> m_isListed;
};

// Watches the folder of one device, and that of the device behind it when it is a link. Every name that goes
// is a removal, every new one an arrival, whether it is the link port's or another's.
class PortWatcher : public QObject {
    Q_OBJECT
   public:
    explicit PortWatcher(PortPresence& presence, QObject* parent = nullptr);

    // To be called at start and whenever the link port has got another number. An empty path (the practice
    // drive) watches nothing.
    void follow(const QString& devicePath);
    // Looks now instead of waiting for the system's notice.
    void look();
    // For onLost of the link port: looks, and tells the reason when the device itself is still there.
    void portLost(const QString& reason);

   private:
    QStringList folders() const;
    QSet<QString> namesInFolders() const;
    void watchFolders();
    PortPresence& m_presence;
    QFileSystemWatcher m_watcher;
    QString m_device;
    QSet<QString> m_names;
};

}  // namespace kelvane
