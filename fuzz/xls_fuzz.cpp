// The .xls reader, once with the bytes as a file and once as the workbook stream inside a sound compound
// file, so that damage reaches the records too. What was read must be fit to be saved and read again.
#include <cstdlib>

#include "spreadsheet/biff_reader.h"
#include "spreadsheet/biff_writer.h"
#include "spreadsheet/compound_file.h"

using namespace kelvane;

namespace {

const QString StreamName = QStringLiteral("Workbook");

Workbook seedWorkbook(int rows) {
    Workbook book;
    for (const QString& name : {QStringLiteral("Drive Info"), QStringLiteral("Größe 漢")}) {
        Sheet& sheet = book.sheets.emplace_back();
        sheet.name = name;
        for (int row = 1; row <= rows; ++row) {
            sheet.at(row, 1).text = QString(row * 40, QChar(row % 2 == 0 ? 0x6F22 : 'a' + row));
            sheet.at(row, 6).format = {
                .text = true, .bold = true, .interiorColour = TealIndex, .fontColour = WhiteIndex};
        }
        sheet.columns[4] = {.width = 20, .hidden = true};
        sheet.rows[7].hidden = true;
        sheet.merged.push_back({1, 1, 1, 10});
    }
    return book;
}

void check(const WorkbookResult& read) {
    if (read.ok != read.error.isEmpty() || read.ok == read.workbook.sheets.empty()) std::abort();
    for (const Sheet& sheet : read.workbook.sheets)
        for (const auto& [number, row] : sheet.rows)
            for (const SheetCell& cell : row.cells)
                if (!isCellPlace(number, cell.column)) std::abort();
    if (!read.ok || read.workbook.sheets.size() > 64) return;
    const BiffResult again = writeBiff(read.workbook);  // names of a damaged file may be refused
    if (again.ok && !readBiff(again.bytes).ok) std::abort();
}

QByteArray wrapped(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    return writeCompoundFile(StreamName, bytes).bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    check(readBiff(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))));
    check(readBiff(wrapped(data, size)));
    return 0;
}

// Even numbers are files, odd ones workbook streams.
extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    constexpr int Rows[] = {1, 12, 40};
    if (index >= 6) return false;
    QByteArray seed = writeBiff(seedWorkbook(Rows[index / 2])).bytes;
    if (index % 2 == 1) seed = readCompoundStream(seed, {StreamName}).bytes;
    bytes->assign(seed.begin(), seed.end());
    return true;
}
