#include "parameters/exchange/write_list.h"

#include <algorithm>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr Rgb RunningForbidsText = 0xFF0000;
constexpr Rgb DoubtfulBackground = 0xFFE08A;
constexpr Rgb DoubtfulText = 0x000000;

bool takes(WriteMode mode, const StringGrid& source, int row) {
    if (isGroupRow(source, row)) return false;
    return mode == WriteMode::Selected ? source.checkBox(row) : isWritable(source, row);
}

bool isAddress(const QString& text) {
    return text.size() == 4 && std::all_of(text.begin(), text.end(), [](QChar c) {
               return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
                      (c >= QLatin1Char('A') && c <= QLatin1Char('F'));
           });
}

QString familyText(Family family) {
    const QString name = QString::fromLatin1(familyName(family));
    return name.isEmpty() ? QStringLiteral("unknown") : name;
}

}  // namespace

QStringList errorHeaders() {
    return {QString(),
            QStringLiteral("Pr. NO"),
            QStringLiteral("Decription"),
            QStringLiteral("Value"),
            QStringLiteral("Error Code"),
            QStringLiteral("Error Description")};
}

void setWriteListHeaders(StringGrid& AdvStringGrid1) {
    AdvStringGrid1.setHeaders(writeListHeaders());
    AdvStringGrid1.setRowCount(2);
}

void clearErrorRecord(StringGrid& ErrorAdvStringGrid) {
    ErrorAdvStringGrid.setHeaders(errorHeaders());
    ErrorAdvStringGrid.blank(0, ErrorColumns - 1, 1, ErrorAdvStringGrid.RowCount());
    ErrorAdvStringGrid.setRowCount(2);
}

void addErrorLine(StringGrid& ErrorAdvStringGrid, const ErrorLine& line) {
    const int row = ErrorAdvStringGrid.RowCount() - 1;
    int column = 1;
    for (const QString& text : {line.PrNo, line.Description, line.Value, line.Code, line.Text})
        ErrorAdvStringGrid.setCell(column++, row, text);
    ErrorAdvStringGrid.setRowCount(row + 2);
}

int takeRows(const StringGrid& source, WriteMode mode, bool useDefaults, StringGrid& AdvStringGrid1) {
    AdvStringGrid1.setRowCount(1);
    int to = 0;
    for (int row = 1; row < source.RowCount(); ++row) {
        if (!takes(mode, source, row)) continue;
        AdvStringGrid1.addCheckBox(++to, true);
        for (int c = column::PrNo; c <= column::RunSet; ++c)
            AdvStringGrid1.setCell(c, to, source.cell(c, row));
        if (useDefaults) AdvStringGrid1.setCell(column::Data, to, source.cell(column::Default, row));
    }
    if (to == 0) AdvStringGrid1.setRowCount(2);
    return to;
}

int checkedRows(const StringGrid& AdvStringGrid1) {
    int count = 0;
    for (int row = 1; row < AdvStringGrid1.RowCount(); ++row) count += AdvStringGrid1.checkBox(row) ? 1 : 0;
    return count;
}

std::optional<QString> writeCommand(const StringGrid& AdvStringGrid1, int row) {
    const QString address = AdvStringGrid1.cell(column::Address, row);
    const std::optional<QString> word = registerWordOf(AdvStringGrid1.cell(column::Data, row));
    if (!word || !isAddress(address)) return std::nullopt;
    return QStringLiteral("FF06") % address % *word;
}

std::optional<RowDoubt> doubtOf(const StringGrid& AdvStringGrid1, int row) {
    if (row <= 0) return std::nullopt;
    const QString text = AdvStringGrid1.cell(column::Data, row);
    const std::optional<int> number = withoutSeparatorToInt(text);
    if (!number) return RowDoubt{false, QStringLiteral("is no number, not sent")};
    if (*number < LeastWord || *number > GreatestWord)
        return RowDoubt{false, QStringLiteral("does not fit a register, not sent")};
    const qsizetype separator = text.indexOf(DecimalSep);
    const qsizetype behind = separator < 0 ? 0 : text.size() - separator - DecimalSep.size();
    const int places = dotOf(AdvStringGrid1, row);
    if (behind == places) return std::nullopt;
    return RowDoubt{true,
                    QStringLiteral("goes out as %1 (%2H)")
                        .arg(InsertDecimalPoint(QString::number(*number), places), *registerWordOf(text))};
}

CellColours writeListColours(const StringGrid& AdvStringGrid1, int column, int row) {
    if (column == column::Data && doubtOf(AdvStringGrid1, row)) return {DoubtfulText, DoubtfulBackground};
    if (row <= 0 || AdvStringGrid1.cell(column::RunSet, row) != QLatin1String("false")) return {};
    return {RunningForbidsText, std::nullopt};
}

WriteSummary writeSummaryOf(const StringGrid& AdvStringGrid1, Family source, Family drive,
                            const std::function<std::optional<QString>(int row)>& heldByDrive) {
    WriteSummary summary;
    for (int row = 1; row < AdvStringGrid1.RowCount(); ++row) {
        if (!AdvStringGrid1.checkBox(row)) continue;
        ++summary.rows;
        if (!isWritable(AdvStringGrid1, row)) ++summary.readOnly;
        if (doubtOf(AdvStringGrid1, row)) ++summary.doubtful;
        const std::optional<QString> held = heldByDrive(row);
        if (!held) {
            ++summary.unknown;
        } else if (*held != AdvStringGrid1.cell(column::Data, row)) {
            ++summary.differing;
        }
    }
    if (source != drive) {
        summary.sourceFamily = familyText(source);
        summary.driveFamily = familyText(drive);
    }
    return summary;
}

QString writeSummaryText(const WriteSummary& summary) {
    QStringList parts;
    if (summary.unknown < summary.rows)
        parts += QStringLiteral("%1 of %2 differ from what the drive held")
                     .arg(summary.differing)
                     .arg(summary.rows - summary.unknown);
    if (summary.unknown > 0)
        parts += QStringLiteral("%1 with no value read from the drive").arg(summary.unknown);
    if (summary.readOnly > 0) parts += QStringLiteral("%1 read-only").arg(summary.readOnly);
    if (summary.doubtful > 0) parts += QStringLiteral("%1 doubtful").arg(summary.doubtful);
    if (summary.outOfSight > 0)
        parts += QStringLiteral("%1 not in sight in the table").arg(summary.outOfSight);
    if (!summary.sourceFamily.isEmpty())
        parts += QStringLiteral("the table is of the family %1, the drive of the family %2")
                     .arg(summary.sourceFamily, summary.driveFamily);
    return parts.join(QStringLiteral("; "));
}

}  // namespace kelvane
