// Saving and loading a parameter table of 300 rows and 13 columns over 12 sheets, with its colours, hidden
// columns and titles, to and from a real file; and the same table saved by libxlsxwriter.
#include <benchmark/benchmark.h>
#ifdef KELVANE_HAVE_XLSXWRITER
#include <xlsxwriter.h>
#endif

#include <QByteArrayList>
#include <QTemporaryDir>
#include <array>

#include "spreadsheet/spreadsheet_application.h"

using namespace kelvane;

namespace {

constexpr int Sheets = 12;
constexpr int RowsPerSheet = 25;
constexpr int Columns = 13;
constexpr std::array Head{"Check", "Pr. No", "MODBUS",    "Description", "Unit", "Data",   "Default",
                          "Min",   "Max",    "Attribute", "Address",     "Dot",  "Run Set"};
static_assert(Head.size() == Columns);

struct TableRow {
    std::array<QByteArray, Columns> cells;
    bool changed = false;
};

QByteArray padded(int value, int digits, int base = 10) {
    return QByteArray::number(value, base).rightJustified(digits, '0').toUpper();
}

TableRow rowOf(int group, int number) {
    const int data = (group * 31 + number * 7) % 4000, standard = number % 4 == 0 ? data + 10 : data;
    const auto hundredths = [](int value) { return QByteArray::number(value / 100.0, 'f', 2); };
    return {{"V", padded(group, 2) + "-" + padded(number, 2), padded(group * 256 + number, 4, 16) + "H",
             QByteArray("Parameter " + QByteArray::number(group * 100 + number)).leftJustified(16, ' '),
             "Hz  ", hundredths(data), hundredths(standard), "0.00", "400.00",
             number % 5 == 0 ? "Read-Only" : "Writable", padded(group * 256 + number, 4, 16), "2", "false"},
            data != standard};
}

const std::vector<std::vector<TableRow>>& table() {
    static const auto rows = [] {
        std::vector<std::vector<TableRow>> sheets(Sheets);
        for (int group = 0; group < Sheets; ++group)
            for (int number = 0; number < RowsPerSheet; ++number)
                sheets[static_cast<std::size_t>(group)].push_back(rowOf(group, number));
        return sheets;
    }();
    return rows;
}

void setText(SpreadsheetApplication& application, int row, int column, const QByteArray& text) {
    application.setTextFormat(row, column);
    application.setValue(row, column, QString::fromLatin1(text));
}

void saveSheet(SpreadsheetApplication& application, int group) {
    setText(application, 1, 1, QByteArray::number(group) + " - Basic");
    application.setBold(1, 1, true);
    application.merge({1, 1, 1, 10});
    for (int column = 1; column <= Columns; ++column) {
        setText(application, 3, column, Head[static_cast<std::size_t>(column - 1)]);
        application.setInteriorColour(3, column, TealIndex);
        application.setFontColour(3, column, WhiteIndex);
    }
    int row = 4;
    for (const TableRow& line : table()[static_cast<std::size_t>(group)]) {
        for (int column = 1; column <= Columns; ++column)
            setText(application, row, column, line.cells[static_cast<std::size_t>(column - 1)]);
        if (line.changed) application.setInteriorColour(row, 6, YellowIndex);
        ++row;
    }
    for (int column : {11, 12, 13}) application.setColumnHidden(column, true);
    application.setColumnWidth(4, 20);
}

bool saveXls(const QString& path) {
    const auto application = builtInSpreadsheet().create();
    application->addWorkbook(path);
    for (int group = 0; group < Sheets; ++group) {
        if (group > 0) application->addSheet();
        application->selectSheet(group + 1);
        application->nameSheet(group + 1, QStringLiteral("Group %1").arg(group));
        saveSheet(*application, group);
    }
    return application->close(true).ok;
}

void SaveXls(benchmark::State& state) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.xls"));
    for (auto _ : state)
        if (!saveXls(path)) state.SkipWithError("not saved");
}
BENCHMARK(SaveXls)->Unit(benchmark::kMillisecond)->MinTime(1);

void LoadXls(benchmark::State& state) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.xls"));
    if (!saveXls(path)) return state.SkipWithError("not saved");
    for (auto _ : state) {
        const auto application = builtInSpreadsheet().create();
        if (!application->openWorkbook(path).ok) state.SkipWithError("not loaded");
        qsizetype characters = 0;
        for (int sheet = 1; sheet <= Sheets; ++sheet) {
            application->selectSheet(sheet);
            for (int row = 4; row < 4 + RowsPerSheet; ++row)
                for (int column = 1; column <= Columns; ++column)
                    characters += application->value(row, column).size();
        }
        benchmark::DoNotOptimize(characters);
    }
}
BENCHMARK(LoadXls)->Unit(benchmark::kMillisecond)->MinTime(1);

#ifdef KELVANE_HAVE_XLSXWRITER
struct Looks {
    explicit Looks(lxw_workbook* book)
        : plain(make(book)), bold(make(book)), head(make(book)), changed(make(book)) {
        format_set_bold(bold);
        format_set_bg_color(head, 0x008080);
        format_set_font_color(head, 0xFFFFFF);
        format_set_bg_color(changed, 0xFFFF00);
    }
    static lxw_format* make(lxw_workbook* book) {
        lxw_format* format = workbook_add_format(book);
        format_set_num_format(format, "@");
        return format;
    }
    lxw_format *plain, *bold, *head, *changed;
};

bool saveXlsx(const QByteArray& path) {
    lxw_workbook* book = workbook_new(path.constData());
    const Looks looks(book);
    lxw_row_col_options hidden{};
    hidden.hidden = 1;
    for (int group = 0; group < Sheets; ++group) {
        lxw_worksheet* sheet =
            workbook_add_worksheet(book, QByteArray("Group " + QByteArray::number(group)).constData());
        worksheet_merge_range(sheet, 0, 0, 0, 9,
                              QByteArray(QByteArray::number(group) + " - Basic").constData(), looks.bold);
        for (lxw_col_t column = 0; column < Columns; ++column)
            worksheet_write_string(sheet, 2, column, Head[column], looks.head);
        lxw_row_t row = 3;
        for (const TableRow& line : table()[static_cast<std::size_t>(group)]) {
            for (lxw_col_t column = 0; column < Columns; ++column)
                worksheet_write_string(sheet, row, column, line.cells[column].constData(),
                                       line.changed && column == 5 ? looks.changed : looks.plain);
            ++row;
        }
        worksheet_set_column_opt(sheet, 10, 12, 8.43, nullptr, &hidden);
        worksheet_set_column(sheet, 3, 3, 20, nullptr);
    }
    return workbook_close(book) == LXW_NO_ERROR;
}

void SaveXlsxwriter(benchmark::State& state) {
    QTemporaryDir folder;
    const QByteArray path = folder.filePath(QStringLiteral("x.xlsx")).toLocal8Bit();
    for (auto _ : state)
        if (!saveXlsx(path)) state.SkipWithError("not saved");
}
BENCHMARK(SaveXlsxwriter)->Unit(benchmark::kMillisecond)->MinTime(1);
#endif

}  // namespace

BENCHMARK_MAIN();
