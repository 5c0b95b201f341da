// A real serial port on Qt SerialPort, behind the plant's port interface. Made by the shell for every port
// number that leads to a device. Bytes wait in a buffer of its own until they are taken.
#pragma once

#include <QPointer>
#include <QSerialPort>
#include <QSocketNotifier>
#include <memory>

#include "link/com_port.h"

namespace kelvane {

// Line settings beside PortSettings. The marks count bytes that wait: DTR goes off at BufferFull and on again
// at BufferResume. Sending never waits for a line of the other side.
struct PortFlow {
    bool RTS = false;
    bool hwfUseDTR = false;
    bool hwfUseRTS = false;  // asks for RTS as second brake; RTS is off, so there is nothing to let go
    int BufferFull = 0;
    int BufferResume = 0;
};
inline constexpr PortFlow LinkPortFlow{
    .hwfUseDTR = true, .hwfUseRTS = true, .BufferFull = 3686, .BufferResume = 410};
inline constexpr PortFlow SetupPortFlow{};

class QtComPort final : public TApdComPort {
   public:
    static constexpr qsizetype BufferSize = 4096;  // bytes; what comes on top of them is lost

    explicit QtComPort(const QString& devicePath, const PortFlow& flow = LinkPortFlow);
    ~QtComPort() override;

    bool open() override;
    void close() override;
    bool Open() const override { return m_port->isOpen(); }
    QString openError() const override { return m_openError; }
    const PortSettings& settings() const override { return m_settings; }
    void setSettings(const PortSettings& settings) override;
    bool PutBlock(const QByteArray& bytes) override;
    bool PutString(const QByteArray& text) override { return PutBlock(text); }
    std::optional<char> GetChar() override;
    void dropInput() override;
    bool holdBack(bool on) override;

   private:
    void applySettings();
    bool openDevice();
    void findReadable();
    void takeFromDevice();
    void announce();
    void later(const std::function<void()>& call);
    void judgeError(QSerialPort::SerialPortError error);
    void lose(const QString& reason);
    void moveDtr();
    qsizetype waiting() const { return m_input.size() - m_taken; }

    QString m_devicePath;
    PortFlow m_flow;
    PortSettings m_settings;
    std::unique_ptr<QSerialPort> m_port;
    QPointer<QSocketNotifier> m_readable;  // of the open device, where the system has one
    QByteArray m_input;
    qsizetype m_taken = 0;  // bytes of m_input that GetChar has given out
    bool m_inHandler = false;
    bool m_missed = false;  // bytes came while the handler was at work
    bool m_losing = false;
    int m_errorsInARow = 0;
    bool m_dtr = true;
    QString m_openError;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

// Why the device cannot be opened and what helps, in plain words.
QString whyNotOpened(const QString& devicePath, QSerialPort::SerialPortError error,
                     const QString& systemText);

}  // namespace kelvane
