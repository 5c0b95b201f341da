// The plotting library that the trend is measured against, in a file of its own: its header wants Qt's
// keywords, which ours does without.
#pragma once

#include <QSize>

#include "base/trend_channel.h"

namespace kelvane {

// Full repaint of all records of eight channels in ms of processor time, the best of three.
double qCustomPlotRepaintMs(const TrendData& data, QSize size);

}  // namespace kelvane
