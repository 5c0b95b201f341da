// Tilia: a vector drive with a second mid-point in its V/f curve.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr ChoiceLists Lists{
    .S1para1 = firstOf(StartUpDisplays, 4),
    .S1para2 = firstOf(LongUserDisplays, 24),
    .S1para4 = ControlMethods,
    .S3para1 = FrequencySources,
    .S3para2 = CommandSources,
    .S3para3 = StopMethods,
    .outputs = firstOf(AllOutputs, 41),
    .inputMode = {},
    .inputs = AllInputs,
};
static_assert(listsAreWell(Lists, {4, 24, 4, 6, 5, 2, 41, 0, 44}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup TiliaSetup{
    .DriveFamily = Family::Tilia,
    .lists = Lists,
    .currentUnit = "A",
    .twoMidPoints = true,
};

}  // namespace kelvane
