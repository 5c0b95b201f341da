// Model tables: what is printed on a drive's plate, by DriveFamily and DriveIdCode. Identification asks here
// and puts the texts into the labels of the main, Trend, Monitor and Parameter windows.
#pragma once

#include <QString>

namespace kelvane {

// The three texts in the decimal separator of the machine: "0.75 ( 1 )", "230V", "5.0A".
struct ModelIdentity {
    QString HPVrLabel;
    QString RatedVoltageVrLabel;
    QString RatedCurrentVrLabel;
    bool operator==(const ModelIdentity&) const = default;
};

// Empty texts for a code that is not filled, for one beyond the family's table and for a value without a
// family.
ModelIdentity modelIdentity(quint8 DriveFamily, quint8 DriveIdCode);

}  // namespace kelvane
