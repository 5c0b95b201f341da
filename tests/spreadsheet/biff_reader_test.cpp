#include "spreadsheet/biff_reader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "compound_builder.h"
#include "sample_workbooks.h"
#include "spreadsheet/compound_file.h"

using namespace kelvane;

namespace {

QByteArray cell(quint32 row, quint32 column) { return words({row, column, 0}); }

QByteArray narrowText(const QByteArray& text) {
    return words({quint32(text.size())}) + QByteArray(1, '\0') + text;
}

QByteArray sharedTexts(quint32 count, const QByteArray& texts) { return words({count, 0, count, 0}) + texts; }

QString textAt(const WorkbookResult& read, int row, int column) {
    EXPECT_TRUE(read.ok) << read.error.toStdString();
    const SheetCell* found = read.ok ? read.workbook.sheets.at(0).find(row, column) : nullptr;
    return found != nullptr ? found->text : QStringLiteral("<none>");
}

WorkbookResult readRecords(const QByteArray& globals, const QByteArray& records) {
    return readBiff(CompoundBuilder().build(atLeast4096(workbookOf(globals, records))));
}

}  // namespace

TEST(BiffReader, NumbersReadAsAPersonSeesThem) {
    const std::pair<double, const char*> shown[] = {{-150.1, "-150.1"},
                                                    {-0.0, "0"},
                                                    {1.0 / 3, "0.333333333333333"},
                                                    {0.1 + 0.2, "0.3"},
                                                    {1e15, "1E+15"},
                                                    {0.00001, "0.00001"},
                                                    {1.5e-12, "1.5E-12"},
                                                    {std::numeric_limits<double>::infinity(), "#NUM!"}};
    for (const auto& [value, text] : shown) EXPECT_EQ(numberAsShown(value).toStdString(), text);
}

TEST(BiffReader, TakesEveryKindOfCell) {
    const QByteArray texts = sharedTexts(1, narrowText("shared"));
    const QByteArray half = number(0.5), noText = QByteArray::fromHex("0000000000000000FFFF").right(8);
    const auto formula = [&](quint32 column, const QByteArray& result) {
        return record(0x0006, cell(0, column) + result + QByteArray(8, '\0'));
    };
    const QByteArray records =
        record(0x00FD, cell(0, 0) + words({0, 0})) + record(0x0204, cell(0, 1) + narrowText("label")) +
        record(0x00D6, cell(0, 2) + narrowText("rich") + words({1, 0, 5})) +
        record(0x0203, cell(0, 3) + half) + record(0x027E, cell(0, 4) + words({33 << 2 | 2, 0})) +
        record(0x027E, cell(0, 5) + words({(15010 << 2 & 0xFFFF) | 3, 15010 >> 14})) +
        record(0x00BD, words({0, 6, 0, 7 << 2 | 2, 0, 0, 0, 0x3FE0, 7})) +
        record(0x0205, cell(0, 8) + words({0x0001})) + record(0x0205, cell(0, 9) + words({0x0107})) +
        formula(10, half) + formula(11, noText) + record(0x04BC, QByteArray(10, '\0')) +
        record(0x0207, narrowText("said")) + formula(12, QByteArray::fromHex("010001000000FFFF")) +
        formula(13, QByteArray::fromHex("02002A000000FFFF")) +
        formula(14, QByteArray::fromHex("030000000000FFFF")) +
        record(0x0809, words({0x0600, 0x20, 0, 0, 0, 0, 0, 0})) + record(0x0203, cell(0, 0) + half) +
        record(0x000A, {}) + record(0x0203, cell(1, 0) + half);
    const WorkbookResult read = readRecords(record(0x00FC, texts), records);
    const char* expected[] = {"shared", "label",   "rich", "0.5",  "33",   "150.1", "7",     "0.5",
                              "TRUE",   "#DIV/0!", "0.5",  "said", "TRUE", "#N/A",  "<none>"};
    for (int column = 1; column <= 15; ++column)
        EXPECT_EQ(textAt(read, 1, column).toStdString(), expected[column - 1]) << "column " << column;
    EXPECT_EQ(textAt(read, 2, 1), QStringLiteral("0.5"));  // behind the chart inside the sheet
}

TEST(BiffReader, TakesLooksAndBlanks) {
    const auto font = [](quint32 colour, quint32 weight) {
        return record(0x0031, words({200, 0, colour, weight, 0, 0, 0}) + QByteArray::fromHex("010041"));
    };
    QByteArray fonts;
    for (int i = 0; i < 4; ++i) fonts += font(0x7FFF, 400);
    const QByteArray xfs = record(0x00E0, QByteArray(20, '\0')) +
                           record(0x00E0, words({5, 170, 1, 0, 0, 0, 0, 0, 0x0400, 21 | 65 << 7}));
    const QByteArray globals = fonts + font(9, 700) + record(0x041E, words({170}) + narrowText("@")) + xfs;
    const WorkbookResult read = readRecords(
        globals, record(0x00BE, words({2, 0, 1, 0, 1, 2})) + record(0x007D, words({10, 256, 2340, 0, 1, 0})) +
                     record(0x0208, words({5, 0, 0, 255, 0, 0, 0x120, 0})) +
                     record(0x00E5, words({2, 0, 0, 0, 9, 3, 2, 0, 0})));
    ASSERT_TRUE(read.ok) << read.error.toStdString();
    const Sheet& sheet = read.workbook.sheets[0];
    const CellFormat marked{
        .text = true, .bold = true, .interiorColour = TealIndex, .fontColour = WhiteIndex};
    EXPECT_EQ(sheet.rows.at(3).cells, (std::vector<SheetCell>{{1, marked, {}}, {3, marked, {}}}));
    EXPECT_TRUE(sheet.rows.at(6).hidden);
    EXPECT_EQ(sheet.columns.size(), 246u);
    EXPECT_EQ(sheet.columns.at(256), (SheetColumn{.width = 0, .hidden = true}));
    EXPECT_EQ(sheet.merged,
              (std::vector<CellRange>{{1, 1, 1, 10}}));  // the second range ends before it begins
}

TEST(BiffReader, TextsGoOnInTheNextRecord) {
    // "abcdef" changes its form in the middle and bears runs and phonetics that are cut as well.
    const QByteArray first = words({6}) + QByteArray::fromHex("0C") + words({2, 5, 0}) + "abc";
    const QByteArray wideRest = QByteArray::fromHex("01") + words({'d', 'e', 0x6F22}) + QByteArray(6, 'r');
    const QByteArray globals =
        record(0x00FC, sharedTexts(3, first)) + record(0x003C, wideRest) +
        record(0x003C, QByteArray(2 + 5, 'p') + narrowText("next") + words({3}) + QByteArray(1, '\1')) +
        record(0x003C, QByteArray(1, '\0') + "one");
    QByteArray records;
    for (quint32 i = 0; i < 3; ++i) records += record(0x00FD, cell(i, 0) + words({i, 0}));
    const WorkbookResult read = readRecords(globals, records);
    EXPECT_EQ(textAt(read, 1, 1), QStringLiteral("abcde\u6F22"));
    EXPECT_EQ(textAt(read, 2, 1), QStringLiteral("next"));
    EXPECT_EQ(textAt(read, 3, 1), QStringLiteral("one"));
}

TEST(BiffReader, TakesEveryLayoutOfTheCompoundFile) {
    const QByteArray stream = workbookOf({}, record(0x0203, cell(0, 0) + number(33)));
    for (const bool scattered : {false, true})
        for (const int shift : {9, 12}) {
            CompoundBuilder builder{.scattered = scattered, .sectorShift = shift};
            EXPECT_EQ(textAt(readBiff(builder.build(atLeast4096(stream) + QByteArray(9000, '\0'))), 1, 1),
                      QStringLiteral("33"));
            builder.mini = true;
            builder.streamName = "WORKBOOK";
            EXPECT_EQ(textAt(readBiff(builder.build(stream + QByteArray(900, '\0'))), 1, 1),
                      QStringLiteral("33"));
        }
}

TEST(BiffReader, LargeStreamsNeedMoreTablesThanTheHeaderHolds) {
    for (const qsizetype size :
         {qsizetype(4096), qsizetype(6'800'000), qsizetype(7'300'000), qsizetype(20'000'000)}) {
        QByteArray stream(size, '\0');
        for (qsizetype i = 0; i < size; i += 511) stream[i] = static_cast<char>(i / 511);
        const StreamResult file = writeCompoundFile(QStringLiteral("Workbook"), stream);
        ASSERT_TRUE(file.ok);
        EXPECT_EQ(file.bytes.size() % 512, 0);
        EXPECT_TRUE(readCompoundStream(file.bytes, {QStringLiteral("Workbook")}).bytes == stream) << size;
    }
}

TEST(BiffReader, ForeignFilesGetAClearWord) {
    const auto stream = [](const QByteArray& name, const QByteArray& content) {
        CompoundBuilder builder;
        builder.streamName = name;
        return builder.build(atLeast4096(content));
    };
    const QByteArray locked = workbookOf(record(0x002F, words({1, 1})), {});
    const std::pair<QByteArray, const char*> files[] = {
        {"", "empty"},
        {"Larch|2.05|150A", "no .xls workbook"},
        {QByteArray("PK\x03\x04", 4), "newer format"},
        {QByteArray::fromHex("0900040000001000"), "older format"},
        {stream("Book", workbookOf({}, {}, 0x0500)), "older format"},
        {stream("EncryptedPackage", "x"), "password"},
        {stream("Workbook", locked), "password"},
        {stream("Letter", "x"), "no workbook in the file"},
        {stream("Workbook", "x"), "damaged"},
        {QByteArray::fromHex("D0CF11E0A1B11AE1"), "damaged"}};
    for (const auto& [file, word] : files) {
        const WorkbookResult read = readBiff(file);
        EXPECT_FALSE(read.ok);
        EXPECT_TRUE(read.error.contains(QString::fromLatin1(word))) << read.error.toStdString();
        EXPECT_TRUE(read.workbook.sheets.empty());
    }
}

TEST(BiffReader, CirclesAndLyingCountsEndQuickly) {
    const QByteArray stream = atLeast4096(workbookOf({}, {}));
    EXPECT_TRUE(readBiff(CompoundBuilder{}.build(stream + QByteArray(9000, '\0'))).ok);
    QByteArray file = CompoundBuilder{.circleAt = 3}.build(stream + QByteArray(9000, '\0'));
    EXPECT_FALSE(readBiff(file).ok);
    overwriteU32(file, 512 + 2 * 128 + 120, 0x7FFFFFFF);  // the stream's size
    EXPECT_FALSE(readBiff(file).ok);
    // Counts of four thousand million texts, of a text longer than the file, of merged ranges that are not
    // there.
    EXPECT_FALSE(readRecords(record(0x00FC, QByteArray(8, '\xFF')), {}).ok);
    EXPECT_FALSE(readRecords(record(0x00FC, sharedTexts(1, words({0xFFFF}) + QByteArray(1, '\1'))), {}).ok);
    EXPECT_TRUE(readRecords({}, record(0x00E5, words({0xFFFF}))).ok);
    EXPECT_FALSE(readRecords({}, record(0x00FD, cell(0, 0) + words({0, 0}))).ok);
    EXPECT_FALSE(readRecords({}, record(0x0203, words({0, 300, 0}) + number(1))).ok);
    // Ten thousand sheets that are all the same one.
    QByteArray places;
    for (int i = 0; i < 10000; ++i) places += record(0x0085, QByteArray(7, '\0') + QByteArray(1, '\0'));
    EXPECT_FALSE(readBiff(writeCompoundFile(QStringLiteral("Workbook"), workbookOf(places, {})).bytes).ok);
}
