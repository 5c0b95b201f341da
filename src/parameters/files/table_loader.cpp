#include "parameters/files/table_loader.h"

#include "parameters/files/sheet_transfer.h"
#include "parameters/files/table_text_file.h"
#include "parameters/files/transfer_dialog.h"

namespace kelvane {

namespace {

// Rows of a sheet are not known before it is read; the bar is as long as a usual table.
constexpr int UsualRows = 300;

LoadedFile failed(const QString& error) { return {{}, {}, error}; }

}  // namespace

void TableLoader::ReadFileTransparentButtonClick() {
    if (const std::optional<QString> path = person().openFile(openTableFilter())) load(*path);
}

void TableLoader::LsFilelistViewDblClick(const QString& path) {
    OpenFromBrowser = 1;
    load(path);
    OpenFromBrowser = 0;
}

bool TableLoader::load(const QString& path) {
    const bool shown = show(path);
    if (const auto& tell = shown ? loaded : notLoaded) tell(path);
    return shown;
}

bool TableLoader::show(const QString& path) {
    const TableFileKind kind = tableFileKind(path);
    if (kind == TableFileKind::Unsupported) {
        person().tell(m_session.bench.link.lang().MsgStr(12), QStringLiteral("Warning"),
                      BoxIcon::Exclamation);
        return false;
    }
    if (kind == TableFileKind::Spreadsheet && !spreadsheetPresent(m_spreadsheet, person())) return false;
    return apply(read(path, kind), path);
}

LoadedFile TableLoader::read(const QString& path, TableFileKind kind) {
    if (kind == TableFileKind::Spreadsheet) return readSheets(path);
    const FileContent content = readWhole(path);
    if (!content.ok) return failed(content.error);
    LoadedFile file =
        readTableText(content.bytes, kind == TableFileKind::Csv ? TextFormat::Csv : TextFormat::Txt,
                      m_session.fileTable.identity);
    if (!file.error.isEmpty()) file.error = QStringLiteral("%1: %2").arg(path, file.error);
    return file;
}

LoadedFile TableLoader::readSheets(const QString& path) {
    const std::unique_ptr<SpreadsheetApplication> application = m_spreadsheet.create();
    TransferDialog dialog(m_session.progress, m_session.bench.clock, ProgressGlyph::ReadFile, UsualRows,
                          pumpMessages);
    return loadSheets(*application, path, m_session.fileTable.identity, dialog.progress());
}

bool TableLoader::apply(const LoadedFile& file, const QString& path) {
    if (file.table) {
        applyTable(*file.table, m_session.fileTable);
        m_session.fileTable.TableFileName = path;
        m_session.fileLoaded();
    } else if (file.comparison) {
        applyComparison(*file.comparison, m_session.comparison);
        m_session.comparisonLoaded();
    } else {
        person().tell(file.error, QStringLiteral("Error"), BoxIcon::Stop);
        return false;
    }
    return true;
}

}  // namespace kelvane
