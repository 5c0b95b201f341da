#include "console/advance_form.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "console/connection/connection_form.h"
#include "console/flasher/flasher_form.h"
#include "console/listener/listener_form.h"
#include "console/log/console_log_form.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/tabless_pages.h"

namespace kelvane {

namespace {

const auto RecentKey = QStringLiteral("console/recentFiles");

// Texts of the status line; a null one is a number or a name that changes.
constexpr std::array<const char*, 8> PanelTexts{"Total  Records", nullptr, "Error  Records", nullptr,
                                                "Timeout",        nullptr, "Project Name",   nullptr};

}  // namespace

TAdvanceForm::TAdvanceForm(AdvanceConsole& console, KeptLooks& looks, QWidget* parent)
    : QMainWindow(parent), m_console(console), m_recent(looks, RecentKey) {
    setObjectName(QStringLiteral("TAdvanceForm"));
    setWindowModality(Qt::ApplicationModal);
    setContextMenuPolicy(Qt::NoContextMenu);
    buildMenus();
    buildPages();
    buildStatusLine();
    connectConsole();
    resize(fontMetrics().averageCharWidth() * 176, fontMetrics().height() * 54);
    showState();
}

void TAdvanceForm::buildMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("FileMenu"));
    const auto add = [this, file](const char* name, const QString& text, Icon which,
                                  const QKeySequence& keys) {
        auto* action = named<QAction>(name, icon(which), text, this);
        action->setShortcut(keys);
        file->addAction(action);
        return action;
    };
    Open = add("Open", QStringLiteral("Open"), Icon::Open, QKeySequence::Open);
    m_recentMenu = file->addMenu(QStringLiteral("&Recent Files"));
    m_recentMenu->setObjectName(QStringLiteral("RecentFilesMenu"));
    QAction* save = add("Save", QStringLiteral("Save"), Icon::Save, QKeySequence::Save);
    file->addSeparator();
    QAction* exit = add("Exit", QStringLiteral("Exit"), Icon::Exit, QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(Open, &QAction::triggered, &m_console, &AdvanceConsole::OpenClick);
    connect(save, &QAction::triggered, &m_console, &AdvanceConsole::SaveClick);
    connect(exit, &QAction::triggered, this, &QWidget::close);
    connect(m_recentMenu, &QMenu::aboutToShow, this, &TAdvanceForm::fillRecentMenu);

    QMenu* select = menuBar()->addMenu(QStringLiteral("&Select"));
    select->setObjectName(QStringLiteral("SelectMenu"));
    auto* group = new QActionGroup(this);
    Connection =
        addPageAction(select, group, "Connection", QStringLiteral("Connection"), ConsolePage::Connection);
    Monitor = addPageAction(select, group, "Monitor", QStringLiteral("Monitor"), ConsolePage::Monitor);
    FlasherItem = addPageAction(select, group, "Flasher", QStringLiteral("Flasher"), ConsolePage::Flasher);
    FlasherItem->setVisible(false);
}

QAction* TAdvanceForm::addPageAction(QMenu* menu, QActionGroup* group, const char* name, const QString& text,
                                     ConsolePage page) {
    auto* action = named<QAction>(name, text, this);
    action->setCheckable(true);
    action->setActionGroup(group);
    menu->addAction(action);
    connect(action, &QAction::triggered, this, [this, page] { m_console.showPage(page); });
    return action;
}

void TAdvanceForm::buildPages() {
    PageControl1 = named<TablessPages>("PageControl1", this);
    auto* connectionPage = named<QWidget>("ConnectionTabSheet", PageControl1);
    m_connection = new ConnectionForm(m_console, connectionPage);
    auto* splitter = named<QSplitter>("PageSplitter", Qt::Vertical, connectionPage);
    splitter->addWidget(m_connection);
    splitter->addWidget(new ConsoleLogView(m_console, splitter));
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    auto* column = new QVBoxLayout(connectionPage);
    column->addWidget(splitter);
    m_listener = named<ListenerForm>("MonitorTabSheet", m_console, PageControl1);
    m_flasher = named<FlasherForm>("FlasherTabSheet", m_console, PageControl1);
    PageControl1->addTab(connectionPage, QStringLiteral("Connection"));
    PageControl1->addTab(m_listener, QStringLiteral("Monitor"));
    PageControl1->addTab(m_flasher, QStringLiteral("Flasher"));
    setCentralWidget(PageControl1);
}

void TAdvanceForm::buildStatusLine() {
    statusBar()->setObjectName(QStringLiteral("StatusLine"));
    for (size_t i = 0; i < m_panels.size(); ++i) {
        m_panels[i] = new QLabel(QString::fromLatin1(PanelTexts[i]), this);
        m_panels[i]->setObjectName(QStringLiteral("StatusLinePanel%1").arg(i));
        m_panels[i]->setTextFormat(Qt::PlainText);
        if (!PanelTexts[i]) m_panels[i]->setMinimumWidth(fontMetrics().averageCharWidth() * 10);
        statusBar()->addWidget(m_panels[i], i + 1 == m_panels.size() ? 1 : 0);
    }
}

void TAdvanceForm::connectConsole() {
    connect(&m_console, &AdvanceConsole::changed, this, &TAdvanceForm::showState);
    connect(&m_console.listener, &PortListener::stateChanged, this, &TAdvanceForm::showState);
    connect(&m_console.panel, &DrivePanel::tableChanged, this, &TAdvanceForm::showState);
    connect(&m_console.log, &ConsoleLog::countersChanged, this, &TAdvanceForm::showCounters);
    connect(&m_console, &AdvanceConsole::fileOpened, this,
            [this](const QString& path) { m_recent.add(path); });
    connect(&m_console, &AdvanceConsole::fileMissing, this, [this](const QString& path) {
        if (!QFileInfo::exists(path)) m_recent.remove(path);
    });
    connect(&m_console, &AdvanceConsole::readyToClose, this, [this] {
        if (std::exchange(m_waitsToClose, false)) close();
    });
    connect(m_connection, &ConnectionForm::comSetupWanted, this, &TAdvanceForm::askComSetup);
    connect(m_listener, &ListenerForm::comSetupWanted, this, &TAdvanceForm::askComSetup);
    connect(m_flasher, &FlasherForm::comSetupWanted, this, &TAdvanceForm::askComSetup);
    connect(m_connection, &ConnectionForm::timeOutWanted, this, &TAdvanceForm::timeOutWanted);
    connect(m_flasher, &FlasherForm::timeOutWanted, this, &TAdvanceForm::timeOutWanted);
}

void TAdvanceForm::askComSetup() {
    m_console.prepareComSetup();
    Q_EMIT comSetupWanted();
}

void TAdvanceForm::fillRecentMenu() {
    m_recentMenu->clear();
    for (const QString& path : m_recent.list()) {
        QString text = path;
        QAction* action = m_recentMenu->addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")));
        connect(action, &QAction::triggered, this, [this, path] { m_console.openPath(path); });
    }
    if (m_recentMenu->isEmpty()) m_recentMenu->addAction(QStringLiteral("(none)"))->setEnabled(false);
}

void TAdvanceForm::showState() {
    setWindowTitle(m_console.caption);
    const bool free = !m_console.running();
    const bool silent = !m_console.listener.running();
    Open->setEnabled(free);
    m_recentMenu->setEnabled(free);
    Connection->setEnabled(silent);
    Monitor->setEnabled(free);
    const std::array<QAction*, 3> pages{Connection, Monitor, FlasherItem};
    pages[static_cast<size_t>(m_console.page)]->setChecked(true);
    PageControl1->setCurrentIndex(static_cast<int>(m_console.page));
    showCounters();
}

void TAdvanceForm::showCounters() {
    const ConsoleRecord& record = m_console.record();
    m_panels[1]->setText(QString::number(record.totalRecords));
    m_panels[3]->setText(QString::number(record.errorRecords));
    m_panels[5]->setText(QString::number(record.timeoutRecords));
    m_panels[7]->setText(m_console.projectName);
}

void TAdvanceForm::closeEvent(QCloseEvent* event) {
    if (m_waitsToClose) return event->ignore();
    if (!m_console.mayClose()) {
        m_waitsToClose = true;
        return event->ignore();
    }
    const FileResult written = m_console.FormClose();
    if (!written.ok) m_console.site.link.ShowHistoryMsg(written.error);
    event->accept();
    Q_EMIT finished(0);
}

}  // namespace kelvane
