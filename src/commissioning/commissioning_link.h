// What the PID and the auto tuning window share of the link: they drive the line themselves with one request
// at a time, so they must know when it is free, when no answer comes any more, and when it went off line
// under them. Owns the wait notice while one of them reads or writes.
#pragma once

#include <QObject>
#include <optional>

#include "link/request_chain.h"

namespace kelvane {

// What the windows' engines work on; all of it outlives them.
struct CommissioningSite {
    RequestScheduler& link;
    TickClock& clock;
    Operator& person;
    const LangTable& lang;
};

class CommissioningLink : public QObject {
    Q_OBJECT
   public:
    explicit CommissioningLink(const CommissioningSite& site);

    const CommissioningSite site;

    // Why a window stands: the request in hand got no answer that sets its flag, and none will come.
    enum class Standing { No, Refused, Lost };
    Standing standing = Standing::No;
    quint8 refusalCode = 0;        // with Standing::Refused
    QString standingText() const;  // in words; empty while nothing stands

    quint8 DriveFamily() const { return site.link.DriveStatus.DriveFamily; }
    // Between the window's opening and its closing.
    bool isOpen() const { return m_open; }
    void open();
    void close();  // empties both queues, so that nothing of ours is sent behind it

    // No exchange is open and nothing waits to be sent, so that a request of ours goes out next and alone.
    bool isFree() const;
    // Off line: tells so, and nothing may be sent.
    bool refusesOffLine() const;
    // Both queues emptied and both flags set: what is still under way belongs to nobody.
    void startAnew();
    // A chain of this window: it waits until the line is free and never repeats a request.
    void setUp(RequestChain& chain) const;
    // Requests of a chain; the flag that each waits for is watched from then on.
    LinkRequest read(quint8 task, const QString& command);
    LinkRequest write(const QString& command);

    // The wait notice TInitialForm, which a person may leave.
    void showWait();
    void closeWait();
    bool waitShown() const { return m_waitShown; }

   Q_SIGNALS:
    void changed();     // standing
    void wentToRest();  // the link went off line under the open window
    void waitEnded();   // the wait notice has closed, for whatever reason
    void waitLeft();    // closed by a person or with the link; comes before waitEnded()

   private:
    void cycleEnded();
    void linkChanged();
    void leaveWait();
    void initialRun();
    LinkRequest asked(quint8 task, const QString& command, Awaits awaits);
    void setStanding(Standing why);

    bool m_open = false;
    bool m_waitShown = false;
    std::optional<Awaits> m_awaited;
    quint8 m_refusal = 0;  // of the exchange in hand
};

}  // namespace kelvane
