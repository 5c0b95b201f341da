// The nine families' setups, one file each in this folder. Callers take them through familySetup().
#pragma once

#include "quicksetup/family_setup.h"

namespace kelvane {

extern const FamilySetup RowanSetup;
extern const FamilySetup AspenSetup;
extern const FamilySetup LarchSetup;
extern const FamilySetup HazelSetup;
extern const FamilySetup TiliaSetup;
extern const FamilySetup OsierSetup;
extern const FamilySetup WillowSetup;
extern const FamilySetup YarrowSetup;
extern const FamilySetup SorrelSetup;

}  // namespace kelvane
