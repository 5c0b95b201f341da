#include "drive/practice_port.h"

#include <algorithm>

namespace kelvane::drive {

PracticePort::PracticePort(TickClock& clock, LineModel& line)
    : m_clock(clock), m_line(line), m_alarm(clock.makeAlarm([this] { due(); })) {}

bool PracticePort::open() {
    if (m_open) return true;
    if (m_line.unplugged()) {
        m_openError = QStringLiteral("The practice drive is unplugged.");
        return false;
    }
    m_openError.clear();
    m_line.advanceTo(m_clock.nowUs());
    m_line.takeArrived();
    m_input.clear();
    m_newInput = m_heldBack = false;
    m_open = true;
    schedule();
    return true;
}

void PracticePort::close() {
    if (!m_open) return;
    m_open = false;
    m_alarm->disarm();
    m_input.clear();
    m_newInput = false;
}

void PracticePort::setSettings(const PortSettings& settings) {
    m_settings = settings;
    dropInput();
}

void PracticePort::dropInput() {
    if (m_open) {
        m_line.advanceTo(m_clock.nowUs());
        m_line.takeArrived();
    }
    m_input.clear();
    m_newInput = false;
}

bool PracticePort::holdBack(bool on) {
    if (!m_canHoldBack || !m_open) return false;
    m_heldBack = on;
    schedule();
    return true;
}

std::optional<char> PracticePort::GetChar() {
    if (m_input.isEmpty()) return std::nullopt;
    const char c = m_input[0];
    m_input.remove(0, 1);
    return c;
}

bool PracticePort::put(const QByteArray& bytes, bool block) {
    if (!m_open) return false;
    // The practice drive may be polled for days.
    if (m_writes.size() >= MostWrites) m_writes.remove(0, MostWrites / 2);
    m_writes.append({m_clock.nowUs(), bytes, block});
    m_line.send(bytes, m_settings, m_clock.nowUs());
    schedule();
    return true;
}

void PracticePort::unplug() {
    m_line.setUnplugged(true);
    if (m_open) m_alarm->arm(0);
}

void PracticePort::schedule() {
    if (!m_open) return;
    const bool announce = m_newInput && !m_heldBack;
    const qint64 dueUs = announce || m_line.unplugged() ? m_clock.nowUs() : m_line.nextDueUs();
    if (dueUs >= 0) armAt(dueUs);
}

void PracticePort::armAt(qint64 dueUs) { m_alarm->arm(std::max<qint64>(0, dueUs - m_clock.nowUs())); }

void PracticePort::due() {
    if (!m_open) return;
    m_line.advanceTo(m_clock.nowUs());
    const QByteArray arrived = m_line.takeArrived();
    m_input += arrived;
    m_newInput = m_newInput || !arrived.isEmpty();
    if (m_inHandler) {
        // The rest waits for the handler's end; the line goes on meanwhile, as a device's buffer fills.
        if (const qint64 dueUs = m_line.nextDueUs(); dueUs >= 0) armAt(dueUs);
        return;
    }
    if (m_line.unplugged()) return lose();
    if (!m_newInput || m_heldBack) return schedule();
    const std::weak_ptr<bool> alive = m_alive;
    deliver();
    if (!alive.expired()) schedule();
}

void PracticePort::deliver() {
    const std::weak_ptr<bool> alive = m_alive;
    const auto handler = OnTriggerAvail;
    m_newInput = false;
    if (!handler) return;
    m_inHandler = true;
    handler(int(m_input.size()));
    if (!alive.expired()) m_inHandler = false;
}

void PracticePort::lose() {
    close();
    const auto handler = onLost;
    if (handler) handler(QStringLiteral("The practice drive was unplugged."));
}

QStringList PracticePort::transcript() const {
    QStringList lines;
    for (const Write& write : m_writes) lines.append(commandText(write.bytes, write.block));
    return lines;
}

QString commandText(const QByteArray& frame, bool block) {
    const auto body = unwrap(frame, block ? LineMode::Rtu : LineMode::Ascii);
    if (body) return hexText(*body);
    return QLatin1Char('?') + (block ? hexText(frame) : QString::fromLatin1(frame));
}

}  // namespace kelvane::drive
