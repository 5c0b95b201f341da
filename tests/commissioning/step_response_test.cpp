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

TEST(StepResponse, OvershootsByItsDamping) {
    for (const double damping : {0.02, 0.25, 0.6}) {
        const double root = std::sqrt(1 - damping * damping);
        EXPECT_NEAR(stepResponse(damping, std::numbers::pi / root),
                    1 + std::exp(-damping * std::numbers::pi / root), 1e-12);
    }
    EXPECT_NEAR(stepResponse(1, 5), stepResponse(1 + 1e-7, 5), 1e-6);
    const auto curves = guideCurves();
    EXPECT_GT(topOf(curves[0].before), 1.4);
    EXPECT_LT(topOf(curves[1].before), 1);
    EXPECT_GT(topOf(curves[3].before), 1.9);
    for (const GuideCurves& curve : curves) EXPECT_LT(topOf(curve.before), GuideTop);
}

}  // namespace
}  // namespace kelvane
