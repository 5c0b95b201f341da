#include "parameters/window/parameter_menus_form.h"

#include <QActionGroup>
#include <QMenuBar>

#include "ui/find_bar.h"
#include "ui/icons.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

struct HideItem {
    const char* name;
    const char* text;
};
constexpr std::array<HideItem, 9> HideItems{{
    {"HidePrNo", "Pr. No"},
    {"HideMODBUS", "MODBUS"},
    {"HideDescription", "Description"},
    {"HideUnit", "Unit"},
    {"HideData", "Data"},
    {"HideDefault", "Default"},
    {"HideMin", "Min"},
    {"HideMax", "Max"},
    {"HideAttribute", "Attribute"},
}};

}  // namespace

ParameterMenus::ParameterMenus(QMenuBar* bar, QToolBar* tools, const FindBar& find, QWidget* window)
    : QObject(window), m_window(window) {
    buildFileMenu(bar);
    buildDriveMenu(bar);
    buildEditMenu(bar, find);
    buildViewMenu(bar);
    buildPopups();
    buildButtons(tools);
}

QAction* ParameterMenus::add(QMenu* menu, const char* name, const QString& text, const QKeySequence& keys) {
    auto* action = new QAction(text, m_window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    menu->addAction(action);
    return action;
}

QMenu* ParameterMenus::addMenu(QMenuBar* bar, const char* name, const QString& title) {
    QMenu* menu = bar->addMenu(title);
    menu->setObjectName(QLatin1String(name));
    return menu;
}

void ParameterMenus::buildFileMenu(QMenuBar* bar) {
    QMenu* menu = addMenu(bar, "FileMenu", QStringLiteral("&File"));
    ReadfromFile = add(menu, "ReadfromFile", QStringLiteral("Read from File"), QKeySequence::Open);
    RecentFilesMenu = menu->addMenu(QStringLiteral("&Recent Files"));
    RecentFilesMenu->setObjectName(QStringLiteral("RecentFilesMenu"));
    Save = add(menu, "Save", QStringLiteral("Save"), QKeySequence::Save);
    Print = add(menu, "Print", QStringLiteral("Print"), QKeySequence::Print);
    menu->addSeparator();
    CloseTab = add(menu, "CloseTab", QStringLiteral("Close Tab"), QKeySequence(Qt::CTRL | Qt::Key_W));
    Exit = add(menu, "Exit", QStringLiteral("Exit"), QKeySequence(Qt::CTRL | Qt::Key_Q));
    ReadfromFile->setIcon(icon(Icon::ReadFile));
    Save->setIcon(icon(Icon::Save));
    Print->setIcon(icon(Icon::Print));
    CloseTab->setIcon(icon(Icon::Close));
    Exit->setIcon(icon(Icon::Exit));
}

void ParameterMenus::buildDriveMenu(QMenuBar* bar) {
    QMenu* menu = addMenu(bar, "DriveMenu", QStringLiteral("&Drive"));
    ReadfromDrive = add(menu, "ReadfromDrive", QStringLiteral("Read from Drive"), QKeySequence(Qt::Key_F5));
    ShowReservedParameters = add(menu, "ShowReservedParameters", QStringLiteral("Show Reserved Parameters"));
    ReadfromKeypad = add(menu, "ReadfromKeypad", QStringLiteral("Read from Keypad"));
    ReadfromKeypad->setCheckable(true);
    menu->addSeparator();
    WriteSelect = add(menu, "WriteSelect", QStringLiteral("Write Select"), QKeySequence(Qt::Key_F9));
    WriteAll = add(menu, "WriteAll", QStringLiteral("Write All"), QKeySequence(Qt::SHIFT | Qt::Key_F9));
    ResetParameter = add(menu, "ResetParameter", QStringLiteral("Reset the parameters to factory default"));
    ReadfromDrive->setIcon(icon(Icon::ReadDrive));
    WriteSelect->setIcon(icon(Icon::WriteSelect));
    WriteAll->setIcon(icon(Icon::WriteAll));
}

void ParameterMenus::buildEditMenu(QMenuBar* bar, const FindBar& find) {
    EditMenu = addMenu(bar, "EditMenu", QStringLiteral("&Edit"));
    Undo = add(EditMenu, "Undo", QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z));
    Redo = add(EditMenu, "Redo", QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::Key_Y));
    Undo->setIcon(icon(Icon::Undo));
    Redo->setIcon(icon(Icon::Redo));
    EditMenu->addSeparator();
    EditMenu->addActions({find.findAction(), find.nextAction(), find.previousAction()});
}

void ParameterMenus::buildViewMenu(QMenuBar* bar) {
    QMenu* menu = addMenu(bar, "ViewMenu", QStringLiteral("&View"));
    CompareParameter = add(menu, "CompareParameter", QStringLiteral("Compare"), QKeySequence(Qt::Key_F7));
    CompareParameter->setIcon(icon(Icon::Compare));
    menu->addSeparator();
    buildRowViews(menu);
    menu->addSeparator();
    HideColumn = menu->addMenu(QStringLiteral("&Hide Column"));
    HideColumn->setObjectName(QStringLiteral("HideColumn"));
    for (size_t i = 0; i < HideItems.size(); ++i) {
        hideItems[i] = add(HideColumn, HideItems[i].name, QLatin1String(HideItems[i].text));
        hideItems[i]->setCheckable(true);
        hideItems[i]->setProperty("content", true);  // as the heads of the columns, in no other language
        connect(hideItems[i], &QAction::triggered, this, [this, i] { Q_EMIT hideColumnClicked(int(i) + 1); });
    }
}

void ParameterMenus::buildRowViews(QMenu* menu) {
    const auto ctrl = [](Qt::Key key) { return QKeySequence(Qt::CTRL | key); };
    rowViews = {add(menu, "AllRows", QStringLiteral("&All Rows"), ctrl(Qt::Key_1)),
                add(menu, "OnlyDifferingRows", QStringLiteral("Only Rows That &Differ"), ctrl(Qt::Key_2)),
                add(menu, "OnlyCheckedRows", QStringLiteral("Only &Checked Rows"), ctrl(Qt::Key_3))};
    auto* one = new QActionGroup(this);
    for (size_t i = 0; i < rowViews.size(); ++i) {
        rowViews[i]->setCheckable(true);
        one->addAction(rowViews[i]);
        connect(rowViews[i], &QAction::triggered, this, [this, i] { Q_EMIT rowViewChosen(RowView(i)); });
    }
    rowViews[0]->setChecked(true);
}

void ParameterMenus::buildPopups() {
    const auto popup = [this](const char* name) {
        auto* menu = new QMenu(m_window);
        menu->setObjectName(QLatin1String(name));
        return menu;
    };
    TreeViewParaPopupMenu = popup("TreeViewParaPopupMenu");
    loadPara = add(TreeViewParaPopupMenu, "loadPara", QStringLiteral("Load Parameters"));
    closeTable = add(TreeViewParaPopupMenu, "closeTable", QStringLiteral("Close Table"));
    TabPopupMenu = popup("TabPopupMenu");
    TabPopupMenu->addAction(CloseTab);
    RowPopupMenu = popup("RowPopupMenu");
    BackToReadValue = add(RowPopupMenu, "BackToReadValue", QStringLiteral("&Back to the read value"));
    ToDefault = add(RowPopupMenu, "ToDefault", QStringLiteral("To &default"));
    RowPopupMenu->addSeparator();
    CopyRows = add(RowPopupMenu, "CopyRows", QStringLiteral("&Copy"));
    CopyRows->setIcon(icon(Icon::Copy));
}

void ParameterMenus::buildButtons(QToolBar* tools) {
    ReadDriveTransparentButton =
        addButton(tools, "ReadDriveTransparentButton", icon(Icon::ReadDrive), "Read Drive",
                  "Read the parameter table from the drive", ReadfromDrive);
    ReadFileTransparentButton = addButton(tools, "ReadFileTransparentButton", icon(Icon::ReadFile),
                                          "Read File", "Open a parameter table from a file", ReadfromFile);
    SaveTransparentButton = addButton(tools, "SaveTransparentButton", icon(Icon::Save), "Save",
                                      "Save a table or a comparison", Save);
    tools->addSeparator();
    WriteCheckTransparentButton =
        addButton(tools, "WriteCheckTransparentButton", icon(Icon::WriteSelect), "Write Select",
                  "Write the checked parameters to the drive", WriteSelect);
    WriteAllTransparentButton =
        addButton(tools, "WriteAllTransparentButton", icon(Icon::WriteAll), "Write All",
                  "Write all writable parameters to the drive", WriteAll);
    tools->addSeparator();
    CompareTransparentButton =
        addButton(tools, "CompareTransparentButton", icon(Icon::Compare), "Compare",
                  "Compare a table with its defaults or with the other table", CompareParameter);
    PrintTransparentButton =
        addButton(tools, "PrintTransparentButton", icon(Icon::Print), "Print", "Print a table", Print);
    auto* room = new QWidget(tools);
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    tools->addWidget(room);
    ExitTransparentButton =
        addButton(tools, "ExitTransparentButton", icon(Icon::Exit), "Exit", "Close this window", Exit);
}

TransparentButton* ParameterMenus::addButton(QToolBar* tools, const char* name, const QIcon& icon,
                                             const QString& text, const QString& hint, QAction* action) {
    auto* button = new TransparentButton(icon, text, tools);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(hint);
    connect(button, &QToolButton::clicked, action, &QAction::trigger);
    tools->addWidget(button);
    return button;
}

}  // namespace kelvane
