// The console's log: one line an exchange, newest first. The link starts a line with each send and completes
// it with what came back. Bounded: the oldest lines go, the counters stay.
#pragma once

#include <QObject>
#include <QStringList>
#include <deque>

#include "base/tick_clock.h"
#include "link/request_scheduler.h"

namespace kelvane {

struct ConsoleLine {
    QString text;
    quint32 colour = ConsoleBlack;
    qint64 replyUs = -1;  // from the send to the end of the wait; -1 while that is open
    bool rtu = false;
    bool failed() const { return colour != ConsoleBlack; }
};

class ConsoleLog : public QObject {
    Q_OBJECT
   public:
    static constexpr int Room = 5000;

    ConsoleLog(RequestScheduler& link, const TickClock& clock);

    const std::deque<ConsoleLine>& lines() const { return m_lines; }
    bool frontIsOpen() const { return m_open; }  // its reply has not come yet
    // All lines, or the failures alone, newest first.
    QString text(bool failuresOnly) const;
    // Empties the log and sets the three counters to 0.
    void ClearTransparentButtonClick();

   Q_SIGNALS:
    void lineAdded();     // lines().front() is new
    void frontChanged();  // it was completed
    void oldestGone();
    void cleared();
    void countersChanged();

   private:
    void onStarted();
    void onCompleted();
    void prepend(const QString& text);

    RequestScheduler& m_link;
    const TickClock& m_clock;
    std::deque<ConsoleLine> m_lines;
    bool m_open = false;
    qint64 m_sentUs = 0;
};

}  // namespace kelvane
