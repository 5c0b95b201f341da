// Rowan: the older kind, with one long list of parameters.
#include "quicksetup/families/family_setups.h"
#include "quicksetup/families/list_check.h"
#include "quicksetup/families/shared_lists.h"

namespace kelvane {

namespace {

constexpr auto UserDisplay = std::to_array<std::string_view>({
    "00: Display the actual output frequency (H)",
    "01: Display the user-defined unit, output frequency x Pr.65 (U)",
    "02: Display output voltage (E)",
    "03: Display DC bus voltage (u)",
    "04: Display PID feedback signal (i)",
    "05: Display the time of PLC operation (1.tt)",
    "06: Display the frequency command value (F)",
    "07: Display output current (A)",
    "08: Display the power factor (n)",
    "09: Display the temperature of the drive (t)(deg C)",
    "10: Display counter value (c)",
});

// Kept: the last two bear each other's number; the position is what is sent.
constexpr auto FrequencySource = std::to_array<std::string_view>({
    "00: Master Frequency determined by digital keypad",
    "01: Master Frequency determined by 0 to +10V from AVI",
    "02: Master Frequency determined by 4 to 20mA from ACI",
    "04: Master Frequency operated by RS-485 communication port",
    "03: Master Frequency determined by potentiometer on the digital keypad",
});

constexpr ChoiceLists Lists{
    .S1para1 = {},
    .S1para2 = UserDisplay,
    .S1para4 = {},
    .S3para1 = FrequencySource,
    .S3para2 = CommandSources,
    .S3para3 = StopMethods,
    .outputs = firstOf(GeneralOutputs, 25),
    .inputMode = WireModes,
    .inputs = firstOf(AllInputs, 33),
};
static_assert(listsAreWell(Lists, {0, 11, 0, 5, 5, 2, 25, 3, 33}));

}  // namespace

constinit const FamilySetup RowanSetup{
    .DriveFamily = Family::Rowan,
    .lists = Lists,
    .currentUnit = "A",
    .boundUnit = "Hz",
};

}  // namespace kelvane
