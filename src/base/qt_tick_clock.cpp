#include "base/qt_tick_clock.h"

#include <QTimer>
#include <chrono>

namespace kelvane {

namespace {

class QtAlarm final : public TickClock::Alarm {
   public:
    explicit QtAlarm(std::function<void()> onDue) {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.callOnTimeout([call = std::move(onDue)] { call(); });
    }
    // Qt counts whole milliseconds; rounding up never shortens a wait.
    void arm(qint64 delayUs) override { m_timer.start(static_cast<int>((delayUs + 999) / 1000)); }
    void disarm() override { m_timer.stop(); }

   private:
    QTimer m_timer;
};

}  // namespace

qint64 QtTickClock::nowUs() const {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

std::unique_ptr<TickClock::Alarm> QtTickClock::makeAlarm(std::function<void()> onDue) {
    return std::make_unique<QtAlarm>(std::move(onDue));
}

}  // namespace kelvane
