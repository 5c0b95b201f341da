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
    const qint64 wanted = count * RecordBytes;
    qint64 bytes = 0;
    qint64 got = 1;
    // In one piece as a rule. A file that someone else cuts meanwhile ends sooner: what is whole counts.
    while (bytes < wanted && got > 0) {
        got = device.read(reinterpret_cast<char*>(into) + bytes, wanted - bytes);
        bytes += std::max<qint64>(got, 0);
    }
    records.grown(bytes / RecordBytes);
    return got < 0 ? FileResult{false, device.errorString()} : FileResult{};
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
