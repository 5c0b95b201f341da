// What other people's readers find in our files: FreeXL for values, python3-xlrd for looks.
#ifdef KELVANE_HAVE_FREEXL
#include <freexl.h>
#endif
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <optional>
#include <set>

#include "sample_workbooks.h"
#include "spreadsheet/spreadsheet_application.h"

using namespace kelvane;

namespace {

struct SavedWorkbook {
    explicit SavedWorkbook(const Workbook& book) {
        const BiffResult file = writeBiff(book);
        EXPECT_TRUE(file.ok) << file.error.toStdString();
        EXPECT_TRUE(writeWhole(path(), file.bytes).ok);
    }
    QString path() const { return folder.filePath(QStringLiteral("x.xls")); }
    QTemporaryDir folder;
};

// The interpreter that knows the judge: the system's own, where the package puts it, or the one in the path.
QString pythonWithXlrd() {
    for (const QString& python : {QStringLiteral("/usr/bin/python3"), QStringLiteral("python3")})
        if (QProcess::execute(python, {QStringLiteral("-c"), QStringLiteral("import xlrd")}) == 0)
            return python;
    return {};
}

// Nothing when the judge is not installed; else its facts, one a line.
std::optional<std::vector<std::string>> judgedByXlrd(const QString& path) {
    static const QString interpreter = pythonWithXlrd();
    if (interpreter.isEmpty()) return std::nullopt;
    QProcess python;
    python.start(interpreter, {QStringLiteral(KELVANE_SOURCE_DIR "/tests/spreadsheet/judge_xls.py"), path});
    EXPECT_TRUE(python.waitForFinished(60000));
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    std::vector<std::string> facts;
    for (const QByteArray& line : python.readAllStandardOutput().split('\n'))
        facts.push_back(line.toStdString());
    return facts;
}

std::string inOneLine(QString text) { return text.replace(u'\n', "\\n").toStdString(); }

#ifdef KELVANE_HAVE_FREEXL
std::string freexlText(const void* book, unsigned row, unsigned short column) {
    FreeXL_CellValue value{};
    if (freexl_get_cell_value(book, row, column, &value) != FREEXL_OK) return "no cell";
    const bool text = value.type == FREEXL_CELL_TEXT || value.type == FREEXL_CELL_SST_TEXT;
    return text ? value.value.text_value : value.type == FREEXL_CELL_NULL ? "" : "not a text";
}

// Every cell of the workbook, one by one.
void expectFreexlFindsAll(const Workbook& book) {
    const SavedWorkbook saved(book);
    const void* handle = nullptr;
    ASSERT_EQ(freexl_open(QFile::encodeName(saved.path()).constData(), &handle), FREEXL_OK);
    unsigned sheets = 0;
    freexl_get_info(handle, FREEXL_BIFF_SHEET_COUNT, &sheets);
    EXPECT_EQ(sheets, book.sheets.size());
    for (unsigned short number = 0; number < book.sheets.size(); ++number) {
        const Sheet& sheet = book.sheets[number];
        const char* name = nullptr;
        freexl_get_worksheet_name(handle, number, &name);
        EXPECT_EQ(QString::fromUtf8(name), sheet.name);
        ASSERT_EQ(freexl_select_active_worksheet(handle, number), FREEXL_OK);
        for (const auto& [row, line] : sheet.rows)
            for (const SheetCell& cell : line.cells)
                EXPECT_EQ(freexlText(handle, unsigned(row - 1), static_cast<unsigned short>(cell.column - 1)),
                          cell.text.toStdString())
                    << "row " << row << " column " << cell.column;
    }
    freexl_close(handle);
}
#else
void expectFreexlFindsAll(const Workbook&) { GTEST_SKIP() << "FreeXL is not installed"; }
#endif

std::string colourWord(int index) { return index == 0 ? "none" : std::to_string(index + 7); }

// The facts that the judge must find, by the format's own numbers.
std::set<std::string> expectedFacts(const Workbook& book) {
    std::set<std::string> facts;
    for (const Sheet& sheet : book.sheets)
        for (const auto& [number, row] : sheet.rows) {
            if (row.hidden) facts.insert("hidden row\t" + std::to_string(number));
            for (const SheetCell& cell : row.cells)
                facts.insert("cell\t" + std::to_string(number) + "\t" + std::to_string(cell.column) +
                             (cell.text.isEmpty() ? "\tblank\t" : "\ttext\t") +
                             (cell.format.text ? "@\t" : "General\t") +
                             colourWord(cell.format.interiorColour) + "\t" +
                             colourWord(cell.format.fontColour) +
                             (cell.format.bold ? "\tbold\t" : "\tnormal\t") + inOneLine(cell.text));
        }
    return facts;
}

// Every cell and row is compared here; facts on sheets and columns are those that the test names.
void expectXlrdFinds(const Workbook& book, const std::vector<std::string>& named = {}) {
    const SavedWorkbook saved(book);
    const auto facts = judgedByXlrd(saved.path());
    if (!facts) GTEST_SKIP() << "python3-xlrd is not installed";
    std::set<std::string> found;
    for (const std::string& fact : *facts)
        if (fact.starts_with("cell\t") || fact.starts_with("hidden row\t")) found.insert(fact);
    EXPECT_EQ(found, expectedFacts(book));
    EXPECT_THAT(*facts, testing::IsSupersetOf(named));
}

}  // namespace

class JudgedRows : public testing::TestWithParam<int> {};

// Around the joints of the format: one row, a block of 32 rows, a full sector table, texts over many records.
TEST_P(JudgedRows, ParameterTableArrivesWithItsLooks) {
    const Workbook book = parameterWorkbook(2, GetParam());
    expectFreexlFindsAll(book);
    // A width of 15 characters is 110 pixels, stored as 110 / 7 characters; 2340 is the standard width.
    expectXlrdFinds(book, {"column\t1\t4022\t0", "column\t4\t5302\t0", "column\t11\t2340\t1",
                           "column\t13\t2340\t1", "merged\t1\t1\t1\t10"});
}

INSTANTIATE_TEST_SUITE_P(Sizes, JudgedRows, testing::Values(1, 28, 29, 30, 300, 1500));

TEST(OutsideJudges, TextsOfEveryKindArriveWhole) {
    Workbook book = textWorkbook();
    expectFreexlFindsAll(book);
    // FreeXL loses a text that goes on over two joints.
    book.sheets[0].at(19, 1).text = QString(MaxCellText, QChar(0x6F22));
    book.sheets[0].at(20, 1).text = QString(MaxCellText, u'x');
    expectXlrdFinds(book, {"sheet\tGröße Ω 漢\t20"});
}

TEST(OutsideJudges, AllColoursOfThePalette) {
    Workbook book;
    book.sheets.emplace_back().name = QStringLiteral("Colours");
    for (int index = 1; index <= MaxColourIndex; ++index)
        for (int row = 1; row <= 2; ++row)
            book.sheets[0].at(row, index) = {
                index,
                {.interiorColour = index, .fontColour = MaxColourIndex + 1 - index},
                QString(row - 1, u'x')};
    expectXlrdFinds(book);
}
