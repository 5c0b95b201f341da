// TAdvanceForm, the Advance console: its pages, its log and its menus over an AdvanceConsole. The shell shows
// it application-modal and opens com setup and the time-out dialog for it.
#pragma once

#include <QMainWindow>
#include <array>

#include "base/recent_files.h"
#include "console/advance_console.h"

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QTabWidget;

namespace kelvane {

class ConnectionForm;
class FlasherForm;
class ListenerForm;

class TAdvanceForm : public QMainWindow {
    Q_OBJECT
   public:
    TAdvanceForm(AdvanceConsole& console, KeptLooks& looks, QWidget* parent = nullptr);

   Q_SIGNALS:
    void finished(int result);  // closed; nothing is on its way
    void comSetupWanted();
    void timeOutWanted(TimeOutTag tag);

   protected:
    void closeEvent(QCloseEvent* event) override;

   private:
    void buildMenus();
    void buildPages();
    void buildStatusLine();
    QAction* addPageAction(QMenu* menu, QActionGroup* group, const char* name, const QString& text,
                           ConsolePage page);
    void connectConsole();
    void askComSetup();
    void fillRecentMenu();
    void showState();
    void showCounters();

    AdvanceConsole& m_console;
    RecentFiles m_recent;
    QAction* Open;
    QAction* Connection;
    QAction* Monitor;
    QAction* FlasherItem;
    QMenu* m_recentMenu;
    QTabWidget* PageControl1;
    ConnectionForm* m_connection;
    ListenerForm* m_listener;
    FlasherForm* m_flasher;
    std::array<QLabel*, 8> m_panels{};
    bool m_waitsToClose = false;
};

}  // namespace kelvane
