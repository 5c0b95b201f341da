// The folder browser of the Parameter window: a tree of folders over a list of the parameter files in one of
// them. It tells which file was double clicked; the window loads it.
#pragma once

#include <QSplitter>

class QFileSystemModel;
class QListView;
class QTreeView;

namespace kelvane {

class FileListModel;

class FolderBrowser : public QSplitter {
    Q_OBJECT
   public:
    explicit FolderBrowser(QWidget* parent = nullptr);

    QTreeView* LsDirTree;
    QListView* LsFilelistView;

    QString folder() const { return m_folder; }
    // Nothing on a folder that is not there.
    void setFolder(const QString& folder);

   Q_SIGNALS:
    void fileChosen(const QString& path);
    void folderChanged(const QString& folder);

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void buildTree();
    void buildList();
    void open(const QModelIndex& entry);

    QFileSystemModel* m_folders;
    QFileSystemModel* m_files;
    FileListModel* m_shown;
    QString m_folder;
};

}  // namespace kelvane
