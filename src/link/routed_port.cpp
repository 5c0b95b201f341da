#include "link/routed_port.h"

namespace kelvane {

RoutedPort::RoutedPort(const PortDirectory& directory, Factory factory, const PortSettings& atCreation)
    : m_directory(directory), m_factory(std::move(factory)), m_settings(atCreation) {}

bool RoutedPort::open() {
    if (Open()) return true;
    m_openError = openTarget();
    const bool isNews = m_openError != std::exchange(m_lastReason, m_openError);
    if (!m_openError.isEmpty() && isNews && onNotOpened) onNotOpened(m_openError);
    return m_openError.isEmpty();
}

QString RoutedPort::openTarget() {
    m_openError.clear();
    if (!takePortOf(target())) return m_openError;
    m_port->setSettings(m_settings);
    return m_port->open() ? QString() : m_port->openError();
}

void RoutedPort::close() {
    m_lastReason.clear();
    if (m_port) m_port->close();
}

void RoutedPort::setSettings(const PortSettings& settings) {
    const bool otherNumber = settings.ComNumber != m_settings.ComNumber;
    m_settings = settings;
    if (Open()) m_port->setSettings(settings);
    if (otherNumber && onRouted) onRouted(target());
}

void RoutedPort::dropInput() {
    if (m_port) m_port->dropInput();
}

// A port of the same target is kept over closing and opening, so a practice drive keeps what was written to
// it.
bool RoutedPort::takePortOf(const PortTarget& target) {
    if (target.kind == PortTarget::Kind::Nothing) {
        m_openError =
            QStringLiteral("There is no port %1. Choose one from 1 to 20.").arg(m_settings.ComNumber);
        return false;
    }
    if (m_port && m_behind == target) return true;
    std::unique_ptr<TApdComPort> made = m_factory(target);
    if (!made) {
        m_openError = QStringLiteral("%1 is not available here.").arg(PortDirectory::describe(target).device);
        return false;
    }
    m_retired = std::exchange(m_port, std::move(made));
    m_behind = target;
    m_port->OnTriggerAvail = [this](int count) {
        if (OnTriggerAvail) OnTriggerAvail(count);
    };
    m_port->onLost = [this](const QString& reason) {
        if (onLost) onLost(reason);
    };
    return true;
}

}  // namespace kelvane
