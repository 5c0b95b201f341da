// Aspen: a small drive of the first series with parameter groups.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr ChoiceLists Lists{
    .S1para1 = firstOf(StartUpDisplays, 4),
    .S1para2 = ShortUserDisplays,
    .S1para4 = {},
    .S3para1 = FrequencySources,
    .S3para2 = CommandSources,
    .S3para3 = StopMethods,
    .outputs = firstOf(GeneralOutputs, 17),
    .inputMode = {},
    .inputs = firstOf(CompactInputs, 22),
};
static_assert(listsAreWell(Lists, {4, 5, 0, 6, 5, 2, 17, 0, 22}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup AspenSetup{
    .DriveFamily = Family::Aspen,
    .lists = Lists,
    .currentUnit = "%",
};

}  // namespace kelvane
