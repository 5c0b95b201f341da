#include "link/link_owners.h"

#include <array>

namespace kelvane {

namespace {

constexpr std::array<OwnerRow, 8> rows{{
    {.ActiveFunction = OwnerMain, .polls = true, .endsWaitNotice = true, .goesOnForIdentification = true},
    {.ActiveFunction = OwnerTrend, .polls = true, .goesOnForIdentification = true},
    {.ActiveFunction = OwnerMonitor, .polls = true, .goesOnForIdentification = true},
    {.ActiveFunction = OwnerParameter, .keypadRests = true, .goesOnForIdentification = true, .reads = true},
    {.ActiveFunction = OwnerQuickSetup, .goesOnForIdentification = true, .refusalMarksWritten = true},
    {.ActiveFunction = OwnerAdvance, .console = true},
    {.ActiveFunction = OwnerAutoTuning,
     .keypadRests = true,
     .goesOnForIdentification = true,
     .emptiesQueues = true},
    {.ActiveFunction = OwnerPid, .keypadRests = true, .emptiesQueues = true},
}};

consteval bool rowsStandInOrder() {
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].ActiveFunction != i + 1) return false;
    return true;
}
static_assert(rowsStandInOrder());

}  // namespace

const OwnerRow& ownerRow(quint8 ActiveFunction) {
    return ActiveFunction >= 1 && ActiveFunction <= rows.size() ? rows[ActiveFunction - 1u] : rows.front();
}

}  // namespace kelvane
