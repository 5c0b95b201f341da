#include "parameters/files/sheet_transfer.h"

#include <algorithm>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int TitleLastColumn = 10;    // A to J
constexpr int FirstHiddenColumn = 11;  // K to M
constexpr int LastHiddenColumn = 13;
constexpr int DescriptionWidth = 20;
constexpr int InfoLabelWidth = 15;
constexpr int HeaderRowOfGroup = 3;
constexpr int FirstCountColumn = 2;
constexpr int CompareRowRow = 10;
constexpr int CompareHeaderRow = 11;
constexpr int HighestNumber = 255;
const auto ComparisonTypeLabel = QStringLiteral("Comparison Type:");
const auto ParameterSheet = QStringLiteral("Parameter");
const auto EmptyMark = QStringLiteral("####");

bool isRowanModel(const TableIdentity& identity) {
    return identity.model == QLatin1String(familyName(Family::Rowan));
}

void tell(const std::function<void(const QString&)>& label, const QString& text) {
    if (label) label(text);
}

void tellRow(const TransferProgress& progress, const QString& PrNo, const QString& description) {
    tell(progress.para, QStringLiteral("Process Pr ") % PrNo % QStringLiteral(":  ") % description);
}

void put(SpreadsheetApplication& application, int row, int column, const QString& text) {
    application.setTextFormat(row, column);
    application.setValue(row, column, text);
}

void colour(SpreadsheetApplication& application, int row, int columns, int interior, int font) {
    for (int c = 1; c <= columns; ++c) {
        application.setInteriorColour(row, c, interior);
        if (font != 0) application.setFontColour(row, c, font);
    }
}

// One table into one workbook.
class TableSheetWriter {
   public:
    TableSheetWriter(SpreadsheetApplication& application, const ParameterTable& table,
                     const TransferProgress& progress)
        : m_application(application), m_table(table), m_grid(table.grid), m_progress(progress) {}

    void write(int groups) {
        const bool rowan = m_table.identity.family == Family::Rowan || isRowanModel(m_table.identity);
        nameSheets(rowan ? 1 : groups, rowan);
        fillDriveInfo(groups);
        tell(m_progress.info,
             QStringLiteral("Saving parameters from ") % m_table.identity.model % QStringLiteral(" ..."));
        if (rowan) startSheet(1);
        for (int row = 1; row < m_grid.RowCount(); ++row) {
            if (isGroupRow(m_grid, row)) {
                startGroup(m_grid.cell(column::Description, row));
            } else {
                writeParameter(row);
            }
        }
        finishSheet();
    }

   private:
    void nameSheets(int sheets, bool rowan) {
        m_application.nameSheet(1, QStringLiteral("Drive Info"));
        for (int sheet = 2; sheet <= sheets + 1; ++sheet) {
            m_application.addSheet();
            m_application.nameSheet(sheet, rowan ? ParameterSheet : groupSheetName(sheet));
        }
    }
    static QString groupSheetName(int sheet) { return QStringLiteral("Group %1").arg(sheet - 2); }

    void fillDriveInfo(int groups) {
        const TableIdentity& identity = m_table.identity;
        const std::array<std::pair<const char*, QString>, 7> lines{
            {{"Model", identity.model},
             {"Version", identity.version},
             {"Rated Current", identity.ratedCurrent},
             {"Rated Voltage", identity.ratedVoltage},
             {"HP", identity.hp},
             {"Drive ID", QString::number(int(identity.family))},
             {"Group Number", QString::number(groups)}}};
        m_application.selectSheet(1);
        int row = 0;
        for (const auto& [label, value] : lines) {
            put(m_application, ++row, 1, QString::fromLatin1(label));
            put(m_application, row, 2, value);
        }
        put(m_application, ++row, 1, QStringLiteral("Function Number"));
        for (int G = 0; G < groups; ++G)
            put(m_application, row, G + FirstCountColumn,
                QString::number(identity.groupParamCount[static_cast<size_t>(G)]));
        for (const int hidden : {6, 7, 8}) m_application.setRowHidden(hidden, true);
        m_application.setColumnWidth(1, InfoLabelWidth);
    }

    // A table with more group rows than its identity names gets a sheet for each all the same.
    void startSheet(int headerRow) {
        finishSheet();
        if (++m_sheet > m_application.sheetCount()) {
            m_application.addSheet();
            m_application.nameSheet(m_sheet, groupSheetName(m_sheet));
        }
        m_application.selectSheet(m_sheet);
        for (int c = column::Check; c <= column::RunSet; ++c)
            put(m_application, headerRow, c + 1, headerText(c));
        colour(m_application, headerRow, TableColumns, TealIndex, WhiteIndex);
        m_nextRow = headerRow + 1;
    }

    void startGroup(const QString& name) {
        startSheet(HeaderRowOfGroup);
        put(m_application, 1, 1, name);
        m_application.setBold(1, 1, true);
        m_application.merge({1, 1, 1, TitleLastColumn});
    }

    QString headerText(int column) const {
        if (column == column::Check) return QStringLiteral("Check");
        return column == column::Address ? QStringLiteral("Address") : m_grid.cell(column, 0);
    }

    void writeParameter(int row) {
        if (m_grid.cell(column::PrNo, row).isEmpty()) return;  // a blank row is no parameter
        if (m_sheet == 1) startSheet(HeaderRowOfGroup);
        put(m_application, m_nextRow, 1, m_grid.checkBox(row) ? QStringLiteral("V") : QStringLiteral("X"));
        for (int c = column::PrNo; c <= column::RunSet; ++c)
            put(m_application, m_nextRow, c + 1, m_grid.cell(c, row));
        // Kept: also in Hazel, whose defaults say nothing.
        if (m_grid.cell(column::Data, row) != m_grid.cell(column::Default, row))
            m_application.setInteriorColour(m_nextRow, column::Data + 1, YellowIndex);
        ++m_nextRow;
        tellRow(m_progress, m_grid.cell(column::PrNo, row), m_grid.cell(column::Description, row));
    }

    void finishSheet() {
        if (m_sheet == 1) return;
        for (int c = FirstHiddenColumn; c <= LastHiddenColumn; ++c) m_application.setColumnHidden(c, true);
        m_application.setColumnWidth(column::Description + 1, DescriptionWidth);
    }

    SpreadsheetApplication& m_application;
    const ParameterTable& m_table;
    const StringGrid& m_grid;
    const TransferProgress& m_progress;
    int m_sheet = 1;  // the one in hand; 1 is "Drive Info"
    int m_nextRow = 0;
};

void writeComparison(SpreadsheetApplication& application, const ComparisonSheet& sheet,
                     const TransferProgress& progress) {
    const StringGrid& grid = sheet.CompareAdvStringGrid;
    tell(progress.info, QStringLiteral("Saving Comparison information ..."));
    put(application, 1, 1, ComparisonTypeLabel);
    put(application, 1, 2, sheet.CompKindLabel);
    for (int c = 1; c <= 6; ++c)
        for (int row = 0; row <= 2; ++row)
            put(application, c + 2, row + 1, sheet.CompInfoAdvStringGrid.cell(c, row));
    put(application, CompareRowRow, 1, QStringLiteral("CompareRow"));
    put(application, CompareRowRow, 2, QString::number(grid.RowCount()));
    application.setRowHidden(CompareRowRow, true);
    for (int row = 0; row < grid.RowCount(); ++row) {
        const int sheetRow = CompareHeaderRow + row;
        for (int c = column::PrNo; c <= column::Note; ++c) put(application, sheetRow, c, grid.cell(c, row));
        if (row == 0) {
            colour(application, sheetRow, column::Note, LightGrayIndex, 0);
            for (int c = column::PrNo; c <= column::Note; ++c) application.setBold(sheetRow, c, true);
        } else if (isGroupRow(grid, row)) {
            colour(application, sheetRow, column::Note, TealIndex, WhiteIndex);
        } else {
            tellRow(progress, grid.cell(column::PrNo, row), grid.cell(column::Description, row));
        }
    }
    application.setColumnWidth(column::Description, DescriptionWidth);
}

FileResult leave(SpreadsheetApplication& application) {
    FileResult result = application.close(true);
    application.quit();
    return result;
}

// Reading

LoadedFile failed(const QString& error) { return {{}, {}, error, {}}; }

int numberAt(const SpreadsheetApplication& application, int row, int column, int old, int largest) {
    bool ok = false;
    const int number = application.value(row, column).toInt(&ok);
    return ok && number >= 0 && number <= largest ? number : old;
}

LoadedFile loadComparison(SpreadsheetApplication& application, const TransferProgress& progress) {
    const int rowCount = numberAt(application, CompareRowRow, 2, -1, MaxSheetRow - CompareHeaderRow + 1);
    if (rowCount < 1) return failed(QStringLiteral("The workbook holds no comparison result."));
    tell(progress.info, QStringLiteral("Reading Comparison Table"));
    LoadedComparison loaded;
    loaded.CompKindLabel = application.value(1, 2);
    for (int c = 1; c <= 6; ++c) {
        loaded.driveInfo[static_cast<size_t>(c - 1)] = application.value(c + 2, 2);
        loaded.fileInfo[static_cast<size_t>(c - 1)] = application.value(c + 2, 3);
    }
    loaded.rows.resize(static_cast<size_t>(rowCount - 1));
    size_t filled = 0;  // rows up to the last one that says something
    for (size_t i = 0; i < loaded.rows.size(); ++i) {
        auto& cells = loaded.rows[i];
        for (int c = column::PrNo; c <= column::Note; ++c) {
            QString& cell = cells[static_cast<size_t>(c)];
            cell = application.value(CompareHeaderRow + 1 + static_cast<int>(i), c);
            if (!cell.isEmpty()) filled = i + 1;
        }
        if (filled == i + 1 && cells[column::PrNo] != QLatin1String("*****"))
            tellRow(progress, cells[column::PrNo], cells[column::Description]);
    }
    loaded.rows.resize(filled);
    return {{}, std::move(loaded), {}, {}};
}

TableIdentity identityIn(const SpreadsheetApplication& application, const TableIdentity& before) {
    TableIdentity identity = before;
    identity.model = application.value(1, 2);
    identity.version = application.value(2, 2);
    identity.ratedCurrent = application.value(3, 2);
    identity.ratedVoltage = application.value(4, 2);
    identity.hp = application.value(5, 2);
    identity.family = static_cast<Family>(numberAt(application, 6, 2, static_cast<int>(before.family), 255));
    identity.groupCount = static_cast<quint8>(numberAt(application, 7, 2, before.groupCount, 255));
    for (int G = 0; G < identity.groupCount; ++G) {
        quint16& count = identity.groupParamCount[static_cast<size_t>(G)];
        count = static_cast<quint16>(numberAt(application, 8, G + FirstCountColumn, count, 65535));
    }
    return identity;
}

LoadedTable::Row groupRow(const QString& name) {
    LoadedTable::Row row;
    for (int c = column::PrNo; c <= column::Dot; ++c)
        row.cells[static_cast<size_t>(c)] = QStringLiteral("*****");
    row.cells[column::Description] = name;
    return row;
}

// A number of the sheet ("50.5") with the places of its row and the machine's separator; nothing when it has
// more places than these.
std::optional<QString> withPlaces(const QString& number, int places) {
    const qsizetype point = number.indexOf(u'.');
    QString digits = number;
    const auto behind = point < 0 ? 0 : static_cast<int>(number.size() - point - 1);
    if (behind > places) return std::nullopt;
    if (point >= 0) digits.remove(point, 1);
    digits += QString(places - behind, u'0');
    bool ok = false;
    const qlonglong value = digits.toLongLong(&ok);
    if (!ok) return std::nullopt;
    return InsertDecimalPoint(QString::number(value), places);
}

// A person's spreadsheet program may have made numbers of the values, which have lost the scale that the
// texts had.
void giveNumbersTheirPlaces(const SpreadsheetApplication& application, int sheetRow, LoadedTable::Row& row,
                            QStringList& remarks) {
    const int places = std::max(0, row.cells[column::Dot].toInt());
    for (const int c : {column::Data, column::Default, column::Min, column::Max}) {
        QString& cell = row.cells[static_cast<size_t>(c)];
        if (cell.isEmpty() || !application.isNumber(sheetRow, c + 1)) continue;
        const std::optional<QString> text = withPlaces(cell, places);
        if (!text) {
            remarks += QStringLiteral("Pr %1: %2 does not fit %3 decimal places")
                           .arg(row.cells[column::PrNo], cell)
                           .arg(places);
            row.check = false;
        }
        cell = text.value_or(QString());
    }
}

LoadedTable::Row parameterRow(const SpreadsheetApplication& application, int sheetRow, QStringList& remarks) {
    LoadedTable::Row row;
    row.check = application.value(sheetRow, 1) == QLatin1String("V");
    for (int c = column::PrNo; c <= column::RunSet; ++c) {
        const QString text = application.value(sheetRow, c + 1);
        if (text != EmptyMark) row.cells[static_cast<size_t>(c)] = text;
    }
    giveNumbersTheirPlaces(application, sheetRow, row, remarks);
    return row;
}

LoadedFile loadTable(SpreadsheetApplication& application, const TableIdentity& before,
                     const TransferProgress& progress) {
    if (numberAt(application, 7, 2, -1, 255) < 0)
        return failed(QStringLiteral("The workbook holds no parameter table."));
    LoadedTable loaded;
    QStringList remarks;
    loaded.identity = identityIn(application, before);
    const TableIdentity& identity = loaded.identity;
    const bool rowan = isRowanModel(identity) || application.sheetName(2) == ParameterSheet;
    tell(progress.info, QStringLiteral("Reading parameters from ") % identity.model % QStringLiteral(" ..."));
    int sheetRow = 2;  // of Rowan, whose groups follow one another on one sheet
    for (int G = 0; G < identity.groupCount; ++G) {
        const int sheet = rowan ? 2 : G + 2;
        if (sheet > application.sheetCount())
            return failed(QStringLiteral("The workbook has no sheet for group %1.").arg(G));
        application.selectSheet(sheet);
        if (!rowan) loaded.rows.push_back(groupRow(application.value(1, 1)));
        const int highest = std::min(int(identity.groupParamCount[static_cast<size_t>(G)]), HighestNumber);
        for (int N = 0; N <= highest; ++N) {
            loaded.rows.push_back(
                parameterRow(application, rowan ? sheetRow++ : N + HeaderRowOfGroup + 1, remarks));
            const auto& cells = loaded.rows.back().cells;
            tellRow(progress, cells[column::PrNo], cells[column::Description]);
        }
    }
    // Kept: the row count of Rowan allows one row more for every group behind the first.
    if (rowan && identity.groupCount > 1) loaded.rows.resize(loaded.rows.size() + identity.groupCount - 1);
    return {std::move(loaded), {}, {}, remarks};
}

}  // namespace

bool spreadsheetPresent(const SpreadsheetBackend& backend, Operator& person) {
    if (backend.present && backend.present()) return true;
    person.tell(QStringLiteral("Please install the Microsoft Excel first !!"), QStringLiteral("Error"));
    return false;
}

FileResult saveTableSheets(SpreadsheetApplication& application, const QString& path,
                           const ParameterTable& table, bool RparaAbLED, const TransferProgress& progress) {
    if (FileResult made = application.addWorkbook(path); !made.ok) return made;
    TableSheetWriter(application, table, progress).write(savedGroupCount(table.identity, RparaAbLED));
    return leave(application);
}

FileResult saveComparisonSheet(SpreadsheetApplication& application, const QString& path,
                               const ComparisonSheet& sheet, const TransferProgress& progress) {
    if (FileResult made = application.addWorkbook(path); !made.ok) return made;
    writeComparison(application, sheet, progress);
    return leave(application);
}

LoadedFile loadSheets(SpreadsheetApplication& application, const QString& path, const TableIdentity& before,
                      const TransferProgress& progress) {
    if (const FileResult opened = application.openWorkbook(path); !opened.ok) return failed(opened.error);
    application.selectSheet(1);
    LoadedFile loaded = application.value(1, 1) == ComparisonTypeLabel
                            ? loadComparison(application, progress)
                            : loadTable(application, before, progress);
    application.quit();
    return loaded;
}

}  // namespace kelvane
