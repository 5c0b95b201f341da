// A port whose number decides what is behind it: the link port of the main window and the port of com setup.
// At open() it takes the port of its ComNumber, made by a factory that the shell hands in,
// and passes everything on to it.
#pragma once

#include <memory>

#include "link/com_port.h"
#include "link/port_directory.h"

namespace kelvane {

// Settings of the two ports as created; the rest is the port's default.
inline constexpr PortSettings LinkPortAtCreation{.ComNumber = 4, .Baud = 9600, .StopBits = 2};
inline constexpr PortSettings SetupPortAtCreation{.ComNumber = 1, .DataBits = 7, .StopBits = 2};

class RoutedPort final : public TApdComPort {
   public:
    // Called with a target of any kind but Nothing; may give nothing when it cannot make such a port.
    using Factory = std::function<std::unique_ptr<TApdComPort>(const PortTarget&)>;

    // The directory must outlive the port.
    RoutedPort(const PortDirectory& directory, Factory factory, const PortSettings& atCreation);

    bool open() override;
    void close() override;
    bool Open() const override { return m_port && m_port->Open(); }
    // A port that connects in the background knows only later why it could not be opened.
    QString openError() const override {
        return m_openError.isEmpty() && m_port ? m_port->openError() : m_openError;
    }
    const PortSettings& settings() const override { return m_settings; }
    void setSettings(const PortSettings& settings) override;
    bool PutBlock(const QByteArray& bytes) override { return Open() && m_port->PutBlock(bytes); }
    bool PutString(const QByteArray& text) override { return Open() && m_port->PutString(text); }
    std::optional<char> GetChar() override { return m_port ? m_port->GetChar() : std::nullopt; }
    void dropInput() override;
    bool holdBack(bool on) override { return m_port && m_port->holdBack(on); }

    // What the present ComNumber leads to, whether open or not.
    PortTarget target() const { return m_directory.target(m_settings.ComNumber); }
    // The port behind, for the practice drive's own switches; null before the first open.
    TApdComPort* behind() const { return m_port.get(); }
    // Called when ComNumber has changed.
    std::function<void(const PortTarget&)> onRouted;
    // Called with the reason when it cannot be opened; a resend's further attempts with the same one are no
    // news.
    std::function<void(const QString& reason)> onNotOpened;

   private:
    QString openTarget();  // why not; empty when it is open
    bool takePortOf(const PortTarget& target);
    const PortDirectory& m_directory;
    Factory m_factory;
    PortSettings m_settings;
    PortTarget m_behind;
    std::unique_ptr<TApdComPort> m_port;
    std::unique_ptr<TApdComPort> m_retired;  // may still be inside a call to us when the number changes
    QString m_openError;
    QString m_lastReason;
};

}  // namespace kelvane
