#include "quicksetup/quick_setup_form.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

#include "ui/drawing.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/number_edit.h"
#include "ui/readable_colours.h"

namespace kelvane {

namespace {

constexpr int LastStep = 3;
// Middle of the first terminal's name in the drawing, and the way to the next.
constexpr QPointF FirstName(30, 26);
constexpr double NextName = 60;

int stepOf(int slot) {
    if (slot <= StepOneSlots.last) return 0;
    if (slot <= StepTwoSlots.last) return 1;
    return slot <= StepThreeSlots.last ? 2 : 3;
}

QPushButton* makeButton(const char* name, Icon picture, const QString& text, const QString& hint) {
    auto* button = named<QPushButton>(name, icon(picture), text);
    button->setToolTip(hint);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

TQuickSetupForm::TQuickSetupForm(QuickSetup& quick, QuickSetupFlow& flow, QWidget* parent)
    : QDialog(parent), m_quick(quick), m_flow(flow), PageControl1(named<QTabWidget>("PageControl1", this)) {
    setObjectName(QStringLiteral("TQuickSetupForm"));
    setWindowTitle(tr("Quick Setup"));
    setWindowModality(Qt::ApplicationModal);
    const auto add = [this](const char* name, const char* headingName, const QString& heading,
                            QWidget* content) {
        PageControl1->addTab(makePage(name, headingName, heading, content), {});
    };
    add("S1TabSheet", "Step1VrLabel", tr("User Parameters & Motor Parameters"), makeStepOne());
    add("S2TabSheet", "Step2VrLabel", tr("Basic Parameters"), makeStepTwo());
    add("S3TabSheet", "Step3VrLabel", tr("Operation Method Parameters"), makeStepThree());
    add("S4TabSheet", "Step4VrLabel", tr("Output & Input Function Parameters"), makeStepFour());
    nameTabs();
    auto* column = new QVBoxLayout(this);
    column->addWidget(PageControl1, 1);
    column->addWidget(makeFoot());
    connect(PageControl1, &QTabWidget::currentChanged, this, &TQuickSetupForm::enableStepButtons);
    connect(&m_quick, &QuickSetup::rebuilt, this, &TQuickSetupForm::showFamily);
    connect(&m_quick, &QuickSetup::controlsFilled, this, &TQuickSetupForm::showValues);
    connect(&m_quick, &QuickSetup::slotChanged, this, [this](int slot) {
        row(slot).showValue();
        showChangedCount();
    });
    connect(&m_flow, &QuickSetupFlow::wizardDone, this, [this] { done(Accepted); });
    tintHelps();
    enableStepButtons();
    showFamily();
}

// ---- Layout ----

void TQuickSetupForm::nameTabs() {
    for (int step = 0; step <= LastStep; ++step) PageControl1->setTabText(step, tr("Step %1").arg(step + 1));
    PageControl2->setTabText(0, tr("Output"));
    PageControl2->setTabText(1, tr("Input"));
}

void TQuickSetupForm::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) nameTabs();
    if (event->type() == QEvent::PaletteChange) tintHelps();
    QDialog::changeEvent(event);
}

// Paler than the rest, in a light and in a dark palette.
void TQuickSetupForm::tintHelps() {
    constexpr double Paleness = 0.35;
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText,
                     mix(colours.color(QPalette::WindowText), colours.color(QPalette::Window), Paleness));
    for (const Help& help : m_helps) help.label->setPalette(colours);
}

QWidget* TQuickSetupForm::makePage(const char* name, const char* headingName, const QString& heading,
                                   QWidget* content) {
    auto* page = named<QWidget>(name);
    auto* column = new QVBoxLayout(page);
    QLabel* title = plainLabel(headingName, heading, page);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    title->setFont(font);
    column->addWidget(title);
    column->addWidget(content, 1);
    return page;
}

void TQuickSetupForm::addSlots(SlotRange range, QWidget* page, QGridLayout& grid) {
    for (int slot = range.first; slot <= range.last; ++slot) {
        auto* made = new SlotRowForm(m_quick, slot, page, grid);
        m_rows[static_cast<size_t>(slot)] = made;
        made->control()->installEventFilter(this);
        connect(made, &SlotRowForm::left, this, &TQuickSetupForm::leave);
    }
    // Boxes take the room that there is; a mark stands close to its edit.
    const bool lists = quickSlot(range.last).control == SlotControl::List;
    grid.setColumnStretch(lists ? 1 : 4, 1);
}

QLabel* TQuickSetupForm::addHelp(const char* name, const QString& text, QGridLayout& grid,
                                 int shownWithSlot) {
    QLabel* help = plainLabel(name, text);
    help->setWordWrap(true);
    grid.addWidget(help, grid.rowCount(), 0, 1, 5);
    m_helps.push_back({help, shownWithSlot});
    return help;
}

QWidget* TQuickSetupForm::makeStepOne() {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    auto* user = named<QGroupBox>("S1Label1", tr("User Parameters"));
    auto* userGrid = new QGridLayout(user);
    addSlots({1, 4}, user, *userGrid);
    addHelp("S1Label2", tr("Select what the keypad shows after power on."), *userGrid, 1);
    addHelp("S1Label3", tr("The coefficient scales the user-defined display."), *userGrid, 3);
    auto* motor = named<QGroupBox>("S1Label4", tr("Motor Parameters"));
    auto* motorGrid = new QGridLayout(motor);
    addSlots({5, 7}, motor, *motorGrid);
    addHelp("S1Label5", tr("Enter the rated current and the number of poles as on the motor's name plate."),
            *motorGrid, 5);
    addHelp("S1Label6", tr("The no-load current must be below the rated current."), *motorGrid, 6);
    column->addWidget(user);
    column->addWidget(motor);
    column->addStretch();
    return content;
}

QWidget* TQuickSetupForm::makeCurves() {
    PageControl3 = named<QStackedWidget>("PageControl3");
    struct Row {
        const char* page;
        const char* file;
    };
    for (const Row& picture : {Row{"VonlyChtTabSheet", "vf_two_cht"}, Row{"VonlyEngTabSheet", "vf_two_eng"},
                               Row{"OtherChtTabSheet", "vf_one_cht"}, Row{"OtherEngTabSheet", "vf_one_eng"}})
        PageControl3->addWidget(named<Drawing>(
            picture.page,
            QStringLiteral(":/kelvane/quicksetup/") % QLatin1String(picture.file) % QLatin1String(".svg"),
            tr("V/f curve")));
    return PageControl3;
}

QWidget* TQuickSetupForm::makeStepTwo() {
    auto* content = new QWidget;
    auto* line = new QHBoxLayout(content);
    line->setContentsMargins(0, 0, 0, 0);
    auto* grid = new QGridLayout;
    addHelp("S2Label1", tr("Enter the points of the V/f curve, the frequency limits and the ramp times."),
            *grid);
    addSlots(StepTwoSlots, content, *grid);
    grid->setRowStretch(grid->rowCount(), 1);
    line->addLayout(grid, 1);
    line->addWidget(makeCurves(), 1);
    return content;
}

QWidget* TQuickSetupForm::makeStepThree() {
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setContentsMargins(0, 0, 0, 0);
    addHelp("S3Label1", tr("Select where the commands come from and how the motor stops."), *grid);
    addSlots({22, 22}, content, *grid);
    addHelp("S3Label2", tr("Frequency command: keypad, analog input or serial communication."), *grid, 22);
    addSlots({23, 23}, content, *grid);
    addHelp("S3Label3", tr("Operation command: keypad, external terminals or serial communication."), *grid,
            23);
    addSlots({24, 24}, content, *grid);
    addHelp("S3Label4", tr("Stop method: ramp to stop or coast to stop."), *grid, 24);
    grid->setRowStretch(grid->rowCount(), 1);
    return content;
}

QWidget* TQuickSetupForm::makeTerminalPage(const char* name, SlotRange range) {
    auto* page = named<QWidget>(name);
    auto* grid = new QGridLayout(page);
    addSlots(range, page, *grid);
    grid->setRowStretch(grid->rowCount(), 1);
    return page;
}

QWidget* TQuickSetupForm::makeTerminals() {
    m_terminals = named<Drawing>("TerminalDrawing", QStringLiteral(":/kelvane/quicksetup/terminals.svg"),
                                 tr("Input terminals"));
    for (size_t i = 0; i < m_terminalNames.size(); ++i) {
        const QByteArray name = "TerminalLabel" + QByteArray::number(static_cast<int>(i + 1));
        m_terminalNames[i] = plainLabel(name.constData(), {}, m_terminals);
        m_terminalNames[i]->setAlignment(Qt::AlignCenter);
        m_terminalNames[i]->setStyleSheet(QStringLiteral("color: #20242c; background: transparent;"));
    }
    m_terminals->installEventFilter(this);
    return m_terminals;
}

QWidget* TQuickSetupForm::makeStepFour() {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    PageControl2 = named<QTabWidget>("PageControl2");
    PageControl2->addTab(makeTerminalPage("OutputTabSheet", OutputSlots), {});
    PageControl2->addTab(makeTerminalPage("InputTabSheet", InputSlots), {});
    column->addWidget(PageControl2, 1);
    column->addWidget(makeTerminals(), 0, Qt::AlignHCenter);
    return content;
}

QWidget* TQuickSetupForm::makeFoot() {
    auto* foot = new QWidget;
    auto* line = new QHBoxLayout(foot);
    line->setContentsMargins(0, 0, 0, 0);
    m_source = plainLabel("SourceLabel");
    m_changed = plainLabel("ChangedLabel");
    BackStepBitBtn = makeButton("BackStepBitBtn", Icon::StepBack, tr("Back Step"), tr("Go back one step"));
    NextStepBitBtn =
        makeButton("NextStepBitBtn", Icon::StepNext, tr("Next Step"), tr("Go on to the next step"));
    OKBitBtn = makeButton("OKBitBtn", Icon::Accept, tr("OK"), tr("Write the settings to the drive"));
    line->addWidget(m_source);
    line->addSpacing(fontMetrics().height());
    line->addWidget(m_changed);
    line->addStretch();
    for (QPushButton* button : {BackStepBitBtn, NextStepBitBtn, OKBitBtn}) line->addWidget(button);
    connect(BackStepBitBtn, &QPushButton::clicked, this, &TQuickSetupForm::BackStepBitBtnClick);
    connect(NextStepBitBtn, &QPushButton::clicked, this, &TQuickSetupForm::NextStepBitBtnClick);
    connect(OKBitBtn, &QPushButton::clicked, this, &TQuickSetupForm::OKBitBtnClick);
    const auto shortcut = [this](const QKeySequence& keys, void (TQuickSetupForm::*handler)()) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, handler);
    };
    shortcut(QKeySequence(Qt::ALT | Qt::Key_Left), &TQuickSetupForm::BackStepBitBtnClick);
    shortcut(QKeySequence(Qt::ALT | Qt::Key_Right), &TQuickSetupForm::NextStepBitBtnClick);
    shortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), &TQuickSetupForm::OKBitBtnClick);
    return foot;
}

// ---- Showing ----

void TQuickSetupForm::showFamily() {
    const FamilySetup* family = m_quick.family();
    for (int slot = 1; slot <= SlotCount; ++slot) row(slot).showList();
    for (const Help& help : m_helps) help.label->setVisible(help.slot == 0 || m_quick.used(help.slot));
    if (family)
        for (size_t i = 0; i < m_terminalNames.size(); ++i)
            m_terminalNames[i]->setText(QString::fromLatin1(family->terminals[i]));
    placeTerminalNames();
    showCurve();
    showChangedCount();
}

void TQuickSetupForm::showValues() {
    for (int slot = 1; slot <= SlotCount; ++slot) row(slot).showValue();
    showChangedCount();
}

void TQuickSetupForm::setChinese(bool chinese) {
    m_chinese = chinese;
    showCurve();
}

void TQuickSetupForm::showCurve() {
    const bool two = m_quick.family() && m_quick.family()->twoMidPoints;
    PageControl3->setCurrentIndex((two ? 0 : 2) + (m_chinese ? 0 : 1));
}

void TQuickSetupForm::placeTerminalNames() {
    for (size_t i = 0; i < m_terminalNames.size(); ++i) {
        QLabel& label = *m_terminalNames[i];
        label.adjustSize();
        const QPointF middle =
            m_terminals->placeOf(FirstName + QPointF(NextName * static_cast<double>(i), 0));
        label.move((middle - QPointF(label.width(), label.height()) / 2).toPoint());
    }
}

void TQuickSetupForm::setSourceText(const QString& text) { m_source->setText(text); }

void TQuickSetupForm::showChangedCount() {
    int count = 0;
    for (int slot = 1; slot <= SlotCount; ++slot) count += m_quick.changed(slot);
    m_changed->setText(count == 0   ? QString()
                       : count == 1 ? tr("1 setting changed")
                                    : tr("%1 settings changed").arg(count));
}

// ---- Steps ----

void TQuickSetupForm::goToStep(int step) {
    if (step >= 0 && step <= LastStep) PageControl1->setCurrentIndex(step);
}

void TQuickSetupForm::enableStepButtons() {
    const int step = PageControl1->currentIndex();
    BackStepBitBtn->setEnabled(step > 0);
    NextStepBitBtn->setEnabled(step < LastStep);
}

void TQuickSetupForm::BackStepBitBtnClick() {
    if (!m_refused && leaveFocused()) goToStep(PageControl1->currentIndex() - 1);
}

void TQuickSetupForm::NextStepBitBtnClick() {
    if (!m_refused && leaveFocused()) goToStep(PageControl1->currentIndex() + 1);
}

void TQuickSetupForm::OKBitBtnClick() {
    if (!m_refused && leaveFocused()) m_flow.OkBitBtnClick();
}

void TQuickSetupForm::showEvent(QShowEvent* event) {
    m_closing = false;
    QDialog::showEvent(event);
    if (!event->spontaneous()) walk(0, 1);
}

void TQuickSetupForm::done(int result) {
    m_closing = true;
    QDialog::done(result);
    FormClose();
}

// Kept: both buttons are enabled although the first page is in front.
void TQuickSetupForm::FormClose() {
    PageControl1->setCurrentIndex(0);
    PageControl2->setCurrentIndex(0);
    BackStepBitBtn->setEnabled(true);
    NextStepBitBtn->setEnabled(true);
}

// ---- The hand ----

int TQuickSetupForm::slotOf(const QObject* control) const {
    for (int slot = 1; slot <= SlotCount; ++slot)
        if (m_rows[static_cast<size_t>(slot)] && m_rows[static_cast<size_t>(slot)]->control() == control)
            return slot;
    return 0;
}

// A box may stand here while the focus is on its way to the button that was clicked; that click has done its
// work.
bool TQuickSetupForm::leave(int slot) {
    if (m_closing || m_flow.state() != WizardState::Editing) return true;
    const bool accepted = m_quick.leaveEdit(slot);
    row(slot).showValue();
    if (accepted) return true;
    m_refused = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_refused = false;
            for (QPushButton* button : {BackStepBitBtn, NextStepBitBtn, OKBitBtn}) button->setDown(false);
        },
        Qt::QueuedConnection);
    return false;
}

bool TQuickSetupForm::leaveFocused() {
    const int slot = qobject_cast<NumberEdit*>(focusWidget()) ? slotOf(focusWidget()) : 0;
    return slot == 0 || leave(slot);
}

// To the next slot that the family has, over the borders of the steps; false at the last.
void TQuickSetupForm::walk(int slot, int by) {
    for (int next = slot + by; next >= 1 && next <= SlotCount; next += by)
        if (m_quick.used(next)) return focusSlot(next);
    QWidget* behind = PageControl1->tabBar();
    if (by > 0) behind = NextStepBitBtn->isEnabled() ? NextStepBitBtn : OKBitBtn;
    behind->setFocus(by > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

void TQuickSetupForm::focusSlot(int slot) {
    goToStep(stepOf(slot));
    if (slot >= OutputSlots.first) PageControl2->setCurrentIndex(slot >= InputSlots.first ? 1 : 0);
    row(slot).control()->setFocus(Qt::TabFocusReason);
}

bool TQuickSetupForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_terminals && event->type() == QEvent::Resize) placeTerminalNames();
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto key = static_cast<QKeyEvent*>(event)->key();
    const int slot = slotOf(watched);
    if (slot == 0 || (key != Qt::Key_Tab && key != Qt::Key_Backtab))
        return QDialog::eventFilter(watched, event);
    walk(slot, key == Qt::Key_Tab ? 1 : -1);
    return true;
}

// Enter on a button presses it; anywhere else it does nothing.
void TQuickSetupForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button) return button->click();
    if (enter) return event->accept();
    QDialog::keyPressEvent(event);
}

}  // namespace kelvane
