// Feeds the text and CSV reader of parameter files, applies what it takes and saves it again. The first byte
// chooses format and decimal separator.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "link/number_text.h"
#include "parameters/files/table_text_file.h"
#include "parameters/table/sub_table.h"

using namespace kelvane;

namespace {

// What was saved loads again; damage may cost cells but never rows.
void checkTable(const LoadedTable& loaded, TextFormat format) {
    ParameterTable table;
    applyTable(loaded, table);
    const LoadedFile again = readTableText(writeTableText(table, false, format), format, {});
    if (!again.table && !again.comparison) std::abort();
    EditHistory history(table.grid);
    SubTable sub(table, TableSide::File, history);
    const QStringList nodes = treeChildren(table.identity.family, groupNamesIn(table.grid));
    for (qsizetype i = 0; i < nodes.size() && i < 3; ++i) sub.select(nodes[i], static_cast<int>(i));
    for (int row = 1; row < table.grid.RowCount(); ++row) registerWordOf(table.grid.cell(column::Data, row));
}

void checkComparison(const LoadedComparison& loaded, TextFormat format) {
    ComparisonSheet sheet;
    applyComparison(loaded, sheet);
    if (!readTableText(writeComparisonText(sheet, format), format, {}).comparison) std::abort();
}

}  // namespace

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    static const char* const seeds[] = {
        "0Larch|2.05|150A|460V|75 ( 100 )|2|2|1|0|\r\nCheck    |Pr. No   |\r\n"
        "X        |*****    |*****    |0 - User|*****    |*****    |*****    |*****    |*****    |*****    "
        "|*****    "
        "|*****    |         |\r\n"
        "V        |01-00    |0100H    |Max. Output Freq|Hz       |50.00    |60.00    |50.00    |400.00   "
        "|Writable "
        "|0100     |2        |false    |\r\n",
        "1Larch,2.05,150A,460V,75,2,1,0,\r\nCheck    ,\r\nX        ,00-00    ,0000H    ,\"Accel, Decel    "
        "\",####     "
        ",33       ,33       ,0        ,65535    ,Read-Only,0000     ,0        ,false    ,\r\n",
        "0[Comparison Type]\r\nDrive vs. default\r\n\r\n[Drive Info]\r\nTable Source =drive\r\nDrive Series "
        "=Larch\r\n"
        "Version      =2.05\r\nRated Current=150A\r\nRated Voltage=460V\r\nkW(Hp)       =75\r\n\r\n[File "
        "Info]\r\n"
        "\r\n\r\n\r\n\r\n\r\n\r\n\r\n[Result]\r\nPr. No   |\r\n01-00    |0100H    |Max|Hz       |50.00    "
        "|\r\n"};
    if (index < 0 || index >= static_cast<int>(std::size(seeds))) return false;
    const QByteArray seed(seeds[index]);
    bytes->assign(seed.begin(), seed.end());
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const TextFormat format = (data[0] & 1) != 0 ? TextFormat::Csv : TextFormat::Txt;
    DecimalSep = (data[0] & 2) != 0 ? QStringLiteral(",") : QStringLiteral(".");
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    const LoadedFile file = readTableText(bytes, format, {});
    if (file.table) checkTable(*file.table, format);
    if (file.comparison) checkComparison(*file.comparison, format);
    if (!file.table && !file.comparison && file.error.isEmpty()) std::abort();
    return 0;
}
