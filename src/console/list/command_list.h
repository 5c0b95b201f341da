// The command list of page "B": rows that are checked go out one after the other, as often as asked, and what
// comes back stands beside each. A row goes when the one before has been answered, refused or given up.
#pragma once

#include <QObject>

#include "base/string_grid.h"
#include "console/connection/console_traffic.h"
#include "console/list/command_list_file.h"

namespace kelvane {

class CommandList : public QObject {
    Q_OBJECT
   public:
    static constexpr int CommandColumn = 1;
    static constexpr int MessageColumn = 2;
    static constexpr int DataColumn = 3;
    static constexpr int NoteColumn = 4;

    CommandList(ConsoleTraffic& traffic, TickClock& clock, const Voice& voice);

    StringGrid CmdAdvStringGrid;
    quint16 CurrentRow = 0;  // row last sent; 0 before the first one
    quint16 RepeatLeft = 0;  // passes; 0 for ever
    TickTimer SendCmdTimer;

    // Page "B" RUN. False, with a box, when nothing or something of odd length is checked.
    bool run(quint16 repeat);
    void stop();
    bool running() const { return SendCmdTimer.Enabled(); }

    // A good reply to a row's command, and the outcome of one that failed.
    void takeReply(const QString& command, const QByteArray& RxData);
    void takeFailure();

    void addRow();
    void insertRow(int current);
    void deleteRow(int current);  // a current row below 1 stands for the one past the end
    void clickCheckBox(int row, bool set);
    void toggleFormat();

    std::vector<CommandListRow> rows() const;
    void setRows(const std::vector<CommandListRow>& rows);

   Q_SIGNALS:
    void rowSent(int row);
    void ended();  // by itself: the repeats are used up

   private:
    void SendCmdTimerTimer();
    void sendNextRow();
    bool passOver();
    int replyRow() const;
    bool goes(int row) const;

    ConsoleTraffic& m_traffic;
    const Voice m_voice;
};

// Words of a good reply, high byte first, from its binary form; none when it is too short.
std::vector<quint16> replyWords(const QByteArray& RxData);

}  // namespace kelvane
