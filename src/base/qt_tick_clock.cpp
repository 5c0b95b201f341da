#include "base/qt_tick_clock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <chrono>
#include <limits>
#include <map>
#include <utility>

#ifdef Q_OS_LINUX
#include <sys/timerfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#endif

namespace kelvane {

namespace {

qint64 steadyUs() {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

constexpr int RoundsInOneTurn = 8;
constexpr qint64 Never = std::numeric_limits<qint64>::max();

// One call from the event loop at a time of the steady clock; wakeAt moves it. Qt's own timers wake up to two
// milliseconds late, which is an eighth of a quick exchange, so Linux's own are used where there are any.
class WakeUp : private QObject {
   public:
    explicit WakeUp(const std::function<void()>& onWake) : m_onWake(onWake) {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.callOnTimeout(onWake);
#ifdef Q_OS_LINUX
        m_file = ::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
        if (m_file < 0) return;
        m_readable = new QSocketNotifier(m_file, QSocketNotifier::Read);
        QObject::connect(m_readable, &QSocketNotifier::activated, m_readable, onWake);
#endif
    }
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;
    ~WakeUp() override {
#ifdef Q_OS_LINUX
        if (m_file < 0) return;
        m_readable->setEnabled(false);
        m_readable->deleteLater();  // it may be what is calling
        ::close(m_file);
#endif
    }

    // Setting it anew also takes back a call that is due and was not made yet.
    void wakeAt(qint64 atUs) {
#ifdef Q_OS_LINUX
        if (m_file >= 0) {
            itimerspec when{};
            if (atUs != Never) {
                when.it_value.tv_sec = atUs / 1000000;
                when.it_value.tv_nsec = atUs % 1000000 * 1000 + 1;  // all zero would mean never
            }
            ::timerfd_settime(m_file, TFD_TIMER_ABSTIME, &when, nullptr);
            return;
        }
#endif
        // Qt counts whole milliseconds; rounding up never shortens a wait.
        if (atUs == Never) return m_timer.stop();
        m_timer.start(static_cast<int>((std::max<qint64>(0, atUs - steadyUs()) + 999) / 1000));
    }

    // At the next turn of the event loop, before any painting that waits there: a request goes out first, and
    // the table is drawn while it is on the wire.
    void wakeAtOnce() {
        if (std::exchange(m_posted, true)) return;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    }

   private:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        m_posted = false;
        const auto onWake = m_onWake;  // may be the end of this object
        onWake();
        return true;
    }

    std::function<void()> m_onWake;
    bool m_posted = false;
    QTimer m_timer;
#ifdef Q_OS_LINUX
    int m_file = -1;
    QSocketNotifier* m_readable = nullptr;
#endif
};

}  // namespace

// All armed alarms of a clock in order of time and then of arming, and one wake-up for the first of them.
class QtTickClock::Agenda : public std::enable_shared_from_this<Agenda> {
   public:
    using Key = std::pair<qint64, quint64>;  // due time in us, order of arming
    using Call = std::shared_ptr<std::function<void()>>;

    Key add(qint64 delayUs, const Call& call) {
        const Key key{steadyUs() + delayUs, ++m_order};
        m_armed.emplace(key, call);
        delayUs > 0 ? wakeForNext() : wakeUp().wakeAtOnce();
        return key;
    }
    // The wake-up stays as it is, since mostly another alarm follows at once.
    void remove(const Key& key) { m_armed.erase(key); }

   private:
    WakeUp& wakeUp() {
        if (!m_wakeUp) m_wakeUp = std::make_unique<WakeUp>([this] { run(); });
        return *m_wakeUp;
    }

    // What a handler arms without delay is called in the same turn of the event loop, so that reply, table
    // row and next request follow each other without a window being painted in between; but not without end.
    void run() {
        const auto self = shared_from_this();
        for (int round = 0; round < RoundsInOneTurn && callDue(); ++round) {
        }
        wakeForNext();
    }

    // Calls what is due and was armed before; false when nothing was.
    bool callDue() {
        const qint64 untilUs = steadyUs();
        const quint64 lastOrder = m_order;
        const auto due = [&] {
            if (m_armed.empty()) return false;
            const Key& first = m_armed.begin()->first;
            return first.first <= untilUs && first.second <= lastOrder;
        };
        bool called = false;
        for (; due(); called = true) {
            const Call call = m_armed.begin()->second;
            m_armed.erase(m_armed.begin());
            // A handler may run an event loop of its own, so the next wake-up is set before.
            if (!m_armed.empty()) wakeForNext();
            if (m_wakeUs <= untilUs) m_wakeUs = Never;  // that one has been
            (*call)();
        }
        return called;
    }

    void wakeForNext() {
        const qint64 next = m_armed.empty() ? Never : m_armed.begin()->first.first;
        if (next <= steadyUs()) return wakeUp().wakeAtOnce();
        if (next == m_wakeUs && next != Never) return;
        m_wakeUs = next;
        wakeUp().wakeAt(m_wakeUs);
    }

    std::map<Key, Call> m_armed;
    quint64 m_order = 0;
    qint64 m_wakeUs = Never;
    std::unique_ptr<WakeUp> m_wakeUp;  // made with the first alarm, when the event loop exists
};

class QtTickClock::QtAlarm final : public TickClock::Alarm {
   public:
    QtAlarm(std::shared_ptr<Agenda> agenda, std::function<void()> onDue)
        : m_agenda(std::move(agenda)), m_call(std::make_shared<std::function<void()>>(std::move(onDue))) {}
    ~QtAlarm() override { disarm(); }
    void arm(qint64 delayUs) override {
        disarm();
        m_key = m_agenda->add(delayUs, m_call);
    }
    void disarm() override { m_agenda->remove(m_key); }

   private:
    std::shared_ptr<Agenda> m_agenda;
    Agenda::Call m_call;
    Agenda::Key m_key;  // of the last arming; the order makes it unlike any other
};

QtTickClock::QtTickClock() : m_agenda(std::make_shared<Agenda>()) {}
QtTickClock::~QtTickClock() = default;

qint64 QtTickClock::nowUs() const { return steadyUs(); }

std::unique_ptr<TickClock::Alarm> QtTickClock::makeAlarm(std::function<void()> onDue) {
    return std::make_unique<QtAlarm>(m_agenda, std::move(onDue));
}

}  // namespace kelvane
