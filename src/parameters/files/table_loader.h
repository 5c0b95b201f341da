// Loading a parameter file of any format into the table from file, or a saved comparison into its tab.
// Button, menu, tree, folder browser, recent files and files dropped on the window start it; owned by the
// session. A file that cannot be read leaves everything as it was.
#pragma once

#include <QObject>

#include "parameters/files/file_work.h"
#include "parameters/files/table_file.h"

namespace kelvane {

class TableLoader : public QObject {
    Q_OBJECT
   public:
    explicit TableLoader(const FileWork& work) : m_work(work) {}

    quint8 OpenFromBrowser = 0;  // 1 while a file of the folder browser is loaded: no dialog opens

    // Asks for a file.
    void ReadFileTransparentButtonClick();
    // Double click in the folder browser.
    void LsFilelistViewDblClick(const QString& path);
    // A file that is known already. True when it is shown.
    bool load(const QString& path);

   Q_SIGNALS:
    void tableLoaded();                   // into the table from file
    void comparisonLoaded();              // into the comparison
    void loaded(const QString& path);     // behind one of the two
    void notLoaded(const QString& path);  // a box has said why

   private:
    bool show(const QString& path);
    LoadedFile read(const QString& path, TableFileKind kind);
    LoadedFile readSheets(const QString& path);
    void tellRemarks(const LoadedFile& file);
    bool apply(const LoadedFile& file, const QString& path);

    const FileWork& m_work;
};

}  // namespace kelvane
