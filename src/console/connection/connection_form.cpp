#include "console/connection/connection_form.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>

#include "console/connection/console_fields_form.h"
#include "console/connection/single_command_form.h"
#include "console/list/command_list_form.h"
#include "console/panel/drive_panel_form.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/tabless_pages.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

QHBoxLayout* barLayout(QWidget* bar) {
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

}  // namespace

ConnectionForm::ConnectionForm(AdvanceConsole& console, QWidget* parent)
    : QWidget(parent), m_console(console) {
    auto* splitter = named<QSplitter>("ConnectionSplitter", this);
    splitter->addWidget(buildLeft(splitter));
    splitter->addWidget(buildRight(splitter));
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    auto* column = new QVBoxLayout(this);
    column->addWidget(splitter, 1);
    column->addWidget(buildRunBar());
    column->addWidget(buildLineBar());
    column->setContentsMargins(0, 0, 0, 0);
    connect(&m_console, &AdvanceConsole::changed, this, &ConnectionForm::showState);
    connect(&m_console.panel, &DrivePanel::tableChanged, this, &ConnectionForm::showState);
    showState();
}

QWidget* ConnectionForm::buildLeft(QWidget* parent) {
    ConnectionPageControl = named<QTabWidget>("ConnectionPageControl", parent);
    m_drivePage = named<DrivePanelPage>("ATabSheet", m_console, ConnectionPageControl);
    m_listPage = named<CommandListPage>("BTabSheet", m_console, ConnectionPageControl);
    ConnectionPageControl->addTab(m_drivePage, QStringLiteral("A"));
    ConnectionPageControl->addTab(m_listPage, QStringLiteral("B"));
    ConnectionPageControl->setTabToolTip(0, QStringLiteral("Drive control panel"));
    ConnectionPageControl->setTabToolTip(1, QStringLiteral("Command list"));
    ConnectionPageControl->setCornerWidget(buildRowBar());
    // Beside the tabs for the eye, and so for the Tab key.
    setTabOrder(ConnectionPageControl->tabBar(), NewTransparentButton);
    setTabOrder(NewTransparentButton, InsertTransparentButton);
    setTabOrder(InsertTransparentButton, DelTransparentButton);
    connect(ConnectionPageControl, &QTabWidget::currentChanged, this, [this](int tab) {
        m_console.showConnectionPage(tab == 0 ? ConnectionPage::A : ConnectionPage::B);
    });
    return ConnectionPageControl;
}

QWidget* ConnectionForm::buildRight(QWidget* parent) {
    PageControl2 = named<TablessPages>("PageControl2", parent);
    m_commandPage = named<SingleCommandPage>("CommandTabSheet", m_console, PageControl2);
    m_chartPage = named<ChartPage>("ChartTabSheet", m_console, PageControl2);
    PageControl2->addTab(m_commandPage, QStringLiteral("Command"));
    PageControl2->addTab(m_chartPage, QStringLiteral("Chart"));
    return PageControl2;
}

QWidget* ConnectionForm::buildRunBar() {
    auto* bar = new QWidget(this);
    RUNTransparentButton = framedButton("RUNTransparentButton", Icon::Run, QStringLiteral("RUN"), bar,
                                        QStringLiteral("Run the page on show (F5)"));
    STOPTransparentButton = framedButton("STOPTransparentButton", Icon::Stop, QStringLiteral("STOP"), bar,
                                         QStringLiteral("Stop the run (Shift+F5)"));
    RepeatLabeledEdit = keyedEdit("RepeatLabeledEdit", QStringLiteral("[0-9]*"), bar);
    RepeatLabeledEdit->setMaximumWidth(fontMetrics().averageCharWidth() * 9);
    TerCondLabel = plainLabel("TerCondLabel", QStringLiteral("Stop when"), bar);
    ErrorCheckBox =
        addCheck("ErrorCheckBox", QStringLiteral("Error Occur"), &ConsoleSettings::ErrorCheckBoxChecked, bar);
    TimeOutCheckBox = addCheck("TimeOutCheckBox", QStringLiteral("Time Out"),
                               &ConsoleSettings::TimeOutCheckBoxChecked, bar);
    FigButton = framedButton("FigButton", Icon::Trend, {}, bar,
                             QStringLiteral("Change between command page and chart"));
    auto* row = barLayout(bar);
    row->addWidget(RUNTransparentButton);
    row->addWidget(STOPTransparentButton);
    row->addSpacing(fontMetrics().height());
    row->addWidget(
        captionFor(RepeatLabeledEdit, "RepeatLabel", QStringLiteral("Repeat &times ( 0: always do )"), bar));
    row->addWidget(RepeatLabeledEdit);
    row->addSpacing(fontMetrics().height());
    row->addWidget(TerCondLabel);
    row->addWidget(ErrorCheckBox);
    row->addWidget(TimeOutCheckBox);
    row->addStretch();
    row->addWidget(FigButton);
    connect(RUNTransparentButton, &QToolButton::clicked, &m_console,
            &AdvanceConsole::RUNTransparentButtonClick);
    connect(STOPTransparentButton, &QToolButton::clicked, &m_console,
            &AdvanceConsole::STOPTransparentButtonClick);
    connect(RepeatLabeledEdit, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_console.RepeatLabeledEdit = text; });
    connect(FigButton, &QToolButton::clicked, this, &ConnectionForm::toggleChart);
    addRunKeys(RUNTransparentButton, STOPTransparentButton, this);
    connect(new QShortcut(Qt::CTRL | Qt::Key_H, this), &QShortcut::activated, this, [this] {
        m_console.connectionPage == ConnectionPage::A ? m_console.panel.toggleFormat()
                                                      : m_console.list.toggleFormat();
    });
    return bar;
}

QWidget* ConnectionForm::buildRowBar() {
    auto* bar = new QWidget(this);
    NewTransparentButton = framedButton("NewTransparentButton", Icon::Add, QStringLiteral("New"), bar,
                                        QStringLiteral("Add a row at the end"));
    InsertTransparentButton = framedButton("InsertTransparentButton", Icon::Next, QStringLiteral("Insert"),
                                           bar, QStringLiteral("Put a row before the current one"));
    DelTransparentButton = framedButton("DelTransparentButton", Icon::Remove, QStringLiteral("Delete"), bar,
                                        QStringLiteral("Remove the current row"));
    auto* row = barLayout(bar);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{NewTransparentButton, InsertTransparentButton, DelTransparentButton})
        row->addWidget(widget);
    connect(NewTransparentButton, &QToolButton::clicked, &m_console,
            &AdvanceConsole::NewTransparentButtonClick);
    connect(InsertTransparentButton, &QToolButton::clicked, this,
            [this] { m_console.InsertTransparentButtonClick(currentRow()); });
    connect(DelTransparentButton, &QToolButton::clicked, this,
            [this] { m_console.DelTransparentButtonClick(currentRow()); });
    return bar;
}

QWidget* ConnectionForm::buildLineBar() {
    auto* bar = new QWidget(this);
    TimeOutTransparentButton = framedButton("TimeOutTransparentButton", Icon::Option, {}, bar,
                                            QStringLiteral("First wait for a reply, in ms"));
    TimeOut2TransparentButton =
        framedButton("TimeOut2TransparentButton", Icon::Option, {}, bar,
                     QStringLiteral("Second wait, when nothing came in the first, in ms"));
    ProtocolTransparentButton =
        framedButton("ProtocolTransparentButton", Icon::ComSetup, QStringLiteral("Set the com port settings"),
                     bar, QStringLiteral("Port, baud rate and protocol"));
    auto* Bevel7 = named<QFrame>("Bevel7", bar);
    Bevel7->setFrameShape(QFrame::VLine);
    Bevel7->setFrameShadow(QFrame::Sunken);
    AddChksumCheckBox = addCheck("AddChksumCheckBox", QStringLiteral("Add Checksum into Command"),
                                 &ConsoleSettings::AddChksumCheckBoxChecked, bar);
    CheckRuleCheckBox = addCheck("CheckRuleCheckBox", QStringLiteral("Check Message by Orlan Rules"),
                                 &ConsoleSettings::CheckRuleCheckBoxChecked, bar);
    addChecksumMenu();
    auto* row = barLayout(bar);
    row->addWidget(captionFor(TimeOutTransparentButton, "TimeOutLabel", QStringLiteral("Time-outs 1"), bar));
    row->addWidget(TimeOutTransparentButton);
    row->addWidget(captionFor(TimeOut2TransparentButton, "TimeOut2Label", QStringLiteral("2"), bar));
    for (QWidget* widget :
         std::initializer_list<QWidget*>{TimeOut2TransparentButton, ProtocolTransparentButton, Bevel7,
                                         AddChksumCheckBox, CheckRuleCheckBox})
        row->addWidget(widget);
    row->addStretch();
    const bool brand = m_console.site.link.BrandVariant() != 0;
    for (QWidget* widget : std::initializer_list<QWidget*>{Bevel7, AddChksumCheckBox, CheckRuleCheckBox})
        widget->setVisible(!brand);
    connect(TimeOutTransparentButton, &QToolButton::clicked, this,
            [this] { Q_EMIT timeOutWanted(TimeOutTag::First); });
    connect(TimeOut2TransparentButton, &QToolButton::clicked, this,
            [this] { Q_EMIT timeOutWanted(TimeOutTag::Second); });
    connect(ProtocolTransparentButton, &QToolButton::clicked, this, &ConnectionForm::comSetupWanted);
    return bar;
}

QCheckBox* ConnectionForm::addCheck(const char* name, const QString& text, bool ConsoleSettings::*setting,
                                    QWidget* parent) {
    auto* box = named<QCheckBox>(name, text, parent);
    box->setChecked(m_console.settings().*setting);
    connect(box, &QCheckBox::toggled, this, [this, setting](bool on) { m_console.settings().*setting = on; });
    return box;
}

// Which check RTU frames get: the box's own menu, by right click or the menu key.
void ConnectionForm::addChecksumMenu() {
    auto* group = new QActionGroup(this);
    const auto add = [this, group](const char* name, const QString& text, bool orlan) {
        auto* action = named<QAction>(name, text, AddChksumCheckBox);
        action->setCheckable(true);
        action->setChecked(m_console.settings().Orlan == orlan);
        action->setActionGroup(group);
        AddChksumCheckBox->addAction(action);
        connect(action, &QAction::triggered, this, [this, orlan] { m_console.settings().Orlan = orlan; });
    };
    add("Orlan", QStringLiteral("ORLAN"), true);
    add("Mallow", QStringLiteral("MALLOW"), false);
    AddChksumCheckBox->setContextMenuPolicy(Qt::ActionsContextMenu);
    AddChksumCheckBox->setToolTip(QStringLiteral("The check of RTU frames is chosen by a right click"));
}

void ConnectionForm::toggleChart() {
    m_console.panel.chartShown = !m_console.panel.chartShown;
    PageControl2->setCurrentIndex(m_console.panel.chartShown ? 1 : 0);
    showState();
}

int ConnectionForm::currentRow() const {
    return m_console.connectionPage == ConnectionPage::A ? m_drivePage->currentRow()
                                                         : m_listPage->currentRow();
}

void ConnectionForm::showState() {
    const bool free = !m_console.running();
    const bool listPage = m_console.connectionPage == ConnectionPage::B;
    takeTurns(RUNTransparentButton, STOPTransparentButton, free);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{TimeOutTransparentButton, ProtocolTransparentButton,
                                         RepeatLabeledEdit, AddChksumCheckBox, CheckRuleCheckBox})
        widget->setEnabled(free);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{NewTransparentButton, InsertTransparentButton, DelTransparentButton})
        widget->setEnabled(free && (listPage || m_console.panel.mayEdit()));
    for (QWidget* widget : std::initializer_list<QWidget*>{TerCondLabel, ErrorCheckBox, TimeOutCheckBox})
        widget->setEnabled(free && listPage);
    if (RepeatLabeledEdit->text() != m_console.RepeatLabeledEdit)
        RepeatLabeledEdit->setText(m_console.RepeatLabeledEdit);
    TimeOutTransparentButton->setText(m_console.TimeOutCaption);
    TimeOut2TransparentButton->setText(m_console.TimeOut2Caption);
    FigButton->setText(m_console.panel.chartShown ? QStringLiteral("<<") : QStringLiteral(">>"));
    m_drivePage->showState();
    m_listPage->showState();
    m_commandPage->showState();
    m_chartPage->showState();
}

}  // namespace kelvane
