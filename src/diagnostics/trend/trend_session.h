// The Trend window without its widgets: what feeds the two trend objects, what starts and stops a run, the
// cursor's texts, the Status tab's values, scope files and the journal. It sends nothing; its data come from
// the idle poll of the link. TScopeForm shows its fields.
#pragma once

#include <QObject>
#include <functional>

#include "base/operator.h"
#include "base/string_grid.h"
#include "base/trend_view.h"
#include "diagnostics/trend/trend_csv.h"
#include "diagnostics/trend/trend_info.h"
#include "diagnostics/trend/trend_journal.h"
#include "diagnostics/trend/trend_recorder.h"
#include "link/request_scheduler.h"

namespace kelvane {

// What the session works on; all of it outlives the session.
struct TrendSite {
    TickClock& clock;
    const WallClock& wallClock;
    RequestScheduler& link;
    Operator& person;
    QString journalFolder;
};

class TrendSession : public QObject {
    Q_OBJECT
   public:
    static constexpr int Channels = 8;
    static constexpr int LogicLines = 4;

    explicit TrendSession(const TrendSite& site);
    ~TrendSession() override;

    // Fields of the window. Arrays of channels have channel 1 at [1].
    TrendRecorder AbTrend1;
    TrendRecorder AbTrend2;
    std::array<int, Channels + 1> ChannelItem{};
    quint16 RunState = 0;
    quint16 DirState = 0;
    bool LogicPrimed = false;
    bool StartVrPowerButtonOn = false;
    bool TrendScrollBarEnabled = true;            // enabled
    bool StatusTabSheetShown = false;             // shown
    bool opCursorOnRec = true;                    // of AbTrend1
    bool KeypadTransparentButtonEnabled = false;  // enabled
    int LeftScaleCh = 1;
    TickTimer GetDataTimer;
    std::array<bool, Channels + 1> ChVrPowerButton{};
    // Selected entry of the item box, -1 for none; kept as it is while the box has no such entry.
    std::array<int, Channels + 1> ChComboBox{};
    QStringList items;  // of the boxes
    std::array<QString, Channels + 1> ChLabeledEdit;
    QString RecNoLabel;
    QString RecTimeLabel;
    std::array<QString, LogicLines + 1> LogicLabel;  // RUNCmdLabel, RUNStaLabel, FWDCmdLabel, FWDStaLabel
    StringGrid InfoAdvStringGrid{8};
    QList<TrendMarker> markers;
    QString notice;  // what went wrong or well last, for the window's foot

    // Fault display, the first step of ProcessScopeData; set by who owns it.
    std::function<void(const DriveStatusRecord&)> showFault;
    // Com setup with what follows it; then runs when its last window has closed. Set by the shell.
    std::function<void(std::function<void()> then)> openComSetup;

    // ---- Data
    void GetDataTimerTimer();
    void ProcessScopeData(DriveStatusRecord DriveStatus);
    void ChangeChanelSetting(int channel);
    // What a drive that was recognised changes: item names, formats and units of the channels, the Status
    // tab.
    void InitialDrive(const QStringList& itemList);
    void takeItemNames(const QStringList& itemList);
    quint32 stateWord() const { return status().StatusWords[1]; }
    // Replies of the keypad's commands move the command lines.
    void commandAnswered(quint8 task);
    void suspend();
    void resume();

    // The window opens: its keypad button is enabled on line only.
    void opened() { offerKeypad(m_site.link.Lamp.onLine()); }

    // ---- Hand
    void StartVrPowerButtonClick(bool on);
    void ChVrPowerButtonClick(int channel, bool on);
    void ChComboBoxCloseUp(int channel, int ItemIndex);
    void ClearTransparentButtonClick();
    void SaveScopeDataTransparentButtonClick();
    void LoadScopeDataTransparentButtonClick();
    void CursorTransparentButtonClick();
    void FormClose();

    // ---- Cursor
    void AbTrend1NewCursorPos(const ValueAtCursor& value);
    void AbTrend2NewCursorPos(const ValueAtCursor& value);

    // ---- Option dialog
    QString ChLeftEdit(int OptionLeftChannel);  // text of the top of a channel's scale
    void OKTransparentButtonClick(int OptionLeftChannel, const QString& text,
                                  const std::array<int, Channels + 1>& penWidths);

    // ---- Of our own: settings of a recording, its journal, its table
    FileResult saveTo(const QString& path);
    void loadFrom(const QString& path);
    // Of the records from that one on, which its markers count from.
    TrendInfo info(qint64 fromRecord = 0) const;
    std::optional<TrendInfo> offeredInfo;  // of the file loaded last
    void takeOfferedInfo();
    void declineOfferedInfo();
    // Runs that nobody saved, without those that were opened and are in memory.
    QList<TrendJournal::Run> offeredRuns() const;
    void openRun(const TrendJournal::Run& run);
    void removeRun(const TrendJournal::Run& run);
    void saveCsv(qint64 from, qint64 to);
    void addMarker(qint64 record, const QString& name);
    void removeMarker(qsizetype index);

   Q_SIGNALS:
    void changed();        // switches, texts, formats
    void scalesChanged();  // of a channel: the curves are drawn anew
    void cursorTexts();    // cursor edits and labels only
    void statusShown();    // the state words were looked at: lamps
    void offersChanged();  // offeredInfo, offeredRuns()
    void loaded();         // a file was loaded: show it whole

   private:
    void followLink();
    void offerKeypad(bool offered);
    void startRun();
    void stopRun();
    void setCaptions();
    void clearRecords();
    void forgetTakenItems();
    void offerInfo(const FileContent& described, qint64 firstRecord);
    qint64 firstOfLoad() const;
    void showInfoValues(const DriveStatusRecord& status);
    void recordTaken();
    void keepJournal();
    void endJournal();
    void tell(const QString& text);
    const DriveStatusRecord& status() const { return m_site.link.DriveStatus; }
    TrendSite m_site;
    TrendJournal m_journal;
    struct ShownItem {
        QString name;
        quint8 decimals = 0;
        quint8 scale = 0;
    };
    ShownItem shownItem(int channel) const;
    // Of a recording whose settings were taken over, until another item is chosen or a drive comes.
    std::array<std::optional<ShownItem>, Channels + 1> m_takenItem;
    QString m_takenDrive;  // identity that came with those settings
    int m_takenFamily = -1;
    QStringList m_openedRuns;   // of the journal, by id: in memory and not saved yet
    qint64 m_journalStart = 0;  // first record of the run that is being written
    bool m_journalFailed = false;
    bool m_unsaved = false;
};

// Whole part plus at most that many digits of the fraction, each a tenth of the last; without a separator an
// integer. Whatever is no number counts as 0.
double ParseFixed(int decimals, const QString& text);

}  // namespace kelvane
