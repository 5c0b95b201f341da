// Text and CSV form of a table or a comparison: one writer and one reader that differ in the separator. Pure:
// bytes in and out. 8-bit text, CR LF behind every line, a separator behind every field, nine characters a
// field but for the description.
#pragma once

#include <QByteArray>

#include "parameters/files/table_file.h"

namespace kelvane {

enum class TextFormat { Txt, Csv };

// "|"; for CSV "," on a machine with DecimalSep ".", else ";".
QChar separatorOf(TextFormat format);

// RparaAbLED tells whether the reserved parameters are shown beside a table from drive.
QByteArray writeTableText(const ParameterTable& table, bool RparaAbLED, TextFormat format);

// Shows all rows of CompInfoAdvStringGrid and hides only row 1 again, as the type asks.
QByteArray writeComparisonText(ComparisonSheet& sheet, TextFormat format);

// Takes a file for a comparison when its first line says so, else for a table. before is the identity that
// the table from file has now: fields of line 1 that are no number keep it, and so do the counts of groups
// that the file does not name. Errors: no lines to read, more rows than a table can have, a comparison
// without a result.
LoadedFile readTableText(const QByteArray& bytes, TextFormat format, const TableIdentity& before);

}  // namespace kelvane
