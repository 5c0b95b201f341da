#include "commissioning/step_response.h"

#include <cmath>
#include <functional>

namespace kelvane {

namespace {

constexpr int Points = 240;
constexpr double WellDamped = 0.8;

QList<QPointF> sampled(const std::function<double(double)>& response) {
    QList<QPointF> curve;
    for (int i = 0; i <= Points; ++i) {
        const double t = GuideTime * i / Points;
        curve << QPointF(t, response(t));
    }
    return curve;
}

QList<QPointF> damped(double damping) {
    return sampled([=](double t) { return stepResponse(damping, t); });
}

}  // namespace

double stepResponse(double damping, double t) {
    if (damping < 1) {
        const double frequency = std::sqrt(1 - damping * damping);
        const double swing = std::cos(frequency * t) + damping / frequency * std::sin(frequency * t);
        return 1 - std::exp(-damping * t) * swing;
    }
    if (damping == 1) return 1 - std::exp(-t) * (1 + t);
    const double root = std::sqrt(damping * damping - 1);
    const double slow = damping - root;
    const double fast = damping + root;
    return 1 - (fast * std::exp(-slow * t) - slow * std::exp(-fast * t)) / (fast - slow);
}

double stepResponseWithTail(double damping, double pole, double share, double t) {
    return (1 - share) * stepResponse(damping, t) + share * (1 - std::exp(-pole * t));
}

std::array<GuideCurves, 4> guideCurves() {
    constexpr double SlowPole = 0.12;
    constexpr double TailShare = 0.35;
    return {{{damped(0.25), damped(0.7)},
             {damped(2.5), damped(WellDamped)},
             {sampled([](double t) { return stepResponseWithTail(WellDamped, SlowPole, TailShare, t); }),
              damped(WellDamped)},
             {damped(0.02), damped(0.6)}}};
}

}  // namespace kelvane
