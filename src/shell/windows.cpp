#include "shell/windows.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "shell/change_language.h"
#include "shell/edit_form.h"
#include "shell/mnemonics.h"
#include "ui/screen_room.h"

namespace kelvane {

namespace {

// For the window manager too it is a dialog over its parent, which Qt says of that type only.
void makeDialog(QWidget& window) {
    if (window.windowType() == Qt::Dialog) return;
    window.setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
}

QPoint centre(QWidget& window, const QWidget& over) {
    const QRect room = roomOn(*over.screen());
    QRect place(QPoint(), window.size());
    place.moveCenter(over.geometry().center());
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    window.move(place.topLeft());
    return window.pos();
}

}  // namespace

Windows::Forms::Forms(Windows& windows) {
    for (const WindowRow& row : windowTable())
        if (row.built()) made.push_back(row.make(windows));
}

// A notice may lie over another form as its child, which would take it along and leave it to be deleted
// twice.
Windows::Forms::~Forms() {
    for (const auto& form : made)
        if (form->parentWidget()) form->setParent(nullptr, form->windowFlags());
}

namespace {

// What lay over the window lies over the lowest one from now on: two that belong over each other stop the
// whole program in the toolkit's search for the end of the chain.
void belongOver(QWindow& window, QWindow& front, QWindow& lowest) {
    for (QWindow* over = &front; over && over != &lowest; over = over->transientParent())
        if (over->transientParent() == &window) over->setTransientParent(&lowest);
    window.setTransientParent(&front);
}

}  // namespace

Windows::Windows(Tool& toolShown, TMainForm& main, ShellOperator* person, KeptLooks& keptLooks)
    : tool(toolShown),
      mainForm(main),
      looks(keptLooks),
      m_forms(*this),
      comSetupForm(form<TComSetupForm>()),
      parameterForm(form<TParameterForm>()),
      progressForm(form<TProgressForm>()),
      writeCheckForm(form<TWriteCheckForm>()),
      inputValueForm(form<TInputValueForm>()),
      selParaSourceForm(form<TSelParaSourceForm>()),
      selCompKindForm(form<TSelCompKindForm>()),
      selReadKindForm(form<TSelReadKindForm>()),
      selFileFormatForm(form<TSelFileFormatForm>()),
      messageForm(form<TMessageForm>()),
      reportForm(form<TReportForm>()),
      connectForm(form<TConnectForm>()),
      ceMessageForm(form<TCEmessageForm>()),
      initialForm(form<TInitialForm>()),
      aboutForm(form<TAboutForm>()),
      passwordForm(form<TPasswordForm>()),
      inputForm(form<TInputForm>()),
      selParaPrintForm(form<TSelParaPrintForm>()),
      selGroupLoadForm(form<TSelGroupLoadForm>()),
      writeCheckErrRecordForm(form<TWriteCheckErrRecordForm>()),
      m_captionEditor([this](const QString& caption, std::function<void(const QString&)> replace) {
          auto& edit = form<TEditForm>();
          edit.ask(caption, std::move(replace));
          showModal(edit);
      }),
      m_texts(m_all, tool.site.language.table) {
    if (person) {
        person->messageForm = &messageForm;
        person->prepareValueEditor = [this](ValueEdit& edit) { return inputValueForm.prepare(edit); };
    }
    m_all = {&mainForm};
    for (const auto& made : m_forms.made) m_all.append(made.get());
    connectMain();
    wireForms();
    showLanguage();
}

// The windows that go hide, and the filter would look at what has gone.
Windows::~Windows() {
    for (QWidget* window : m_all) window->removeEventFilter(this);
}

QWidget* Windows::formOf(const WindowRow& row) const {
    for (QWidget* window : m_all)
        if (window->objectName() == QLatin1String(row.form)) return window;
    return nullptr;
}

void Windows::wireForms() {
    for (QWidget* window : m_all) {
        if (window != &mainForm) makeDialog(*window);
        window->installEventFilter(this);
    }
    for (const WindowRow& row : windowTable())
        if (row.wire) row.wire(*this, *formOf(row));
}

void Windows::connectMain() {
    connect(&mainForm, &TMainForm::closed, this, &Windows::hideOthers);
    connect(&mainForm, &TMainForm::comSetupWanted, this, [this] { openComSetup(); });
    connect(&mainForm, &TMainForm::windowWanted, this, &Windows::openRow);
    connect(&mainForm, &TMainForm::aboutWanted, this, [this] { showModal(aboutForm); });
    connect(&mainForm, &TMainForm::stopWanted, &stopKey, &StopKey::press);
    mainForm.stopReady = [this] { return stopKey.ready(); };
    connect(&tool.link, &RequestScheduler::cycleEnded, this, &Windows::watchInitialForm);
    connect(&initialForm, &TInitialForm::left, this, &Windows::watchInitialForm);
    connect(&tool.link, &RequestScheduler::focusWanted, this, &Windows::ShowFocusForm);
    connect(&tool.rules, &WindowRules::focusWanted, this, &Windows::ShowFocusForm);
    connect(&tool.rules, &WindowRules::closeKeypad, this, &Windows::closeKeypad);
    connect(&tool, &Tool::languageChanged, this, &Windows::showLanguage);
}

void Windows::wireComSetup(Windows& windows, QWidget&) {
    connect(&windows.comSetupForm, &TComSetupForm::inputFormWanted, &windows,
            [&windows] { windows.showModal(windows.inputForm); });
    connect(&windows.comSetupForm, &QDialog::finished, &windows, &Windows::afterComSetup);
}

void Windows::wireKeypad(Windows& windows, QWidget& form) {
    auto& keypad = static_cast<TKeypadForm&>(form);
    connect(&keypad, &TKeypadForm::onLineClicked, &windows.mainForm, &TMainForm::ComStatusAbLEDDblClick);
    Keypad& engine = windows.tool.keypad;
    windows.stopKey.add(
        form, [&engine] { return engine.mayCommand(); }, [&engine] { engine.STOPTransparentButtonClick(); });
}

void Windows::wireAbout(Windows& windows, QWidget&) {
    connect(&windows.aboutForm, &TAboutForm::thanksDoubleClicked, &windows,
            [&windows] { windows.showModal(windows.passwordForm); });
}

void Windows::wirePassword(Windows& windows, QWidget&) {
    connect(&windows.passwordForm, &TPasswordForm::languageEnabled, &windows, [&windows] {
        windows.m_captionEditor.enable(windows.m_all);
        windows.mainForm.enableSaveLanguage(windows.m_texts);
    });
}

// The main window has closed. Hidden windows stop the timers that they run while they are seen.
void Windows::hideOthers() {
    m_open = nullptr;
    for (QWidget* window : m_all)
        if (window != &mainForm) window->hide();
}

void Windows::closeKeypad() {
    if (QWidget* keypad = formOf(*windowRow(OwnerKeypad))) keypad->close();
}

bool Windows::eventFilter(QObject* watched, QEvent* event) {
    auto* window = qobject_cast<QWidget*>(watched);
    if (window && event->type() == QEvent::Show) putOver(*window);
    if (window && event->type() == QEvent::WindowActivate) raiseAbove(*window);
    // Some window managers put a modal window over what belongs over it at every click.
    if (watched->isWindowType() && event->type() == QEvent::MouseButtonPress)
        for (const auto& [above, below] : m_below.asKeyValueRange())
            if (below && below->windowHandle() == watched) above->raise();
    if (window && event->type() == QEvent::Hide && !event->spontaneous()) hidden(*window);
    return false;
}

// A window belongs over the one that was in front when it opened. They are no children of each other, so that
// every control is found in its own window.
void Windows::putOver(QWidget& window) {
    QWidget* front = &window == &mainForm ? nullptr : inFront(window);
    if (front && window.windowHandle() && front->windowHandle() && mainForm.windowHandle()) {
        belongOver(*window.windowHandle(), *front->windowHandle(), *mainForm.windowHandle());
        m_below[&window] = front;
        front->windowHandle()->installEventFilter(this);
    }
    fitIntoScreen(window, front ? *front : window);
    if (front && !isPlacedByHand(window)) m_placed[&window] = centre(window, *front);
}

QWidget* Windows::inFront(const QWidget& window) const {
    QWidget* front = QApplication::activeModalWidget();
    if (!front || front == &window) front = QApplication::activeWindow();
    // The retry notice moves over whatever comes into front, which can then not belong over the notice.
    const bool unfit = !front || front == &window || front->objectName() == QLatin1String("TCEmessageForm");
    if (unfit) front = mainForm.isVisible() ? &mainForm : nullptr;
    return front;
}

// Where it was put, by a person or from the kept looks, it comes back.
bool Windows::isPlacedByHand(const QWidget& window) const {
    const auto placed = m_placed.constFind(&window);
    return placed == m_placed.constEnd() ? window.testAttribute(Qt::WA_Moved) : window.pos() != *placed;
}

// Some window managers forget whom the keyboard belongs to when a window goes that was only just there.
void Windows::activateBelow(QWidget& window) {
    QWidget* below = m_below.take(&window);
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal != &window) below = modal;
    if (below && below->isVisible()) below->activateWindow();
}

// Some window managers put a modal window that is clicked above the keypad that lies over it.
void Windows::raiseAbove(const QWidget& window) {
    for (auto above = m_below.cbegin(); above != m_below.cend(); ++above)
        if (above.value() == &window) above.key()->raise();
}

// By whatever way it went, a window that had the link gives it up.
void Windows::hidden(QWidget& window) {
    activateBelow(window);
    if (m_open && formOf(*m_open) == &window) openingGivenUp();
}

void Windows::openingGivenUp() {
    if (const WindowRow* row = std::exchange(m_open, nullptr)) tool.rules.finished(row->rule);
}

// The language file has the last word where it has one.
void Windows::showLanguage() {
    m_translations.choose(tool.site.language.LanguageIndex,
                          tool.site.folder.findData(QStringLiteral("Language file")));
    m_translations.show(m_all);
    ChangeLanguage(tool.site.language.table, m_all);
    for (QWidget* window : m_all) giveEachLetterOnce(*window);
}

void Windows::showModal(QWidget& window) {
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    window.raise();
    window.activateWindow();
}

void Windows::openBeside(Windows&, QWidget& form) {
    form.show();
    form.raise();
    form.activateWindow();
}

// ---- Com setup and what follows it ----

void Windows::openComSetupAlone(Windows& windows, QWidget&) { windows.openComSetup(); }

void Windows::openComSetup(std::function<void()> then) {
    m_afterComSetup = std::move(then);
    // Not by ActiveFunction: an aborted write has made it the main window's behind the open window.
    m_asked = m_open;
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
    tool.comSetup.awaitDrive();
}

// At the end of the exchange that closed the wait notice: when identification failed, Initial runs behind its
// box, and would take the link away from the window that it was given back to.
void Windows::watchInitialForm() {
    if (!m_waitingForDrive || tool.link.Notice.TInitialFormShown) return;
    m_waitingForDrive = false;
    finishComSetup();
}

void Windows::finishComSetup() {
    const WindowRow* asked = std::exchange(m_asked, nullptr);
    if (asked && asked == m_open) tool.rules.giveBack(asked->rule);
    const auto then = std::exchange(m_afterComSetup, {});
    if (then) then();
}

// ---- Windows that own the link ----

void Windows::openWindow(quint8 ActiveFunction) {
    if (const WindowRow* row = windowRow(ActiveFunction)) openRow(*row);
}

void Windows::openRow(const WindowRow& row) {
    QWidget* window = formOf(row);
    if (!window || !tool.rules.begin(row.rule)) return;
    if (row.rule.ownsLink()) m_open = &row;
    if (row.open)
        row.open(*this, *window);
    else
        showModal(*window);
}

void Windows::ShowFocusForm(int ActiveFunction) {
    const WindowRow* row = windowRow(static_cast<quint8>(ActiveFunction));
    QWidget* window = row ? formOf(*row) : nullptr;
    if (!window) return;
    window->show();
    window->raise();
    window->activateWindow();
}

}  // namespace kelvane
