#include "parameters/files/table_saver.h"

#include <QFileInfo>
#include <algorithm>

#include "parameters/files/sheet_transfer.h"
#include "parameters/files/table_text_file.h"
#include "parameters/files/transfer_dialog.h"

namespace kelvane {

namespace {

const auto Cofirm = QStringLiteral("Cofirm");

}  // namespace

std::vector<ParameterTab> openTabs(const ParameterScreen& screen) {
    std::vector<ParameterTab> tabs;
    for (const ParameterTab tab : {ParameterTab::Drive, ParameterTab::File, ParameterTab::Compare})
        if (screen.visible(tab)) tabs.push_back(tab);
    return tabs;
}

bool anyTabOpen(const ParameterScreen& screen, Operator& person) {
    if (!openTabs(screen).empty()) return true;
    person.tell(QStringLiteral("There is no parameter table be opened !"), Cofirm);
    return false;
}

void TableSaver::save(ParameterTab preselected, const std::function<void()>& then) {
    SaveMemo.clear();
    const std::vector<ParameterTab> tabs = savable();
    if (!hasSomething(tabs)) return;
    const auto found = std::find(tabs.begin(), tabs.end(), preselected);
    const int selected = found == tabs.end() ? 0 : static_cast<int>(found - tabs.begin());
    const auto formatChosen = [this, then](ParameterTab tab, std::optional<TableFileKind> kind) {
        if (kind && run({tab, *kind}) && then) then();
    };
    const auto sourceChosen = [this, formatChosen](std::optional<ParameterTab> tab) {
        if (!tab) return;
        m_choices.chooseFormat(
            [formatChosen, tab = *tab](std::optional<TableFileKind> kind) { formatChosen(tab, kind); });
    };
    m_choices.chooseTab(QStringLiteral("Select Parameter Source to Save"), tabs, selected, sourceChosen);
}

// The table from drive only when it was read to its end.
std::vector<ParameterTab> TableSaver::savable() const {
    std::vector<ParameterTab> tabs = openTabs(m_work.screen);
    if (!m_work.DriveTableComplete) std::erase(tabs, ParameterTab::Drive);
    return tabs;
}

bool TableSaver::hasSomething(const std::vector<ParameterTab>& tabs) {
    if (!anyTabOpen(m_work.screen, m_work.person)) return false;
    if (!tabs.empty()) return true;
    m_work.person.tell(QStringLiteral("Parameter table is not completed !"), Cofirm);
    return false;
}

// True when the file is written. The tab may have gone while the questions stood.
bool TableSaver::run(const Job& job) {
    if (!m_work.screen.visible(job.tab)) return false;
    return job.kind == TableFileKind::Spreadsheet ? saveSpreadsheet(job) : saveText(job);
}

// A name to begin with: of the file that was loaded, else of the drive.
std::optional<QString> TableSaver::askName(const Job& job) {
    const ParameterTable& from = table(job.tab);
    QString name = QFileInfo(from.TableFileName).completeBaseName();
    if (name.isEmpty()) name = from.identity.model;
    if (job.tab == ParameterTab::Compare) name = QStringLiteral("Comparison");
    m_work.person.suggestedName = name;
    return m_work.person.saveFile(saveFilter(job.kind), saveSuffix(job.kind));
}

bool TableSaver::saveText(const Job& job) {
    SaveMemo = textOf(job);
    const std::optional<QString> path = askName(job);
    return path && told(*path, writeWhole(*path, SaveMemo));
}

bool TableSaver::saveSpreadsheet(const Job& job) {
    if (!spreadsheetPresent(m_work.spreadsheet, m_work.person)) return false;
    const std::optional<QString> path = askName(job);
    return path && told(*path, writeSheets(job.tab, *path));
}

QByteArray TableSaver::textOf(const Job& job) {
    const TextFormat format = job.kind == TableFileKind::Csv ? TextFormat::Csv : TextFormat::Txt;
    if (job.tab == ParameterTab::Compare) return writeComparisonText(m_work.comparison, format);
    return writeTableText(table(job.tab), RparaAbLED(job.tab), format);
}

FileResult TableSaver::writeSheets(ParameterTab tab, const QString& path) {
    const std::unique_ptr<SpreadsheetApplication> application = m_work.spreadsheet.create();
    const bool comparison = tab == ParameterTab::Compare;
    const int rows = (comparison ? m_work.comparison.CompareAdvStringGrid : table(tab).grid).RowCount() - 1;
    TransferDialog dialog(m_work.progress, m_work.clock, ProgressGlyph::Save, rows);
    if (comparison) return saveComparisonSheet(*application, path, m_work.comparison, dialog.progress());
    return saveTableSheets(*application, path, table(tab), RparaAbLED(tab), dialog.progress());
}

bool TableSaver::told(const QString& path, const FileResult& result) {
    if (result.ok) {
        Q_EMIT saved(path);
    } else {
        m_work.person.tell(result.error, QStringLiteral("Error"), BoxIcon::Stop);
    }
    return result.ok;
}

const ParameterTable& TableSaver::table(ParameterTab tab) const {
    return tab == ParameterTab::File ? m_work.fileTable : m_work.driveTable;
}

bool TableSaver::RparaAbLED(ParameterTab tab) const {
    return tab == ParameterTab::Drive && m_work.screen.RparaAbLEDShown;
}

}  // namespace kelvane
