#include "link/qt_com_port.h"

#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <poll.h>
#include <unistd.h>
#endif

namespace kelvane {

namespace {

QSerialPort::Parity qtParity(ComParity parity) {
    switch (parity) {
        case ComParity::Odd: return QSerialPort::OddParity;
        case ComParity::Even: return QSerialPort::EvenParity;
        case ComParity::None: break;
    }
    return QSerialPort::NoParity;
}

QString noPermission(const QString& devicePath) {
    const QString group = QFileInfo(devicePath).group();
    const QString cure =
        group.isEmpty() || group == QStringLiteral("root")
            ? QStringLiteral("Ask the administrator for the right to use it.")
            : QStringLiteral("Join the group \"%1\" (sudo usermod -aG %1 $USER), log out and in again.")
                  .arg(group);
    return QStringLiteral("You have no permission to use %1. ").arg(devicePath) % cure;
}

constexpr int ErrorsInARow = 20;

// Takes what the device holds without a flush: between the system's notice and the read a flush leaves
// nothing, and nothing read looks like a device that has gone.
void readAway(QSerialPort& port) {
#ifdef Q_OS_UNIX
    char bytes[256];
    while (::read(port.handle(), bytes, sizeof bytes) > 0) {
    }
#endif
    port.readAll();
}

// The other end has hung up, or nothing has that name any more.
bool hasGone(QSerialPort& port, const QString& devicePath) {
    if (!QFileInfo::exists(devicePath)) return true;
#ifdef Q_OS_UNIX
    pollfd device{port.handle(), POLLIN, 0};
    return ::poll(&device, 1, 0) < 0 || (device.revents & (POLLHUP | POLLERR | POLLNVAL));
#else
    return true;
#endif
}

}  // namespace

QString whyNotOpened(const QString& devicePath, QSerialPort::SerialPortError error,
                     const QString& systemText) {
    const QFileInfo device(devicePath);
    if (!device.exists()) {
        return QStringLiteral("%1 does not exist. Plug in the adapter or choose another port.")
            .arg(devicePath);
    }
    if (!device.isReadable() || !device.isWritable()) return noPermission(devicePath);
    if (error == QSerialPort::PermissionError) {
        return QStringLiteral("%1 is in use by another program. Close that program and try again.")
            .arg(devicePath);
    }
    if (error == QSerialPort::ResourceError) {
        return QStringLiteral("There is no serial hardware behind %1. Choose another port.").arg(devicePath);
    }
    return QStringLiteral("%1 cannot be opened: %2.").arg(devicePath, systemText);
}

QtComPort::QtComPort(const QString& devicePath, const PortFlow& flow)
    : m_devicePath(devicePath), m_flow(flow), m_port(std::make_unique<QSerialPort>()) {
    m_port->setPortName(devicePath);
    m_port->setFlowControl(QSerialPort::NoFlowControl);
    QObject::connect(m_port.get(), &QSerialPort::readyRead, m_port.get(), [this] { takeFromDevice(); });
    QObject::connect(m_port.get(), &QSerialPort::errorOccurred, m_port.get(),
                     [this](QSerialPort::SerialPortError error) { judgeError(error); });
}

QtComPort::~QtComPort() {
    m_port->disconnect();
    if (!m_inHandler) return;
    m_port->close();
    static_cast<void>(m_port.release());  // announce() is still in a call of it, and lets it go afterwards
}

bool QtComPort::open() {
    if (Open()) return true;
    m_openError.clear();
    m_losing = false;
    m_errorsInARow = 0;
    m_port->clearError();
    applySettings();
    if (!openDevice()) {
        m_openError = whyNotOpened(m_devicePath, m_port->error(), m_port->errorString());
        return false;
    }
    applySettings();
    m_dtr = true;
    // Neither line exists on a pseudo terminal; the port works all the same.
    m_port->setDataTerminalReady(true);
    m_port->setRequestToSend(m_flow.RTS);
    dropInput();
    findReadable();
    return true;
}

// A pseudo terminal that has all the other settings already, as a program that was killed leaves it, refuses
// seven data bits and with them the opening. It carries whole bytes whatever is set. An adapter that refuses
// them says so.
bool QtComPort::openDevice() {
    if (m_port->open(QIODevice::ReadWrite)) return true;
    const QSerialPort::SerialPortError error = m_port->error();
    const bool isTerminal =
        QFileInfo(m_devicePath).canonicalFilePath().startsWith(QLatin1String("/dev/pts/"));
    if (!isTerminal || error == QSerialPort::PermissionError) return false;
    m_port->clearError();
    m_port->setDataBits(QSerialPort::Data8);
    return m_port->open(QIODevice::ReadWrite);
}

void QtComPort::findReadable() {
    m_readable.clear();
    for (QSocketNotifier* notifier : m_port->findChildren<QSocketNotifier*>())
        if (notifier->type() == QSocketNotifier::Read) m_readable = notifier;
}

void QtComPort::close() {
    m_input.clear();
    m_taken = 0;
    if (Open()) m_port->close();
}

// Values that the device refuses (a pseudo terminal has no data bits) are no reason to give it up.
void QtComPort::applySettings() {
    m_port->setBaudRate(m_settings.Baud);
    m_port->setDataBits(m_settings.DataBits == 7 ? QSerialPort::Data7 : QSerialPort::Data8);
    m_port->setParity(qtParity(m_settings.Parity));
    m_port->setStopBits(m_settings.StopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
}

void QtComPort::setSettings(const PortSettings& settings) {
    m_settings = settings;
    if (!Open()) return;
    applySettings();
    dropInput();
}

bool QtComPort::PutBlock(const QByteArray& bytes) {
    if (!Open() || m_losing) return false;
    m_port->clearError();
    if (m_port->write(bytes) != bytes.size()) return false;
    m_port->flush();
    return m_port->error() == QSerialPort::NoError;
}

std::optional<char> QtComPort::GetChar() {
    if (waiting() == 0) return std::nullopt;
    const char byte = m_input[m_taken++];
    if (waiting() == 0) {
        m_input.clear();
        m_taken = 0;
    }
    moveDtr();
    return byte;
}

void QtComPort::dropInput() {
    if (Open()) {
        // A notice that is already on its way is taken back with it.
        const bool heldBack = m_readable && !m_readable->isEnabled();
        if (m_readable) m_readable->setEnabled(false);
        readAway(*m_port);
        if (m_readable && !heldBack) m_readable->setEnabled(true);
    }
    m_input.clear();
    m_taken = 0;
    moveDtr();
}

// The bytes wait in the device's own buffer, which is as large as ours.
bool QtComPort::holdBack(bool on) {
    if (!Open() || !m_readable) return false;
    m_readable->setEnabled(!on);
    return true;
}

void QtComPort::takeFromDevice() {
    m_errorsInARow = 0;
    const QByteArray bytes = m_port->readAll();
    m_input.remove(0, std::exchange(m_taken, 0));
    m_input += bytes.left(BufferSize - m_input.size());
    moveDtr();
    announce();
}

void QtComPort::moveDtr() {
    if (!m_flow.hwfUseDTR || !Open()) return;
    const bool wanted = m_dtr ? waiting() < m_flow.BufferFull : waiting() <= m_flow.BufferResume;
    if (wanted != m_dtr) m_port->setDataTerminalReady(m_dtr = wanted);
}

// Straight from the device's signal: a turn of the event loop for every byte would cost half as much again.
void QtComPort::announce() {
    m_missed = m_inHandler;
    if (m_inHandler || !Open() || waiting() == 0 || !OnTriggerAvail) return;
    const std::weak_ptr<bool> alive = m_alive;
    QSerialPort* const device = m_port.get();
    const auto handler = OnTriggerAvail;
    m_inHandler = true;
    handler(static_cast<int>(waiting()));
    if (alive.expired()) return device->deleteLater();
    m_inHandler = false;
    // Bytes that came while the handler ran a loop of its own.
    if (m_missed || device->bytesAvailable() > 0) later([this] { takeFromDevice(); });
}

void QtComPort::later(const std::function<void()>& call) {
    const std::weak_ptr<bool> alive = m_alive;
    const auto ifAlive = [alive, call] {
        if (!alive.expired()) call();
    };
    QMetaObject::invokeMethod(m_port.get(), ifAlive, Qt::QueuedConnection);
}

// A device that has gone repeats such an error for ever while it is open, so it is closed; one that only had
// nothing to read goes on. Errors in a row without a byte between them end even that.
void QtComPort::judgeError(QSerialPort::SerialPortError error) {
    if (!Open() || m_losing) return;
    if (error != QSerialPort::ReadError && error != QSerialPort::ResourceError) return;
    if (++m_errorsInARow < ErrorsInARow && !hasGone(*m_port, m_devicePath)) {
        later([this] {
            if (Open() && m_readable) m_readable->setEnabled(true);
        });
        return;
    }
    m_losing = true;
    // The system's text belongs to an older call when a device goes away silently.
    const QString reason =
        QStringLiteral("The connection to %1 was lost. Check the adapter and its cable.").arg(m_devicePath);
    later([this, reason] { lose(reason); });
}

void QtComPort::lose(const QString& reason) {
    // Closed or opened afresh in the meantime: the loss is history.
    if (!std::exchange(m_losing, false) || !Open()) return;
    close();
    if (onLost) onLost(reason);
}

}  // namespace kelvane
