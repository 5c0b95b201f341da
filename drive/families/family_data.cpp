#include <array>

#include "drive/families/family_tables.h"

namespace kelvane::drive {
namespace {

constexpr std::array Tables{&RowanData, &AspenData,  &LarchData,  &HazelData, &TiliaData,
                            &OsierData, &WillowData, &YarrowData, &SorrelData};

}  // namespace

const FamilyData& familyData(Family family) {
    for (const FamilyData* table : Tables)
        if (table->family == family) return *table;
    Q_ASSERT_X(false, "familyData", "no practice drive of this family");
    return RowanData;
}

}  // namespace kelvane::drive
