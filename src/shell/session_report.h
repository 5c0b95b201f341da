// The report of a session at a drive: who the drive is, how it was reached, the tables that are open, the
// faults that were seen and what the person has to say. Made on a click; a record of what the engines hold at
// that moment.
#pragma once

#include <QString>

#include "shell/tool.h"

namespace kelvane {

// As HTML. A trend's picture stands under the name of a resource, "trend", if hasTrend. Of a table that is
// open every row is listed; of a comparison what it found.
QString sessionReport(const Tool& tool, const QString& notes, bool hasTrend);

// "2026-03-02 Larch session", for the file.
QString sessionReportName(const Tool& tool);

}  // namespace kelvane
