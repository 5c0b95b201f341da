// The tool's clock: precise alarms in the thread of the event loop. Built once by the shell and by the
// programs that work on a real port.
#pragma once

#include "base/tick_clock.h"

namespace kelvane {

class QtTickClock final : public TickClock {
   public:
    QtTickClock();
    ~QtTickClock() override;
    qint64 nowUs() const override;
    std::unique_ptr<Alarm> makeAlarm(std::function<void()> onDue) override;

   private:
    class Agenda;
    class QtAlarm;
    std::shared_ptr<Agenda> m_agenda;
};

}  // namespace kelvane
