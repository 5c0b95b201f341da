#include "base/tick_clock.h"

#include <algorithm>

namespace kelvane {

TickTimer::TickTimer(TickClock& clock, TickKind kind, int Interval, std::function<void()> onTick)
    : m_kind(kind),
      m_interval(Interval),
      m_onTick(std::move(onTick)),
      m_alarm(clock.makeAlarm([this] { due(); })) {}

qint64 TickTimer::periodUs() const {
    switch (m_kind) {
        case TickKind::Stepping: return sleepsBetweenKicks() ? 0 : qint64(m_interval) * 1000;
        case TickKind::Waiting: return qint64(m_interval) * TickLength * 1000;
        case TickKind::RealTime: break;
    }
    return qint64(m_interval) * 1000;
}

void TickTimer::setEnabled(bool on) {
    if (on == m_enabled) return;
    m_enabled = on;
    m_heldBack = false;
    m_armed = false;
    m_alarm->disarm();
    if (on) tickIn(periodUs());
}

void TickTimer::setInterval(int interval) {
    if (interval == m_interval) return;
    m_interval = interval;
    if (m_enabled) tickIn(periodUs());
}

void TickTimer::enableFor(qint64 delayUs) {
    m_enabled = true;
    tickIn(delayUs);
}

void TickTimer::tickIn(qint64 delayUs) {
    if (!m_enabled) return;
    m_armed = true;
    m_heldBack = false;
    m_alarm->arm(std::max<qint64>(delayUs, 0));
}

void TickTimer::due() {
    m_armed = false;
    if (!m_enabled) return;
    if (m_inHandler) {
        m_heldBack = true;
        return;
    }
    const std::weak_ptr<bool> alive = m_alive;
    m_inHandler = true;
    m_onTick();
    if (alive.expired()) return;
    m_inHandler = false;
    afterHandler();
}

void TickTimer::afterHandler() {
    if (!m_enabled || m_armed) return;
    if (m_heldBack) {
        tickIn(0);
    } else if (!sleepsBetweenKicks()) {
        tickIn(periodUs());
    }
}

}  // namespace kelvane
