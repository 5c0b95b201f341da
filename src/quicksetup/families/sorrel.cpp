// Sorrel: a drive for lifts with a second mid-point in its V/f curve.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr auto CommandSource = std::to_array<std::string_view>({
    "00: Digital keypad",
    "01: External terminals",
    "02: RS-485 serial communication",
});

constexpr ChoiceLists Lists{
    .S1para1 = firstOf(StartUpDisplays, 4),
    .S1para2 = LongUserDisplays,
    .S1para4 = ControlMethods,
    .S3para1 = firstOf(FrequencySources, 3),
    .S3para2 = CommandSource,
    .S3para3 = {},
    .outputs = AllOutputs,
    .inputMode = {},
    .inputs = AllInputs,
};
static_assert(listsAreWell(Lists, {4, 29, 4, 3, 3, 0, 43, 0, 44}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup SorrelSetup{
    .DriveFamily = Family::Sorrel,
    .lists = Lists,
    .currentUnit = "A",
    // Kept: the picture shows one mid-point although the curve has two.
    .twoMidPoints = false,
};

}  // namespace kelvane
