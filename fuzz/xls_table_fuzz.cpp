// Tables and comparisons inside a sound workbook: the input is a list of edits on the workbook of a small
// table, so that damage reaches the reader of tables instead of ending at the file format. Each edit is four
// bytes: sheet, row, column, and a text of a short list or the cell of another place.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "link/number_text.h"
#include "parameters/files/sheet_transfer.h"
#include "parameters/table/edit_history.h"
#include "parameters/table/sub_table.h"
#include "spreadsheet/spreadsheet_application.h"

using namespace kelvane;

namespace {

constexpr int Texts = 16;

QString textOf(uint8_t index) {
    static const QStringList texts{{},
                                   "0",
                                   "1",
                                   "255",
                                   "256",
                                   "65535",
                                   "99999999999",
                                   "-1",
                                   "50.5",
                                   "1e9",
                                   "*****",
                                   "####",
                                   "Comparison Type:",
                                   "Rowan",
                                   "V",
                                   "Parameter"};
    return texts[index % Texts];
}

// A workbook in memory, some of whose cells say that they hold numbers.
class BookInMemory final : public SpreadsheetApplication {
   public:
    FileResult addWorkbook(const QString&) override {
        m_sheets = {{}};
        return {};
    }
    FileResult openWorkbook(const QString&) override { return {}; }
    FileResult close(bool) override { return {}; }
    void quit() override {}
    int sheetCount() const override { return static_cast<int>(m_sheets.size()); }
    void addSheet() override { m_sheets.emplace_back(); }
    void selectSheet(int sheet) override {
        if (sheet < 1 || sheet > sheetCount()) std::abort();  // no reader may ask for it
        m_selected = sheet - 1;
    }
    void nameSheet(int sheet, const QString& name) override {
        m_sheets[static_cast<size_t>(sheet - 1)].name = name;
    }
    QString sheetName(int sheet) const override {
        return sheet >= 1 && sheet <= sheetCount() ? m_sheets[static_cast<size_t>(sheet - 1)].name
                                                   : QString();
    }
    QString value(int row, int column) const override { return selected().cells.value({row, column}); }
    bool isNumber(int row, int column) const override {
        bool ok = false;
        value(row, column).toDouble(&ok);
        return ok && ((row + column) & 1) != 0;
    }
    void setValue(int row, int column, const QString& text) override {
        m_sheets[static_cast<size_t>(m_selected)].cells[{row, column}] = text;
    }
    void setTextFormat(int, int) override {}
    void setInteriorColour(int, int, int) override {}
    void setFontColour(int, int, int) override {}
    void setBold(int, int, bool) override {}
    void setColumnWidth(int, double) override {}
    void setColumnHidden(int, bool) override {}
    void setRowHidden(int, bool) override {}
    void merge(const CellRange&) override {}
    QString error() const override { return {}; }

   private:
    struct Page {
        QString name;
        QMap<std::pair<int, int>, QString> cells;
    };
    const Page& selected() const { return m_sheets[static_cast<size_t>(m_selected)]; }
    std::vector<Page> m_sheets{{}};
    int m_selected = 0;
};

void makeTable(ParameterTable& table, Family family) {
    table.identity.model = QString::fromLatin1(familyName(family));
    table.identity.family = family;
    table.identity.groupCount = 2;
    table.identity.groupParamCount[0] = 3;
    int row = 1;
    for (int G = 0; G < 2; ++G) {
        if (family != Family::Rowan) fillGroupRow(table.grid, row++, QStringLiteral("%1 - Group").arg(G));
        for (int N = 0; N <= table.identity.groupParamCount[static_cast<size_t>(G)]; ++N)
            fillParameterRow(table.grid, row++, family, G, N, {5000, 40000, 0, 0x0202, 6000, "Name", "Hz  "});
    }
}

void damage(BookInMemory& book, const uint8_t* data, size_t size) {
    for (size_t i = 0; i + 4 <= size; i += 4) {
        book.selectSheet(1 + data[i] % book.sheetCount());
        const int row = 1 + data[i + 1] % 16;
        const int column = 1 + data[i + 2] % 16;
        const uint8_t what = data[i + 3];
        book.setValue(row, column,
                      (what & 0x80) != 0 ? book.value(1 + what % 16, 1 + what / 16 % 8) : textOf(what));
    }
}

// What was taken can be shown, edited and saved again.
void use(const LoadedTable& loaded) {
    if (loaded.rows.size() > static_cast<size_t>(MaxTableRows)) std::abort();
    ParameterTable table;
    applyTable(loaded, table);
    EditHistory history(table.grid);
    history.tableRead();
    SubTable sub(table, TableSide::File, history);
    const QStringList nodes = treeChildren(table.identity.family, groupNamesIn(table.grid));
    for (qsizetype i = 0; i < nodes.size() && i < 3; ++i) sub.select(nodes[i], static_cast<int>(i));
    for (int row = 1; row < table.grid.RowCount(); ++row) registerWordOf(table.grid.cell(column::Data, row));
    BookInMemory again;
    if (!saveTableSheets(again, {}, table, false, {}).ok) std::abort();
}

}  // namespace

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    if (index >= 3) return false;
    *bytes = {static_cast<uint8_t>(index), 0, 6, 1, 3, 1, 3, 5, 8, 2, 5, 10, 6};
    return true;
}

// The first byte chooses family, decimal separator, and whether a comparison is read.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const Family family = (data[0] & 1) != 0 ? Family::Rowan : Family::Tilia;
    DecimalSep = (data[0] & 4) != 0 ? QStringLiteral(",") : QStringLiteral(".");
    ParameterTable table;
    makeTable(table, family);
    BookInMemory book;
    if ((data[0] & 2) != 0) {
        ComparisonSheet sheet;
        sheet.CompareAdvStringGrid.setRowCount(6);
        if (!saveComparisonSheet(book, {}, sheet, {}).ok) std::abort();
    } else if (!saveTableSheets(book, {}, table, false, {}).ok) {
        std::abort();
    }
    damage(book, data + 1, size - 1);
    const LoadedFile file = loadSheets(book, {}, table.identity, {});
    if (file.table) use(*file.table);
    if (file.comparison) {
        ComparisonSheet sheet;
        applyComparison(*file.comparison, sheet);
    }
    if (!file.table && !file.comparison && file.error.isEmpty()) std::abort();
    return 0;
}
