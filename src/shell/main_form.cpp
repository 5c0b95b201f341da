#include "shell/main_form.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QClipboard>
#include <QCloseEvent>
#include <QFrame>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStatusBar>
#include <array>

#include "base/save_file.h"
#include "localisation/language_writer.h"
#include "shell/window_table.h"
#include "ui/display_label.h"
#include "ui/elided_label.h"
#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/named.h"
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

struct ManualItem {
    const char* name;
    const char* caption;
};
constexpr std::array<ManualItem, ManualCount> manualItems{{{"SoftManuCHT", "Chinese(traditional)"},
                                                           {"SoftManuCHS", "Chinese(simplified)"},
                                                           {"SoftManuDeu", "Deutsch"},
                                                           {"SoftManuEng", "English"},
                                                           {"SoftManuFre", "French"},
                                                           {"SoftManuJap", "Japanese"},
                                                           {"SoftManuKor", "Korean"},
                                                           {"SoftManuPor", "Portuguese"},
                                                           {"SoftManuRus", "Russian"},
                                                           {"Spanish1", "Spanish"}}};

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
    setWindowTitle(QString::fromLatin1(brandTitle(tool.link.BrandVariant())));
    setWindowIcon(applicationIcon());
    buildMenus();
    buildCentre();
    buildStatusLine();
    listen();
    checkLanguageItem(tool.site.language.LanguageIndex);
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
    buildWindowItems();
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

void TMainForm::buildWindowItems() {
    menu("DriveMenu", tr("&Drive"));
    menu("DiagnosticMenu", tr("D&iagnostic"));
    for (const WindowRow* row : windowEntries()) {
        const WindowEntry& entry = row->entry;
        QAction* action = item(findChild<QMenu*>(QLatin1String(entry.menu)), entry.menuItem,
                               tr(entry.menuCaption ? entry.menuCaption : entry.caption), wanted(*row));
        action->setIcon(icon(entry.icon));
        if (entry.key != Qt::Key_unknown) action->setShortcut(QKeySequence(entry.key));
        action->setVisible(entry.visible);
    }
    auto* diagnostic = findChild<QMenu*>(QStringLiteral("DiagnosticMenu"));
    diagnostic->addSeparator();
    m_stop = item(diagnostic, "StopItem", tr("&Stop the Drive"), [this] { Q_EMIT stopWanted(); });
    m_stop->setIcon(icon(Icon::Stop));
    m_stop->setShortcut(QKeySequence(Qt::Key_F12));
    m_stop->setEnabled(false);
    connect(diagnostic, &QMenu::aboutToShow, this, [this] { m_stop->setEnabled(stopReady && stopReady()); });
}

std::function<void()> TMainForm::wanted(const WindowRow& row) {
    return [this, &row] { Q_EMIT windowWanted(row); };
}

void TMainForm::buildOptionsMenu() {
    menu("OptionsMenu", tr("&Options"));
    buildLanguageItems();
    buildPracticeItems();
    auto* options = findChild<QMenu*>(QStringLiteral("OptionsMenu"));
    options->addSeparator();
    QAction* report =
        item(options, "SessionReportItem", tr("Sessio&n Report..."), [this] { Q_EMIT reportWanted(); });
    report->setIcon(icon(Icon::Print));
    report->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
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
                                   checkLanguageItem(m_tool.site.language.LanguageIndex);
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
    m_practiceMenu->addSeparator();
    m_fault = item(m_practiceMenu, "RaiseFaultItem", tr("Raise a &Fault"), [this] { m_tool.raiseFault(); });
    m_fault->setIcon(icon(Icon::Fault));
}

void TMainForm::buildHelpMenu() {
    QMenu* help = menu("HelpsMenu", tr("&Help"));
    buildManualItems();
    help->addSeparator();
    QAction* contents = item(help, "HelpContentsItem", tr("&Contents"), [this] { Q_EMIT helpWanted(); });
    contents->setIcon(icon(Icon::Help));
    contents->setShortcut(QKeySequence(Qt::Key_F1));
    item(help, "HelpAboutItem", tr("About..."), [this] { Q_EMIT aboutWanted(); })->setIcon(icon(Icon::About));
}

void TMainForm::buildManualItems() {
    auto* help = findChild<QMenu*>(QStringLiteral("HelpsMenu"));
    QMenu* manuals = help->addMenu(tr("Software user manual"));
    manuals->setObjectName(QStringLiteral("SoftwareUserManual"));
    for (int number = 1; number <= static_cast<int>(manualItems.size()); ++number) {
        const ManualItem& manual = manualItems[static_cast<size_t>(number - 1)];
        item(manuals, manual.name, QLatin1String(manual.caption),
             [this, number] { m_tool.OpenSoftwareUserManual(number); });
    }
    item(help, "UserManual", tr("Drive user manual"), [this] {
        m_tool.UserManualClick();
    })->setEnabled(false);
}

// ---- Centre ----

TransparentButton* TMainForm::button(const char* name, Icon which, const QString& text, const QString& hint,
                                     const std::function<void()>& clicked) {
    auto* made = named<TransparentButton>(name, icon(which), text);
    made->setToolTip(hint);
    connect(made, &QAbstractButton::clicked, this, clicked);
    return made;
}

QWidget* TMainForm::buildButtons() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    for (const WindowRow* window : windowEntries()) {
        const WindowEntry& entry = window->entry;
        if (entry.button)
            row->addWidget(
                button(entry.button, entry.icon, tr(entry.caption), tr(entry.hint), wanted(*window)));
    }
    row->addWidget(button("OpenTransparentButton", Icon::Open, tr("Open"), tr("Open a project file"),
                          [this] { m_tool.OpenTransparentButtonClick(); }));
    row->addWidget(button("SaveTransparentButton", Icon::Save, tr("Save"),
                          tr("Save the settings to a project file"),
                          [this] { m_tool.SaveTransparentButtonClick(); }));
    row->addWidget(button("ExitTransparentButton", Icon::Exit, tr("Exit"), tr("Close the program"),
                          [this] { close(); }));
    auto* bevel = named<QFrame>("Bevel4");
    bevel->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    auto* saveLanguage = button("LangTransparentButton", Icon::Language, tr("Save Lang"),
                                tr("Save the captions on the screen to a language file"),
                                [this] { LangTransparentButtonClick(); });
    for (QWidget* hidden : {static_cast<QWidget*>(bevel), static_cast<QWidget*>(saveLanguage)}) {
        hidden->setVisible(false);
        row->addWidget(hidden);
    }
    row->addStretch();
    return bar;
}

QWidget* TMainForm::buildIdentity() {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    m_picture = named<PictureBox>("LogoImage");
    m_picture->setMinimumSize(180, 150);
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
        *row.place = named<VrLabel>(row.value);
        (*row.place)->setCharacters(12);
        grid->addWidget(captionFor(*row.place, row.caption, row.text), line, 0);
        grid->addWidget(*row.place, line++, 1);
    }
    grid->setColumnStretch(1, 1);
    column->addLayout(grid);
    m_lamp = named<AbLED>("ComStatusAbLED", tr("Off Line"));
    m_lamp->setColor(LampRed);
    m_lamp->setChecked(true);
    m_lamp->setToolTip(tr("State of the link. Double click to go on line or off line."));
    connect(m_lamp, &AbLED::doubleClicked, this, &TMainForm::ComStatusAbLEDDblClick);
    m_indicator = named<VrIndicator>("ComStatusVrIndicator");
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
    m_memo = named<QPlainTextEdit>("MessageMemo");
    m_memo->setReadOnly(true);
    m_memo->setMaximumBlockCount(HistoryLines);
    m_memo->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* head = new QHBoxLayout;
    head->addWidget(captionFor(m_memo, "HistMsgLabel", tr("History Message")), 1);
    const auto button = [head](const char* name, Icon which, const QString& hint) {
        auto* made = named<TransparentButton>(name, icon(which), QString(), nullptr,
                                              TransparentButton::Layout::IconLeft);
        made->setAutoRaise(true);
        made->setToolTip(hint);
        made->setAccessibleName(hint);
        head->addWidget(made);
        return made;
    };
    connect(button("HistCopyTransparentButton", Icon::Copy, tr("Copy the history")), &QToolButton::clicked,
            this, [this] { QGuiApplication::clipboard()->setText(m_memo->toPlainText()); });
    connect(button("HistSaveTransparentButton", Icon::Save, tr("Save the history to a text file")),
            &QToolButton::clicked, this, &TMainForm::saveHistory);
    column->addLayout(head);
    column->addWidget(m_memo, 1);
    return box;
}

void TMainForm::buildCentre() {
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->addWidget(buildButtons());
    auto* splitter = named<QSplitter>("MainSplitter", Qt::Horizontal);
    splitter->addWidget(buildIdentity());
    splitter->addWidget(buildHistory());
    splitter->setStretchFactor(1, 1);
    column->addWidget(splitter, 1);
    setCentralWidget(centre);
}

void TMainForm::buildStatusLine() {
    statusBar()->setObjectName(QStringLiteral("StatusLine"));
    m_panel0 = named<ElidedLabel>("StatusLinePanel0");
    m_panel1 = plainLabel("StatusLinePanel1");
    m_panel1->setMinimumWidth(Panel1Width);
    m_practicePanel = plainLabel("PracticePanel");
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

void TMainForm::saveHistory() {
    askToSave(m_tool.site.person, QStringLiteral("TXT File(*.txt)|*.txt"), m_memo->toPlainText().toUtf8());
}

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
    enableWindows();
    showPicture();
    enablePractice();
}

void TMainForm::enablePractice() {
    m_practiceMenu->setEnabled(m_tool.practiceChosen());
    m_practice->setEnabled(m_tool.mayChoosePractice());
    m_fault->setEnabled(m_tool.mayRaiseFault());
}

void TMainForm::showPractice() {
    const bool practice = m_tool.practiceChosen();
    enablePractice();
    const Family family = m_tool.practiceFamily();
    for (QAction* action : m_practice->actions())
        action->setChecked(practice && action->data().toInt() == static_cast<int>(family));
    m_practicePanel->setVisible(practice);
    m_practicePanel->setText(practice ? tr("Practice drive: %1").arg(QLatin1String(familyName(family)))
                                      : QString());
}

// The drive that the labels name; without one, or when its link was taken down, the logo.
void TMainForm::showPicture() {
    const RequestScheduler& link = m_tool.link;
    const bool there = !link.Labels.DriveVrLabel.isEmpty() && link.Lamp != LampRecord();
    const int wanted = there ? link.DriveStatus.DriveFamily : NoFamily;
    if (wanted == m_pictured) return;
    m_pictured = wanted;
    if (wanted == NoFamily)
        m_picture->showLogo();
    else
        m_picture->showFamily(static_cast<quint8>(wanted));
    if (m_picture->isEmpty()) m_picture->showLogo();
}

// A window that is not built, or that the drive does not have, cannot be asked for.
void TMainForm::enableWindows() {
    for (const WindowRow* row : windowEntries()) {
        const WindowEntry& entry = row->entry;
        const bool on = row->built() && (!entry.offered || m_tool.link.Labels.*entry.offered);
        findChild<QAction*>(QLatin1String(entry.menuItem))->setEnabled(on);
        if (entry.button) findChild<QWidget*>(QLatin1String(entry.button))->setEnabled(on);
    }
}

void TMainForm::enableSaveLanguage(const LiveTexts& live) {
    m_liveTexts = &live;
    for (const char* name : {"Bevel4", "LangTransparentButton"})
        findChild<QWidget*>(QLatin1String(name))->setVisible(true);
}

void TMainForm::LangTransparentButtonClick() {
    if (!m_liveTexts) return;
    Operator& person = m_tool.site.person;
    const Language& language = m_tool.site.language;
    person.suggestedName = languageFileName(language.LanguageIndex);
    // Kept: a name without an extension gets that of projects.
    const auto path = person.saveFile(QStringLiteral("TXT File(*.txt)|*.txt"), QStringLiteral("prj"));
    if (!path) return;
    const FileResult written = saveLanguage(*path, language, *m_liveTexts);
    if (!written.ok) person.tell(written.error, QStringLiteral("Error"), BoxIcon::Stop);
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
    if (m_tool.site.person.yes(m_tool.voice.text(Message::GoOffLine), QStringLiteral("Cofirm")))
        m_tool.link.Initial();
}

void TMainForm::closeEvent(QCloseEvent* event) {
    m_tool.FormClose();
    event->accept();
    Q_EMIT closed();
}

}  // namespace kelvane
