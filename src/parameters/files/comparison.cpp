#include "parameters/files/comparison.h"

#include <algorithm>

namespace kelvane {

namespace {

const auto DriveNote = QStringLiteral("Drive");
const auto FileNote = QStringLiteral("File");
const auto Cofirm = QStringLiteral("Cofirm");

void copyRow(const StringGrid& from, int fromRow, StringGrid& to, int toRow, const QString& note) {
    for (int c = column::PrNo; c <= column::Attribute; ++c) to.setCell(c, toRow, from.cell(c, fromRow));
    to.setCell(column::Note, toRow, note);
}

bool isParameterRow(const StringGrid& grid, int row) {
    return row > 0 && row < grid.RowCount() && !isGroupRow(grid, row) &&
           !grid.cell(column::PrNo, row).isEmpty();
}

int parameterRows(const StringGrid& grid) {
    int count = 0;
    for (int row = 1; row < grid.RowCount(); ++row) count += isParameterRow(grid, row) ? 1 : 0;
    return count;
}

// Walk over both tables by group and number, as the counts tell: row D + N of the drive meets row F + N of
// the file.
template <typename Visit>
void forEachPair(const ParameterTable& drive, const ParameterTable& file, Visit visit) {
    const int groups = std::max(drive.identity.groupCount, file.identity.groupCount);
    // Kept: the first parameter stands in row 2 also in Rowan, which has no group row, so its row 1 is left
    // out.
    int D = 2;
    int F = 2;
    for (int G = 0; G < groups; ++G) {
        const int ofDrive = drive.identity.groupParamCount[static_cast<size_t>(G)];
        const int ofFile = file.identity.groupParamCount[static_cast<size_t>(G)];
        for (int N = 0; N <= std::min(ofDrive, ofFile); ++N) {
            if (D + N >= drive.grid.RowCount() && F + N >= file.grid.RowCount())
                break;  // empty against empty
            visit(D + N, F + N);
        }
        D += ofDrive + 2;
        F += ofFile + 2;
    }
}

}  // namespace

ComparisonSheet::ComparisonSheet() {
    CompareAdvStringGrid.setHeaders(comparisonHeaders());
    CompareAdvStringGrid.setRowCount(2);
    CompInfoAdvStringGrid.setHeaders(
        {QString(), QStringLiteral("Tabel Source"), QStringLiteral("Drive Series"), QStringLiteral("Version"),
         QStringLiteral("Rated Current"), QStringLiteral("Rated Voltage"), QStringLiteral("kW(Hp)")});
    CompInfoAdvStringGrid.setRowCount(3);
}

void fillCompInfoRow(StringGrid& CompInfoAdvStringGrid, int row, const CompInfoRow& texts) {
    for (int i = 0; i < static_cast<int>(texts.size()); ++i)
        CompInfoAdvStringGrid.setCell(i + 1, row, texts[static_cast<size_t>(i)]);
}

CompInfoRow compInfoOf(const QString& source, const TableIdentity& identity) {
    return {source,     identity.model, identity.version, identity.ratedCurrent, identity.ratedVoltage,
            identity.hp};
}

void hideCompInfoRow(StringGrid& CompInfoAdvStringGrid, const QString& CompKindLabel) {
    if (CompKindLabel == QLatin1String(DriveVsDefault)) CompInfoAdvStringGrid.setRowHidden(2, true);
    if (CompKindLabel == QLatin1String(FileVsDefault)) CompInfoAdvStringGrid.setRowHidden(1, true);
}

QStringList compareKinds(bool driveOpen, bool fileOpen) {
    QStringList kinds;
    if (driveOpen) kinds << QString::fromLatin1(DriveVsDefault);
    if (fileOpen) kinds << QString::fromLatin1(FileVsDefault);
    if (driveOpen && fileOpen) kinds << QString::fromLatin1(DriveVsFile);
    return kinds;
}

ComparisonOutcome ComparisonEngine::compare(const QString& kind) {
    emptySheet(kind);
    if (kind == QLatin1String(DriveVsFile)) return driveVsFile();
    return kind == QLatin1String(FileVsDefault) ? withDefaults(m_file, FileNote)
                                                : withDefaults(m_drive, DriveNote);
}

void ComparisonEngine::emptySheet(const QString& kind) {
    StringGrid& result = m_sheet.CompareAdvStringGrid;
    StringGrid& info = m_sheet.CompInfoAdvStringGrid;
    result.blank(column::PrNo, column::Note, 1, result.RowCount() - 1);
    m_sheet.CompKindLabel = kind;
    info.showAllRows();
    info.blank(1, 6, 1, 2);
    if (kind != QLatin1String(FileVsDefault))
        fillCompInfoRow(info, 1, compInfoOf(QStringLiteral("drive"), m_drive.identity));
    if (kind != QLatin1String(DriveVsDefault))
        fillCompInfoRow(info, 2, compInfoOf(m_file.TableFileName, m_file.identity));
    info.setRowCount(3);
    hideCompInfoRow(info, kind);
}

bool ComparisonEngine::sameModelOrWanted() {
    if (m_drive.identity.model == m_file.identity.model) return true;
    return m_person.yes(m_lang.MsgStr(Message::DifferentTypes), Cofirm);
}

ComparisonOutcome ComparisonEngine::driveVsFile() {
    if (!sameModelOrWanted()) return {};
    const StringGrid& drive = m_drive.grid;
    const StringGrid& file = m_file.grid;
    StringGrid& result = m_sheet.CompareAdvStringGrid;
    result.setRowCount(2);
    ComparisonOutcome outcome;
    outcome.notComparedDrive = parameterRows(drive);
    outcome.notComparedFile = parameterRows(file);
    int R = 1;
    forEachPair(m_drive, m_file, [&](int driveRow, int fileRow) {
        if (isParameterRow(drive, driveRow) && isParameterRow(file, fileRow)) {
            --outcome.notComparedDrive;
            --outcome.notComparedFile;
        }
        if (drive.cell(column::Data, driveRow) == file.cell(column::Data, fileRow)) return;
        copyRow(drive, driveRow, result, R, DriveNote);
        copyRow(file, fileRow, result, R + 1, FileNote);
        R += 3;
        ++outcome.differences;
    });
    if (R == 1) {
        m_person.tell(QStringLiteral("No different !"), Cofirm);
        return outcome;
    }
    result.setRowCount(R - 1);
    outcome.shown = true;
    return outcome;
}

ComparisonOutcome ComparisonEngine::withDefaults(const ParameterTable& table, const QString& source) {
    StringGrid& result = m_sheet.CompareAdvStringGrid;
    result.setRowCount(2);
    ComparisonOutcome outcome{.shown = true};
    int R = 1;
    const auto lastIsGroup = [&] { return R > 1 && isGroupRow(result, R - 1); };
    for (int row = 1; row < table.grid.RowCount(); ++row) {
        if (isGroupRow(table.grid, row)) {
            if (lastIsGroup()) --R;
            copyRow(table.grid, row, result, R++, source);
        } else if (table.grid.cell(column::Data, row) != table.grid.cell(column::Default, row)) {
            copyRow(table.grid, row, result, R++, source);
            ++outcome.differences;
        }
    }
    result.setRowCount(lastIsGroup() ? R - 1 : R);
    return outcome;
}

}  // namespace kelvane
