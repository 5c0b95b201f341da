#include "base/qt_tick_clock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace kelvane {
namespace {

// A window that waits to be painted, as Qt posts it.
class Painting : public QObject {
   public:
    explicit Painting(std::function<void()> onPaint) : m_onPaint(std::move(onPaint)) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
    }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest) m_onPaint();
        return QObject::event(event);
    }

   private:
    std::function<void()> m_onPaint;
};

TEST(QtTickClock, CallsAChainOfKicksBeforeWhatWaitsToBePainted) {
    QtTickClock clock;
    QStringList done;
    TickTimer send(clock, TickKind::Stepping, 1, [&] {
        done << "send";
        send.setEnabled(false);
    });
    TickTimer row(clock, TickKind::Stepping, 1, [&] {
        done << "row";
        send.setEnabled(true);
    });
    row.setEnabled(true);
    Painting window([&] { done << "paint"; });
    QCoreApplication::processEvents();
    EXPECT_EQ(done, (QStringList{"row", "send", "paint"}));
}

TEST(QtTickClock, LeavesRoomForOthersWhenATimerKicksItselfForEver) {
    QtTickClock clock;
    int ticks = 0;
    bool painted = false;
    TickTimer busy(clock, TickKind::Stepping, 1, [&] {
        ++ticks;
        busy.kick();
    });
    Painting window([&] { painted = true; });
    QEventLoop loop;
    QTimer::singleShot(20, &loop, &QEventLoop::quit);
    busy.setEnabled(true);
    loop.exec();
    EXPECT_TRUE(painted);
    EXPECT_GT(ticks, 8);
}

TEST(QtTickClock, HoldsToTimesForgetsWhatWasTakenBackAndGoesOnInALoopOfAHandler) {
    QtTickClock clock;
    QEventLoop loop;
    QEventLoop inner;
    QStringList done;
    const auto late = clock.makeAlarm([&] { loop.quit(); });
    const auto gone = clock.makeAlarm([&] { done << "gone"; });
    const auto inside = clock.makeAlarm([&] { inner.quit(); });
    auto ownEnd = clock.makeAlarm([] {});
    ownEnd = clock.makeAlarm([&] {
        inside->arm(2000);
        inner.exec();
        done << "once";
        ownEnd.reset();
    });
    const qint64 before = clock.nowUs();
    late->arm(20000);
    gone->arm(5000);
    gone->disarm();
    ownEnd->arm(0);
    loop.exec();
    EXPECT_GE(clock.nowUs() - before, 20000);
    EXPECT_EQ(done, QStringList{"once"});
}

}  // namespace
}  // namespace kelvane
