// Fault names of the two families whose drives do not report one, by fault code. Shown by the keypad, logged
// by the link.
#pragma once

#include <QString>

namespace kelvane {

QString FaultNamesAspen(int code);  // empty for 0, codes without a name and codes past the table
QString FaultNamesHazel(int code);

}  // namespace kelvane
