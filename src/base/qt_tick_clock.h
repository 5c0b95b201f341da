// The tool's clock: alarms on precise Qt timers in the thread of the event loop. Built once by the shell and
// by the programs that work on a real port.
#pragma once

#include "base/tick_clock.h"

namespace kelvane {

class QtTickClock final : public TickClock {
   public:
    qint64 nowUs() const override;
    std::unique_ptr<Alarm> makeAlarm(std::function<void()> onDue) override;
};

}  // namespace kelvane
