// Which rows of a table are in sight. Only the eye is helped: writing, saving, comparing and printing go by
// all rows, and so does the box of the header.
#pragma once

#include "parameters/table/parameter_table.h"

namespace kelvane {

enum class RowView { All, Differing, Checked };

// A drive without defaults in its table differs from none.
bool hasDefaults(Family family);

struct RowsInSight {
    int shown = 0;  // parameters, without the rows that open a group
    int hidden = 0;
};

// Differing: rows whose value is not the default. Checked: rows whose box is set. A row with an edit that is
// not yet written is never hidden, and a group's row goes with its last parameter.
RowsInSight showRows(StringGrid& grid, Family family, RowView view);

}  // namespace kelvane
