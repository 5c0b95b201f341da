// A window's way to the drive: one request after the other, each pushed when the one before has been
// answered. Owns the window's stepping timer, pushes a task with its command, starts the link, looks at
// ReadDone or WriteDone when an exchange has ended, and asks anew when the queues were thrown away. Owned by
// the engine whose list it steps through; never touches the port.
#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "link/request_scheduler.h"

namespace kelvane {

enum class Awaits { ReadDone, WriteDone };

struct LinkRequest {
    quint8 task = 0;
    QString command;
    Awaits awaits = Awaits::ReadDone;
};

class RequestChain : public QObject {
    Q_OBJECT
   public:
    RequestChain(TickClock& clock, RequestScheduler& link);

    // The next request of the list; nothing at its end. Called when none is out.
    std::function<std::optional<LinkRequest>()> next;
    // The request was answered; its flag has been cleared.
    std::function<void(const LinkRequest&)> answered;
    std::function<void()> ended;
    // Waits while this is false: another's exchange is still open, or a person is asked. Looked at after
    // every exchange and every step(). Left empty, the chain waits for nobody.
    std::function<bool()> mayAsk;
    // True ends the wait for the request that is out as if its flag were set, for instance when it was
    // refused.
    std::function<bool()> alsoAnswered;

    // Asks anew when the queues were thrown away under a request that is out. Off where a refusal throws
    // them away too, or where a command must never go out twice.
    bool asksAnew = true;

    // Starts at the next turn of the event loop. Starting a running chain changes nothing.
    void start();
    // No more requests. What is out may still be answered; nobody takes it.
    void stop();
    // Looks again soon: mayAsk or alsoAnswered may have changed.
    void step() { m_timer.kick(); }
    bool running() const { return m_timer.Enabled(); }
    bool waiting() const { return m_out.has_value(); }  // a request is out
    const std::optional<LinkRequest>& out() const { return m_out; }
    // A request is out and the link is at rest, or never comes to it: no answer is coming any more.
    bool waitsForNothing() const {
        return waiting() && (m_link.idle() || m_link.neverSilent()) && !flagOf(*m_out);
    }

   private:
    void tick();
    void ask();
    bool takeAnswer();
    bool thrownAway() const;
    quint8 flagOf(const LinkRequest& request) const;
    void clearFlag(const LinkRequest& request);
    RequestScheduler& m_link;
    TickTimer m_timer;
    std::optional<LinkRequest> m_out;
};

}  // namespace kelvane
