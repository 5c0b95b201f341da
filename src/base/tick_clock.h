// Ticks of the plant. A TickTimer is one of its timers (TxTimer, RxTimer, GetDataTimer, ...): it has
// Enabled, Interval and a handler, and runs on the TickClock that it is handed. QtTickClock drives the tool,
// ManualTickClock the tests. Time-outs of the system are numbers of ticks; the length of a tick is ours.
#pragma once

#include <QtGlobal>
#include <functional>
#include <memory>

namespace kelvane {

// Real length of one waiting tick in ms. Short enough for a quick table read, long enough that no drive on a
// paced line is declared silent while its bytes are still in an adapter's buffer. Tests may set it.
inline int TickLength = 16;

// Source of time and of alarms for TickTimers. All calls and all handlers are in one thread.
class TickClock {
   public:
    // One pending call; arming an armed alarm moves it.
    class Alarm {
       public:
        virtual ~Alarm() = default;
        virtual void arm(qint64 delayUs) = 0;
        virtual void disarm() = 0;
    };
    virtual ~TickClock() = default;
    virtual qint64 nowUs() const = 0;  // monotonic, base arbitrary
    virtual std::unique_ptr<Alarm> makeAlarm(std::function<void()> onDue) = 0;
};

enum class TickKind {
    Stepping,  // Interval 1 ticks once when enabled and once for every kick(); a longer Interval is real ms
    Waiting,   // every tick lasts Interval x TickLength
    RealTime,  // Interval is real ms
};

// A timer with the semantics of the plant: enabling an enabled timer does not restart it, a changed interval
// does, and while the handler runs (also in a nested loop) the same timer is held back.
class TickTimer {
   public:
    TickTimer(TickClock& clock, TickKind kind, int Interval, std::function<void()> onTick);
    TickTimer(const TickTimer&) = delete;
    TickTimer& operator=(const TickTimer&) = delete;

    bool Enabled() const { return m_enabled; }
    int Interval() const { return m_interval; }
    void setEnabled(bool on);
    void setInterval(int interval);

    // Enables it with its first tick in delayUs; moves the next tick of one that is enabled.
    void enableFor(qint64 delayUs);
    // Moves the next tick of an enabled timer to delayUs from now; later ticks have the usual length.
    void tickIn(qint64 delayUs);
    // Asks an enabled timer to tick as soon as the event loop is reached.
    void kick() { tickIn(0); }

   private:
    void due();
    void afterHandler();
    bool sleepsBetweenKicks() const { return m_kind == TickKind::Stepping && m_interval <= 1; }
    qint64 periodUs() const;

    TickKind m_kind;
    int m_interval;
    std::function<void()> m_onTick;
    bool m_enabled = false;
    bool m_inHandler = false;
    bool m_armed = false;
    bool m_heldBack = false;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::unique_ptr<TickClock::Alarm> m_alarm;
};

}  // namespace kelvane
