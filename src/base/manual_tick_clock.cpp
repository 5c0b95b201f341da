#include "base/manual_tick_clock.h"

namespace kelvane {

class ManualAlarm final : public TickClock::Alarm {
   public:
    ManualAlarm(ManualTickClock& clock, std::function<void()> onDue)
        : m_clock(clock), m_onDue(std::make_shared<std::function<void()>>(std::move(onDue))) {}
    ~ManualAlarm() override { remove(); }

    void arm(qint64 delayUs) override {
        remove();
        m_key = {m_clock.m_nowUs + delayUs, ++m_clock.m_order};
        m_clock.m_armed[m_key] = this;
        m_isArmed = true;
    }
    void disarm() override { remove(); }
    std::shared_ptr<std::function<void()>> takeCall() {
        remove();
        return m_onDue;
    }

   private:
    void remove() {
        if (m_isArmed) m_clock.m_armed.erase(m_key);
        m_isArmed = false;
    }
    ManualTickClock& m_clock;
    std::shared_ptr<std::function<void()>> m_onDue;
    ManualTickClock::Key m_key;
    bool m_isArmed = false;
};

std::unique_ptr<TickClock::Alarm> ManualTickClock::makeAlarm(std::function<void()> onDue) {
    return std::make_unique<ManualAlarm>(*this, std::move(onDue));
}

bool ManualTickClock::step(qint64 limitUs) {
    if (m_armed.empty()) return false;
    const auto next = m_armed.begin();
    if (limitUs >= 0 && next->first.first > limitUs) return false;
    m_nowUs = std::max(m_nowUs, next->first.first);
    const auto call = next->second->takeCall();
    (*call)();
    return true;
}

void ManualTickClock::advanceUs(qint64 us) {
    const qint64 endUs = m_nowUs + us;
    // A loop of alarms that arm each other without delay is a fault of the code under test.
    int atOneInstant = 0;
    for (qint64 before = m_nowUs; step(endUs); before = m_nowUs) {
        atOneInstant = m_nowUs == before ? atOneInstant + 1 : 0;
        if (atOneInstant > 100000) qFatal("ManualTickClock: time stands still");
    }
    m_nowUs = std::max(m_nowUs, endUs);
}

bool ManualTickClock::advanceUntil(const std::function<bool()>& done, qint64 maxMs) {
    const qint64 endUs = m_nowUs + maxMs * 1000;
    while (!done()) {
        if (!step(endUs)) {
            m_nowUs = std::max(m_nowUs, endUs);
            return done();
        }
    }
    return true;
}

}  // namespace kelvane
