#include "shell/windows.h"

#include <QApplication>

#include "shell/change_language.h"

namespace kelvane {

Windows::Windows(Tool& toolShown, ShellOperator* person)
    : tool(toolShown),
      mainForm(tool),
      comSetupForm(tool.comSetup, tool.ports, &mainForm),
      messageForm(&mainForm),
      connectForm(tool.comSetup, tool.bench.clock, &comSetupForm),
      ceMessageForm(tool.link, &mainForm),
      initialForm(tool.link, &mainForm),
      aboutForm(tool.link.BrandVariant, &mainForm),
      passwordForm(tool.link, &mainForm),
      inputForm(tool.comSetup, &comSetupForm) {
    if (person) {
        person->messageForm = &messageForm;
        person->blocking = [this](QWidget* window) { ceMessageForm.showOver(window); };
    }
    tool.parameters.bench.openComSetup = [this](std::function<void()> then) { openComSetup(std::move(then)); };
    connectMain();
    showLanguage();
}

QList<QWidget*> Windows::all() {
    return {&mainForm,      &comSetupForm, &messageForm, &connectForm, &ceMessageForm,
            &initialForm,   &aboutForm,    &passwordForm, &inputForm};
}

void Windows::connectMain() {
    connect(&mainForm, &TMainForm::comSetupWanted, this, [this] { openComSetup(); });
    connect(&mainForm, &TMainForm::windowWanted, this, &Windows::openWindow);
    connect(&mainForm, &TMainForm::aboutWanted, this, [this] { showModal(aboutForm); });
    connect(&aboutForm, &TAboutForm::thanksDoubleClicked, this, [this] { showModal(passwordForm); });
    connect(&comSetupForm, &TComSetupForm::inputFormWanted, this, [this] { showModal(inputForm); });
    connect(&comSetupForm, &QDialog::finished, this, &Windows::afterComSetup);
    connect(&tool.link, &RequestScheduler::changed, this, &Windows::watchInitialForm);
    connect(&tool.link, &RequestScheduler::focusWanted, this, &Windows::ShowFocusForm);
    connect(&tool.rules, &WindowRules::focusWanted, this, &Windows::ShowFocusForm);
    connect(&tool, &Tool::languageChanged, this, &Windows::showLanguage);
}

void Windows::showLanguage() { ChangeLanguage(tool.bench.language.table, all()); }

// Runs closed once, when the window is hidden again.
void Windows::showModal(QWidget& window, std::function<void()> closed) {
    window.setWindowModality(Qt::ApplicationModal);
    if (auto* dialog = qobject_cast<QDialog*>(&window); dialog && closed)
        connect(dialog, &QDialog::finished, this, [closed] { closed(); }, Qt::SingleShotConnection);
    window.show();
    window.raise();
    window.activateWindow();
}

// ---- Com setup and what follows it ----

void Windows::openComSetup(std::function<void()> then) {
    m_afterComSetup = std::move(then);
    m_fromParameterWindow = tool.link.ActiveFunction == OwnerParameter;
    if (!tool.comSetup.mayOpen()) {
        finishComSetup();
        return;
    }
    showModal(comSetupForm);
}

void Windows::afterComSetup() {
    const bool wentOnLine = tool.link.TxTimer.Enabled() || tool.link.RxTimer.Enabled();
    if (!wentOnLine) {
        finishComSetup();
        return;
    }
    m_waitingForDrive = true;
    tool.link.Notice.TInitialForm = true;
    tool.link.notifyChanged();
}

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

QWidget* Windows::windowOf(int ActiveFunction) { return ActiveFunction == OwnerMain ? &mainForm : nullptr; }

void Windows::openWindow(quint8 ActiveFunction) {
    QWidget* window = windowOf(ActiveFunction);
    if (!window || !tool.rules.begin(ActiveFunction)) return;
    showModal(*window, [this, ActiveFunction] { tool.rules.finished(ActiveFunction); });
}

void Windows::ShowFocusForm(int ActiveFunction) {
    QWidget* window = windowOf(ActiveFunction);
    if (!window) return;
    window->show();
    window->raise();
    window->activateWindow();
}

}  // namespace kelvane
