// Notices that the answer which a read waits for is not coming: the link has been at rest for three seconds
// while the wait goes on. Runs while its owner waits; used by reading and read-back.
#pragma once

#include <functional>

#include "base/tick_clock.h"
#include "link/request_scheduler.h"

namespace kelvane {

class RestWatch {
   public:
    static constexpr int Seconds = 3;

    // noAnswer is called once a wait; waiting tells whether a request is out and not answered.
    RestWatch(TickClock& clock, const RequestScheduler& link, std::function<bool()> waiting,
              std::function<void()> noAnswer)
        : m_link(link),
          m_waiting(std::move(waiting)),
          m_noAnswer(std::move(noAnswer)),
          m_timer(clock, TickKind::RealTime, 1000, [this] { look(); }) {}
    void start() {
        m_atRest = 0;
        m_timer.setEnabled(true);
    }
    void stop() { m_timer.setEnabled(false); }

   private:
    void look() {
        const bool rests = m_waiting() && !m_link.TxTimer.Enabled() && !m_link.RxTimer.Enabled();
        m_atRest = rests ? m_atRest + 1 : 0;
        if (m_atRest == Seconds) m_noAnswer();
    }

    const RequestScheduler& m_link;
    std::function<bool()> m_waiting;
    std::function<void()> m_noAnswer;
    int m_atRest = 0;  // seconds in a row
    TickTimer m_timer;
};

}  // namespace kelvane
