// Makes the bytes of a binary .xls workbook (BIFF8 in a compound file) that office programs open without a
// warning. The built-in spreadsheet saves with it.
#pragma once

#include <QByteArray>
#include <QString>

#include "spreadsheet/workbook.h"

namespace kelvane {

struct BiffResult {
    bool ok = true;
    QString error;  // plain words
    QByteArray bytes;
};

// Every cell is stored as text. Errors: no sheet, a sheet name that is not allowed or stands twice, a cell
// outside the sheet, a text that is too long, a workbook beyond the format's bounds.
BiffResult writeBiff(const Workbook& workbook);

}  // namespace kelvane
