// The tables of the nine families, one file each in this folder. Callers take them through familyData(),
// which finds a family's table here.
#pragma once

#include "drive/parameter_data.h"

namespace kelvane::drive {

extern const FamilyData RowanData;
extern const FamilyData AspenData;
extern const FamilyData LarchData;
extern const FamilyData HazelData;
extern const FamilyData TiliaData;
extern const FamilyData OsierData;
extern const FamilyData WillowData;
extern const FamilyData YarrowData;
extern const FamilyData SorrelData;

}  // namespace kelvane::drive
