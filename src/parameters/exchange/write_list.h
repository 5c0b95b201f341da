// The write list of TWriteCheckForm and the error record behind it, as rows: what is taken from a table, what
// a run of writes refused, what goes back into the table, and a line that sums the list up. No link in here.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "parameters/table/parameter_table.h"

namespace kelvane {

enum class WriteMode { Selected = 1, All = 2 };

inline constexpr int ErrorColumns = 6;
QStringList errorHeaders();
void setWriteListHeaders(StringGrid& AdvStringGrid1);
// Header and one blank row.
void clearErrorRecord(StringGrid& ErrorAdvStringGrid);
struct ErrorLine {
    QString PrNo;
    QString Description;
    QString Value;
    QString Code;
    QString Text;
};
// Fills the blank last row and adds a new one.
void addErrorLine(StringGrid& ErrorAdvStringGrid, const ErrorLine& line);

// Copies the rows that a mode takes, all checked; useDefaults puts column 6 into column 5. Gives their count.
int takeRows(const StringGrid& source, WriteMode mode, bool useDefaults, StringGrid& AdvStringGrid1);
int checkedRows(const StringGrid& AdvStringGrid1);

// Write command of a row; nothing when its value is no register word or its address is not four digits.
std::optional<QString> writeCommand(const StringGrid& AdvStringGrid1, int row);

// A row whose text does not say what would be sent, or that cannot be sent at all.
struct RowDoubt {
    bool sent = false;
    QString text;  // what would be sent, or why nothing is
};
std::optional<RowDoubt> doubtOf(const StringGrid& AdvStringGrid1, int row);

// Text of a row that may not be set in running: red; normal otherwise. A doubtful value is marked by its
// ground.
CellColours writeListColours(const StringGrid& AdvStringGrid1, int column, int row);

// What a run over the checked rows would do.
struct WriteSummary {
    int rows = 0;
    int differing = 0;  // from what the drive held when it was read
    int unknown = 0;    // the drive's value is not known
    int readOnly = 0;
    int doubtful = 0;
    int outOfSight = 0;    // hidden in the table by its view; filled by the caller
    QString sourceFamily;  // both are empty when the families agree
    QString driveFamily;
};
// heldByDrive gives the drive's value text for a row of the list, nothing when it was not read.
WriteSummary writeSummaryOf(const StringGrid& AdvStringGrid1, Family source, Family drive,
                            const std::function<std::optional<QString>(int row)>& heldByDrive);
QString writeSummaryText(const WriteSummary& summary);

}  // namespace kelvane
