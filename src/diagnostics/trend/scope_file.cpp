#include "diagnostics/trend/scope_file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace kelvane {

namespace {

constexpr qint64 RecordBytes = sizeof(TrendRecord);
constexpr qint64 StepRecords = 1 << 12;  // read and indexed while they are in the cache

QString why(const QString& path, const QString& reason) { return path % QStringLiteral(": ") % reason; }

// More than this would drive the whole machine into its swap long before an allocation fails.
qint64 mostBytes() {
#ifdef Q_OS_UNIX
    const qint64 pages = ::sysconf(_SC_PHYS_PAGES);
    if (pages > 0) return pages * ::sysconf(_SC_PAGESIZE) / 10 * 8;
#endif
    return qint64(4) << 30;
}

}  // namespace

FileResult saveScopeFile(const QString& path, const TrendRecords& records) {
    const auto all = records.all();
    return writeWhole(path, QByteArray::fromRawData(reinterpret_cast<const char*>(all.data()),
                                                    static_cast<qsizetype>(all.size_bytes())));
}

FileResult loadRecords(QIODevice& device, TrendRecords& records) {
    const qint64 count = device.size() / RecordBytes;
    if (count == 0) return {};
    const bool fits = (records.size() + count) * RecordBytes <= mostBytes();
    TrendRecord* into = fits ? records.roomFor(count) : nullptr;
    if (!into) return {false, QStringLiteral("there is not enough memory for this file")};
    qint64 bytes = 0;
    qint64 whole = 0;
    while (bytes < count * RecordBytes) {
        const qint64 wanted = std::min(count * RecordBytes - bytes, StepRecords * RecordBytes);
        const qint64 got = device.read(reinterpret_cast<char*>(into) + bytes, wanted);
        if (got < 0) return {false, device.errorString()};
        if (got == 0) break;  // cut by someone else meanwhile: what is whole counts
        bytes += got;
        records.grown(bytes / RecordBytes - whole);
        whole = bytes / RecordBytes;
        records.indexNewBlocks();
    }
    return {};
}

FileResult loadScopeFile(const QString& path, TrendRecords& records) {
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) return {false, why(path, QStringLiteral("this is not a file"))};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {false, why(path, file.errorString())};
    const FileResult loaded = loadRecords(file, records);
    return loaded.ok ? loaded : FileResult{false, why(path, loaded.error)};
}

}  // namespace kelvane
