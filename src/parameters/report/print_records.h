// What a printed report is fed with: one record of ten fields for every row of a grid, and the blocks of its
// head. The painting is the window's.
#pragma once

#include <QDateTime>
#include <QString>
#include <array>
#include <vector>

#include "parameters/files/comparison.h"

namespace kelvane {

// Fields "Pr. No", "MODBUS", "Description", "Unit", "Data", "Default", "Min", "Max", "Attribute", "Note".
inline constexpr int PrintFields = 10;
using PrintRecord = std::array<QString, PrintFields>;
QStringList printFieldNames();

// Rows 1 to the end, group rows and blank rows among them; each cell goes to the field named by its header.
// Note is empty unless the comparison is printed.
std::vector<PrintRecord> printRecords(const StringGrid& grid, bool comparison);

enum class PrintSource { DriveTable, FileTable, Comparison };

// One block of identity lines: source, model, version, rated current, rated voltage, kW (HP).
struct ReportBlock {
    CompInfoRow texts;  // blank when the block is not used
    int left = 0;       // where it stands
};

struct ReportHead {
    ReportBlock drive;       // displayQRLabel, dDriveQRLabel, dVersionQRLabel, dRatedCurrentQRLabel, ...
    ReportBlock file;        // FileNameQRLabel, fDriveQRLabel, fVersionQRLabel, fRatedCurrentQRLabel, ...
    bool noteShown = false;  // QRLabel12
};

// The blocks come from the visible rows of the comparison's info grid, whatever is printed.
ReportHead reportHead(PrintSource source, const ComparisonSheet& sheet);

// All that the preview, the printer and the PDF are painted from.
struct Report {
    ReportHead head;
    QDateTime DateQRLabel;
    std::vector<PrintRecord> records;
};
Report makeReport(PrintSource source, const StringGrid& grid, const ComparisonSheet& sheet,
                  const QDateTime& now);

}  // namespace kelvane
