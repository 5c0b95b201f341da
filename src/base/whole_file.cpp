#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace kelvane {

namespace {

QString why(const QString& path, const QString& reason) { return path % QStringLiteral(": ") % reason; }

}  // namespace

FileResult writeWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) return {false, why(path, file.errorString())};
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return {false, why(path, reason)};
    }
    if (!file.commit()) return {false, why(path, file.errorString())};
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
