// The grid of the PID and the auto tuning window: a short list of parameters by name and register, each with
// the record that was read from the drive. Stores records, gives the word that a row writes and runs its
// value editor. Knows no link.
#pragma once

#include <optional>

#include "base/string_grid.h"
#include "catalogue/value_edit.h"
#include "link/link_records.h"

namespace kelvane {

class ParameterRows {
   public:
    // Columns of ParaAdvStringGrid.
    enum Column { PrNo, Description, Unit, Data, Default, Min, Max, Dot, Modbus, ColumnCount };

    ParameterRows();

    StringGrid ParaAdvStringGrid;

    // Rows 1 up; the header row is not counted.
    void setCount(int rows);
    int count() const { return ParaAdvStringGrid.RowCount() - 1; }
    void setAddress(int row, const QString& number, const QString& registerText);
    QString text(Column column, int row) const { return ParaAdvStringGrid.cell(column, row); }
    QString registerText(int row) const { return text(Modbus, row); }
    // Empties all cells but the headers.
    void clear();

    enum class Signs { Never, ByAttribute };  // ByAttribute: bit 7 makes value, limits and default signed
    // Stores the record of task 12: value, limits and default with their decimal point, name and unit.
    void store(int row, const ParamReadRecord& read, quint8 DriveFamily, Signs signs);
    // The number that a row writes, four hexadecimal digits; nothing when its "Data" is no number of 16 bits.
    std::optional<QString> word(int row) const;
    // What the value editor is given for a row; nothing for the header, beyond the last row and without a
    // record.
    std::optional<ValueTexts> texts(int row) const;
    // Runs the editor over a row; an accepted value stands in "Data" and is marked until it is written or
    // read.
    void edit(int row, Operator& person);
    void setData(int row, const QString& text);
};

}  // namespace kelvane
