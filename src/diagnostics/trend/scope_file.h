// Scope files (.trd): the records of a trend, 24 bytes each, one behind the other, nothing else.
// Little-endian: the time as a double, then eight unsigned 16-bit digits.
#pragma once

#include "base/trend_records.h"
#include "base/whole_file.h"

class QIODevice;

namespace kelvane {

// Replaces the file in one step. Errors: folder missing or read-only, disk full.
FileResult saveScopeFile(const QString& path, const TrendRecords& records);

// Appends the whole records of a file, whatever stands in them; a rest of fewer than 24 bytes is left.
// Errors: missing, no permission, not a plain file, larger than the memory; nothing is appended then.
FileResult loadScopeFile(const QString& path, TrendRecords& records);
// The same from an open device that knows its size.
FileResult loadRecords(QIODevice& device, TrendRecords& records);

}  // namespace kelvane
