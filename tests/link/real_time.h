// Real time for the few tests that need it: lets the event loop run, asleep while nothing happens.
#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace kelvane {

inline void runFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// The limit is far above what any awaited step takes.
template <class Done>
bool waitFor(Done done, int limitMs = 10000) {
    const QDeadlineTimer limit(limitMs);
    while (!done() && !limit.hasExpired()) runFor(2);
    return done();
}

}  // namespace kelvane
