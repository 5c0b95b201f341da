// All windows of the tool, created in one order at start and living for the whole run, and the openings that
// need more than one step: each is a named method that goes on when a window has closed.
#pragma once

#include <QList>
#include <QObject>
#include <functional>

#include "base/kept_looks.h"
#include "parameters/dialogs/input_value_form.h"
#include "parameters/dialogs/progress_form.h"
#include "parameters/dialogs/sel_comp_kind_form.h"
#include "parameters/dialogs/sel_file_format_form.h"
#include "parameters/dialogs/sel_group_load_form.h"
#include "parameters/dialogs/sel_para_print_form.h"
#include "parameters/dialogs/sel_para_source_form.h"
#include "parameters/dialogs/sel_read_kind_form.h"
#include "parameters/dialogs/write_check_err_record_form.h"
#include "parameters/dialogs/write_check_form.h"
#include "parameters/report/print_form.h"
#include "parameters/window/parameter_form.h"
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
    // The main window stands already, so that it can be seen while the others are made. person is null where
    // another operator answers (tests).
    Windows(Tool& tool, TMainForm& mainForm, ShellOperator* person, KeptLooks& looks);

    // In the order of creation; windows that are not built yet will take their places.
    Tool& tool;
    TMainForm& mainForm;
    TComSetupForm comSetupForm;
    TParameterForm parameterForm;
    TProgressForm progressForm;
    TWriteCheckForm writeCheckForm;
    TInputValueForm inputValueForm;
    TSelParaSourceForm selParaSourceForm;
    TSelCompKindForm selCompKindForm;
    TSelReadKindForm selReadKindForm;
    TSelFileFormatForm selFileFormatForm;
    TMessageForm messageForm;
    TPrintForm printForm;
    TConnectForm connectForm;
    TCEmessageForm ceMessageForm;
    TInitialForm initialForm;
    TAboutForm aboutForm;
    TPasswordForm passwordForm;
    TInputForm inputForm;
    TSelParaPrintForm selParaPrintForm;
    TSelGroupLoadForm selGroupLoadForm;
    TWriteCheckErrRecordForm writeCheckErrRecordForm;

    // Every window, in the order of creation.
    QList<QWidget*> all();
    // Com setup with what follows it; then runs when its last window has closed.
    void openComSetup(std::function<void()> then = {});
    void openWindow(quint8 ActiveFunction);
    // Brings the window of an ActiveFunction forward.
    void ShowFocusForm(int ActiveFunction);
    void showLanguage();

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void connectMain();
    void hideOthers();
    void connectParameters();
    void offerChoices();
    void afterComSetup();
    void watchInitialForm();
    void finishComSetup();
    void showModal(QWidget& window);
    QWidget* windowOf(int ActiveFunction);

    std::function<void()> m_afterComSetup;
    bool m_comSetupOpened = false;  // by openComSetup: what follows it is ours
    bool m_fromParameterWindow = false;
    bool m_waitingForDrive = false;
};

}  // namespace kelvane
