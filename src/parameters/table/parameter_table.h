// The parameter table: what one parameter is, how group and number give its register, and how its words
// become the texts of a row. Rows live in a StringGrid and their texts are the only copy of a parameter once
// it is read. Used by the reader, the writer, files, comparison, print and quick setup.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

#include "base/drive_family.h"
#include "base/string_grid.h"
#include "catalogue/parameter_record.h"

namespace kelvane {

// Columns of a table; the result of a comparison has 1 to 9 of them and a Note in 10.
namespace column {
inline constexpr int Check = 0;
inline constexpr int PrNo = 1;
inline constexpr int MODBUS = 2;
inline constexpr int Description = 3;
inline constexpr int Unit = 4;
inline constexpr int Data = 5;
inline constexpr int Default = 6;
inline constexpr int Min = 7;
inline constexpr int Max = 8;
inline constexpr int Attribute = 9;
inline constexpr int Address = 10;  // not shown; the write command takes it from here
inline constexpr int Dot = 11;      // not shown
inline constexpr int RunSet = 12;   // not shown
inline constexpr int Note = 10;     // of a comparison: "Drive" or "File"
}  // namespace column

inline constexpr int TableColumns = 13;
inline constexpr int ComparisonColumns = 11;

// Whose table it is. groupParamCount[G] is the highest number of group G, so 0 means one parameter; entry
// groupCount is the reserved group of a drive.
struct TableIdentity {
    QString model;
    QString version;
    QString ratedCurrent;
    QString ratedVoltage;
    QString hp;
    Family family = Family::Rowan;  // from a file any byte
    quint8 groupCount = 0;
    std::array<quint16, 256> groupParamCount{};
};

// A table from drive or from file with its grid, two rows long while it is closed.
struct ParameterTable {
    ParameterTable();
    void clear();  // back to one blank row, without check boxes and marks
    TableIdentity identity;
    StringGrid grid{TableColumns};
    QString TableFileName;  // path of a loaded file
};

// Rows. Each writes the whole row, column by column, and drops what an earlier table left in it.
QStringList tableHeaders();
QStringList writeListHeaders();
QStringList comparisonHeaders();
void setTableHeaders(StringGrid& grid);  // with the check box of the header
void fillAddressCells(StringGrid& grid, int row, int G, int N);
void fillParameterRow(StringGrid& grid, int row, Family family, int G, int N, const ParameterRecord& record);
void fillGroupRow(StringGrid& grid, int row, const QString& name);
void fillReservedGroupRow(StringGrid& grid, int row);
inline constexpr char ReservedGroupText[] = "Reserved Parameters";

// What the cells of a row say.
bool isGroupRow(const StringGrid& grid, int row);
bool isWritable(const StringGrid& grid, int row);  // never true for a group row
int dotOf(const StringGrid& grid, int row);        // 0 for anything but one digit
int rowOfNumber(const StringGrid& grid,
                const QString& PrNo);  // row with this column 1; -1 when there is none
// Rows by number and address together: a family with several groups may have a number twice.
class RowIndex {
   public:
    explicit RowIndex(const StringGrid& grid);
    // The row of this grid that stands for the same parameter as a row of another; -1 when there is none.
    int rowOf(const StringGrid& other, int row) const;

   private:
    static QString key(const StringGrid& grid, int row);
    QHash<QString, int> m_rows;
};
QStringList groupNamesIn(const StringGrid& grid);  // column 3 of the group rows, from the top

// Colours of a cell of the three tables: group rows, and data that differ from their default.
CellColours ProcessAdvStringGridGetCellColor(const StringGrid& grid, Family family, int column, int row);

}  // namespace kelvane
