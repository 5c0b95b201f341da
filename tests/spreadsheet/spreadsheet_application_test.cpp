#include "spreadsheet/spreadsheet_application.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "sample_workbooks.h"
#include "spreadsheet/biff_reader.h"

using namespace kelvane;

namespace {

class SpreadsheetTest : public testing::Test {
   protected:
    QString path(const char* name = "x.xls") const { return folder.filePath(QString::fromLatin1(name)); }
    QTemporaryDir folder;
    SpreadsheetBackend backend = builtInSpreadsheet();
    std::unique_ptr<SpreadsheetApplication> application = backend.create();
};

}  // namespace

TEST_F(SpreadsheetTest, AFailedOperationWritesNothing) {
    using Operation = void (*)(SpreadsheetApplication&);
    const Operation operations[] = {[](auto& a) { a.setValue(65537, 1, {}); },
                                    [](auto& a) { a.setBold(0, 1, true); },
                                    [](auto& a) { a.setColumnHidden(0, true); },
                                    [](auto& a) { a.setValue(1, 1, QString(MaxCellText + 1, u'x')); },
                                    [](auto& a) { a.setInteriorColour(1, 1, 57); },
                                    [](auto& a) { a.setColumnWidth(1, 256); },
                                    [](auto& a) { a.selectSheet(2); },
                                    [](auto& a) { a.nameSheet(1, QStringLiteral("a/b")); },
                                    [](auto& a) {
                                        a.merge({1, 1, 2, 2}), a.merge({2, 2, 3, 3});
                                    },
                                    [](auto& a) { a.addSheet(), a.nameSheet(2, QStringLiteral("SHEET1")); }};
    ASSERT_TRUE(writeWhole(path(), "the old file").ok);
    for (const Operation operation : operations) {
        application->addWorkbook(path());
        operation(*application);
        const FileResult closed = application->close(true);
        EXPECT_FALSE(closed.ok) << "operation " << (&operation - operations);
        EXPECT_FALSE(closed.error.isEmpty());
        EXPECT_EQ(readWhole(path()).bytes, "the old file");
        EXPECT_TRUE(application->error().isEmpty());  // the next workbook begins clean
    }
    EXPECT_FALSE(application->close(true).ok);
    application->addWorkbook(path());
    application->setValue(4, 6, QStringLiteral("50.00"));
    EXPECT_EQ(readWhole(path()).bytes, "the old file");
    EXPECT_TRUE(application->close(true).ok);
    ASSERT_TRUE(application->openWorkbook(path()).ok);
    EXPECT_EQ(application->value(4, 6), QStringLiteral("50.00"));
    EXPECT_FALSE(application->close(true).ok) << "a workbook that was opened is not written back";
}

TEST(SpreadsheetRoundTrip, SavedWorkbooksComeBackCellForCell) {
    for (const int rows : {1, 31, 32, 33, 1500}) {
        const Workbook book = parameterWorkbook(2, rows);
        const WorkbookResult read = readBiff(writeBiff(book).bytes);
        EXPECT_TRUE(read.ok) << read.error.toStdString();
        EXPECT_TRUE(read.workbook == book) << rows;
    }
    Workbook texts = textWorkbook();
    for (int length = 8200; length < 8230; ++length)
        texts.sheets[0].at(length, 2).text = QString(length, QChar(length));
    EXPECT_TRUE(readBiff(writeBiff(texts).bytes).workbook == texts);
}

// Either there is an error or nothing is missing; memory and time stay bounded (the fuzz target goes
// further).
TEST(SpreadsheetDamage, EveryTruncationIsNoticedAndEveryFlippedByteSurvived) {
    const Workbook book = smallWorkbook();
    const QByteArray file = writeBiff(book).bytes;
    int refused = 0;
    for (qsizetype at = 0; at < file.size(); ++at) {
        const WorkbookResult cut = readBiff(file.first(at));
        EXPECT_EQ(cut.ok, !cut.workbook.sheets.empty());
        EXPECT_TRUE(!cut.ok || cut.workbook == book) << at;
        for (const char mask : {'\x01', '\x80', '\xFF'}) {
            QByteArray damaged = file;
            damaged[at] = static_cast<char>(damaged[at] ^ mask);
            const WorkbookResult read = readBiff(damaged);
            EXPECT_EQ(read.ok, read.error.isEmpty());
            EXPECT_EQ(read.ok, !read.workbook.sheets.empty());
            refused += read.ok ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 100);
}
