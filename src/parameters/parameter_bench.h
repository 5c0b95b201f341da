// What the Parameter window's engines work on: the link, the clock, the group names and the way into com
// setup, with the few questions that reading and writing both put to the link.
#pragma once

#include <functional>

#include "base/tick_clock.h"
#include "catalogue/group_names.h"
#include "link/request_scheduler.h"

namespace kelvane {

struct ParameterBench {
    RequestScheduler& link;
    TickClock& clock;
    const GroupNameTable& names;
    std::function<void()> openComSetup;  // runs com setup to its end

    bool offLine() const { return link.Lamp.ComStatusAbLED == QLatin1String("Off Line"); }
    // Off line: tells so and opens com setup. True when the lamp reads "On Line" in the end.
    bool goOnLine() const;
    // Pushes a request and starts the link, which runs no poll for this window.
    void request(quint8 task, const QString& command) const;
    // The queues were emptied since the port could not be opened, and the link is about to try again: what
    // this window waits for has to be pushed anew, or the wait would never end.
    bool requestThrownAway() const;
};

}  // namespace kelvane
