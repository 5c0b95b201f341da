// How the scale of a trend channel follows its value: it only grows, with a tenth of headroom each time.
#pragma once

#include "base/trend_channel.h"

namespace kelvane {

// True when the value has passed the mark: the top of the scale less its headroom, in whole counts.
bool passesScale(const TrendChannel& channel, quint32 raw);

// ValueTo and DigitalTo for a value of this many counts; StatusScale is the item's divisor, 0 for none.
// Kept: a top that a person set higher may come down by this.
void growScale(TrendChannel& channel, quint32 raw, quint8 StatusScale);

// Both steps; true when the scale is another one now.
bool autoRange(TrendChannel& channel, quint32 raw, quint8 StatusScale);

// Whole counts for a top in engineering units.
int digitalOf(double ValueTo, quint8 StatusScale);

}  // namespace kelvane
