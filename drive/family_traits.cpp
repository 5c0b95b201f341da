#include "drive/family_traits.h"

#include <algorithm>

namespace kelvane::drive {

namespace {

using enum Quantity;

constexpr auto RowanItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 10},
    {BusVolts, 10},
    {OutputVolts, 10},
    {StepNumber, 1},
    {PlcSeconds, 1},
    {Counter, 1},
    {PowerFactorAngle, 10},
    {ScaledHzLow, 100},
    {ScaledHzHigh, 1},
    {Temperature, 10},
    {PidFeedback, 100},
    {PidTarget, 100},
});

constexpr auto AspenItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 100},
    {BusVolts, 1},
    {OutputVolts, 100},
    {StepNumber, 1},
    {PlcStep, 1},
    {PlcSeconds, 1},
    {Counter, 10},
});

constexpr auto LarchItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 10},
    {BusVolts, 10},
    {OutputVolts, 10},
    {StepNumber, 1},
    {PlcStep, 1},
    {Counter, 1},
    {PowerFactorAngle, 10},
    {TorquePercent, 10},
    {MotorRpm, 1},
    {EncoderLow, 1},
    {EncoderHigh, 1},
    {OutputKw, 100},
});

constexpr auto HazelItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 10},
    {BusVolts, 1},
    {OutputVolts, 1},
    {StepNumber, 1},
    {PlcStep, 1},
    {PlcSeconds, 1},
    {Counter, 1},
});

constexpr auto TiliaItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 100},
    {BusVolts, 10},
    {OutputVolts, 10},
    {StepNumber, 1},
    {PlcSeconds, 1},
    {Counter, 1},
    {PowerFactorAngle, 10},
    {TorquePercent, 10},
    {MotorRpm, 1},
    {EncoderLow, 1},
    {EncoderHigh, 1},
    {OutputKw, 100},
});

constexpr auto OsierItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 10},
    {BusVolts, 10},
    {OutputVolts, 10},
    {PowerFactor, 100},
    {OutputKw, 100},
    {PidTarget, 10},
    {PidFeedback, 100},
    {ScaledHzLow, 100},
    {ScaledHzHigh, 1},
    {PlcSeconds, 1},
});

constexpr auto WillowItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 10},
    {None, 1},
    {None, 1},
    {None, 1},
    {BusVolts, 10},
    {OutputVolts, 10},
    {Temperature, 10},
});

constexpr auto YarrowItems = std::to_array<StatusItem>({
    {CommandHz, 100},
    {OutputHz, 100},
    {OutputAmps, 10},
    {Counter, 1},
    {PidFeedback, 100},
    {StepNumber, 1},
    {BusVolts, 10},
    {OutputVolts, 10},
    {Temperature, 10},
    {PowerFactorAngle, 1},
    {AnalogVolts, 10},
    {AnalogMilliamps, 10},
    {InputTerminals, 1},
    {OutputKw, 100},
});

// Most series have their PID in group 10.
constexpr PidRegisters TenthGroup{.source = 0x0A00,
                                  .gain = 0x0A02,
                                  .integralTime = 0x0A03,
                                  .derivativeTime = 0x0A04,
                                  .integralLimit = 0x0A05,
                                  .filterTime = 0x0A06,
                                  .outputLimit = 0x0A07,
                                  .gainScale = 1};
constexpr PidRegisters tenthGroupFrom(uint16_t source, double gainScale = 1) {
    PidRegisters registers = TenthGroup;
    registers.source = source;
    registers.gainScale = gainScale;
    return registers;
}

constexpr FamilyTraits Usual{
    .family = Family::Larch,
    .modelRegister = 0x0000,
    .versionRegister = 0,
    .namesGroups = true,
    .tellsFaultText = true,
    .hasCopyMode = true,
    .plainState = false,
    .recordWords = 15,
    .displayRegister = 0x2116,
    .displayWords = 3,
    .pidGroupAgain = 0,
    .maxFrequency = 0x0100,
    .baseFrequency = 0x0101,
    .accelTime = 0x0109,
    .decelTime = 0x010A,
    .tuneCommand = 0,
    .turningMode = 2,
    .tuneResult = 0x2118,
    .resultInHighByte = true,
    .tunedRows = {},
    .motorSelector = 0,
    .tunedRowsOfMotor2 = {},
    .pid = {},
    .signedItems = false,
    .items = LarchItems,
};

template <class Change>
constexpr FamilyTraits usualBut(Family family, std::span<const StatusItem> items, Change change) {
    FamilyTraits traits = Usual;
    traits.family = family;
    traits.items = items;
    change(traits);
    return traits;
}

constexpr auto Traits = std::to_array<FamilyTraits>({
    usualBut(Family::Rowan, RowanItems,
             [](FamilyTraits& t) {
                 t.pid = {0x0074, 0x0076, 0x0077, 0x0078, 0x0079, 0x007A, 0x0080, 1};
                 t.modelRegister = 0x0050;
                 t.namesGroups = false;
                 t.plainState = true;
                 t.maxFrequency = 0x0003;
                 t.baseFrequency = 0x0004;
                 t.accelTime = 0x000A;
                 t.decelTime = 0x000B;
                 t.tuneCommand = 0x0067;
                 t.tunedRows = {0x0068, 0x0035};
             }),
    usualBut(Family::Aspen, AspenItems,
             [](FamilyTraits& t) {
                 t.pid = TenthGroup;
                 t.namesGroups = false;
                 t.hasCopyMode = false;
             }),
    usualBut(Family::Larch, LarchItems,
             [](FamilyTraits& t) {
                 t.pid = tenthGroupFrom(0x0A00, 0.01);
                 t.plainState = true;
                 t.tuneCommand = 0x0705;
                 t.tuneResult = 0x2304;
                 t.resultInHighByte = false;
                 t.tunedRows = {0x0706, 0x0701};
             }),
    usualBut(Family::Hazel, HazelItems,
             [](FamilyTraits& t) {
                 t.versionRegister = 0x0006;
                 t.namesGroups = false;
                 t.tellsFaultText = false;
                 t.recordWords = 4;
                 t.displayRegister = 0x210B;
                 t.displayWords = 2;
             }),
    usualBut(Family::Tilia, TiliaItems,
             [](FamilyTraits& t) {
                 t.pid = {0x0800, 0x0801, 0x0802, 0x0803, 0x0804, 0x0807, 0x0805, 0.01};
                 t.accelTime = 0x010C;
                 t.decelTime = 0x010D;
                 t.tuneCommand = 0x0500;
                 t.turningMode = 1;
                 t.resultInHighByte = false;
                 t.tunedRows = {0x0506, 0x0505};
                 t.motorSelector = 0x050A;
                 t.tunedRowsOfMotor2 = {0x0512, 0x0511};
                 t.signedItems = true;
             }),
    usualBut(Family::Osier, OsierItems,
             [](FamilyTraits& t) {
                 t.pid = {0x0A01, 0x0A03, 0x0A04, 0x0A05, 0x0A06, 0x0A07, 0, 1};
                 t.modelRegister = 0x0700;
                 // Kept: the PID rows are also read at 1001h to 1007h, where this series has them.
                 t.pidGroupAgain = 0x10;
             }),
    usualBut(Family::Willow, WillowItems,
             [](FamilyTraits& t) {
                 t.pid = tenthGroupFrom(0x0A01);
                 t.tuneCommand = 0x0704;
                 t.tunedRows = {0x0705, 0x0701};
             }),
    usualBut(Family::Yarrow, YarrowItems, [](FamilyTraits& t) { t.pid = tenthGroupFrom(0x0A01); }),
    usualBut(Family::Sorrel, TiliaItems,
             [](FamilyTraits& t) {
                 t.accelTime = 0x010C;
                 t.decelTime = 0x010D;
                 t.tuneCommand = 0x0500;
                 t.tunedRows = {0x0506, 0x0505};
             }),
});
static_assert(Traits.size() == AllFamilies.size());

}  // namespace

const FamilyTraits& traitsOf(Family family) {
    const auto row = std::ranges::find(Traits, family, &FamilyTraits::family);
    return row == Traits.end() ? Usual : *row;
}

}  // namespace kelvane::drive
