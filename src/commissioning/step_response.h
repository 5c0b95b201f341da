// Step responses of a second-order system, for the before and after curves of the PID guide. Time is in units
// of the undamped angular frequency, the set point is 1.
#pragma once

#include <QList>
#include <QPointF>
#include <array>

namespace kelvane {

// Value at time t after a step from 0; damping 0 oscillates for ever, 1 is critical, above it creeps.
double stepResponse(double damping, double t);
// The same with a small real pole beside it that takes a share of the step with it: a long tail.
double stepResponseWithTail(double damping, double pole, double share, double t);

struct GuideCurves {
    QList<QPointF> before;
    QList<QPointF> after;
};
inline constexpr double GuideTime = 20;
inline constexpr double GuideTop = 2;

// Overshoot, rise time, settle time, marginally stable; all on the same axes.
std::array<GuideCurves, 4> guideCurves();

}  // namespace kelvane
