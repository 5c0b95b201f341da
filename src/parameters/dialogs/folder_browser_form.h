// The folder browser of the Parameter window: a tree of folders over a list of the parameter files in one of
// them. It tells which file was double clicked; the window loads it.
#pragma once

#include <QSet>
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
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

   private:
    void buildTree();
    void buildList();
    void makeModels();
    void showFolder();
    void open(const QModelIndex& entry);

    // While it is seen.
    QFileSystemModel* m_folders = nullptr;
    QFileSystemModel* m_files = nullptr;
    FileListModel* m_shown = nullptr;
    QString m_folder;
    QSet<QString> m_expanded;  // folders of the tree
};

}  // namespace kelvane
