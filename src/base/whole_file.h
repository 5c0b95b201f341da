// Files that are read and written whole. A write replaces the old file in one step or leaves it as it was.
#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

struct FileResult {
    bool ok = true;
    QString error;  // plain words for a person, empty when ok
};

struct FileContent {
    bool ok = true;
    QString error;
    QByteArray bytes;
};

// Writes all bytes or none, and down to the disk. Errors: folder missing or read-only, disk full or failing,
// name not allowed.
FileResult writeWhole(const QString& path, const QByteArray& bytes);

// Reads a file of at most maxBytes. Errors: missing, no permission, no regular file, larger than
// maxBytes.
FileContent readWhole(const QString& path, qint64 maxBytes = 64 * 1024 * 1024);

}  // namespace kelvane
