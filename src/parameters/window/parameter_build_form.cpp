// Building of the Parameter window: its parts, their places, and who hears of what; and its tree.
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "parameters/dialogs/folder_browser_form.h"
#include "parameters/window/parameter_form.h"
#include "parameters/window/parameter_menus_form.h"
#include "parameters/window/parameter_pages_form.h"
#include "ui/find_bar.h"
#include "ui/icons.h"

namespace kelvane {

namespace {

constexpr int SystemTimerInterval = 1000;
constexpr int Panel0Less = 240;  // than the screen is wide
constexpr int Panel1Width = 70;

const auto FolderKey = QStringLiteral("parameters/folder");

// Where a person looks for a parameter: number, address, name, value.
const std::vector<int> FindColumns{column::PrNo, column::MODBUS, column::Description, column::Data};

}  // namespace

TParameterForm::TParameterForm(ParameterSession& session, KeptLooks& looks, QWidget* parent)
    : QMainWindow(parent),
      recent(looks, QStringLiteral("parameters/recentFiles")),
      SystemTimer(session.site.clock, TickKind::RealTime, SystemTimerInterval,
                  [this] { SystemTimerTimer(); }),
      m_session(session),
      m_looks(looks) {
    setObjectName(QStringLiteral("TParameterForm"));
    setWindowTitle(QStringLiteral("Parameter Management"));
    setWindowModality(Qt::ApplicationModal);
    setAcceptDrops(true);
    buildCentre();
    auto* tools = new QToolBar(QStringLiteral("Buttons"), this);
    tools->setObjectName(QStringLiteral("ButtonToolBar"));
    tools->setMovable(false);
    addToolBar(tools);
    setContextMenuPolicy(Qt::NoContextMenu);
    m_menus = new ParameterMenus(menuBar(), tools, *m_findBar, this);
    buildStatusLine();
    connectEngines();
    connectMenus();
    connectPages();
    resize(fontMetrics().averageCharWidth() * 188, fontMetrics().height() * 42);
    showScreen();
}

void TParameterForm::buildCentre() {
    m_pages = new ParameterPages(m_session, this);
    m_findBar = new FindBar(this);
    m_findBar->setColumns(FindColumns);
    auto* right = new QWidget(this);
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pages, 1);
    column->addWidget(m_findBar);
    auto* splitter = m_splitter = new QSplitter(this);
    connect(splitter, &QSplitter::splitterMoved, this, [this] { m_splitterMoved = true; });
    splitter->setObjectName(QStringLiteral("ParameterSplitter"));
    splitter->addWidget(buildLeftSide());
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setCollapsible(1, false);
    splitter->setSizes({fontMetrics().averageCharWidth() * 30, fontMetrics().averageCharWidth() * 140});
    setCentralWidget(splitter);
}

QTabWidget* TParameterForm::buildLeftSide() {
    auto* PageControl2 = new QTabWidget(this);
    PageControl2->setObjectName(QStringLiteral("PageControl2"));
    auto* FolderTabSheet = new TabSheet(PageControl2, "FolderTabSheet", QStringLiteral("Folder"));
    m_browser = new FolderBrowser(FolderTabSheet);
    auto* folderRoom = new QVBoxLayout(FolderTabSheet);
    folderRoom->addWidget(m_browser);
    auto* ParaTabSheet = new TabSheet(PageControl2, "ParaTabSheet", QStringLiteral("Parameter"));
    ParaTreeView = new QTreeWidget(ParaTabSheet);
    ParaTreeView->setObjectName(QStringLiteral("ParaTreeView"));
    ParaTreeView->setAccessibleName(QStringLiteral("Open tables and their groups"));
    ParaTreeView->setHeaderHidden(true);
    ParaTreeView->setContextMenuPolicy(Qt::CustomContextMenu);
    m_driveRoot = new QTreeWidgetItem(ParaTreeView);
    m_driveRoot->setIcon(0, icon(Icon::TreeDrive));
    m_fileRoot = new QTreeWidgetItem(ParaTreeView);
    m_fileRoot->setIcon(0, icon(Icon::TreeFile));
    auto* treeRoom = new QVBoxLayout(ParaTabSheet);
    treeRoom->addWidget(ParaTreeView);
    PageControl2->setCurrentWidget(ParaTabSheet);
    return PageControl2;
}

void TParameterForm::buildStatusLine() {
    auto* StatusLine = statusBar();
    StatusLine->setObjectName(QStringLiteral("StatusLine"));
    const auto panel = [StatusLine, this](const char* name, int stretch) {
        auto* label = new QLabel(this);
        label->setObjectName(QLatin1String(name));
        label->setTextFormat(Qt::PlainText);
        StatusLine->addWidget(label, stretch);
        return label;
    };
    m_panel0 = panel("StatusLinePanel0", 1);
    m_panel1 = panel("StatusLinePanel1", 0);
    m_dateTime = panel("StatusLineDateTime", 0);
    m_panel0->setMaximumWidth(screen()->size().width() - Panel0Less);
    m_panel0->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_panel1->setText(QStringLiteral("Off - Line"));
    m_panel1->setFixedWidth(std::max(Panel1Width, m_panel1->sizeHint().width()));
}

void TParameterForm::connectEngines() {
    connect(&m_session, &ParameterSession::screenChanged, this, &TParameterForm::showScreen);
    connect(&m_session, &ParameterSession::told, this, &TParameterForm::tellInStatusLine);
    connect(&m_session, &ParameterSession::historyChanged, this, &TParameterForm::showHistoryItems);
    connect(&m_session.reader, &ParameterReader::ended, this, &TParameterForm::focusTable);
    connect(&m_session.DriveAdvStringGrid, &StringGrid::hiddenColumnsChanged, this,
            &TParameterForm::showMenuItems);
    connect(&m_session.site.link, &RequestScheduler::changed, this, [this] {
        showLinkPanel();
        if (isVisible()) m_pages->showScreen();
    });
    connect(&m_session.loader, &TableLoader::loaded, this, [this](const QString& path) {
        recent.add(path);
        m_pages->showScreen();
        focusTable();
    });
    connect(&m_session.loader, &TableLoader::notLoaded, this, [this](const QString& path) {
        if (!QFileInfo::exists(path)) recent.remove(path);
    });
}

void TParameterForm::connectMenus() {
    const auto on = [this](QAction* action, auto act) { connect(action, &QAction::triggered, this, act); };
    on(m_menus->ReadfromDrive, [this] { m_session.reader.ReadDriveTransparentButtonClick(); });
    on(m_menus->ReadfromFile, [this] { m_session.loader.ReadFileTransparentButtonClick(); });
    on(m_menus->Save, [this] { m_session.saver.SaveTransparentButtonClick(); });
    on(m_menus->WriteSelect, [this] { m_session.WriteCheckTransparentButtonClick(); });
    on(m_menus->WriteAll, [this] { m_session.WriteAllTransparentButtonClick(); });
    on(m_menus->CompareParameter, [this] { CompareTransparentButtonClick(); });
    on(m_menus->Print, [this] { PrintTransparentButtonClick(); });
    on(m_menus->Exit, [this] { close(); });
    on(m_menus->ResetParameter, [this] { m_session.ResetParameterClick(); });
    on(m_menus->ShowReservedParameters, [this] { m_session.reader.ShowReservedParametersClick(); });
    on(m_menus->ReadfromKeypad, [this] {
        showMenuItems();  // the mark is the session's
        m_session.keypad.ReadfromKeypadClick();
    });
    on(m_menus->Undo, [this] { undoOrRedo(false); });
    on(m_menus->Redo, [this] { undoOrRedo(true); });
    on(m_menus->loadPara, [this] {
        if (m_menuSide == TableSide::Drive) {
            m_session.reader.ReadDriveTransparentButtonClick();
        } else {
            m_session.loader.ReadFileTransparentButtonClick();
        }
    });
    on(m_menus->closeTable, [this] { m_session.closeTableClick(m_menuSide); });
    on(m_menus->CloseTab, [this] { m_session.CloseTab(); });
    on(m_menus->BackToReadValue, [this] { rowBack(false); });
    on(m_menus->ToDefault, [this] { rowBack(true); });
    on(m_menus->CopyRows, [this] {
        if (const StringGridView* view = m_pages->frontView()) view->copySelection();
    });
    connect(m_menus, &ParameterMenus::hideColumnClicked, this, [this](int column) {
        m_session.columns.toggle(column);
        showMenuItems();
    });
    connect(m_menus->RecentFilesMenu, &QMenu::aboutToShow, this, &TParameterForm::fillRecentMenu);
}

void TParameterForm::connectPages() {
    connect(m_pages, &ParameterPages::tabChosen, &m_session, &ParameterSession::show);
    connect(m_pages, &ParameterPages::closeTabWanted, this, [this] { m_session.CloseTab(); });
    connect(m_pages, &ParameterPages::tabMenuRequested, m_menus->TabPopupMenu,
            [this](const QPoint& pos) { m_menus->TabPopupMenu->popup(pos); });
    connectTable(m_pages->DriveTabSheet->allGrid, TableSide::Drive, false);
    connectTable(m_pages->DriveTabSheet->subGrid, TableSide::Drive, true);
    connectTable(m_pages->FileTabSheet->allGrid, TableSide::File, false);
    connectTable(m_pages->FileTabSheet->subGrid, TableSide::File, true);
    StringGridView* compare = m_pages->CompareTabSheet->CompareAdvStringGrid;
    connect(compare, &StringGridView::cellMenuRequested, this,
            [this, compare](int, int row, const QPoint& pos) { rowMenu(compare, row, pos); });
    connect(ParaTreeView, &QTreeWidget::currentItemChanged, this, &TParameterForm::ParaTreeViewChange);
    connect(ParaTreeView, &QTreeWidget::itemClicked, this, &TParameterForm::ParaTreeViewChange);
    connect(ParaTreeView, &QWidget::customContextMenuRequested, this, &TParameterForm::treeMenu);
    connect(m_browser, &FolderBrowser::fileChosen, this,
            [this](const QString& path) { m_session.loader.LsFilelistViewDblClick(path); });
    m_browser->setFolder(QDir::homePath());
    m_browser->setFolder(m_looks.text(FolderKey));
    connect(m_browser, &FolderBrowser::folderChanged, this,
            [this](const QString& folder) { m_looks.setText(FolderKey, folder); });
}

void TParameterForm::connectTable(StringGridView* view, TableSide side, bool sub) {
    SubTable& subTable = side == TableSide::Drive ? m_session.driveSub : m_session.fileSub;
    connect(view, &StringGridView::dblClickCell, this, [this, &subTable, side, sub](int column, int row) {
        sub ? subTable.dblClickCell(column, row, person()) : editCell(side, column, row);
    });
    connect(view, &StringGridView::checkBoxClicked, this, [this, &subTable, side, sub](int row, bool set) {
        if (!sub) return clickBox(side, row, set);
        if (subTable.grid.checkBox(row) != set) subTable.clickCheckBox(row);
    });
    connect(view, &StringGridView::checkBoxesWanted, this,
            [this, &subTable, side, sub](const std::vector<int>& rows, bool set) {
                sub ? subTable.setCheckBoxes(rows, set) : clickBoxes(side, rows, set);
            });
    connect(view, &StringGridView::cellMenuRequested, this,
            [this, view](int, int row, const QPoint& pos) { rowMenu(view, row, pos); });
}

// ---- Tree ----

void TParameterForm::showTree() {
    showRoot(m_driveRoot, m_session.screen.driveRoot);
    showRoot(m_fileRoot, m_session.screen.fileRoot);
}

// The children are made anew only when their texts change, so that selection and scroll place stay.
void TParameterForm::showRoot(QTreeWidgetItem* root, const TreeRoot& shown) {
    root->setText(0, shown.text);
    QStringList texts;
    for (int i = 0; i < root->childCount(); ++i) texts << root->child(i)->text(0);
    if (texts == shown.children) return;
    const bool grows = texts == shown.children.mid(0, texts.size());
    if (!grows) qDeleteAll(root->takeChildren());
    for (int i = root->childCount(); i < shown.children.size(); ++i) {
        auto* child = new QTreeWidgetItem(root, {shown.children[i]});
        child->setIcon(0, treeImage(TreeChildImage));
        child->setData(0, Qt::UserRole, TreeChildImage);
    }
    root->setExpanded(shown.expanded);
    fitTreePane();
}

// The names have room; a person who drags the splitter has the last word.
void TParameterForm::fitTreePane() {
    const QList<int> sizes = m_splitter->sizes();
    int longest = 0;
    for (const QTreeWidgetItem* root : {m_driveRoot, m_fileRoot})
        for (int i = 0; i < root->childCount(); ++i)
            longest = std::max(longest, fontMetrics().horizontalAdvance(root->child(i)->text(0)));
    const int wanted = longest + 4 * ParaTreeView->indentation() + ParaTreeView->iconSize().width();
    const int widest = (sizes[0] + sizes[1]) / 3;
    if (m_splitterMoved || std::min(wanted, widest) <= sizes[0]) return;
    const int left = std::min(wanted, widest);
    m_splitter->setSizes({left, sizes[0] + sizes[1] - left});
}

TableSide TParameterForm::sideOf(const QTreeWidgetItem* item) const {
    const QTreeWidgetItem* root = item->parent() ? item->parent() : item;
    return sideOfTreeRoot(root->text(0));
}

void TParameterForm::ParaTreeViewChange(QTreeWidgetItem* item) {
    if (m_mirroring || !item || !item->parent()) return;
    m_session.ParaTreeViewChange(sideOf(item), item->parent()->indexOfChild(item));
}

void TParameterForm::treeMenu(const QPoint& pos) {
    const QTreeWidgetItem* item = ParaTreeView->itemAt(pos);
    if (!item || !treeMenuShown(item->text(0))) return;
    m_menuSide = sideOf(item);
    m_menus->closeTable->setEnabled(m_menuSide == TableSide::Drive ? m_session.screen.DriveTabSheetVisible
                                                                   : m_session.screen.FileTabSheetVisible);
    m_menus->TreeViewParaPopupMenu->popup(ParaTreeView->viewport()->mapToGlobal(pos));
}

}  // namespace kelvane
