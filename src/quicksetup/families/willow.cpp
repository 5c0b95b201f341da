// Willow: a small drive whose first two inputs are wired for start and direction.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr ChoiceLists Lists{
    .S1para1 = StartUpDisplays,
    .S1para2 = CompactUserDisplays,
    .S1para4 = ControlMethodsWithoutPg,
    .S3para1 = firstOf(FrequencySources, 5),
    .S3para2 = CommandSources,
    .S3para3 = StopAndFaultMethods,
    .outputs = firstOf(GeneralOutputs, 22),
    .inputMode = WireModes,
    .inputs = CompactInputs,
};
static_assert(listsAreWell(Lists, {6, 12, 2, 5, 5, 4, 22, 3, 25}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup WillowSetup{
    .DriveFamily = Family::Willow,
    .lists = Lists,
    .currentUnit = "A",
    .terminals = {"MI1", "MI2", "MI3", "MI4", "MI5", "MI6", "DCM"},
};

}  // namespace kelvane
