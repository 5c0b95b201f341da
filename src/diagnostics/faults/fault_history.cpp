#include "diagnostics/faults/fault_history.h"

#include "link/fault_names.h"

namespace kelvane {

namespace {

enum Column { NumberColumn, CodeColumn, DescriptionColumn, TimeColumn };
constexpr int EmptyRows = 2;  // header and the row that is always empty

// A cell as .csv: in quotes where it would not stand alone.
QString quoted(const QString& cell, QChar between) {
    if (!cell.contains(between) && !cell.contains(QLatin1Char('"'))) return cell;
    QString text = cell;
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

}  // namespace

FaultHistory::FaultHistory(Operator& person, std::function<QString()> now)
    : m_person(person), m_now(std::move(now)) {
    ErrorAdvStringGrid.setHeaders({QString(), QStringLiteral("Error Code"),
                                   QStringLiteral("Error Description"), QStringLiteral("Time")});
    ErrorAdvStringGrid.setRowCount(EmptyRows);
}

// A fault shows when its text has come; Hazel, whose drives give none, therefore never shows one.
void FaultHistory::showFault(const DriveStatusRecord& DriveStatus) {
    if (DriveStatus.FaultCode == 0 || DriveStatus.FaultTextValid != 1)
        return show(false, QStringLiteral("0"), QStringLiteral("No errors occurred"));
    const QString previous = ErrCodeLabel;
    const bool aspen = DriveStatus.DriveFamily == static_cast<quint8>(Family::Aspen);
    const QString name = aspen ? FaultNamesAspen(DriveStatus.FaultCode) : DriveStatus.FaultName;
    show(true, QString::number(DriveStatus.FaultCode),
         name % QStringLiteral(" : ") % DriveStatus.ExceptionText);
    enter(previous);
}

void FaultHistory::show(bool on, const QString& code, const QString& description) {
    if (on == ErrCodeAbLEDLit && code == ErrCodeLabel && description == ErrDescriptLabel) return;
    ErrCodeAbLEDLit = on;
    ErrCodeLabel = code;
    ErrDescriptLabel = description;
    Q_EMIT changed();
}

// Kept: what the label read before is compared with the last entry (the header stands for one while there is
// none), so one fault following another directly is entered a tick later.
void FaultHistory::enter(const QString& previous) {
    const int n = ErrorAdvStringGrid.RowCount() - 1;
    if (previous == ErrorAdvStringGrid.cell(CodeColumn, n - 1)) return;
    ErrorAdvStringGrid.setRowCount(ErrorAdvStringGrid.RowCount() + 1);
    ErrorAdvStringGrid.setCell(NumberColumn, n, QString::number(n));
    ErrorAdvStringGrid.setCell(CodeColumn, n, ErrCodeLabel);
    ErrorAdvStringGrid.setCell(DescriptionColumn, n, ErrDescriptLabel);
    ErrorAdvStringGrid.setCell(TimeColumn, n, m_now());
    Q_EMIT changed();
}

void FaultHistory::ClearTransparentButtonClick() {
    ErrorAdvStringGrid.blank(NumberColumn, TimeColumn, 1, ErrorAdvStringGrid.RowCount() - 1);
    ErrorAdvStringGrid.setRowCount(EmptyRows);
    Q_EMIT changed();
}

QString FaultHistory::joined(QChar between) const {
    QStringList lines;
    for (int row = 0; row <= entries(); ++row) {
        QStringList cells;
        for (int column = NumberColumn; column <= TimeColumn; ++column)
            cells += quoted(ErrorAdvStringGrid.cell(column, row).trimmed(), between);
        lines += cells.join(between);
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString FaultHistory::asText() const { return joined(QLatin1Char('\t')); }

void FaultHistory::save() {
    const std::optional<QString> path =
        m_person.saveFile(QStringLiteral("Text(*.txt)|*.txt|Table(*.csv)|*.csv"), {});
    if (!path) return;
    const bool csv = path->endsWith(QLatin1String(".csv"), Qt::CaseInsensitive);
    const QString text = joined(csv ? QLatin1Char(',') : QLatin1Char('\t'));
    const FileResult written = writeWhole(*path, text.toUtf8());
    if (!written.ok) m_person.tell(written.error, QStringLiteral("Error"), BoxIcon::Stop);
}

}  // namespace kelvane
