// A copy on disk of what is being recorded, so that a run outlives a crash, a power cut of the screen's PC or
// a window that was closed without saving. A run is one or two plain scope files of at most a million records
// with an info file beside them; the oldest runs make room. Nothing here is ever loaded by itself.
#pragma once

#include <QDateTime>
#include <QFile>
#include <QStringList>

#include "base/trend_records.h"
#include "base/wall_clock.h"
#include "base/whole_file.h"

namespace kelvane {

class TrendJournal {
   public:
    struct Run {
        QString id;  // "20260302-090807-060"
        QDateTime start;
        qint64 records = 0;  // in the files that are still there
        QStringList files;   // in order
        QString infoFile;
    };
    static constexpr qint64 SegmentRecords = 1000000;
    static constexpr int SegmentsOfRun = 2;
    static constexpr int MostRuns = 4;
    static constexpr int LeastRecords = 10;  // a shorter run is not worth a question
    static constexpr int WriteEvery = 5;     // records

    // The folder is made when the first run begins. The clock outlives the journal.
    TrendJournal(QString folder, const WallClock& clock) : m_folder(std::move(folder)), m_clock(clock) {}
    ~TrendJournal() { close(); }
    TrendJournal(const TrendJournal&) = delete;
    TrendJournal& operator=(const TrendJournal&) = delete;

    bool open() const { return m_file.isOpen(); }
    // The records from that one on belong to a new run.
    FileResult begin(qint64 fromRecord);
    // Writes what has been added. The newest record waits, since a break may still be put in before it.
    FileResult follow(const TrendRecords& records);
    void writeInfo(const QByteArray& info);  // only when it differs from the last
    // The run goes on behind what was loaded from elsewhere.
    void skipTo(const TrendRecords& records) { m_next = records.size(); }
    // Writes the rest; the run stays as an unsaved one.
    void finish(const TrendRecords& records);
    // The run was saved: its files go.
    void discard();

    // Runs that nobody saved, newest first, without the one being written.
    QList<Run> unsaved() const;
    void remove(const Run& run);

   private:
    QString fileName(int segment) const;
    FileResult openSegment(int segment);
    FileResult write(const TrendRecords& records, qint64 to);
    void close();
    void dropOldRuns();
    QString m_folder;
    const WallClock& m_clock;
    QString m_id;
    QFile m_file;
    int m_segment = 0;
    qint64 m_inSegment = 0;
    qint64 m_next = 0;  // first record that is not written yet
    QByteArray m_info;
};

}  // namespace kelvane
