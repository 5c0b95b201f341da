#include "parameters/files/table_file.h"

#include <algorithm>

namespace kelvane {

TableFileKind tableFileKind(const QString& path) {
    // Kept: "x.Txt" is no kind at all.
    const auto endsIn = [&](const char* lower, const char* upper) {
        return path.endsWith(QLatin1String(lower)) || path.endsWith(QLatin1String(upper));
    };
    if (endsIn(".txt", ".TXT")) return TableFileKind::Text;
    if (endsIn(".csv", ".CSV")) return TableFileKind::Csv;
    if (endsIn(".xls", ".XLS")) return TableFileKind::Spreadsheet;
    return TableFileKind::Unsupported;
}

QString saveFilter(TableFileKind kind) {
    switch (kind) {
        case TableFileKind::Text: return QStringLiteral("Text Fiels(*.txt)|*.txt");
        case TableFileKind::Csv: return QStringLiteral("CSV Fiels(*.csv)|*.CSV");
        default: return QStringLiteral("Microsoft Excel Fiels(*.xls)|*.xls");
    }
}

QString saveSuffix(TableFileKind kind) {
    switch (kind) {
        case TableFileKind::Text: return QStringLiteral(".txt");
        case TableFileKind::Csv: return QStringLiteral(".CSV");
        default: return QStringLiteral(".xls");
    }
}

QString openTableFilter() {
    return QStringLiteral(
        "Text Files(*.txt)|*.txt|CSV Files(*.csv)|*.csv|Microsoft Excel Files(*.xls)|*.xls");
}

int savedGroupCount(const TableIdentity& identity, bool RparaAbLED) {
    return std::min(identity.groupCount + (RparaAbLED ? 1 : 0), int(identity.groupParamCount.size()));
}

void applyTable(const LoadedTable& loaded, ParameterTable& table) {
    StringGrid& grid = table.grid;
    table.identity = loaded.identity;
    table.clear();
    grid.setRowCount(1);
    grid.setRowCount(static_cast<int>(loaded.rows.size()) + 1);
    for (int row = 1; row < grid.RowCount(); ++row) {
        const LoadedTable::Row& from = loaded.rows[static_cast<size_t>(row - 1)];
        for (int c = column::PrNo; c < TableColumns; ++c)
            grid.setCell(c, row, from.cells[static_cast<size_t>(c)]);
        if (from.check) grid.addCheckBox(row, *from.check);
    }
}

void applyComparison(const LoadedComparison& loaded, ComparisonSheet& sheet) {
    StringGrid& grid = sheet.CompareAdvStringGrid;
    grid.setRowCount(1);
    grid.setRowCount(static_cast<int>(loaded.rows.size()) + 1);
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int c = column::PrNo; c <= column::Note; ++c)
            grid.setCell(c, row, loaded.rows[static_cast<size_t>(row - 1)][static_cast<size_t>(c)]);
    StringGrid& info = sheet.CompInfoAdvStringGrid;
    info.showAllRows();
    info.setRowCount(3);
    fillCompInfoRow(info, 1, loaded.driveInfo);
    fillCompInfoRow(info, 2, loaded.fileInfo);
    sheet.CompKindLabel = loaded.CompKindLabel;
    hideCompInfoRow(info, sheet.CompKindLabel);
}

}  // namespace kelvane
