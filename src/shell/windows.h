// All windows of the tool, made from the window table in its order at start and living for the whole run, and
// the openings that need more than one step: each is a named method that goes on when a window has closed.
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "base/kept_looks.h"
#include "diagnostics/keypad/keypad_form.h"
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
#include "parameters/report/report_form.h"
#include "parameters/window/parameter_form.h"
#include "shell/about_form.h"
#include "shell/caption_editor.h"
#include "shell/captions.h"
#include "shell/ce_message_form.h"
#include "shell/com_setup_form.h"
#include "shell/connect_form.h"
#include "shell/initial_form.h"
#include "shell/input_form.h"
#include "shell/main_form.h"
#include "shell/message_form.h"
#include "shell/password_form.h"
#include "shell/shell_operator.h"
#include "shell/stop_key.h"
#include "shell/tool.h"
#include "shell/translations.h"
#include "shell/window_table.h"
#include "ui/key_repeats.h"

namespace kelvane {

class Windows : public QObject {
    Q_OBJECT
   public:
    // The main window stands already, so that it can be seen while the others are made. person is null where
    // another operator answers (tests).
    Windows(Tool& tool, TMainForm& mainForm, ShellOperator* person, KeptLooks& looks);
    ~Windows() override;

    Tool& tool;
    TMainForm& mainForm;
    KeptLooks& looks;
    KeyRepeats keyRepeats;
    StopKey stopKey;  // windows with a STOP of their own add it when they are wired

   private:
    // Stands before the forms below, which are taken from it.
    struct Forms {
        explicit Forms(Windows& windows);
        ~Forms();
        std::vector<std::unique_ptr<QWidget>> made;
    };
    Forms m_forms;

   public:
    // Short ways to forms of the table.
    TComSetupForm& comSetupForm;
    TParameterForm& parameterForm;
    TProgressForm& progressForm;
    TWriteCheckForm& writeCheckForm;
    TInputValueForm& inputValueForm;
    TSelParaSourceForm& selParaSourceForm;
    TSelCompKindForm& selCompKindForm;
    TSelReadKindForm& selReadKindForm;
    TSelFileFormatForm& selFileFormatForm;
    TMessageForm& messageForm;
    TReportForm& reportForm;
    TConnectForm& connectForm;
    TCEmessageForm& ceMessageForm;
    TInitialForm& initialForm;
    TAboutForm& aboutForm;
    TPasswordForm& passwordForm;
    TInputForm& inputForm;
    TSelParaPrintForm& selParaPrintForm;
    TSelGroupLoadForm& selGroupLoadForm;
    TWriteCheckErrRecordForm& writeCheckErrRecordForm;

    // Every window, in the order of creation.
    const QList<QWidget*>& all() const { return m_all; }
    // The form of a class; while the forms are made, those of the rows above only.
    template <class Form>
    Form& form() const {
        for (const auto& made : m_forms.made)
            if (auto* found = qobject_cast<Form*>(made.get())) return *found;
        Q_UNREACHABLE();
    }
    QWidget* formOf(const WindowRow& row) const;  // null while it is not built

    // Com setup with what follows it; then runs when its last window has closed. The window that had the link
    // has it again.
    void openComSetup(std::function<void()> then = {});
    void openWindow(quint8 ActiveFunction);
    void openRow(const WindowRow& row);
    // Brings the window of an ActiveFunction forward.
    void ShowFocusForm(int ActiveFunction);
    void showLanguage();
    // The steps before a window have ended without it: what stands behind it in its rule follows.
    void openingGivenUp();
    void showModal(QWidget& window);

    // Steps of rows.
    static void openBeside(Windows& windows, QWidget& form);  // not modal
    static void openComSetupAlone(Windows& windows, QWidget& form);
    static void wireComSetup(Windows& windows, QWidget& form);
    static void wireKeypad(Windows& windows, QWidget& form);
    static void wireAbout(Windows& windows, QWidget& form);
    static void wirePassword(Windows& windows, QWidget& form);

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void wireForms();
    void connectMain();
    void putOver(QWidget& window);
    QWidget* inFront(const QWidget& window) const;
    bool isPlacedByHand(const QWidget& window) const;
    void activateBelow(QWidget& window);
    void raiseAbove(const QWidget& window);
    void hidden(QWidget& window);
    void hideOthers();
    void closeKeypad();
    void afterComSetup();
    void watchInitialForm();
    void finishComSetup();

    QList<QWidget*> m_all;
    Translations m_translations;
    CaptionEditor m_captionEditor;
    WindowTexts m_texts;
    QHash<QWidget*, QPointer<QWidget>> m_below;  // over which window a visible one was opened
    QHash<const QWidget*, QPoint> m_placed;      // where we have put it
    const WindowRow* m_open = nullptr;           // that owns the link
    std::function<void()> m_afterComSetup;
    bool m_comSetupOpened = false;       // by openComSetup: what follows it is ours
    const WindowRow* m_asked = nullptr;  // whose link com setup took to rest
    bool m_waitingForDrive = false;
};

}  // namespace kelvane
