// A clock moved by hand: tests advance it, and every alarm that falls due on the way runs at its own time, in
// order of time and then of arming. A handler may advance it further, as a nested event loop would.
#pragma once

#include <map>
#include <utility>

#include "base/tick_clock.h"

namespace kelvane {

class ManualTickClock final : public TickClock {
   public:
    qint64 nowUs() const override { return m_nowUs; }
    std::unique_ptr<Alarm> makeAlarm(std::function<void()> onDue) override;

    void advance(qint64 ms) { advanceUs(ms * 1000); }
    void advanceUs(qint64 us);
    // Moves to the next alarm and runs it; false when nothing is armed or it lies behind limitUs.
    bool step(qint64 limitUs = -1);
    // Advances until done() holds or maxMs have passed; tells whether it held.
    bool advanceUntil(const std::function<bool()>& done, qint64 maxMs);

   private:
    friend class ManualAlarm;
    using Key = std::pair<qint64, quint64>;  // due time in us, order of arming
    std::map<Key, class ManualAlarm*> m_armed;
    qint64 m_nowUs = 0;
    quint64 m_order = 0;
};

}  // namespace kelvane
