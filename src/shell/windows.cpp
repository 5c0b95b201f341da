#include "shell/windows.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>
#include <utility>

#include "shell/change_language.h"

namespace kelvane {

Windows::Windows(Tool& toolShown, TMainForm& main, ShellOperator* person, KeptLooks& looks)
    : tool(toolShown),
      mainForm(main),
      comSetupForm(tool.comSetup, tool.ports),
      parameterForm(tool.parameters, {tool.bench.person, tool.bench.clock, tool.bench.wallClock,
                                      tool.bench.folder.path(), looks}),
      progressForm(tool.parameters.progress),
      writeCheckForm(tool.parameters),
      inputValueForm(tool.bench.person, tool.bench.language.table),
      printForm(tool.bench.person),
      connectForm(tool.comSetup, tool.bench.clock),
      ceMessageForm(tool.link),
      initialForm(tool.link),
      aboutForm(tool.link.BrandVariant),
      passwordForm(tool.link),
      inputForm(tool.comSetup),
      selGroupLoadForm(tool.parameters.reader),
      writeCheckErrRecordForm(tool.parameters.writer) {
    if (person) {
        person->messageForm = &messageForm;
        person->prepareValueEditor = [this](ValueEdit& edit) { return inputValueForm.prepare(edit); };
    }
    for (QWidget* window : all()) window->installEventFilter(this);
    connectMain();
    connectParameters();
    offerChoices();
    mainForm.setBuilt({OwnerParameter});
    showLanguage();
}

QList<QWidget*> Windows::all() {
    return {&mainForm,          &comSetupForm,     &parameterForm,
            &progressForm,      &writeCheckForm,   &inputValueForm,
            &selParaSourceForm, &selCompKindForm,  &selReadKindForm,
            &selFileFormatForm, &messageForm,      &printForm,
            &connectForm,       &ceMessageForm,    &initialForm,
            &aboutForm,         &passwordForm,     &inputForm,
            &selParaPrintForm,  &selGroupLoadForm, &writeCheckErrRecordForm};
}

void Windows::connectMain() {
    connect(&mainForm, &TMainForm::closed, this, &Windows::hideOthers);
    connect(&mainForm, &TMainForm::comSetupWanted, this, [this] { openComSetup(); });
    connect(&mainForm, &TMainForm::windowWanted, this, &Windows::openWindow);
    connect(&mainForm, &TMainForm::aboutWanted, this, [this] { showModal(aboutForm); });
    connect(&aboutForm, &TAboutForm::thanksDoubleClicked, this, [this] { showModal(passwordForm); });
    connect(&comSetupForm, &TComSetupForm::inputFormWanted, this, [this] { showModal(inputForm); });
    connect(&comSetupForm, &QDialog::finished, this, &Windows::afterComSetup);
    connect(&tool.link, &RequestScheduler::cycleEnded, this, &Windows::watchInitialForm);
    connect(&tool.link, &RequestScheduler::focusWanted, this, &Windows::ShowFocusForm);
    connect(&tool.rules, &WindowRules::focusWanted, this, &Windows::ShowFocusForm);
    connect(&tool, &Tool::languageChanged, this, &Windows::showLanguage);
}

// The main window has closed. Hidden windows stop the timers that they run while they are seen.
void Windows::hideOthers() {
    for (QWidget* window : all())
        if (window != &mainForm) window->hide();
}

void Windows::connectParameters() {
    ParameterSession& session = tool.parameters;
    session.bench.openComSetup = [this](std::function<void()> then) { openComSetup(std::move(then)); };
    connect(&session.keypad, &KeypadSource::passwordWanted, this, [this] { showModal(passwordForm); });
    connect(&passwordForm, &TPasswordForm::keypadReadEnabled, &session.keypad, &KeypadSource::enable);
    connect(&session, &ParameterSession::sourceLit, &selParaSourceForm, &TSelParaSourceForm::light);
    connect(&session, &ParameterSession::writeSourceWanted, this, [this](const QString& VrLabel1) {
        selParaSourceForm.ask(VrLabel1, [this](std::optional<TableSide> side) {
            if (side) tool.parameters.writeSourceChosen(*side);
        });
    });
    connect(&parameterForm, &TParameterForm::finished, this, [this] { tool.rules.finished(OwnerParameter); });
    connect(&parameterForm, &TParameterForm::reportWanted, this, [this](const Report& report) {
        printForm.setReport(report);
        showModal(printForm);
    });
}

// What saving, comparing and printing ask in windows of their own.
void Windows::offerChoices() {
    TableChoices& choices = parameterForm.choices;
    choices.chooseFrom = [this](const QString& title, const QStringList& items, int selected,
                                TableChoices::ThenIndex then) {
        selParaPrintForm.ask(title, items, selected, [items, then](std::optional<QString> chosen) {
            then(chosen ? std::optional<int>(items.indexOf(*chosen)) : std::nullopt);
        });
    };
    choices.chooseFormat = [this](TableChoices::ThenKind then) { selFileFormatForm.ask(then); };
    choices.chooseCompareKind = [this](const QStringList& items, TableChoices::ThenIndex then) {
        selCompKindForm.ask(items, [items, then](std::optional<QString> chosen) {
            then(chosen ? std::optional<int>(items.indexOf(*chosen)) : std::nullopt);
        });
    };
}

// A window belongs over the one that was in front when it opened. They are no children of each other, so that
// every control is found in its own window.
bool Windows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show) return false;
    auto* window = qobject_cast<QWidget*>(watched);
    QWidget* front = QApplication::activeModalWidget();
    if (!front) front = QApplication::activeWindow();
    if (window && front && front != window && window->windowHandle() && front->windowHandle())
        window->windowHandle()->setTransientParent(front->windowHandle());
    return false;
}

void Windows::showLanguage() { ChangeLanguage(tool.bench.language.table, all()); }

void Windows::showModal(QWidget& window) {
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    window.raise();
    window.activateWindow();
}

// ---- Com setup and what follows it ----

void Windows::openComSetup(std::function<void()> then) {
    m_afterComSetup = std::move(then);
    // Not by ActiveFunction: an aborted write has made it the main window's behind the open window.
    m_fromParameterWindow = parameterForm.isVisible();
    if (!tool.comSetup.mayOpen()) {
        finishComSetup();
        return;
    }
    m_comSetupOpened = true;
    showModal(comSetupForm);
}

void Windows::afterComSetup() {
    if (!std::exchange(m_comSetupOpened, false)) return;
    const bool wentOnLine = tool.link.TxTimer.Enabled() || tool.link.RxTimer.Enabled();
    if (!wentOnLine) {
        finishComSetup();
        return;
    }
    m_waitingForDrive = true;
    tool.link.Notice.TInitialForm = true;
    tool.link.notifyChanged();
}

// At the end of the exchange that closed the wait notice: when identification failed, Initial runs behind its
// box, and would take the link away from the window that it was given back to.
void Windows::watchInitialForm() {
    if (!m_waitingForDrive || tool.link.Notice.TInitialForm) return;
    m_waitingForDrive = false;
    finishComSetup();
}

void Windows::finishComSetup() {
    if (m_fromParameterWindow) tool.comSetup.returnToParameterWindow();
    m_fromParameterWindow = false;
    const auto then = std::exchange(m_afterComSetup, {});
    if (then) then();
}

// ---- Windows that own the link ----

QWidget* Windows::windowOf(int ActiveFunction) {
    switch (ActiveFunction) {
        case OwnerMain: return &mainForm;
        case OwnerParameter: return &parameterForm;
        default: return nullptr;
    }
}

void Windows::openWindow(quint8 ActiveFunction) {
    QWidget* window = windowOf(ActiveFunction);
    if (!window || !tool.rules.begin(ActiveFunction)) return;
    if (ActiveFunction == OwnerParameter) tool.parameters.opened();
    showModal(*window);
}

void Windows::ShowFocusForm(int ActiveFunction) {
    QWidget* window = windowOf(ActiveFunction);
    if (!window) return;
    window->show();
    window->raise();
    window->activateWindow();
}

}  // namespace kelvane
