// The recording half of a trend object (AbTrend1, AbTrend2 of the Trend window, AbTrend1 of the Monitor):
// takes one record of all channels every Interval while it records, marks each break with separators, saves
// and loads. A plot paints its data.
#pragma once

#include <QObject>
#include <functional>

#include "base/tick_clock.h"
#include "base/trend_channel.h"
#include "base/wall_clock.h"
#include "base/whole_file.h"

namespace kelvane {

class TrendRecorder : public QObject {
    Q_OBJECT
   public:
    static constexpr int SeparatorRecords = 5;
    static constexpr int LeastInterval = 100;  // ms
    static constexpr qint64 LeastMaxRecords = 100;

    // Clocks outlive it.
    TrendRecorder(TickClock& clock, const WallClock& wallClock, int channelCount);

    TrendData data;
    TrendChannel& Channel(int number) { return data.channels[static_cast<size_t>(number - 1)]; }
    qint64 TotalRecords() const { return data.records.size(); }

    // Starting puts a separator before the last record, when there is more than one.
    void SetStartRecording(bool on);
    bool recording() const { return m_timer.Enabled(); }
    // The view follows the newest record, and at MaxRecords the oldest make room.
    void SetFlow(bool on) { m_flow = on; }
    bool Flow() const { return m_flow; }
    // One record now.
    void GetData();
    void ClearRecords();
    int Interval() const { return m_timer.Interval(); }
    void SetInterval(int ms);  // below 100 is refused
    qint64 MaxRecords() const { return m_maxRecords; }
    void SetMaxRecords(qint64 count);  // below 100 is refused
    qint64 DeleteCount = 500000000;    // records that stay when MaxRecords is reached

    // While it answers false the timer takes no record.
    std::function<bool()> mayRecord;

    FileResult SaveToFile(const QString& name) const;
    // Stops the recording and appends the file's records, behind a separator when there is more than one
    // record.
    FileResult LoadFromFile(const QString& name);

   Q_SIGNALS:
    void OnInterval();       // a record was taken
    void OnRecNoChanged();   // the number of records is another one
    void recordsReplaced();  // cleared, loaded, separated: more than one record behind the last
    void startedOrStopped();
    void noRoom();  // no memory for another record; the recording has stopped

   private:
    void AddSeparator();
    void makeRoom();
    void giveUp();
    void timerDue();
    void timerStarts();
    TickClock& m_clock;
    const WallClock& m_wallClock;
    TickTimer m_timer;
    qint64 m_dueUs = 0;  // of the next record
    bool m_flow = false;
    qint64 m_maxRecords = 1000000000;
};

}  // namespace kelvane
