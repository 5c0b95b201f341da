// The command list file (.cml), which keeps the state of the console: com settings for the reader's eye, the
// "Others" table of page "A" and the command list of page "B". A positional text: a page is found by its
// exact header line, and its values by their distance from it. Pure functions over a plain record.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <vector>

#include "link/com_setup_section.h"

namespace kelvane {

// Rows of the "Others" table, header row included; its arrays are addressed by row, from 1 on.
inline constexpr int OthersRoom = 20;
using OthersColumn = std::array<QString, OthersRoom>;

// The "Others" table of page "A".
struct OthersTable {
    int OthersRowCount = 2;
    QString OthersDefCmd;
    OthersColumn OthersName;
    OthersColumn OthersUnit;
    OthersColumn OthersDeci;
};

struct CommandListRow {
    bool checked = false;
    QString command;
    QString message;
    QString data;
    QString note;
};

struct CommandListFile {
    ComSetupSection ComSetup;  // written only

    // Page "A". The row count written is that of the table on screen, which need not be "Others".
    OthersTable others;
    int AdvStringGrid1Rows = 2;

    // Page "B": rows 1 up; the header's own box is not kept.
    static constexpr int MaxRows = 10000;
    std::vector<CommandListRow> rows;
    QString RepliedFormat;  // header of column 3
    quint32 TimeOut1 = 20;  // ms
    QString timeOutDisplay;
    std::array<QString, 4> breakCells;
};

// What a reading took; a page that was not found, or whose numbers do not convert, left the record as it was.
struct CommandListRead {
    bool pageA = false;
    bool pageB = false;
    bool ok = true;  // false: a number did not convert and the reading ended there
};

QByteArray commandListBytes(const CommandListFile& file);
// Takes what the bytes hold into file. More rows than the tables have room for are cut.
CommandListRead readCommandList(const QByteArray& bytes, CommandListFile& file);

}  // namespace kelvane
