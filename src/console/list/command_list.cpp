#include "console/list/command_list.h"

#include <algorithm>

#include "console/connection/console_texts.h"

namespace kelvane {

namespace {

constexpr int SendCmdInterval = 10;  // ms
constexpr int MaxWords = 130;

const QString HexFormat = QStringLiteral("Replied Data (Hex)");
const QString DecFormat = QStringLiteral("Replied Data (Dec)");

}  // namespace

std::vector<quint16> replyWords(const QByteArray& RxData) {
    const auto count = std::clamp<qsizetype>((RxData.size() - 5) / 2, 0, MaxWords);
    std::vector<quint16> words;
    words.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) words.push_back(wordAt(RxData, 4 + 2 * i));
    return words;
}

CommandList::CommandList(ConsoleTraffic& traffic, TickClock& clock, const Voice& voice)
    : CmdAdvStringGrid(5),
      SendCmdTimer(clock, TickKind::RealTime, SendCmdInterval, [this] { SendCmdTimerTimer(); }),
      m_traffic(traffic),
      m_voice(voice) {
    CmdAdvStringGrid.setHeaders({QString(), QStringLiteral("Command to Send"),
                                 QStringLiteral("Replied Message"), HexFormat, QStringLiteral("Note")});
    CmdAdvStringGrid.addCheckBox(0, true);
    CmdAdvStringGrid.addCheckBox(1, true);
    CmdAdvStringGrid.mayType = [this](int column, int) { return column > 0 && !running(); };
}

bool CommandList::goes(int row) const {
    return CmdAdvStringGrid.checkBox(row) && !CmdAdvStringGrid.cell(CommandColumn, row).isEmpty();
}

// ---- Run ----

bool CommandList::run(quint16 repeat) {
    bool any = false;
    bool odd = false;
    for (int row = 1; row <= CmdAdvStringGrid.RowCount(); ++row) {
        any = any || goes(row);
        odd = odd || (goes(row) && CmdAdvStringGrid.cell(CommandColumn, row).size() % 2 != 0);
    }
    RequestScheduler& link = m_traffic.link;
    if (!any || odd) {
        m_voice.person.tell(m_voice.text(any ? Message::CommandLengthOdd : Message::NoCommandSelected),
                            any ? QStringLiteral("Error") : QStringLiteral("Cofirm"));
        return false;
    }
    CmdAdvStringGrid.blank(MessageColumn, DataColumn, 1, CmdAdvStringGrid.RowCount() - 1);
    m_traffic.cutOff();
    CurrentRow = 0;
    RepeatLeft = repeat;
    link.Console.ListRunning = 1;
    link.Console.Log.CanSend = 1;
    SendCmdTimer.setEnabled(true);
    return true;
}

void CommandList::stop() { SendCmdTimer.setEnabled(false); }

void CommandList::SendCmdTimerTimer() {
    // Kept: the wrap sets CurrentRow to 0 at once, so the reply to the last row is found by "0 means the last
    // row". Each turn of the loop is one pass: a pass in which nothing can go leaves it with CanSend still
    // set.
    for (int pass = 0; pass < 2 && m_traffic.link.Console.Log.CanSend && m_traffic.free(); ++pass) {
        SendCmdTimer.setEnabled(false);
        sendNextRow();
        SendCmdTimer.setEnabled(true);
        if (CurrentRow != CmdAdvStringGrid.RowCount() - 1) return;
        if (!passOver()) return;
    }
}

void CommandList::sendNextRow() {
    const int last = CmdAdvStringGrid.RowCount() - 1;
    while (CurrentRow < last) {
        ++CurrentRow;
        if (!goes(CurrentRow)) continue;
        m_traffic.link.Console.Log.CanSend = 0;
        m_traffic.link.Console.ListRunning = 1;
        m_traffic.send(ConsoleTask, CmdAdvStringGrid.cell(CommandColumn, CurrentRow));
        Q_EMIT rowSent(CurrentRow);
        return;
    }
}

// The last row has been reached; true when another pass begins. The last reply may still be on its way, so
// ListRunning stays.
bool CommandList::passOver() {
    if (RepeatLeft == 1) {
        SendCmdTimer.setEnabled(false);
        Q_EMIT ended();
        return false;
    }
    if (RepeatLeft > 1) --RepeatLeft;
    CurrentRow = 0;
    return true;
}

// ---- Replies ----

int CommandList::replyRow() const { return CurrentRow == 0 ? CmdAdvStringGrid.RowCount() - 1 : CurrentRow; }

void CommandList::takeReply(const QString& command, const QByteArray& RxData) {
    const QString function = command.mid(2, 2);
    const bool hex = CmdAdvStringGrid.cell(DataColumn, 0) == HexFormat;
    const auto text = [hex](quint16 word) {
        return hex ? hexWord(word) % QLatin1Char('H') : QString::number(word);
    };
    QStringList data;
    if (function == QLatin1String("03"))
        for (const quint16 word : replyWords(RxData)) data += text(word);
    if (function == QLatin1String("06")) data += text(wordAt(RxData, 5));
    CmdAdvStringGrid.setCell(MessageColumn, replyRow(), m_traffic.link.Rx.RxLogText);
    CmdAdvStringGrid.setCell(DataColumn, replyRow(), data.join(QLatin1String(", ")));
}

void CommandList::takeFailure() {
    const ConsoleRecord& told = m_traffic.link.Console.Log;
    CmdAdvStringGrid.setCell(MessageColumn, replyRow(), told.RepliedMessage);
    if (!told.RepliedData.isNull()) CmdAdvStringGrid.setCell(DataColumn, replyRow(), told.RepliedData);
}

// ---- Editing ----

void CommandList::addRow() {
    if (CmdAdvStringGrid.RowCount() > CommandListFile::MaxRows) return;
    CmdAdvStringGrid.addCheckBox(CmdAdvStringGrid.RowCount(), true);
}

void CommandList::insertRow(int current) {
    if (CmdAdvStringGrid.RowCount() > CommandListFile::MaxRows) return;
    const int row = current < 1 ? CmdAdvStringGrid.RowCount() : current;
    CmdAdvStringGrid.insertBlankRow(row);
    CmdAdvStringGrid.addCheckBox(row, true);
}

void CommandList::deleteRow(int current) {
    if (CmdAdvStringGrid.RowCount() <= 2) return CmdAdvStringGrid.setCell(CommandColumn, 1, {});
    if (current >= 1) CmdAdvStringGrid.deleteRow(current);
}

void CommandList::clickCheckBox(int row, bool set) {
    // The header's box stands for all rows.
    const int last = row == 0 ? CmdAdvStringGrid.RowCount() - 1 : row;
    for (int at = row; at <= last; ++at) CmdAdvStringGrid.setCheckBox(at, set);
}

void CommandList::toggleFormat() {
    const bool hex = CmdAdvStringGrid.cell(DataColumn, 0) == HexFormat;
    CmdAdvStringGrid.setCell(DataColumn, 0, hex ? DecFormat : HexFormat);
}

// ---- File ----

std::vector<CommandListRow> CommandList::rows() const {
    std::vector<CommandListRow> rows;
    for (int row = 1; row < CmdAdvStringGrid.RowCount(); ++row)
        rows.push_back({CmdAdvStringGrid.checkBox(row), CmdAdvStringGrid.cell(CommandColumn, row),
                        CmdAdvStringGrid.cell(MessageColumn, row), CmdAdvStringGrid.cell(DataColumn, row),
                        CmdAdvStringGrid.cell(NoteColumn, row)});
    return rows;
}

void CommandList::setRows(const std::vector<CommandListRow>& rows) {
    CmdAdvStringGrid.setRowCount(static_cast<int>(rows.size()) + 1);
    for (size_t i = 0; i < rows.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        StringGrid::RowFilling filling(CmdAdvStringGrid, row);
        CmdAdvStringGrid.addCheckBox(row, rows[i].checked);
        CmdAdvStringGrid.setCell(CommandColumn, row, rows[i].command);
        CmdAdvStringGrid.setCell(MessageColumn, row, rows[i].message);
        CmdAdvStringGrid.setCell(DataColumn, row, rows[i].data);
        CmdAdvStringGrid.setCell(NoteColumn, row, rows[i].note);
    }
    CurrentRow = 0;
}

}  // namespace kelvane
