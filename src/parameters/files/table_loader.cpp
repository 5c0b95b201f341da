#include "parameters/files/table_loader.h"

#include "parameters/files/sheet_transfer.h"
#include "parameters/files/table_text_file.h"
#include "parameters/files/transfer_dialog.h"

namespace kelvane {

namespace {

// Rows of a sheet are not known before it is read; the bar is as long as a usual table.
constexpr int UsualRows = 300;
constexpr int MostRemarks = 12;  // that a box shows

LoadedFile failed(const QString& error) { return {{}, {}, error, {}}; }

}  // namespace

void TableLoader::ReadFileTransparentButtonClick() {
    if (const std::optional<QString> path = m_work.person.openFile(openTableFilter())) load(*path);
}

void TableLoader::LsFilelistViewDblClick(const QString& path) {
    OpenFromBrowser = 1;
    load(path);
    OpenFromBrowser = 0;
}

bool TableLoader::load(const QString& path) {
    const bool shown = show(path);
    if (shown) {
        Q_EMIT loaded(path);
    } else {
        Q_EMIT notLoaded(path);
    }
    return shown;
}

bool TableLoader::show(const QString& path) {
    const TableFileKind kind = tableFileKind(path);
    if (kind == TableFileKind::Unsupported) {
        m_work.person.tell(m_work.lang.MsgStr(Message::FormatNotSupported), QStringLiteral("Warning"),
                           BoxIcon::Exclamation);
        return false;
    }
    if (kind == TableFileKind::Spreadsheet && !spreadsheetPresent(m_work.spreadsheet, m_work.person))
        return false;
    return apply(read(path, kind), path);
}

LoadedFile TableLoader::read(const QString& path, TableFileKind kind) {
    if (kind == TableFileKind::Spreadsheet) return readSheets(path);
    const FileContent content = readWhole(path);
    if (!content.ok) return failed(content.error);
    LoadedFile file =
        readTableText(content.bytes, kind == TableFileKind::Csv ? TextFormat::Csv : TextFormat::Txt,
                      m_work.fileTable.identity);
    if (!file.error.isEmpty()) file.error = QStringLiteral("%1: %2").arg(path, file.error);
    return file;
}

LoadedFile TableLoader::readSheets(const QString& path) {
    const std::unique_ptr<SpreadsheetApplication> application = m_work.spreadsheet.create();
    TransferDialog dialog(m_work.progress, m_work.clock, ProgressGlyph::ReadFile, UsualRows);
    return loadSheets(*application, path, m_work.fileTable.identity, dialog.progress());
}

void TableLoader::tellRemarks(const LoadedFile& file) {
    if (file.remarks.isEmpty()) return;
    QStringList lines = file.remarks.mid(0, MostRemarks);
    if (file.remarks.size() > MostRemarks)
        lines += QStringLiteral("... and %1 more").arg(file.remarks.size() - MostRemarks);
    m_work.person.tell(QStringLiteral("Values that were left out:\n") % lines.join(u'\n'),
                       QStringLiteral("Warning"), BoxIcon::Exclamation);
}

bool TableLoader::apply(const LoadedFile& file, const QString& path) {
    if (file.table) {
        applyTable(*file.table, m_work.fileTable);
        m_work.fileTable.TableFileName = path;
        Q_EMIT tableLoaded();
        tellRemarks(file);
    } else if (file.comparison) {
        applyComparison(*file.comparison, m_work.comparison);
        Q_EMIT comparisonLoaded();
    } else {
        m_work.person.tell(file.error, QStringLiteral("Error"), BoxIcon::Stop);
        return false;
    }
    return true;
}

}  // namespace kelvane
