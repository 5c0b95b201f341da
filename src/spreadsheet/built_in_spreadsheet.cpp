#include "spreadsheet/biff_reader.h"
#include "spreadsheet/biff_writer.h"
#include "spreadsheet/spreadsheet_application.h"

namespace kelvane {

namespace {

class BuiltInSpreadsheet : public SpreadsheetApplication {
   public:
    FileResult addWorkbook(const QString& path) override {
        quit();
        m_path = path;
        m_mayBeSaved = true;
        addSheet();
        return {};
    }

    FileResult openWorkbook(const QString& path) override {
        quit();
        const FileContent file = readWhole(path);
        if (!file.ok) return {false, file.error};
        WorkbookResult read = readBiff(file.bytes);
        if (!read.ok) return {false, QStringLiteral("%1: %2").arg(path, read.error)};
        m_workbook = std::move(read.workbook);
        return {};
    }

    FileResult close(bool save) override {
        FileResult result = save ? saved() : FileResult{};
        quit();
        return result;
    }

    void quit() override { *this = BuiltInSpreadsheet(); }

    int sheetCount() const override { return static_cast<int>(m_workbook.sheets.size()); }

    void addSheet() override {
        if (m_workbook.sheets.size() >= MaxSheets) return fail(QStringLiteral("there are too many sheets"));
        Sheet sheet;
        sheet.name = QStringLiteral("Sheet%1").arg(sheetCount() + 1);
        m_workbook.sheets.push_back(std::move(sheet));
    }

    void selectSheet(int number) override {
        if (!hasSheet(number)) return fail(noSheet(number));
        m_workbook.selected = static_cast<std::size_t>(number - 1);
    }

    void nameSheet(int number, const QString& name) override {
        if (!hasSheet(number)) return fail(noSheet(number));
        if (const QString fault = sheetNameFault(name); !fault.isEmpty()) return fail(fault);
        m_workbook.sheets[static_cast<std::size_t>(number - 1)].name = name;
    }

    QString sheetName(int number) const override {
        return hasSheet(number) ? m_workbook.sheets[static_cast<std::size_t>(number - 1)].name : QString();
    }

    QString value(int row, int column) const override {
        const SheetCell* cell = hasSheet(1) ? selected().find(row, column) : nullptr;
        return cell != nullptr ? cell->text : QString();
    }

    bool isNumber(int row, int column) const override {
        const SheetCell* cell = hasSheet(1) ? selected().find(row, column) : nullptr;
        return cell != nullptr && cell->number;
    }

    void setValue(int row, int column, const QString& text) override {
        if (text.size() > MaxCellText)
            return fail(QStringLiteral("the text in row %1, column %2 is too long").arg(row).arg(column));
        if (SheetCell* cell = cellAt(row, column)) cell->text = text;
    }

    void setTextFormat(int row, int column) override {
        if (SheetCell* cell = cellAt(row, column)) cell->format.text = true;
    }

    void setInteriorColour(int row, int column, int index) override {
        if (!isColour(index)) return;
        if (SheetCell* cell = cellAt(row, column)) cell->format.interiorColour = index;
    }

    void setFontColour(int row, int column, int index) override {
        if (!isColour(index)) return;
        if (SheetCell* cell = cellAt(row, column)) cell->format.fontColour = index;
    }

    void setBold(int row, int column, bool bold) override {
        if (SheetCell* cell = cellAt(row, column)) cell->format.bold = bold;
    }

    void setColumnWidth(int column, double characters) override {
        if (!(characters >= 0 && characters <= MaxColumnWidth))
            return fail(QStringLiteral("%1 is no column width").arg(characters));
        if (isPlace(1, column)) selected().columns[column].width = characters;
    }

    void setColumnHidden(int column, bool hidden) override {
        if (isPlace(1, column)) selected().columns[column].hidden = hidden;
    }

    void setRowHidden(int row, bool hidden) override {
        if (isPlace(row, 1)) selected().rows[row].hidden = hidden;
    }

    void merge(const CellRange& range) override {
        if (!isPlace(range.firstRow, range.firstColumn) || !isPlace(range.lastRow, range.lastColumn)) return;
        if (range.lastRow < range.firstRow || range.lastColumn < range.firstColumn)
            return fail(QStringLiteral("a range ends before it begins"));
        for (const CellRange& other : selected().merged)
            if (overlap(range, other)) return fail(QStringLiteral("two merged ranges overlap"));
        selected().merged.push_back(range);
    }

    QString error() const override { return m_error; }

   private:
    FileResult saved() const {
        if (!m_error.isEmpty()) return {false, m_error};
        if (!m_mayBeSaved) return {false, QStringLiteral("no workbook was made that could be saved")};
        const BiffResult file = writeBiff(m_workbook);
        return file.ok ? writeWhole(m_path, file.bytes) : FileResult{false, file.error};
    }

    void fail(const QString& error) {
        if (m_error.isEmpty()) m_error = error;
    }
    static bool overlap(const CellRange& a, const CellRange& b) {
        return a.firstRow <= b.lastRow && b.firstRow <= a.lastRow && a.firstColumn <= b.lastColumn &&
               b.firstColumn <= a.lastColumn;
    }
    static QString noSheet(int number) { return QStringLiteral("there is no sheet %1").arg(number); }
    bool hasSheet(int number) const { return number >= 1 && number <= sheetCount(); }
    Sheet& selected() { return m_workbook.sheets[m_workbook.selected]; }
    const Sheet& selected() const { return m_workbook.sheets[m_workbook.selected]; }

    bool isColour(int index) {
        if (index >= 0 && index <= MaxColourIndex) return true;
        fail(QStringLiteral("there is no colour %1").arg(index));
        return false;
    }
    bool isPlace(int row, int column) {
        if (!hasSheet(1))
            fail(QStringLiteral("there is no workbook"));
        else if (!isCellPlace(row, column))
            fail(QStringLiteral("there is no row %1, column %2").arg(row).arg(column));
        else
            return true;
        return false;
    }
    SheetCell* cellAt(int row, int column) {
        return isPlace(row, column) ? &selected().at(row, column) : nullptr;
    }

    Workbook m_workbook;
    QString m_path;
    QString m_error;
    bool m_mayBeSaved = false;
};

}  // namespace

SpreadsheetBackend builtInSpreadsheet() {
    return {.present = [] { return true; }, .create = [] { return std::make_unique<BuiltInSpreadsheet>(); }};
}

}  // namespace kelvane
