#include "base/whole_file.h"

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

}  // namespace

FileResult writeWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) return {false, why(path, file.errorString())};
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        const QString reason = whyNotWritten(path, bytes.size(), file.errorString());
        file.cancelWriting();
        return {false, reason};
    }
    if (!file.commit()) return {false, whyNotWritten(path, bytes.size(), file.errorString())};
    return {};
}

FileContent readWhole(const QString& path, qint64 maxBytes) {
    if (QFileInfo(path).isDir()) return {false, why(path, QStringLiteral("this is a folder")), {}};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {false, why(path, file.errorString()), {}};
    // A device or pipe has no size, so one byte more than allowed is asked for.
    QByteArray bytes = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError) return {false, why(path, file.errorString()), {}};
    if (bytes.size() > maxBytes) return {false, why(path, QStringLiteral("the file is too large")), {}};
    return {true, {}, std::move(bytes)};
}

}  // namespace kelvane
