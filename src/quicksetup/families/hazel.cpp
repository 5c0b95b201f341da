// Hazel: a compact drive with three multi-function inputs.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr ChoiceLists Lists{
    .S1para1 = firstOf(StartUpDisplays, 4),
    .S1para2 = ShortUserDisplays,
    .S1para4 = {},
    .S3para1 = firstOf(FrequencySources, 5),
    .S3para2 = CommandSources,
    .S3para3 = StopMethods,
    .outputs = firstOf(GeneralOutputs, 17),
    .inputMode = {},
    .inputs = firstOf(CompactInputs, 21),
};
static_assert(listsAreWell(Lists, {4, 5, 0, 5, 5, 2, 17, 0, 21}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup HazelSetup{
    .DriveFamily = Family::Hazel,
    .lists = Lists,
    .currentUnit = "%",
    .terminals = {"M0", "M1", "M2", "M3", "", "", "GND"},
};

}  // namespace kelvane
