// The curves of the PID guide are those of the systems they stand for.
#include "commissioning/step_response.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelvane {
namespace {

double topOf(const QList<QPointF>& curve) {
    return std::max_element(curve.begin(), curve.end(), [](auto a, auto b) { return a.y() < b.y(); })->y();
}
// Time after which a curve stays within 5 %.
double settled(const QList<QPointF>& curve) {
    for (auto p = curve.rbegin(); p != curve.rend(); ++p)
        if (std::abs(p->y() - 1) > 0.05) return p->x();
    return 0;
}

TEST(StepResponse, OvershootsByItsDamping) {
    for (const double damping : {0.02, 0.25, 0.6}) {
        const double root = std::sqrt(1 - damping * damping);
        const double peak = std::numbers::pi / root;
        EXPECT_NEAR(stepResponse(damping, peak), 1 + std::exp(-damping * std::numbers::pi / root), 1e-12);
        EXPECT_NEAR(stepResponse(damping, 0), 0, 1e-12);
    }
    EXPECT_NEAR(stepResponse(1, 5), stepResponse(1 + 1e-7, 5), 1e-6);
    EXPECT_NEAR(stepResponse(1, 5), stepResponse(1 - 1e-7, 5), 1e-6);
}

TEST(StepResponse, IsBetterAfterTheAdvice) {
    const auto curves = guideCurves();
    for (const GuideCurves& curve : curves) {
        EXPECT_LT(settled(curve.after), settled(curve.before));
        EXPECT_EQ(curve.before.back().x(), GuideTime);
        EXPECT_LT(topOf(curve.before), GuideTop);
    }
    EXPECT_GT(topOf(curves[0].before), 1.4);
    EXPECT_LT(topOf(curves[1].before), 1);
    EXPECT_GT(topOf(curves[3].before), 1.9);
}

}  // namespace
}  // namespace kelvane
