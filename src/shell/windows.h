// All windows of the tool, created in one order at start and living for the whole run, and the openings that need
// more than one step: each is a named method that goes on when a window has closed.
#pragma once

#include <QList>
#include <QObject>
#include <functional>

#include "shell/about_form.h"
#include "shell/ce_message_form.h"
#include "shell/com_setup_form.h"
#include "shell/connect_form.h"
#include "shell/initial_form.h"
#include "shell/input_form.h"
#include "shell/main_form.h"
#include "shell/message_form.h"
#include "shell/password_form.h"
#include "shell/shell_operator.h"
#include "shell/tool.h"

namespace kelvane {

class Windows : public QObject {
    Q_OBJECT
   public:
    // person is null where another operator answers (tests).
    Windows(Tool& tool, ShellOperator* person);

    Tool& tool;
    TMainForm mainForm;
    TComSetupForm comSetupForm;
    TMessageForm messageForm;
    TConnectForm connectForm;
    TCEmessageForm ceMessageForm;
    TInitialForm initialForm;
    TAboutForm aboutForm;
    TPasswordForm passwordForm;
    TInputForm inputForm;

    // Every window, in the order of creation.
    QList<QWidget*> all();
    // Com setup with what follows it; then runs when its last window has closed.
    void openComSetup(std::function<void()> then = {});
    void openWindow(quint8 ActiveFunction);
    // Brings the window of an ActiveFunction forward.
    void ShowFocusForm(int ActiveFunction);
    void showLanguage();

   private:
    void connectMain();
    void afterComSetup();
    void watchInitialForm();
    void finishComSetup();
    void showModal(QWidget& window, std::function<void()> closed = {});
    QWidget* windowOf(int ActiveFunction);

    std::function<void()> m_afterComSetup;
    bool m_fromParameterWindow = false;
    bool m_waitingForDrive = false;
};

}  // namespace kelvane
