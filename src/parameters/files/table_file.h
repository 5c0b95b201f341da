// Parameter files of every format: their names, filters and kinds, and what one holds once it is read. A
// reader fills a record of its own; only a whole one is applied to the open table or comparison.
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "parameters/files/comparison.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

enum class TableFileKind { Text, Csv, Spreadsheet, Unsupported };

// By the extension, exact in case: ".txt" or ".TXT", ".csv" or ".CSV", ".xls" or ".XLS".
TableFileKind tableFileKind(const QString& path);

// Filter and suffix of the save dialog, and the filter of the open dialog.
QString saveFilter(TableFileKind kind);
QString saveSuffix(TableFileKind kind);
QString openTableFilter();

// Groups times numbers that an address can name, with the group rows: more rows than these are no table.
inline constexpr int MaxTableRows = 256 * 257;

// How many groups line 1 and the "Drive Info" sheet name: one more while RparaAbLED is on. A table from file
// has no RparaAbLED.
int savedGroupCount(const TableIdentity& identity, bool RparaAbLED);

struct LoadedTable {
    struct Row {
        std::array<QString, TableColumns> cells;
        std::optional<bool> check;  // a row without a check box has none
    };
    TableIdentity identity;
    std::vector<Row> rows;  // grid row 1 onward
};

struct LoadedComparison {
    QString CompKindLabel;
    CompInfoRow driveInfo;
    CompInfoRow fileInfo;
    std::vector<std::array<QString, ComparisonColumns>> rows;  // grid row 1 onward
};

// One of the two, or neither and an error in plain words.
struct LoadedFile {
    std::optional<LoadedTable> table;
    std::optional<LoadedComparison> comparison;
    QString error;
    QStringList remarks;  // what was left out of a table that was taken, a line each
};

// Replaces the rows, the identity and every check box of the table from file.
void applyTable(const LoadedTable& loaded, ParameterTable& table);
void applyComparison(const LoadedComparison& loaded, ComparisonSheet& sheet);

}  // namespace kelvane
