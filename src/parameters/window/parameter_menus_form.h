// The hand's ways into the Parameter window: the eight buttons, the menu, the pop-ups of tree, tabs and rows.
// It owns the actions and says nothing of what they do; the window connects them.
#pragma once

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <array>

#include "parameters/table/row_view.h"

class QMenuBar;

namespace kelvane {

class FindBar;
class TransparentButton;

class ParameterMenus : public QObject {
    Q_OBJECT
   public:
    ParameterMenus(QMenuBar* bar, QToolBar* tools, const FindBar& find, QWidget* window);

    TransparentButton* ReadDriveTransparentButton;
    TransparentButton* ReadFileTransparentButton;
    TransparentButton* SaveTransparentButton;
    TransparentButton* WriteCheckTransparentButton;
    TransparentButton* WriteAllTransparentButton;
    TransparentButton* CompareTransparentButton;
    TransparentButton* PrintTransparentButton;
    TransparentButton* ExitTransparentButton;

    QAction* ReadfromDrive;
    QAction* ReadfromFile;
    QAction* Save;
    QAction* WriteSelect;
    QAction* WriteAll;
    QAction* CompareParameter;
    QAction* Print;
    QAction* Exit;
    QAction* ResetParameter;
    QAction* ShowReservedParameters;
    QAction* ReadfromKeypad;
    QAction* Undo;
    QAction* Redo;
    QAction* CopyRows;
    QMenu* RecentFilesMenu;
    QMenu* EditMenu;
    std::array<QAction*, 3> rowViews;  // in the order of RowView; one is checked
    QMenu* HideColumn;
    std::array<QAction*, 9> hideItems;  // column 1 onward

    QMenu* TreeViewParaPopupMenu;
    QAction* loadPara;
    QAction* closeTable;
    QMenu* TabPopupMenu;
    QAction* CloseTab;
    QMenu* RowPopupMenu;
    QAction* BackToReadValue;
    QAction* ToDefault;

   Q_SIGNALS:
    void hideColumnClicked(int column);
    void rowViewChosen(RowView view);

   private:
    QAction* add(QMenu* menu, const char* name, const QString& text, const QKeySequence& keys = {});
    QMenu* addMenu(QMenuBar* bar, const char* name, const QString& title);
    void buildFileMenu(QMenuBar* bar);
    void buildDriveMenu(QMenuBar* bar);
    void buildEditMenu(QMenuBar* bar, const FindBar& find);
    void buildViewMenu(QMenuBar* bar);
    void buildRowViews(QMenu* menu);
    void buildPopups();
    void buildButtons(QToolBar* tools);
    TransparentButton* addButton(QToolBar* tools, const char* name, const QIcon& icon, const QString& text,
                                 const QString& hint, QAction* action);
    QWidget* m_window;
};

}  // namespace kelvane
