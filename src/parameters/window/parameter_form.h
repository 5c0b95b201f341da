// TParameterForm, Parameter Management: the tables from drive and from file, their comparison, and everything
// done to them. It shows a ParameterSession and passes the operator's hand on to it. The shell shows it
// application-modal and opens the windows that it asks for.
#pragma once

#include <QMainWindow>

#include "base/kept_looks.h"
#include "base/recent_files.h"
#include "parameters/parameter_session.h"
#include "parameters/report/print_records.h"

class QLabel;
class QSplitter;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace kelvane {

class FindBar;
class FolderBrowser;
class ParameterMenus;
class ParameterPages;
class StringGridView;
class TabSheet;

class TParameterForm : public QMainWindow {
    Q_OBJECT
   public:
    // Both outlive the window.
    TParameterForm(ParameterSession& session, KeptLooks& looks, QWidget* parent = nullptr);
    ~TParameterForm() override;

    RecentFiles recent;
    TickTimer SystemTimer;

    void CompareTransparentButtonClick();
    void PrintTransparentButtonClick();
    // A message in panel 0 of the status line.
    void tellInStatusLine(const QString& text);
    // As it stands on the tab, in the language in use.
    QString tabCaption(ParameterTab tab) const;

   Q_SIGNALS:
    void finished(int result);                // closed; its tables are gone
    void reportWanted(const Report& report);  // TReportForm

   protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

   private:
    // Building.
    void buildCentre();
    QTabWidget* buildLeftSide();
    void buildStatusLine();
    void connectEngines();
    void connectMenus();
    void connectPages();
    void connectTable(StringGridView* view, TableSide side, bool sub);

    // Showing.
    void showScreen();
    void showMenuItems();
    void showHistoryItems();
    void focusTable();
    void fitTreePane();
    void showLinkPanel();
    void showTree();
    void showRoot(QTreeWidgetItem* root, const TreeRoot& shown);
    void followFrontView();
    void SystemTimerTimer();

    // The operator's hand.
    void ParaTreeViewChange(QTreeWidgetItem* item);
    void treeMenu(const QPoint& pos);
    TableSide sideOf(const QTreeWidgetItem* item) const;
    void rowMenu(StringGridView* view, int row, const QPoint& globalPos);
    void undoOrRedo(bool redo);
    void rowBack(bool toDefault);
    void editCell(TableSide side, int column, int row);
    void clickBox(TableSide side, int row, bool set);
    void clickBoxes(TableSide side, const std::vector<int>& rows, bool set);
    void fillRecentMenu();
    void print(ParameterTab tab);
    std::optional<TableSide> frontSide() const;
    ParameterTable& table(TableSide side);
    EditHistory& history(TableSide side);
    Operator& person() { return m_session.site.voice.person; }

    ParameterSession& m_session;
    KeptLooks& m_looks;
    ParameterPages* m_pages;
    ParameterMenus* m_menus;
    FindBar* m_findBar;
    FolderBrowser* m_browser;
    QTreeWidget* ParaTreeView;
    QSplitter* m_splitter;
    bool m_splitterMoved = false;
    QTreeWidgetItem* m_driveRoot;
    QTreeWidgetItem* m_fileRoot;
    QLabel* m_panel0;
    QLabel* m_panel1;
    QLabel* m_dateTime;
    QString m_linkPanel;                      // panel 1 as the link last had it
    TableSide m_menuSide = TableSide::Drive;  // mark of the tree's menu
    int m_menuRow = -1;                       // of the main table, for the row's menu
    bool m_mirroring = false;
};

}  // namespace kelvane
