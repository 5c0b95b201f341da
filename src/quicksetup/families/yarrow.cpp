// Yarrow: a small drive with PID and analog terminals in its status.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr ChoiceLists Lists{
    .S1para1 = firstOf(StartUpDisplays, 5),
    .S1para2 = CompactUserDisplays,
    .S1para4 = ControlMethodsWithoutPg,
    .S3para1 = firstOf(FrequencySources, 5),
    .S3para2 = CommandSources,
    .S3para3 = StopAndFaultMethods,
    .outputs = firstOf(GeneralOutputs, 22),
    .inputMode = WireModes,
    .inputs = firstOf(CompactInputs, 23),
};
static_assert(listsAreWell(Lists, {5, 12, 2, 5, 5, 4, 22, 3, 23}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup YarrowSetup{
    .DriveFamily = Family::Yarrow,
    .lists = Lists,
    .currentUnit = "A",
    .terminals = {"MI1", "MI2", "MI3", "MI4", "MI5", "MI6", "DCM"},
};

}  // namespace kelvane
