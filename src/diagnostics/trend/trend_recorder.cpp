#include "diagnostics/trend/trend_recorder.h"

#include <algorithm>

#include "base/trend_time.h"
#include "diagnostics/trend/scope_file.h"

namespace kelvane {

namespace {

constexpr qint64 SmallDelay = 10000;  // us

}  // namespace

TrendRecorder::TrendRecorder(TickClock& clock, const WallClock& wallClock, int channelCount)
    : m_clock(clock),
      m_wallClock(wallClock),
      m_timer(clock, TickKind::RealTime, LeastInterval, [this] { timerDue(); }) {
    data.channels.resize(static_cast<size_t>(channelCount));
}

void TrendRecorder::SetStartRecording(bool on) {
    if (on == recording()) return;
    if (on) AddSeparator();
    m_timer.setEnabled(on);
    timerStarts();
    Q_EMIT startedOrStopped();
}

// Kept: it goes before the last record, not behind it, with the digits of the record before that.
void TrendRecorder::AddSeparator() {
    const qint64 count = TotalRecords();
    if (count < 2) return;
    TrendRecord separator = data.records[count - 2];
    separator.Time = 0;
    if (!data.records.insert(count - 1, SeparatorRecords, separator)) return giveUp();
    Q_EMIT recordsReplaced();
    Q_EMIT OnRecNoChanged();
}

void TrendRecorder::timerStarts() { m_dueUs = m_clock.nowUs() + qint64(Interval()) * 1000; }

// A record that comes a little late does not delay those behind it, so that ten minutes are 6000 records. One
// that comes late indeed begins the rhythm anew: nothing is caught up.
void TrendRecorder::timerDue() {
    const qint64 now = m_clock.nowUs();
    const qint64 counted = now - m_dueUs < SmallDelay ? m_dueUs : now;
    m_dueUs = counted + qint64(Interval()) * 1000;
    m_timer.tickIn(m_dueUs - now);
    if (!mayRecord || mayRecord()) GetData();
}

void TrendRecorder::GetData() {
    makeRoom();
    if (TotalRecords() >= m_maxRecords) return;
    TrendRecord record{trendTime(m_wallClock.now()), {}};
    for (size_t c = 0; c < data.channels.size(); ++c) record.Ch[c] = data.channels[c].Digit;
    if (!data.records.append(record)) return giveUp();
    Q_EMIT OnInterval();
    Q_EMIT OnRecNoChanged();
}

void TrendRecorder::makeRoom() {
    if (TotalRecords() < m_maxRecords || !m_flow) return;
    data.records.dropFront(TotalRecords() - std::min(DeleteCount, m_maxRecords - 1));
    Q_EMIT recordsReplaced();
}

void TrendRecorder::giveUp() {
    SetStartRecording(false);
    Q_EMIT noRoom();
}

void TrendRecorder::ClearRecords() {
    data.records.clear();
    Q_EMIT recordsReplaced();
    Q_EMIT OnRecNoChanged();
}

void TrendRecorder::SetInterval(int ms) {
    if (ms < LeastInterval || ms == Interval()) return;
    AddSeparator();
    m_timer.setInterval(ms);
    timerStarts();
}

void TrendRecorder::SetMaxRecords(qint64 count) {
    if (count >= LeastMaxRecords) m_maxRecords = count;
}

FileResult TrendRecorder::SaveToFile(const QString& name) const { return saveScopeFile(name, data.records); }

FileResult TrendRecorder::LoadFromFile(const QString& name) {
    SetStartRecording(false);
    const qint64 before = TotalRecords();
    if (before > 1) {
        TrendRecord separator = data.records.last();
        separator.Time = 0;
        // Kept: it stays when the file cannot be read.
        if (!data.records.insert(before, SeparatorRecords, separator))
            return {false, QStringLiteral("There is not enough memory.")};
    }
    FileResult result = loadScopeFile(name, data.records);
    Q_EMIT recordsReplaced();
    Q_EMIT OnRecNoChanged();
    return result;
}

}  // namespace kelvane
