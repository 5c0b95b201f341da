// What differs by family in the running windows: the items of the status poll with scale, decimals, unit and
// format, the item lists of the channel selectors, and which tools a family allows. InitialDrive, the trend
// and the meters read it; texts of the item names come in from the language table.
#pragma once

#include <QStringList>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "base/drive_family.h"

namespace kelvane {

inline constexpr std::size_t StatusItemRoom = 16;  // room of the status tables
inline constexpr std::size_t CommonNameCount = 5;  // item names that all families share
inline constexpr std::size_t FamilyNameCount = 9;  // item names of one family

// Where an entry of the item list comes from, and which status item it stands for.
struct ListEntry {
    bool ofFamily = false;  // family name, else common name
    quint8 name = 0;        // index of that name, from 0
    quint8 item = 0;        // status item k
};

struct FamilyProfile {
    Family DriveFamily;
    const char* DriveVrLabel;
    quint8 StatusWordCount;  // number of status items
    std::array<quint8, StatusItemRoom> StatusScale;
    std::array<quint8, StatusItemRoom> StatusDecimals;
    std::array<const char*, StatusItemRoom> StatusUnit;
    std::array<const char*, StatusItemRoom> StatusFormat;
    std::span<const ListEntry> itemList;
    quint8 infoRows;      // rows of InfoAdvStringGrid that are written
    bool infoTwoColumns;  // names also in column 4
    bool groupNamesFromDrive;
    bool AutoTuningEnabled;
    bool PIDControlEnabled;
};

// The profile of a family; nullptr for a value without a row (7, above 9).
const FamilyProfile* familyProfile(quint8 DriveFamily);

// The names offered in the channel selectors, always as many as the family's list has entries: a name that is
// missing or empty is an empty entry.
QStringList itemNames(const FamilyProfile& profile, std::span<const QString> common,
                      std::span<const QString> ofFamily);

// The status item that an entry of the selectors stands for; -1 outside the list, so also for "none
// selected".
int itemOfListIndex(const FamilyProfile& profile, int listIndex);

// One cell of the trend window's InfoAdvStringGrid.
struct InfoCell {
    int column;
    int row;
    QString text;
};

// What InitialDrive writes into InfoAdvStringGrid, in its order: first the cleared cells, then names and
// units. names is the list of itemNames().
std::vector<InfoCell> infoGridCells(const FamilyProfile& profile, const QStringList& names);

// Fills the status tables of a record with the plant's field names (DriveStatus).
// Kept: written only as far as the family's items reach, so a longer family's units and formats stay behind.
template <class Status>
void writeStatusItems(const FamilyProfile& profile, Status& status) {
    status.StatusWordCount = profile.StatusWordCount;
    for (std::size_t k = 0; k < profile.StatusWordCount; ++k) {
        status.StatusScale[k] = profile.StatusScale[k];
        status.StatusDecimals[k] = profile.StatusDecimals[k];
        status.StatusUnit[k] = QString::fromLatin1(profile.StatusUnit[k]);
        status.StatusFormat[k] = QString::fromLatin1(profile.StatusFormat[k]);
    }
}

}  // namespace kelvane
