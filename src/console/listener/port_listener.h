// The "Monitor" page: the port is only listened to, outside the request cycle, and what comes is cut into
// lines by break bytes or by length. Lines carry their time of day; the oldest go when there are too many.
#pragma once

#include <QObject>
#include <QTime>
#include <deque>

#include "base/string_grid.h"
#include "console/connection/console_traffic.h"

namespace kelvane {

struct ListenerLine {
    QString text;
    QTime at;  // of its first byte
};

class PortListener : public QObject {
    Q_OBJECT
   public:
    static constexpr int MaxBreakLength = 4;
    static constexpr size_t Room = 50000;                  // lines
    static constexpr qsizetype RoomCharacters = 10000000;  // of all lines

    PortListener(ConsoleTraffic& traffic, const WallClock& wallClock, const Voice& voice);

    // One row of up to four cells of two hexadecimal digits; as many are shown as the break has bytes.
    StringGrid BreakAdvStringGrid;
    bool AutoBreakChRadioButtonChecked = true;  // else LengthLimitRadioButton
    QString WordCntLabeledEdit = QStringLiteral("20");
    QString MonitorRxLine;
    quint8 MonitorFirstChar = 0;
    quint8 BreakIndex = 0;

    const std::deque<ListenerLine>& lines() const { return m_lines; }  // RxMemo
    qint64 addedLines() const { return m_added; }                      // since the last clearing
    qint64 goneLines() const { return m_added - static_cast<qint64>(m_lines.size()); }

    bool running() const { return m_running; }
    int breakLength() const { return m_breakLength; }
    void setBreakLength(int count);  // 1 to 4
    QString breakCell(int index) const;
    std::array<QString, MaxBreakLength> breakCells() const;
    void setBreakCells(const std::array<QString, MaxBreakLength>& cells);

    void RUNmonitorTransparentButtonClick();
    void STOPmonitorTransparentButtonClick();
    // The port is gone while it was listened to: what was heard stays, and the history has the reason.
    void portLost(const QString& reason);
    const QString& notice() const { return m_notice; }
    void ClearClick();
    QString text() const;  // as "Save" writes it, without the times
    // Kept: two frames go out by two clicks, then the listener starts. No button of the window shows it.
    void Button1Click();

   Q_SIGNALS:
    void stateChanged();
    void linesAdded();
    void cleared();

   private:
    void takeBurst(const QByteArray& bytes);
    void takeItem(const QString& item, quint8 byte);
    void takeByLength(const QString& item, quint8 byte);
    void takeByBreak(const QString& item);
    void takeBreakItem(const QString& item);
    void putLine(const QString& line);
    void add(const QString& item);
    QString added(const QString& item) const;
    int lengthLimit() const;
    void clearCutting();
    bool rtu() const { return m_traffic.link.mode() == LinkMode::Rtu; }

    ConsoleTraffic& m_traffic;
    const Voice m_voice;
    const WallClock& m_wallClock;
    std::deque<ListenerLine> m_lines;
    qint64 m_added = 0;
    qsizetype m_characters = 0;
    bool m_running = false;
    QString m_notice;
    int m_breakLength = MaxBreakLength;
    int m_step = 0;          // of Button1
    bool m_byBreak = false;  // of the present burst
    QTime m_burstAt;
    QTime m_lineAt;
    QString m_expected;
};

}  // namespace kelvane
