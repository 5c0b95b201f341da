#include "ui/file_kinds.h"

#include <QCoreApplication>

namespace kelvane {

QIcon FileKinds::icon(const QFileInfo& file) const {
    return QFileIconProvider::icon(file.isRoot() ? Drive : file.isDir() ? Folder : File);
}

QString FileKinds::type(const QFileInfo& file) const {
    if (file.isDir()) return QCoreApplication::translate("FileKinds", "Folder");
    const QString kind = QCoreApplication::translate("FileKinds", "File");
    return file.suffix().isEmpty() ? kind : file.suffix() + QLatin1Char(' ') + kind;
}

FileKinds& fileKinds() {
    static FileKinds kinds;
    return kinds;
}

}  // namespace kelvane
