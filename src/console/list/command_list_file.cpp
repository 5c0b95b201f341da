#include "console/list/command_list_file.h"

#include <QStringList>
#include <algorithm>
#include <optional>

#include "base/text_8bit.h"

namespace kelvane {

namespace {

constexpr int KeyWidth = 20;  // of page "B": a value stands at character 21
constexpr int ReadLinesB = 10;

const QString PageA = QStringLiteral("[Page A]");
const QString PageB = QStringLiteral("[Page B]");
const QString EmptyCell = QStringLiteral("null");

// ---- Writing ----

QString othersList(const OthersColumn& column, int rowCount) {
    QString list;
    for (int row = 1; row < rowCount; ++row) list += column[static_cast<size_t>(row)] % QLatin1Char(',');
    return list;
}

QString rowList(const std::vector<CommandListRow>& rows, QString CommandListRow::*cell) {
    QStringList items;
    for (const CommandListRow& row : rows) items += (row.*cell).isEmpty() ? EmptyCell : row.*cell;
    return items.join(QLatin1Char(','));
}

QString checkList(const std::vector<CommandListRow>& rows) {
    QStringList items;
    for (const CommandListRow& row : rows) items += row.checked ? QStringLiteral("1") : QStringLiteral("0");
    return items.join(QLatin1Char(','));
}

// Kept: as many items as page "A" has rows, with the cells of page "B". Nobody reads these lines; they keep
// the layout.
QString mixedList(const CommandListFile& file, QString CommandListRow::*cell) {
    QStringList items;
    for (int row = 1; row < file.AdvStringGrid1Rows; ++row) {
        const auto at = static_cast<size_t>(row - 1);
        items += cell && at < file.rows.size() ? file.rows[at].*cell : QString();
    }
    return items.join(QLatin1Char(','));
}

QStringList comSetupLines(const CommandListFile& file) {
    return {QStringLiteral("[Com Setup]"),
            QStringLiteral("Com port     = ") % file.ComSetup.ComPortComboBox,
            QStringLiteral("Modbus Mode  = ") % file.ComSetup.ModeComboBox,
            QStringLiteral("Baud Rate    = ") % file.ComSetup.BaudComboBox,
            QStringLiteral("Dtatabits    = ") % file.ComSetup.DataBitsComboBox,
            QStringLiteral("Parity Check = ") % file.ComSetup.ParityComboBox,
            QStringLiteral("Stopbits     = ") % file.ComSetup.StopBitsComboBox,
            QString()};
}

QStringList pageALines(const CommandListFile& file) {
    const int rows = std::clamp(file.AdvStringGrid1Rows, 1, OthersRoom);
    return {PageA,
            QStringLiteral("Default Command    =") % file.others.OthersDefCmd,
            QStringLiteral("AdvStringGrid1 Row =") % QString::number(file.AdvStringGrid1Rows),
            QStringLiteral("AdvStringGrid1 Name=") % othersList(file.others.OthersName, rows),
            QStringLiteral("AdvStringGrid1 Unit=") % othersList(file.others.OthersUnit, rows),
            QStringLiteral("AdvStringGrid1 Deci=") % othersList(file.others.OthersDeci, rows),
            QString()};
}

QStringList pageBLines(const CommandListFile& file) {
    const QString rowCount = QString::number(file.rows.size() + 1);
    QString breakCells;
    for (const QString& cell : file.breakCells) breakCells += cell;
    return {PageB,
            QStringLiteral("CmdStringGrid Row = ") % rowCount,
            QStringLiteral("CheckBox State    = ") % checkList(file.rows),
            QStringLiteral("Command List      = ") % rowList(file.rows, &CommandListRow::command),
            QStringLiteral("Replied Message   = ") % rowList(file.rows, &CommandListRow::message),
            QStringLiteral("Replied Data      = ") % rowList(file.rows, &CommandListRow::data),
            QStringLiteral("Note List         = ") % rowList(file.rows, &CommandListRow::note),
            QStringLiteral("Replied Format    = ") % file.RepliedFormat,
            QStringLiteral("Timeout Interval  = ") % QString::number(file.TimeOut1),
            QStringLiteral("Timeout Display   = ") % file.timeOutDisplay,
            QStringLiteral("Auto break char   = ") % breakCells,
            QStringLiteral("StringGrid1 Row   = ") % rowCount,
            QStringLiteral("StringGrid1 Addr  = ") % mixedList(file, &CommandListRow::command),
            QStringLiteral("StringGrid1 Name  = ") % mixedList(file, &CommandListRow::message),
            QStringLiteral("StringGrid1 Unit  = ") % mixedList(file, &CommandListRow::note),
            QStringLiteral("StringGrid1 Dot   = ") % mixedList(file, nullptr)};
}

// ---- Reading ----

QString behindEquals(const QString& line) { return line.mid(line.indexOf(QLatin1Char('=')) + 1); }

std::optional<int> toRowCount(const QString& text) {
    bool ok = false;
    const int count = text.trimmed().toInt(&ok);
    return ok ? std::optional(count) : std::nullopt;
}

void takeOthersColumn(const QString& line, int rowCount, OthersColumn& column) {
    const QStringList items = behindEquals(line).split(QLatin1Char(','));
    for (int row = 1; row < rowCount; ++row) column[static_cast<size_t>(row)] = items.value(row - 1);
}

bool readPageA(const QStringList& lines, CommandListFile& file) {
    file.others.OthersDefCmd = behindEquals(lines.value(1));
    const std::optional<int> count = toRowCount(behindEquals(lines.value(2)));
    if (!count) return false;
    const int rows = std::clamp(*count, 1, OthersRoom);
    file.others.OthersRowCount = rows;
    takeOthersColumn(lines.value(3), rows, file.others.OthersName);
    takeOthersColumn(lines.value(4), rows, file.others.OthersUnit);
    takeOthersColumn(lines.value(5), rows, file.others.OthersDeci);
    return true;
}

void takeRowColumn(const QString& list, std::vector<CommandListRow>& rows, QString CommandListRow::*cell) {
    const QStringList items = list.split(QLatin1Char(','));
    for (size_t row = 0; row < rows.size(); ++row) {
        const QString item = items.value(static_cast<qsizetype>(row));
        if (item != EmptyCell) rows[row].*cell = item;
    }
}

void takeChecks(const QString& list, std::vector<CommandListRow>& rows) {
    const QStringList items = list.split(QLatin1Char(','));
    for (size_t row = 0; row < rows.size(); ++row)
        rows[row].checked =
            items.value(static_cast<qsizetype>(row), QStringLiteral("0")) != QLatin1String("0");
}

bool readPageB(const QStringList& lines, CommandListFile& file) {
    const auto value = [&lines](int line) { return lines.value(line).mid(KeyWidth); };
    const std::optional<int> count = toRowCount(value(1));
    if (!count) return false;
    file.rows.assign(static_cast<size_t>(std::clamp(*count - 1, 1, CommandListFile::MaxRows)), {});
    takeChecks(value(2), file.rows);
    takeRowColumn(value(3), file.rows, &CommandListRow::command);
    takeRowColumn(value(4), file.rows, &CommandListRow::message);
    takeRowColumn(value(5), file.rows, &CommandListRow::data);
    takeRowColumn(value(6), file.rows, &CommandListRow::note);
    if (lines.size() <= 7) return false;
    file.RepliedFormat = value(7);
    bool ok = false;
    const uint timeOut = value(8).trimmed().toUInt(&ok);
    if (!ok) return false;
    file.TimeOut1 = timeOut;
    if (lines.size() <= ReadLinesB) return false;
    file.timeOutDisplay = value(9);
    for (size_t i = 0; i < file.breakCells.size(); ++i)
        file.breakCells[i] = value(10).mid(2 * static_cast<qsizetype>(i), 2);
    return true;
}

QStringList linesOf(const QByteArray& bytes) {
    QString text = from8Bit(bytes);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.split(QLatin1Char('\n'));
}

}  // namespace

QByteArray commandListBytes(const CommandListFile& file) {
    const QStringList lines = comSetupLines(file) + pageALines(file) + pageBLines(file);
    return to8Bit(lines.join(QLatin1String("\r\n")) % QLatin1String("\r\n"));
}

CommandListRead readCommandList(const QByteArray& bytes, CommandListFile& file) {
    CommandListRead read;
    const QStringList lines = linesOf(bytes);
    // Kept: the keys are never looked at, and a comma in a cell moves all that follow it in its list.
    for (qsizetype at = 0; at < lines.size() && read.ok; ++at) {
        const bool a = lines[at] == PageA;
        if (!a && lines[at] != PageB) continue;
        (a ? read.pageA : read.pageB) = true;
        read.ok = (a ? readPageA : readPageB)(lines.mid(at, ReadLinesB + 1), file);
    }
    return read;
}

}  // namespace kelvane
