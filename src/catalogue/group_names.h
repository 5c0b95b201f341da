// Names of parameter groups, and the parameter names of Hazel, whose drives hold none. The names stand in the
// tree, in the group load list and in the group rows; identification stores here what a drive reports.
#pragma once

#include <QString>
#include <array>

namespace kelvane {

class GroupNameTable {
   public:
    static constexpr int GroupsPerFamily = 15;

    GroupNameTable();  // with the built-in names

    // Index is DriveFamily * 15 + G. It is a flat one: groups from 15 on run over into the next family's row.
    std::array<QString, 450> GroupName;

    // The name of a group ("1 - Basic"); empty outside the table.
    QString groupName(quint8 DriveFamily, int G) const;

    // Stores G, " - " and the reported text without its trailing blanks over what stood there; a place
    // outside the table is dropped. reported is the drive's 16 characters.
    void storeReportedName(quint8 DriveFamily, int G, const QString& reported);
};

inline constexpr int FixedParaNameCount = 600;  // 12 groups of up to 50 names

// FixedParaName at index G * 50 + N, a flat one like the group names'; empty outside and where there is no
// name.
QString fixedParaName(int G, int N);

}  // namespace kelvane
