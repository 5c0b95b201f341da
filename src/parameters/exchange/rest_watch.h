// Notices that the answer which a chain waits for is not coming: the link has been at rest for three seconds
// while the wait goes on. Runs while its owner works; used by reading and read-back.
#pragma once

#include <functional>

#include "base/tick_clock.h"
#include "link/request_chain.h"

namespace kelvane {

class RestWatch {
   public:
    static constexpr int Seconds = 3;

    // noAnswer is called once a wait.
    RestWatch(TickClock& clock, const RequestChain& chain, std::function<void()> noAnswer)
        : m_chain(chain),
          m_noAnswer(std::move(noAnswer)),
          m_timer(clock, TickKind::RealTime, 1000, [this] { look(); }) {}
    void start() {
        m_atRest = 0;
        m_timer.setEnabled(true);
    }
    void stop() { m_timer.setEnabled(false); }

   private:
    void look() {
        m_atRest = m_chain.waitsForNothing() ? m_atRest + 1 : 0;
        if (m_atRest == Seconds) m_noAnswer();
    }

    const RequestChain& m_chain;
    std::function<void()> m_noAnswer;
    int m_atRest = 0;  // seconds in a row
    TickTimer m_timer;
};

}  // namespace kelvane
