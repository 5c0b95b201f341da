#include "parameters/report/print_records.h"

namespace kelvane {

namespace {

constexpr int FirstBlockLeft = 133;
constexpr int SecondBlockLeft = 254;

CompInfoRow visibleInfo(const StringGrid& info, int visibleRow) {
    CompInfoRow texts;
    for (size_t i = 0; i < texts.size(); ++i)
        texts[i] = info.visibleCell(static_cast<int>(i) + 1, visibleRow);
    return texts;
}

}  // namespace

QStringList printFieldNames() { return comparisonHeaders().mid(1); }

std::vector<PrintRecord> printRecords(const StringGrid& grid, bool comparison) {
    const QStringList names = printFieldNames();
    const int lastColumn = comparison ? column::Note : column::Attribute;
    std::vector<PrintRecord> records;
    for (int row = 1; row < grid.RowCount(); ++row) {
        PrintRecord record;
        for (int c = column::PrNo; c <= lastColumn; ++c) {
            const auto field = names.indexOf(grid.cell(c, 0));
            if (field >= 0) record[static_cast<size_t>(field)] = grid.cell(c, row);
        }
        records.push_back(std::move(record));
    }
    return records;
}

ReportHead reportHead(PrintSource source, const ComparisonSheet& sheet) {
    const StringGrid& info = sheet.CompInfoAdvStringGrid;
    const bool comparison = source == PrintSource::Comparison;
    const bool file = source == PrintSource::FileTable ||
                      (comparison && sheet.CompKindLabel == QLatin1String(FileVsDefault));
    const bool both = comparison && !file && sheet.CompKindLabel != QLatin1String(DriveVsDefault);
    ReportHead head;
    head.noteShown = comparison;
    // Kept: a plain table has its identity from the last comparison, so it is blank before any.
    ReportBlock& first = file ? head.file : head.drive;
    first = {visibleInfo(info, 1), FirstBlockLeft};
    if (both) head.file = {visibleInfo(info, 2), SecondBlockLeft};
    return head;
}

Report makeReport(PrintSource source, const StringGrid& grid, const ComparisonSheet& sheet,
                  const QDateTime& now) {
    return {reportHead(source, sheet), now, printRecords(grid, source == PrintSource::Comparison)};
}

}  // namespace kelvane
