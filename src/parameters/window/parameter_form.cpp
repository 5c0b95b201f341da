#include "parameters/window/parameter_form.h"

#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLocale>
#include <QMimeData>
#include <QUrl>

#include "parameters/table/table_edit.h"
#include "parameters/window/parameter_menus_form.h"
#include "parameters/window/parameter_pages_form.h"
#include "ui/find_bar.h"

namespace kelvane {

namespace {

constexpr uint NumLockModifier = 0x10;  // of a key event: the lock as it was before the key

// The parameter file among what is dropped; empty when there is none.
QString droppedFile(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (url.isLocalFile() && tableFileKind(url.toLocalFile()) != TableFileKind::Unsupported)
            return url.toLocalFile();
    return {};
}

QString outcomeText(const ComparisonOutcome& outcome) {
    const int missed = outcome.notComparedDrive + outcome.notComparedFile;
    QString text = outcome.differences == 1 ? QStringLiteral("1 difference.")
                                            : QStringLiteral("%1 differences.").arg(outcome.differences);
    if (missed > 0)
        text += QStringLiteral(" Rows that could not be compared: %1 of the drive, %2 of the file.")
                    .arg(outcome.notComparedDrive)
                    .arg(outcome.notComparedFile);
    return text;
}

}  // namespace

TParameterForm::~TParameterForm() = default;

// ---- Showing ----

void TParameterForm::showScreen() {
    m_mirroring = true;
    m_pages->showScreen();
    showTree();
    showMenuItems();
    m_mirroring = false;
    followFrontView();
    showHistoryItems();
}

void TParameterForm::showMenuItems() {
    const ParameterScreen& screen = m_session.screen;
    m_menus->ResetParameter->setEnabled(screen.ResetParameterEnabled);
    m_menus->ShowReservedParameters->setEnabled(screen.ShowReservedParametersEnabled);
    m_menus->ReadfromKeypad->setChecked(screen.ReadfromKeypadChecked);
    for (size_t i = 0; i < m_menus->hideItems.size(); ++i)
        m_menus->hideItems[i]->setChecked(m_session.columns.isChecked(static_cast<int>(i) + 1));
}

void TParameterForm::showHistoryItems() {
    const std::optional<TableSide> side = frontSide();
    m_menus->Undo->setEnabled(side && history(*side).canUndo());
    m_menus->Redo->setEnabled(side && history(*side).canRedo());
}

// What was read or loaded can be walked through by keyboard at once.
void TParameterForm::focusTable() {
    StringGridView* view = m_pages->frontView();
    if (!view) return;
    if (view->currentCell().row < 1) view->setCurrentCell(column::Data, 1);
    view->setFocus();
}

// Kept: link and NUM key write the same panel, and the last one wins.
void TParameterForm::showLinkPanel() {
    const QString& panel = m_session.site.link.Lamp.parameterPanel1;
    if (panel == m_linkPanel) return;
    m_linkPanel = panel;
    m_panel1->setText(panel);
}

void TParameterForm::tellInStatusLine(const QString& text) { m_panel0->setText(text); }

void TParameterForm::followFrontView() {
    StringGridView* view = m_pages->frontView();
    m_findBar->setView(view);
    if (!view) m_findBar->hide();
}

void TParameterForm::SystemTimerTimer() {
    const QDateTime now = m_session.now();
    m_dateTime->setText(QLocale().toString(now.date(), QLocale::ShortFormat) %
                        now.toString(QStringLiteral("  HH:mm:ss")));
}

// ---- Tables ----

std::optional<TableSide> TParameterForm::frontSide() const {
    if (m_session.screen.active == ParameterTab::Drive) return TableSide::Drive;
    if (m_session.screen.active == ParameterTab::File) return TableSide::File;
    return std::nullopt;
}

ParameterTable& TParameterForm::table(TableSide side) {
    return side == TableSide::Drive ? m_session.driveTable : m_session.fileTable;
}

EditHistory& TParameterForm::history(TableSide side) {
    return side == TableSide::Drive ? m_session.driveHistory : m_session.fileHistory;
}

void TParameterForm::editCell(TableSide side, int column, int row) {
    const auto change = [&] { ProcessAdvStringGridDblClickCell(table(side).grid, column, row, person()); };
    row > 0 ? history(side).edit({row}, change) : history(side).edit(change);
}

void TParameterForm::clickBox(TableSide side, int row, bool set) {
    StringGrid& grid = table(side).grid;
    if (grid.checkBox(row) == set) return;
    if (row > 0) return clickBoxes(side, {row}, set);
    history(side).edit([&] { clickCheckBox(grid, row); });
}

void TParameterForm::clickBoxes(TableSide side, const std::vector<int>& rows, bool set) {
    history(side).edit(rows, [&] { setCheckBoxes(table(side).grid, rows, set); });
}

void TParameterForm::undoOrRedo(bool redo) {
    const std::optional<TableSide> side = frontSide();
    if (!side) return;
    const int row = redo ? history(*side).redo() : history(*side).undo();
    if (row < 0) return;
    m_session.refreshSubTables();
    StringGridView* view = m_pages->frontView();
    const QString PrNo = table(*side).grid.cell(column::PrNo, row);
    view->setCurrentCell(column::Data, rowOfNumber(*view->grid(), PrNo));
}

// The row's menu stands for a row of the main table, also when it came up over a sub-table.
void TParameterForm::rowMenu(StringGridView* view, int row, const QPoint& globalPos) {
    const std::optional<TableSide> side = frontSide();
    const QString PrNo = view->grid()->cell(column::PrNo, row);
    const bool parameter = side && row > 0 && !PrNo.isEmpty() && !isGroupRow(*view->grid(), row);
    m_menuRow = parameter ? RowIndex(table(*side).grid).rowOf(*view->grid(), row) : -1;
    const Family family = side ? table(*side).identity.family : Family::Keypad;
    const bool hasDefaults = family != Family::Hazel && family != Family::Keypad;
    m_menus->BackToReadValue->setEnabled(m_menuRow > 0 && table(*side).grid.edited(m_menuRow));
    m_menus->ToDefault->setEnabled(m_menuRow > 0 && hasDefaults && isWritable(table(*side).grid, m_menuRow));
    m_menus->CopyRows->setEnabled(!view->selectedGridRows().empty());
    m_menus->RowPopupMenu->popup(globalPos);
}

void TParameterForm::rowBack(bool toDefault) {
    const std::optional<TableSide> side = frontSide();
    if (!side || m_menuRow <= 0) return;
    if (toDefault) {
        history(*side).toDefault(m_menuRow);
    } else {
        history(*side).backToReadValue(m_menuRow);
    }
    m_session.refreshSubTables();
}

// ---- Comparison, print, files ----

QString TParameterForm::tabCaption(ParameterTab tab) const { return m_pages->tabCaption(tab); }

void TParameterForm::CompareTransparentButtonClick() {
    if (!m_session.anyTableOpen()) return;
    const QStringList kinds =
        compareKinds(m_session.screen.DriveTabSheetVisible, m_session.screen.FileTabSheetVisible);
    m_session.choices.chooseCompareKind(kinds, [this, kinds](std::optional<int> index) {
        if (!index || *index < 0 || *index >= kinds.size()) return;
        const ComparisonOutcome outcome = m_session.compare(kinds[*index]);
        m_pages->showScreen();
        const bool compared = outcome.shown || outcome.notComparedDrive + outcome.notComparedFile > 0;
        if (compared) tellInStatusLine(outcomeText(outcome));
        if (outcome.shown) focusTable();
    });
}

void TParameterForm::PrintTransparentButtonClick() {
    if (!anyTabOpen(m_session.screen, person())) return;
    const std::vector<ParameterTab> tabs = openTabs(m_session.screen);
    m_session.choices.chooseTab(QStringLiteral("Select Parameter Source to Print"), tabs, 0,
                                [this](std::optional<ParameterTab> tab) {
                                    if (tab) print(*tab);
                                });
}

void TParameterForm::print(ParameterTab tab) {
    const bool comparison = tab == ParameterTab::Compare;
    const bool drive = tab == ParameterTab::Drive;
    const PrintSource source = comparison ? PrintSource::Comparison
                               : drive    ? PrintSource::DriveTable
                                          : PrintSource::FileTable;
    const StringGrid& grid = comparison ? m_session.CompareAdvStringGrid
                             : drive    ? m_session.DriveAdvStringGrid
                                        : m_session.FileAdvStringGrid;
    Q_EMIT reportWanted(makeReport(source, grid, m_session.comparison, m_session.now()));
}

void TParameterForm::fillRecentMenu() {
    QMenu* menu = m_menus->RecentFilesMenu;
    menu->clear();
    const QStringList files = recent.list();
    for (int i = 0; i < files.size(); ++i) {
        const QString shown =
            QDir::toNativeSeparators(files[i]).replace(QLatin1Char('&'), QLatin1String("&&"));
        connect(menu->addAction(QStringLiteral("&%1  %2").arg(i + 1).arg(shown)), &QAction::triggered, this,
                [this, path = files[i]] { m_session.loader.load(path); });
    }
    if (files.isEmpty()) {
        menu->addAction(QStringLiteral("No file has been opened yet"))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    connect(menu->addAction(QStringLiteral("&Clear this list")), &QAction::triggered, this,
            [this] { recent.clear(); });
}

// ---- Events ----

void TParameterForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    SystemTimerTimer();
    SystemTimer.setEnabled(true);
    showScreen();
    showLinkPanel();
}

void TParameterForm::hideEvent(QHideEvent* event) {
    SystemTimer.setEnabled(false);
    QMainWindow::hideEvent(event);
}

void TParameterForm::closeEvent(QCloseEvent* event) {
    m_session.FormClose();
    tellInStatusLine({});
    event->accept();
    Q_EMIT finished(0);
}

// The NUM key tells of its lock.
void TParameterForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_NumLock) return QMainWindow::keyPressEvent(event);
    const bool on = !(event->nativeModifiers() & NumLockModifier);
    m_panel1->setText(on ? QStringLiteral("NUM ") : QString());
}

void TParameterForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// Loaded once the drop is over: a box must not hold up the program that the file comes from.
void TParameterForm::dropEvent(QDropEvent* event) {
    const QString path = droppedFile(*event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, path] { m_session.loader.load(path); }, Qt::QueuedConnection);
}

}  // namespace kelvane
