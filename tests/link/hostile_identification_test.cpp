// Identification over a line that fails at one place after the other: what the tool then knows of the drive
// is the drive's own.
#include <gtest/gtest.h>

#include "bench/hostile_line.h"
#include "bench/on_line_bench.h"

namespace kelvane {
namespace {

using drive::LineMode;
using IdentificationCase = std::tuple<Family, LineMode>;
class HostileIdentification : public testing::TestWithParam<IdentificationCase> {};

TEST_P(HostileIdentification, KnowsTheDriveWhateverFails) {
    const auto& [family, mode] = GetParam();
    const LineChoice choice{.family = family, .mode = mode};
    OnLineBench quiet(choice);
    ASSERT_TRUE(quiet.goOnLine());
    ASSERT_EQ(quiet.wrongIdentity(), QStringList());
    const int places = int(quiet.sent());
    int number = 0;
    int failed = 0;
    for (const Harm& harm : plainHarms() + lateReplies() + brokenReplies())
        for (const int inARow : {1, 2})
            for (int place = 1; place <= places; ++place) {
                if (++number % 5 && !everyCase()) continue;
                OnLineBench bench(choice);
                harm.setOn(bench.station.line.options());
                for (int i = 0; i < inARow; ++i) bench.faults().failAt(place + i, harm.fault);
                QStringList wrong;
                if (!bench.goOnLine() || !bench.awaitPolls(3)) wrong += "never on line";
                wrong += bench.wrongIdentity() + bench.credits.miscredited;
                if (bench.link.Notice.TInitialFormShown || bench.link.Notice.TCEmessageFormShown)
                    wrong += "a notice stays";
                if (wrong.isEmpty() || ++failed > 8) continue;
                ADD_FAILURE() << "reply " << place << " " << harm.name << ", " << inARow << " in a row\n  "
                              << wrong.join(QStringLiteral("\n  ")).toStdString();
            }
    EXPECT_EQ(failed, 0) << "of " << number << " sessions";
}

std::vector<IdentificationCase> identificationCases() {
    std::vector<IdentificationCase> cases;
    for (const Family family : AllFamilies)
        for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) cases.emplace_back(family, mode);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Lines, HostileIdentification, testing::ValuesIn(identificationCases()),
                         [](const auto& tested) {
                             return std::string(familyName(std::get<0>(tested.param))) +
                                    (std::get<1>(tested.param) == LineMode::Rtu ? "Rtu" : "Ascii");
                         });

}  // namespace
}  // namespace kelvane
