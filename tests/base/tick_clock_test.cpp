#include <gtest/gtest.h>

#include "base/manual_tick_clock.h"

namespace kelvane {
namespace {

TEST(TickTimer, GoesByItsIntervalAndByTickLengthAfterAMovedTick) {
    ManualTickClock clock;
    std::vector<qint64> at;
    TickTimer timer(clock, TickKind::RealTime, 100, [&] { at.push_back(clock.nowUs() / 1000); });
    timer.setEnabled(true);
    clock.advance(60);
    timer.setEnabled(true);  // does not restart it
    clock.advance(100);
    timer.setInterval(50);  // does
    clock.advance(50);
    timer.setEnabled(false);
    clock.advance(1000);
    EXPECT_EQ(at, (std::vector<qint64>{100, 210}));

    at.clear();
    TickTimer waiting(clock, TickKind::Waiting, 1, [&] { at.push_back(clock.nowUs() / 1000 - 1210); });
    waiting.setEnabled(true);
    waiting.tickIn(2000);
    clock.advance(40);
    EXPECT_EQ(at, (std::vector<qint64>{2, 2 + TickLength, 2 + 2 * TickLength}));
}

TEST(TickTimer, SteppingTicksOnceWhenEnabledAndOncePerKick) {
    ManualTickClock clock;
    int ticks = 0;
    TickTimer timer(clock, TickKind::Stepping, 1, [&] { ++ticks; });
    timer.setEnabled(true);
    clock.advance(500);
    EXPECT_EQ(ticks, 1);
    timer.kick();
    timer.kick();
    clock.advance(500);
    EXPECT_EQ(ticks, 2);
    timer.setInterval(1000);
    clock.advance(999);
    EXPECT_EQ(ticks, 2);
    clock.advance(1);
    EXPECT_EQ(ticks, 3);
}

TEST(TickTimer, IsHeldBackWhileItsOwnHandlerRunsANestedLoop) {
    ManualTickClock clock;
    int depth = 0;
    int deepest = 0;
    int other = 0;
    TickTimer beside(clock, TickKind::RealTime, 10, [&] { ++other; });
    TickTimer timer(clock, TickKind::RealTime, 10, [&] {
        deepest = std::max(deepest, ++depth);
        clock.advance(100);
        --depth;
    });
    timer.setEnabled(true);
    beside.setEnabled(true);
    clock.advance(10);
    EXPECT_EQ(deepest, 1);
    EXPECT_GE(other, 10);
}

}  // namespace
}  // namespace kelvane
