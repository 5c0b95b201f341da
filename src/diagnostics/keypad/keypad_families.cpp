#include "diagnostics/keypad/keypad_families.h"

#include <array>

#include "base/drive_family.h"
#include "link/fault_names.h"

namespace kelvane {

namespace {

constexpr const char* ArrowKey = "FF0620050006";

struct Row {
    Family family;
    KeypadFamily keypad;
};

constexpr std::array<Row, 9> rows{{
    {Family::Rowan, {.oneList = true, .leftArrow = "FF0620050001"}},
    {Family::Aspen,
     {.displayDecimals = DisplayDecimals::HighByte,
      .pointBehindLead = false,
      .faultName = FaultNamesAspen,
      .otherFaultName = FaultNamesAspen}},
    {Family::Larch, {.leftArrow = ArrowKey}},
    {Family::Hazel,
     {.displayDecimals = DisplayDecimals::TwoOrNone,
      .letterLead = false,
      .pointBehindLead = false,
      .userDisplayWords = 2,
      .tellsDefault = false,
      .recordLength = "0004",
      .tellsFaultText = false,
      .faultName = FaultNamesHazel}},
    {Family::Tilia, {.signedValues = true, .segmentLead = true, .letterLead = false, .leftArrow = ArrowKey}},
    {Family::Osier, {.leftArrow = ArrowKey}},
    {Family::Willow, {}},
    {Family::Yarrow, {}},
    {Family::Sorrel, {.segmentLead = true, .letterLead = false, .leftArrow = ArrowKey}},
}};

constexpr KeypadFamily usual;

}  // namespace

const KeypadFamily& keypadFamily(quint8 DriveFamily) {
    for (const Row& row : rows)
        if (static_cast<quint8>(row.family) == DriveFamily) return row.keypad;
    return usual;
}

}  // namespace kelvane
