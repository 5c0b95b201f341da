#include "shell/main_form.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStatusBar>
#include <array>

#include "ui/display_label.h"
#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/scanner.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int HistoryLines = 20000;  // older ones go
constexpr int Panel1Width = 130;
const QColor LampRed(0xFF, 0, 0);
const QColor LampGreen(0, 0xFF, 0);

struct LanguageItem {
    const char* name;
    const char* caption;
    bool enabled;
};
// By LanguageIndex from 1.
constexpr std::array<LanguageItem, 10> languageItems{{{"ChineseT", "Chinese(traditional)", true},
                                                      {"ChineseS", "Chinese(simplified)", true},
                                                      {"Deutsch", "Deutsch", false},
                                                      {"English", "English", true},
                                                      {"French", "French", false},
                                                      {"Japanese", "Japanese", false},
                                                      {"Korean", "Korean", false},
                                                      {"Portuguese", "Portuguese", false},
                                                      {"Russian", "Russian", true},
                                                      {"Spanish", "Spanish", false}}};

const char* brandTitle(int BrandVariant) {
    switch (BrandVariant) {
        case 1: return "Quince PC Software";
        case 2: return "Juniper PC Software";
        default: return "Orlan Kelvane";
    }
}

}  // namespace

TMainForm::TMainForm(Tool& tool, QWidget* parent) : QMainWindow(parent), m_tool(tool) {
    setObjectName(QStringLiteral("TMainForm"));
    setWindowTitle(QString::fromLatin1(brandTitle(tool.link.BrandVariant)));
    setWindowIcon(applicationIcon());
    buildMenus();
    buildCentre();
    buildStatusLine();
    listen();
    checkLanguageItem(tool.bench.language.LanguageIndex);
    setBuilt({});
    resize(940, 620);
}

// ---- Menus ----

QMenu* TMainForm::menu(const char* name, const QString& title) {
    QMenu* made = menuBar()->addMenu(title);
    made->setObjectName(QString::fromLatin1(name));
    return made;
}

QAction* TMainForm::item(QMenu* menu, const char* name, const QString& text,
                         const std::function<void()>& triggered) {
    QAction* action = menu->addAction(text);
    action->setObjectName(QString::fromLatin1(name));
    if (triggered) connect(action, &QAction::triggered, this, triggered);
    return action;
}

void TMainForm::buildMenus() {
    buildFileMenu();
    buildDriveMenu();
    buildDiagnosticMenu();
    buildOptionsMenu();
    buildHelpMenu();
}

void TMainForm::buildFileMenu() {
    QMenu* files = menu("FilesMenu", tr("&File"));
    QAction* open =
        item(files, "FileOpenItem", tr("Open..."), [this] { m_tool.OpenTransparentButtonClick(); });
    open->setShortcut(QKeySequence::Open);
    open->setIcon(icon(Icon::Open));
    QAction* save = item(files, "FileSaveItem", tr("Save"), [this] { m_tool.SaveTransparentButtonClick(); });
    save->setShortcut(QKeySequence::Save);
    save->setIcon(icon(Icon::Save));
    files->addSeparator();
    QAction* exit = item(files, "FileExitItem", tr("Exit"), [this] { close(); });
    exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    exit->setIcon(icon(Icon::Exit));
}

void TMainForm::buildDriveMenu() {
    QMenu* drive = menu("DriveMenu", tr("&Drive"));
    struct Row {
        const char* name;
        QString text;
        Icon icon;
        quint8 owner;
        Qt::Key key;
    };
    QAction* setup = item(drive, "ComSetup", tr("Com Setup"), [this] { Q_EMIT comSetupWanted(); });
    setup->setIcon(icon(Icon::ComSetup));
    setup->setShortcut(QKeySequence(Qt::Key_F2));
    for (const Row& row :
         {Row{"ParameterManagement", tr("Parameter Management"), Icon::Parameter, OwnerParameter, Qt::Key_F5},
          Row{"QuickSetup", tr("Quick Setup"), Icon::QuickSetup, OwnerQuickSetup, Qt::Key_F6},
          Row{"Advance", tr("Advance"), Icon::Advance, OwnerAdvance, Qt::Key_F7}}) {
        QAction* action = item(drive, row.name, row.text, [this, row] { Q_EMIT windowWanted(row.owner); });
        action->setIcon(icon(row.icon));
        action->setShortcut(QKeySequence(row.key));
    }
}

void TMainForm::buildDiagnosticMenu() {
    QMenu* diagnostic = menu("DiagnosticMenu", tr("D&iagnostic"));
    struct Row {
        const char* name;
        QString text;
        Icon icon;
        quint8 owner;
    };
    for (const Row& row : {Row{"Keypad", tr("Keypad"), Icon::Keypad, OwnerKeypad},
                           Row{"Trend", tr("Trend"), Icon::Trend, OwnerTrend},
                           Row{"Monitor", tr("Monitor"), Icon::Monitor, OwnerMonitor},
                           Row{"PIDControl", tr("PID Control"), Icon::Pid, OwnerPid},
                           Row{"AutoTuning", tr("Auto Tuning"), Icon::AutoTuning, OwnerAutoTuning}}) {
        QAction* action =
            item(diagnostic, row.name, row.text, [this, row] { Q_EMIT windowWanted(row.owner); });
        action->setIcon(icon(row.icon));
    }
    QAction* multiStep = item(diagnostic, "MultiStep", tr("Multi Step"), {});
    multiStep->setVisible(false);
    multiStep->setEnabled(false);
}

void TMainForm::buildOptionsMenu() {
    menu("OptionsMenu", tr("&Options"));
    buildLanguageItems();
    buildPracticeItems();
}

void TMainForm::buildLanguageItems() {
    auto* options = findChild<QMenu*>(QStringLiteral("OptionsMenu"));
    QMenu* languages = options->addMenu(icon(Icon::Language), tr("Setup Language"));
    languages->setObjectName(QStringLiteral("SetupLanguage"));
    m_languages = new QActionGroup(this);
    for (size_t i = 0; i < languageItems.size(); ++i) {
        const auto index = static_cast<quint8>(i + 1);
        QAction* action = item(languages, languageItems[i].name,
                               QString::fromLatin1(languageItems[i].caption), [this, index] {
                                   m_tool.chooseLanguage(index);
                                   // The mark follows LanguageIndex, which only the file's own section
                                   // changes.
                                   checkLanguageItem(m_tool.bench.language.LanguageIndex);
                               });
        action->setCheckable(true);
        action->setEnabled(languageItems[i].enabled);
        m_languages->addAction(action);
    }
}

void TMainForm::buildPracticeItems() {
    auto* options = findChild<QMenu*>(QStringLiteral("OptionsMenu"));
    m_practiceMenu = options->addMenu(tr("P&ractice Drive"));
    m_practiceMenu->setObjectName(QStringLiteral("PracticeDriveMenu"));
    m_practice = new QActionGroup(this);
    for (const Family family : AllFamilies) {
        const QString name = QString::fromLatin1(familyName(family));
        QAction* action = m_practiceMenu->addAction(name);
        action->setObjectName(QStringLiteral("Practice") + name);
        action->setCheckable(true);
        action->setData(static_cast<int>(family));
        m_practice->addAction(action);
        connect(action, &QAction::triggered, this, [this, family] { m_tool.choosePracticeFamily(family); });
    }
}

void TMainForm::buildHelpMenu() {
    QMenu* help = menu("HelpsMenu", tr("&Help"));
    QAction* manual = item(help, "SoftwareUserManual", tr("Software user manual"), {});
    manual->setEnabled(false);
    QAction* driveManual = item(help, "UserManual", tr("Drive user manual"), {});
    driveManual->setEnabled(false);
    help->addSeparator();
    item(help, "HelpAboutItem", tr("About..."), [this] { Q_EMIT aboutWanted(); })->setIcon(icon(Icon::About));
}

// ---- Centre ----

TransparentButton* TMainForm::button(const char* name, int iconNumber, const QString& text,
                                     const QString& hint, const std::function<void()>& clicked) {
    auto* made = new TransparentButton(icon(static_cast<Icon>(iconNumber)), text);
    made->setObjectName(QString::fromLatin1(name));
    made->setToolTip(hint);
    connect(made, &QAbstractButton::clicked, this, clicked);
    return made;
}

QWidget* TMainForm::buildButtons() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    struct Row {
        const char* name;
        Icon icon;
        QString text;
        QString hint;
        std::function<void()> clicked;
    };
    const auto opens = [this](quint8 owner) { return [this, owner] { Q_EMIT windowWanted(owner); }; };
    const Row rows[] = {
        {"ComSetupTransparentButton", Icon::ComSetup, tr("Com Setup"),
         tr("Set up the COM port and the protocol"), [this] { Q_EMIT comSetupWanted(); }},
        {"ParameterTransparentButton", Icon::Parameter, tr("Parameter"),
         tr("Read, compare, save and write the parameters"), opens(OwnerParameter)},
        {"QuickSetupTransparentButton", Icon::QuickSetup, tr("Quick Setup"),
         tr("Set the most important parameters in four steps"), opens(OwnerQuickSetup)},
        {"AdvanceTransparentButton", Icon::Advance, tr("Advance"),
         tr("Send Modbus commands and watch registers"), opens(OwnerAdvance)},
        {"KeypadTransparentButton", Icon::Keypad, tr("Keypad"), tr("Operate the drive from the screen"),
         opens(OwnerKeypad)},
        {"TrendTransparentButton", Icon::Trend, tr("Trend"), tr("Record drive values over time"),
         opens(OwnerTrend)},
        {"MonitorTransparentButton", Icon::Monitor, tr("Monitor"), tr("Watch drive values on meters"),
         opens(OwnerMonitor)},
        {"OpenTransparentButton", Icon::Open, tr("Open"), tr("Open a project file"),
         [this] { m_tool.OpenTransparentButtonClick(); }},
        {"SaveTransparentButton", Icon::Save, tr("Save"), tr("Save the settings to a project file"),
         [this] { m_tool.SaveTransparentButtonClick(); }},
        {"ExitTransparentButton", Icon::Exit, tr("Exit"), tr("Close the program"), [this] { close(); }},
    };
    for (const Row& entry : rows)
        row->addWidget(
            button(entry.name, static_cast<int>(entry.icon), entry.text, entry.hint, entry.clicked));
    auto* saveLanguage = button("LangTransparentButton", static_cast<int>(Icon::Language), tr("Save Lang"),
                                tr("Save the captions on the screen to a language file"), [] {});
    saveLanguage->setVisible(false);
    row->addWidget(saveLanguage);
    row->addStretch();
    return bar;
}

QWidget* TMainForm::buildIdentity() {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    m_picture = new PictureBox;
    m_picture->setObjectName(QStringLiteral("LogoImage"));
    m_picture->setMinimumSize(180, 150);
    m_picture->showLogo();
    column->addWidget(m_picture, 1);
    auto* grid = new QGridLayout;
    struct Row {
        const char* caption;
        const char* value;
        QString text;
        VrLabel** place;
    };
    int line = 0;
    for (const Row& row :
         {Row{"DispDriveVrLabel", "DriveVrLabel", tr("Drive:"), &m_identity.drive},
          Row{"DispVersionVrLabel", "VersionVrLabel", tr("Version:"), &m_identity.version},
          Row{"DispHPVrLabel", "HPVrLabel", tr("kW ( Hp ):"), &m_identity.hp},
          Row{"DispRatedVoltageVrLabel", "RatedVoltageVrLabel", tr("Rated Voltage:"), &m_identity.voltage},
          Row{"DispRatedCurrentVrLabel", "RatedCurrentVrLabel", tr("Rated Current:"), &m_identity.current}}) {
        auto* caption = new QLabel(row.text);
        caption->setObjectName(QString::fromLatin1(row.caption));
        caption->setTextFormat(Qt::PlainText);
        *row.place = new VrLabel;
        (*row.place)->setObjectName(QString::fromLatin1(row.value));
        (*row.place)->setCharacters(12);
        caption->setBuddy(*row.place);
        grid->addWidget(caption, line, 0);
        grid->addWidget(*row.place, line++, 1);
    }
    grid->setColumnStretch(1, 1);
    column->addLayout(grid);
    m_lamp = new AbLED(tr("Off Line"));
    m_lamp->setObjectName(QStringLiteral("ComStatusAbLED"));
    m_lamp->setColor(LampRed);
    m_lamp->setChecked(true);
    m_lamp->setToolTip(tr("State of the link. Double click to go on line or off line."));
    connect(m_lamp, &AbLED::doubleClicked, this, &TMainForm::ComStatusAbLEDDblClick);
    m_indicator = new VrIndicator;
    m_indicator->setObjectName(QStringLiteral("ComStatusVrIndicator"));
    m_indicator->setAccessibleName(tr("Traffic on the line"));
    auto* lampRow = new QHBoxLayout;
    lampRow->addWidget(m_lamp);
    lampRow->addWidget(m_indicator, 1);
    column->addLayout(lampRow);
    return box;
}

QWidget* TMainForm::buildHistory() {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    auto* title = new QLabel(tr("History Message"));
    title->setObjectName(QStringLiteral("HistMsgLabel"));
    title->setTextFormat(Qt::PlainText);
    m_memo = new QPlainTextEdit;
    m_memo->setObjectName(QStringLiteral("MessageMemo"));
    m_memo->setReadOnly(true);
    m_memo->setMaximumBlockCount(HistoryLines);
    m_memo->setLineWrapMode(QPlainTextEdit::NoWrap);
    title->setBuddy(m_memo);
    column->addWidget(title);
    column->addWidget(m_memo, 1);
    return box;
}

void TMainForm::buildCentre() {
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->addWidget(buildButtons());
    auto* splitter = new QSplitter(Qt::Horizontal);
    splitter->setObjectName(QStringLiteral("MainSplitter"));
    splitter->addWidget(buildIdentity());
    splitter->addWidget(buildHistory());
    splitter->setStretchFactor(1, 1);
    column->addWidget(splitter, 1);
    setCentralWidget(centre);
}

void TMainForm::buildStatusLine() {
    statusBar()->setObjectName(QStringLiteral("StatusLine"));
    m_panel0 = new QLabel;
    m_panel0->setObjectName(QStringLiteral("StatusLinePanel0"));
    m_panel1 = new QLabel;
    m_panel1->setObjectName(QStringLiteral("StatusLinePanel1"));
    m_panel1->setMinimumWidth(Panel1Width);
    m_practicePanel = new QLabel;
    m_practicePanel->setObjectName(QStringLiteral("PracticePanel"));
    for (QLabel* panel : {m_panel0, m_panel1, m_practicePanel}) panel->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(m_panel0, 1);
    statusBar()->addPermanentWidget(m_practicePanel);
    statusBar()->addPermanentWidget(m_panel1);
}

// ---- What the tool shows ----

void TMainForm::listen() {
    RequestScheduler& link = m_tool.link;
    connect(&link, &RequestScheduler::changed, this, &TMainForm::showLink);
    connect(&link, &RequestScheduler::indicatorStepped, m_indicator, &VrIndicator::setPosition);
    connect(&link, &RequestScheduler::historyLine, this, &TMainForm::showHistory);
    connect(&m_tool.identification, &DriveIdentification::familyKnown, this, &TMainForm::showPicture);
    connect(&m_tool, &Tool::panel0Changed, this, [this] { m_panel0->setText(m_tool.statusPanel0); });
    connect(&m_tool, &Tool::practiceChanged, this, &TMainForm::showPractice);
    connect(&m_tool.comSetup, &ComSetup::closeWanted, this, &TMainForm::showPractice);
    showLink();
    showPractice();
}

void TMainForm::showHistory(const QString& line) { m_memo->appendPlainText(line); }

void TMainForm::showLink() {
    const RequestScheduler& link = m_tool.link;
    m_lamp->setText(link.Lamp.ComStatusAbLED);
    m_lamp->setColor(link.Lamp.green ? LampGreen : LampRed);
    m_panel1->setText(link.Lamp.mainPanel1);
    m_identity.drive->setText(link.Labels.DriveVrLabel);
    m_identity.version->setText(link.Labels.VersionVrLabel);
    m_identity.hp->setText(link.Labels.HPVrLabel);
    m_identity.voltage->setText(link.Labels.RatedVoltageVrLabel);
    m_identity.current->setText(link.Labels.RatedCurrentVrLabel);
    const auto enable = [this](const char* name, bool on) {
        findChild<QAction*>(QString::fromLatin1(name))->setEnabled(on);
    };
    enable("PIDControl", link.PIDControl && built(OwnerPid));
    enable("AutoTuning", link.AutoTuning && built(OwnerAutoTuning));
    m_practiceMenu->setEnabled(m_tool.mayChoosePractice());
}

void TMainForm::showPractice() {
    const bool practice = m_tool.practiceChosen();
    m_practiceMenu->setEnabled(m_tool.mayChoosePractice());
    const Family family = m_tool.practiceFamily();
    for (QAction* action : m_practice->actions())
        action->setChecked(practice && action->data().toInt() == static_cast<int>(family));
    m_practicePanel->setVisible(practice);
    m_practicePanel->setText(practice ? tr("Practice drive: %1").arg(QLatin1String(familyName(family)))
                                      : QString());
}

void TMainForm::showPicture(quint8 DriveFamily) {
    m_picture->showFamily(DriveFamily);
    if (m_picture->isEmpty()) m_picture->showLogo();
}

void TMainForm::setBuilt(const std::set<quint8>& owners) {
    m_built = owners;
    struct Row {
        quint8 owner;
        const char* button;
        const char* item;
    };
    for (const Row& row : {Row{OwnerParameter, "ParameterTransparentButton", "ParameterManagement"},
                           Row{OwnerQuickSetup, "QuickSetupTransparentButton", "QuickSetup"},
                           Row{OwnerAdvance, "AdvanceTransparentButton", "Advance"},
                           Row{OwnerKeypad, "KeypadTransparentButton", "Keypad"},
                           Row{OwnerTrend, "TrendTransparentButton", "Trend"},
                           Row{OwnerMonitor, "MonitorTransparentButton", "Monitor"}}) {
        findChild<QWidget*>(QString::fromLatin1(row.button))->setEnabled(built(row.owner));
        findChild<QAction*>(QString::fromLatin1(row.item))->setEnabled(built(row.owner));
    }
    showLink();
}

void TMainForm::checkLanguageItem(quint8 LanguageIndex) {
    const QList<QAction*> items = m_languages->actions();
    for (qsizetype i = 0; i < items.size(); ++i) items[i]->setChecked(i + 1 == LanguageIndex);
}

void TMainForm::ComStatusAbLEDDblClick() {
    if (!m_tool.link.Lamp.onLine()) {
        Q_EMIT comSetupWanted();
        return;
    }
    if (m_tool.bench.person.yes(m_tool.link.lang().MsgStr(5), QStringLiteral("Cofirm")))
        m_tool.link.Initial();
}

void TMainForm::closeEvent(QCloseEvent* event) {
    m_tool.FormClose();
    event->accept();
    Q_EMIT closed();
}

}  // namespace kelvane
