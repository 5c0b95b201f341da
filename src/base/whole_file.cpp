#include "base/whole_file.h"

#ifdef Q_OS_UNIX
#include <errno.h>
#include <unistd.h>
#endif

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

namespace kelvane {

namespace {

QString why(const QString& path, const QString& reason) { return path % QStringLiteral(": ") % reason; }

// A full disk shows itself only when the bytes are flushed, and then without a reason of its own.
QString whyNotWritten(const QString& path, qint64 bytes, const QString& reason) {
    const QStorageInfo disk(QFileInfo(path).absolutePath());
    const bool full = disk.isValid() && disk.bytesAvailable() < bytes;
    return why(path, full ? QStringLiteral("the disk is full") : reason);
}

// Down to the disk, since a rename before would put a name on bytes that are not there. Empty when they are;
// what cannot be flushed at all (a pipe of a network drive) is no error.
QString flushToDisk(QSaveFile& file) {
    if (!file.flush()) return file.errorString();
#ifdef Q_OS_UNIX
    if (::fdatasync(file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP)
        return QString::fromLocal8Bit(strerror(errno));
#endif
    return {};
}

}  // namespace

FileResult writeWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) return {false, why(path, file.errorString())};
    QString failure = file.write(bytes) == bytes.size() ? flushToDisk(file) : file.errorString();
    if (!failure.isEmpty()) {
        failure = whyNotWritten(path, bytes.size(), failure);
        file.cancelWriting();
        return {false, failure};
    }
    if (!file.commit()) return {false, whyNotWritten(path, bytes.size(), file.errorString())};
    return {};
}

FileContent readWhole(const QString& path, qint64 maxBytes) {
    if (path.isEmpty()) return {false, QStringLiteral("there is no such file"), {}};
    const QFileInfo info(path);
    if (info.isDir()) return {false, why(path, QStringLiteral("this is a folder")), {}};
    // A pipe would keep the tool waiting for whoever writes into it.
    if (info.exists() && !info.isFile())
        return {false, why(path, QStringLiteral("this is a device or a pipe, not a file")), {}};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {false, why(path, file.errorString()), {}};
    // Some files of the system tell no size, so one byte more than allowed is asked for.
    QByteArray bytes = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError) return {false, why(path, file.errorString()), {}};
    if (bytes.size() > maxBytes) return {false, why(path, QStringLiteral("the file is too large")), {}};
    return {true, {}, std::move(bytes)};
}

}  // namespace kelvane
