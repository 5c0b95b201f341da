// Icons and kinds of files by their names alone. The toolkit's own provider opens every listed file and reads
// from it, which waits for ever in front of one that gives nothing (/proc/kmsg), and for long on a slow
// share.
#pragma once

#include <QFileIconProvider>

namespace kelvane {

class FileKinds final : public QFileIconProvider {
   public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;
};

// The one instance, for file dialogs and folder lists, which do not own theirs.
FileKinds& fileKinds();

}  // namespace kelvane
