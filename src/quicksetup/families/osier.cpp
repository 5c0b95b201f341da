// Osier: a drive for fans and pumps with eight relays.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr auto StartUpDisplay = std::to_array<std::string_view>({
    "00: Display the frequency command value (LED F)",
    "01: Display the actual output frequency (LED H)",
    "02: Display the content of user-defined unit (LED U)",
    "03: Multifunction display, see Pr.02-09",
    "04: FWD/REV command",
});

constexpr auto UserDisplay = std::to_array<std::string_view>({
    "00: Display output current (A)",
    "01: Display DC bus voltage (u)",
    "02: Display output voltage (E)",
    "03: Display the power factor (n)",
    "04: Display output power (P)",
});

constexpr ChoiceLists Lists{
    .S1para1 = StartUpDisplay,
    .S1para2 = UserDisplay,
    .S1para4 = {},
    .S3para1 = FrequencySources,
    .S3para2 = CommandSources,
    .S3para3 = StopAndFaultMethods,
    .outputs = firstOf(AllOutputs, 38),
    .inputMode = {},
    .inputs = firstOf(AllInputs, 34),
};
static_assert(listsAreWell(Lists, {5, 5, 0, 6, 5, 4, 38, 0, 34}));
static_assert(numbersCount(Lists.S3para1));

}  // namespace

constinit const FamilySetup OsierSetup{
    .DriveFamily = Family::Osier,
    .lists = Lists,
    // Kept: it has no units of its own, so the form's stand, also beside bounds.
    .currentUnit = FormCurrentUnit,
    .boundUnit = FormBoundUnit,
    .oneWordFrom = 25,
};

}  // namespace kelvane
