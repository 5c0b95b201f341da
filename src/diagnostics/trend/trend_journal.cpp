#include "diagnostics/trend/trend_journal.h"

#include <QDir>
#include <algorithm>

namespace kelvane {

namespace {

const QString IdFormat = QStringLiteral("yyyyMMdd-HHmmss-zzz");
constexpr qint64 RecordBytes = sizeof(TrendRecord);

QString numberedFile(const QString& folder, const QString& id, int segment) {
    return QStringLiteral("%1/run-%2-%3.trd").arg(folder, id).arg(segment, 4, 10, QLatin1Char('0'));
}

}  // namespace

QString TrendJournal::fileName(int segment) const { return numberedFile(m_folder, m_id, segment); }

FileResult TrendJournal::begin(qint64 fromRecord) {
    close();
    if (!QDir().mkpath(m_folder)) return {false, m_folder % QStringLiteral(": the folder cannot be made")};
    QDateTime start = m_clock.now();
    while (QFile::exists(numberedFile(m_folder, start.toString(IdFormat), 1))) start = start.addMSecs(1);
    m_id = start.toString(IdFormat);
    m_next = fromRecord;
    m_info.clear();
    dropOldRuns();
    return openSegment(1);
}

FileResult TrendJournal::openSegment(int segment) {
    m_file.close();
    m_segment = segment;
    m_inSegment = 0;
    m_file.setFileName(fileName(segment));
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return {false, m_file.fileName() % QStringLiteral(": ") % m_file.errorString()};
    if (segment > SegmentsOfRun) QFile::remove(fileName(segment - SegmentsOfRun));
    return {};
}

FileResult TrendJournal::follow(const TrendRecords& records) {
    if (!open() || records.size() - m_next <= WriteEvery) return {};
    return write(records, records.size() - 1);
}

FileResult TrendJournal::write(const TrendRecords& records, qint64 to) {
    while (m_next < to) {
        if (m_inSegment >= SegmentRecords)
            if (FileResult next = openSegment(m_segment + 1); !next.ok) return next;
        const qint64 count = std::min(to - m_next, SegmentRecords - m_inSegment);
        const auto* bytes = reinterpret_cast<const char*>(&records[m_next]);
        if (m_file.write(bytes, count * RecordBytes) != count * RecordBytes) {
            const QString reason = m_file.fileName() % QStringLiteral(": ") % m_file.errorString();
            close();
            return {false, reason};
        }
        m_next += count;
        m_inSegment += count;
    }
    return {};
}

void TrendJournal::writeInfo(const QByteArray& info) {
    if (!open() || info == m_info) return;
    m_info = info;
    writeWhole(QStringLiteral("%1/run-%2.info").arg(m_folder, m_id), info);
}

void TrendJournal::finish(const TrendRecords& records) {
    if (open()) write(records, records.size());
    close();
}

void TrendJournal::close() {
    m_file.close();
    m_id.clear();
}

void TrendJournal::discard() {
    if (!open()) return;
    const QString id = m_id;
    close();
    QDir folder(m_folder);
    for (const QString& name : folder.entryList({QStringLiteral("run-%1*").arg(id)}, QDir::Files))
        folder.remove(name);
}

QList<TrendJournal::Run> TrendJournal::unsaved() const {
    QList<Run> runs;
    const QDir folder(m_folder);
    // Names sort by time and then by segment.
    for (const QFileInfo& file :
         folder.entryInfoList({QStringLiteral("run-*.trd")}, QDir::Files, QDir::Name)) {
        const QString id = file.fileName().mid(4, IdFormat.size());
        const QDateTime start = QDateTime::fromString(id, IdFormat);
        if (!start.isValid() || (open() && id == m_id)) continue;
        if (runs.isEmpty() || runs.first().id != id)
            runs.prepend({id, start, 0, {}, QStringLiteral("%1/run-%2.info").arg(m_folder, id)});
        runs.first().records += file.size() / RecordBytes;
        runs.first().files += file.filePath();
    }
    runs.removeIf([](const Run& run) { return run.records < LeastRecords; });
    return runs;
}

void TrendJournal::remove(const Run& run) {
    for (const QString& file : run.files) QFile::remove(file);
    QFile::remove(run.infoFile);
}

// Room for the one that begins. Runs too short to be offered go as well.
void TrendJournal::dropOldRuns() {
    const QList<Run> runs = unsaved();
    QStringList kept;
    for (qsizetype i = 0; i < std::min<qsizetype>(runs.size(), MostRuns - 1); ++i) kept += runs[i].id;
    QDir folder(m_folder);
    for (const QString& name : folder.entryList({QStringLiteral("run-*")}, QDir::Files))
        if (!kept.contains(name.mid(4, IdFormat.size()))) folder.remove(name);
}

}  // namespace kelvane
