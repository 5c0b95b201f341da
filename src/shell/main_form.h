// TMainForm, the shell's own window: launcher of every window, identity of the drive, lamp and scanner of the
// link, history log. It shows the tool's records and passes the hand on; which window opens is the shell's.
#pragma once

#include <QMainWindow>
#include <functional>

#include "shell/tool.h"

class QActionGroup;
class QLabel;
class QMenu;
class QPlainTextEdit;

namespace kelvane {

class AbLED;
class ElidedLabel;
class LiveTexts;
enum class Icon : int;
class PictureBox;
class TransparentButton;
class VrIndicator;
class VrLabel;
struct WindowRow;

class TMainForm : public QMainWindow {
    Q_OBJECT
   public:
    explicit TMainForm(Tool& tool, QWidget* parent = nullptr);

    void checkLanguageItem(quint8 LanguageIndex);
    void showHistory(const QString& line);
    void saveHistory();
    void ComStatusAbLEDDblClick();
    // The edit mode of languages begins: "Save Lang" appears, and writes what live shows.
    void enableSaveLanguage(const LiveTexts& live);
    void LangTransparentButtonClick();
    // Whether a window with a STOP is open, for the menu.
    std::function<bool()> stopReady;

   Q_SIGNALS:
    void windowWanted(const WindowRow& row);
    void comSetupWanted();
    void aboutWanted();
    void helpWanted();
    void reportWanted();
    void stopWanted();
    void closed();

   protected:
    void closeEvent(QCloseEvent* event) override;

   private:
    QAction* item(QMenu* menu, const char* name, const QString& text, const std::function<void()>& triggered);
    TransparentButton* button(const char* name, Icon which, const QString& text, const QString& hint,
                              const std::function<void()>& clicked);
    QMenu* menu(const char* name, const QString& title);
    void buildMenus();
    void buildFileMenu();
    void buildWindowItems();
    std::function<void()> wanted(const WindowRow& row);
    void buildOptionsMenu();
    void buildLanguageItems();
    void buildManualItems();
    void buildPracticeItems();
    void buildHelpMenu();
    void buildCentre();
    QWidget* buildButtons();
    QWidget* buildIdentity();
    QWidget* buildHistory();
    void buildStatusLine();
    void listen();

    void showLink();
    void enablePractice();
    void enableWindows();
    void showPractice();
    void showPicture();

    Tool& m_tool;
    const LiveTexts* m_liveTexts = nullptr;  // in the edit mode
    AbLED* m_lamp = nullptr;
    VrIndicator* m_indicator = nullptr;
    static constexpr int NoFamily = -1;
    PictureBox* m_picture = nullptr;
    int m_pictured = -2;  // family on the picture; nothing yet
    QPlainTextEdit* m_memo = nullptr;
    ElidedLabel* m_panel0 = nullptr;
    QLabel* m_panel1 = nullptr;
    QLabel* m_practicePanel = nullptr;
    QMenu* m_practiceMenu = nullptr;
    QAction* m_fault = nullptr;
    QAction* m_stop = nullptr;
    QActionGroup* m_languages = nullptr;
    QActionGroup* m_practice = nullptr;
    struct IdentityLabels {
        VrLabel* drive = nullptr;
        VrLabel* version = nullptr;
        VrLabel* hp = nullptr;
        VrLabel* voltage = nullptr;
        VrLabel* current = nullptr;
    } m_identity;
};

}  // namespace kelvane
