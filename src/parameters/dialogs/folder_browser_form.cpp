#include "parameters/dialogs/folder_browser_form.h"

#include <QDir>
#include <QFileSystemModel>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QListView>
#include <QTreeView>
#include <utility>

#include "ui/file_kinds.h"
#include "ui/icons.h"

namespace kelvane {

namespace {

const auto ParentEntry = QStringLiteral("..");
const auto Mask = QStringLiteral("*.txt;*.xls;*.csv");

}  // namespace

// The list of files with its own word for the parent folder.
class FileListModel : public QIdentityProxyModel {
   public:
    using QIdentityProxyModel::QIdentityProxyModel;
    QVariant data(const QModelIndex& index, int role) const override {
        const bool parent = QIdentityProxyModel::data(index, Qt::DisplayRole).toString() == ParentEntry;
        if (parent && role == Qt::DisplayRole) return QStringLiteral(" Up one level");
        if (parent && role == Qt::DecorationRole) return icon(Icon::FolderUp);
        return QIdentityProxyModel::data(index, role);
    }
};

FolderBrowser::FolderBrowser(QWidget* parent) : QSplitter(Qt::Vertical, parent) {
    setObjectName(QStringLiteral("FolderSplitter"));
    buildTree();
    buildList();
    setChildrenCollapsible(false);
    setStretchFactor(0, 2);
    setStretchFactor(1, 3);
}

void FolderBrowser::buildTree() {
    LsDirTree = new QTreeView(this);
    LsDirTree->setObjectName(QStringLiteral("LsDirTree"));
    LsDirTree->setAccessibleName(QStringLiteral("Folders"));
    LsDirTree->setHeaderHidden(true);
    const auto show = [this](const QModelIndex& index) { setFolder(m_folders->filePath(index)); };
    connect(LsDirTree, &QTreeView::clicked, this, show);
    connect(LsDirTree, &QTreeView::activated, this, show);
    connect(LsDirTree, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { m_expanded.insert(m_folders->filePath(index)); });
    connect(LsDirTree, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { m_expanded.remove(m_folders->filePath(index)); });
    addWidget(LsDirTree);
}

void FolderBrowser::buildList() {
    LsFilelistView = new QListView(this);
    LsFilelistView->setObjectName(QStringLiteral("LsFilelistView"));
    LsFilelistView->setAccessibleName(QStringLiteral("Parameter files"));
    LsFilelistView->setProperty("mask", Mask);
    LsFilelistView->setUniformItemSizes(true);
    LsFilelistView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    LsFilelistView->installEventFilter(this);
    connect(LsFilelistView, &QListView::doubleClicked, this, &FolderBrowser::open);
    addWidget(LsFilelistView);
}

void FolderBrowser::makeModels() {
    m_folders = new QFileSystemModel(this);
    m_folders->setIconProvider(&fileKinds());
    m_folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    m_folders->setRootPath(QDir::rootPath());
    LsDirTree->setModel(m_folders);
    for (int column = 1; column < m_folders->columnCount(); ++column)
        LsDirTree->setColumnHidden(column, true);
    const QSet<QString> expanded = m_expanded;
    for (const QString& path : expanded) LsDirTree->expand(m_folders->index(path));

    // Matching does not look at the case of letters: X.CSV is a file of the mask on every disk.
    m_files = new QFileSystemModel(this);
    m_files->setIconProvider(&fileKinds());
    m_files->setFilter(QDir::AllDirs | QDir::Files | QDir::NoDot);
    m_files->setNameFilters(Mask.split(QLatin1Char(';')));
    m_files->setNameFilterDisables(false);
    m_shown = new FileListModel(m_files);
    m_shown->setSourceModel(m_files);
    LsFilelistView->setModel(m_shown);
}

// A model watches its folders and reads them anew whenever something changes there, so there is none while
// nobody sees it.
void FolderBrowser::showEvent(QShowEvent* event) {
    if (!m_folders) {
        makeModels();
        showFolder();
    }
    QSplitter::showEvent(event);
}

void FolderBrowser::hideEvent(QHideEvent* event) {
    QSplitter::hideEvent(event);
    if (event->spontaneous()) return;  // minimised
    LsDirTree->setModel(nullptr);
    LsFilelistView->setModel(nullptr);
    delete std::exchange(m_folders, nullptr);
    m_shown = nullptr;
    delete std::exchange(m_files, nullptr);
}

void FolderBrowser::setFolder(const QString& folder) {
    const QString path = QDir(folder).absolutePath();
    if (folder.isEmpty() || path == m_folder || !QDir(path).exists()) return;
    m_folder = path;
    showFolder();
    Q_EMIT folderChanged(path);
}

void FolderBrowser::showFolder() {
    if (!m_folders) return;
    const QModelIndex place = m_folders->index(m_folder);
    LsDirTree->setCurrentIndex(place);
    LsDirTree->expand(place);
    LsDirTree->scrollTo(place);
    LsFilelistView->setRootIndex(m_shown->mapFromSource(m_files->setRootPath(m_folder)));
}

void FolderBrowser::open(const QModelIndex& entry) {
    const QModelIndex index = m_shown ? m_shown->mapToSource(entry) : QModelIndex();
    if (!index.isValid()) return;
    if (m_files->fileName(index) == ParentEntry) {
        setFolder(QFileInfo(m_folder).path());
    } else if (m_files->isDir(index)) {
        setFolder(m_files->filePath(index));
    } else {
        Q_EMIT fileChosen(m_files->filePath(index));
    }
}

bool FolderBrowser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == LsFilelistView && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            open(LsFilelistView->currentIndex());
            return true;
        }
    }
    return QSplitter::eventFilter(watched, event);
}

}  // namespace kelvane
