// The console's road to the link. A command goes out at once when the line is free and behind the exchange in hand
// when it is not, each exactly as it was given: enabling the send step while a reply is awaited would send the
// front again, so nobody but this class does it for the console. A motor's STOP goes before everything that waits.
#pragma once

#include <QObject>

#include "link/request_scheduler.h"

namespace kelvane {

inline constexpr quint8 ConsoleWriteTask = 13;
inline constexpr quint8 ConsoleTask = 19;
inline constexpr quint8 ConsoleReadTask = 20;

class ConsoleTraffic : public QObject {
    Q_OBJECT
   public:
    explicit ConsoleTraffic(RequestScheduler& link);

    RequestScheduler& link;

    bool exchangeInHand() const { return link.RxTimer.Enabled(); }
    // Nothing queued, nothing awaited.
    bool free() const;
    void send(quint8 task, const QString& command);
    // Right behind the exchange in hand; what waited is dropped, and so are the resends of what failed.
    void sendStop(const QString& command);
    // True until a STOP that was given has left.
    bool stopWaits() const { return !m_stop.isEmpty(); }
    // A run begins: what waits is thrown away, and the exchange in hand answers nobody any more.
    void beginRun();
    // A run ends: what has not been sent stays unsent; a reply on its way is still taken.
    void endRun();
    // Nothing goes on, not even the exchange in hand. A STOP that waits is sent first.
    void cutOff();
    // The exchange in hand was begun before the present run.
    bool answersNobody() const { return m_stale; }

   Q_SIGNALS:
    void becameFree();  // the last exchange is over and nothing waits
    void stopLeft();

   private:
    void onCycleEnded();
    void keepFrontOnly();
    void keepBackOnly();
    void dropAll();
    void sendNow();
    void onSent();
    void leaveStop();

    bool m_stale = false;
    bool m_dropResend = false;
    QString m_stop;
    bool m_stopTried = false;
};

}  // namespace kelvane
