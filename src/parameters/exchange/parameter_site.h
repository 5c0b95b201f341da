// What the Parameter window's engines work on: the link, the clock, the group names and the way into com
// setup, with the few questions that reading and writing both put to the link.
#pragma once

#include <functional>

#include "base/tick_clock.h"
#include "catalogue/group_names.h"
#include "link/request_scheduler.h"
#include "localisation/voice.h"

namespace kelvane {

struct ParameterSite {
    RequestScheduler& link;
    TickClock& clock;
    const GroupNameTable& names;
    Voice voice;
    // Opens com setup and calls then when all its windows have closed, on line or not.
    std::function<void(std::function<void()> then)> openComSetup;

    bool offLine() const { return link.Lamp.ComStatusAbLED == QLatin1String("Off Line"); }
    // Off line: tells so and opens com setup. then is called after it, or at once when the link is on line.
    void goOnLine(const std::function<void()>& then) const;
    // The same, but go is called only if the lamp reads "On Line" in the end.
    void whenOnLine(const std::function<void()>& go) const;
    // Why the parameter that is waited for will not come, in a person's words.
    QString noAnswerText(const QString& PrNo) const;
};

}  // namespace kelvane
