// The console's road to the link: each command goes out as it was given, behind the exchange in hand; a run
// begins on a line of its own; and a motor's STOP goes before everything that waits, nothing of which is
// tried again behind it.
#pragma once

#include <QObject>

#include "link/request_scheduler.h"
#include "localisation/voice.h"

namespace kelvane {

inline constexpr quint8 ConsoleTask = 19;

class ConsoleTraffic : public QObject {
    Q_OBJECT
   public:
    explicit ConsoleTraffic(RequestScheduler& link);

    RequestScheduler& link;

    // Nothing queued, nothing awaited.
    bool free() const { return link.TaskQueue.empty() && link.idle(); }
    // Opens the port where no exchange would; false, with a box, when it cannot be opened.
    bool openPort(const Voice& voice);
    // A request is out and is waited for, or is being judged.
    bool exchangeOpen() const;
    void send(quint8 task, const QString& command) { link.request(task, command); }
    // Again, a few times, when what comes back is not its own echo.
    void sendStop(const QString& command);
    // What has not been sent stays unsent, and a failure is not tried again; a reply on its way is still
    // taken.
    void endRun();
    // Nothing goes on, not even the exchange in hand. A STOP that waits still leaves.
    void cutOff();

   Q_SIGNALS:
    void becameFree();  // the last exchange is over and nothing waits

   private:
    void onCycleEnded();
    void keepStops();
    void repeatStop();

    bool m_dropResend = false;
    QString m_stop;
    bool m_stopOut = false;     // the exchange in hand is the STOP's
    bool m_stopEchoed = false;  // and its own echo has come
    int m_stopsLeft = 0;        // times that it may be sent again
};

}  // namespace kelvane
