// Page "A": one register block is polled with one command and shown row by row; the drive's status as lamps,
// six buttons that command the drive, and up to four rows as a strip chart. The table is a series' own or,
// with "Others", the person's.
#pragma once

#include <QObject>
#include <QStringList>
#include <array>
#include <deque>

#include "base/string_grid.h"
#include "catalogue/state_leds.h"
#include "console/connection/console_traffic.h"
#include "console/list/command_list_file.h"
#include "link/request_chain.h"

namespace kelvane {

// Lamps of a second status word (2101h); coded: run and direction have two bits each. Kept: EXT is never lit.
StateLeds panelLeds(quint16 word, bool coded);

// One channel of the chart: values by number, oldest first. The oldest go when there are too many.
struct ChartSeries {
    static constexpr size_t Room = 100000;
    std::deque<double> values;
    qint64 firstX = 0;
    bool shown = false;
    qint64 largestX() const { return firstX + static_cast<qint64>(values.size()) - 1; }
    void add(double value);
};

enum class DriveButton : quint8 { None, Run, Stop, Dir, Jog, Reset, Ef };

class DrivePanel : public QObject {
    Q_OBJECT
   public:
    static constexpr int AddressColumn = 1;
    static constexpr int NameColumn = 2;
    static constexpr int DataColumn = 3;
    static constexpr int UnitColumn = 4;
    static constexpr int DecimalColumn = 5;
    static constexpr int Channels = 4;

    DrivePanel(ConsoleTraffic& traffic, StringGrid& CmdAdvStringGrid, TickClock& clock, const Voice& voice);

    StringGrid AdvStringGrid1;
    OthersTable others;
    int SelDriveComboBoxItemIndex = 0;
    quint8 SelDriveTag = 0;  // 1: "Others" is the table on screen
    QString DefCmdLabeledEdit;
    QString monitorIDLabeledEdit = QStringLiteral("255");
    quint8 MonitorUpDown = 255;
    quint8 PendingDriveCmd = 0;
    quint16 RepeatLeft = 0;  // 0 for ever
    RequestChain SendDefCmdTimer;
    StateLeds leds;

    QStringList channelItems;
    std::array<int, Channels> ChComboBoxItemIndex{};  // items; 0 for none
    std::array<ChartSeries, Channels> Series;
    QString PointLabeledEdit = QStringLiteral("20");
    bool chartShown = false;
    qint64 axisMinimum = 0;
    qint64 axisMaximum = 20;

    bool othersSelected() const;
    // The person's own table is on screen, and nothing polls it.
    bool mayEdit() const { return SelDriveTag == 1 && !m_running; }
    bool running() const { return m_running; }

    void SelDriveComboBoxChange();
    void selectSeries(int item);
    // Copies the table on screen to the arrays, when it is "Others".
    void storeOthers();
    // The arrays to the screen, after a file was opened.
    void rebuildOthers();
    void addRow();
    void insertRow(int current);
    void deleteRow(int current);
    void toggleFormat();
    void rebuildChannels();
    void fillEmptyDecimals();
    void typeCommand(const QString& text);
    void typeId(const QString& text);
    void stepId(int position);

    // Page "A" RUN. False, with a box, when there is no command.
    bool run(quint16 repeat);
    void stop();
    void press(DriveButton button);
    void clearChart();

   Q_SIGNALS:
    void tableChanged();  // command, series, edit state or ID
    void channelsChanged();
    void ledsChanged();
    void chartChanged();
    void ended();  // by itself: the repeats are used up
    void motorStopGiven();

   private:
    std::optional<LinkRequest> nextRequest();
    LinkRequest pendingRequest();
    bool takeReading();
    void showWords();
    bool addToChart();
    void showStatus();
    void followAxis(const ChartSeries& series);
    bool countRepeat();
    int wordCount() const;
    void fillSeries(int index);
    void fillOthers();
    void fillAddresses();
    void takeId(int id);
    void setLeds(const StateLeds& lit);

    ConsoleTraffic& m_traffic;
    const Voice m_voice;
    StringGrid& m_commandList;
    bool m_running = false;
    bool m_hasRead = false;  // in this run
};

}  // namespace kelvane
