// Reads a binary .xls workbook (BIFF8) as office programs write it, with values as a person sees them and the
// looks that the tool knows. Damaged and foreign files end in a plain text; no count of the file is trusted.
#pragma once

#include <QByteArray>
#include <QString>

#include "spreadsheet/workbook.h"

namespace kelvane {

struct WorkbookResult {
    bool ok = true;
    QString error;  // plain words
    Workbook workbook;
};

// Worksheets only, in the file's order. Errors: no .xls workbook, an older or newer format, protected by a
// password, damaged or cut short, beyond the bounds of workbook.h.
WorkbookResult readBiff(const QByteArray& file);

// A number in at most 15 digits without idle zeros, "33" or "0.5"; very large and small ones as "1.5E+20".
QString numberAsShown(double value);

}  // namespace kelvane
