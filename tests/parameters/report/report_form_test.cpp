// The printed report: what stands on its pages, and the preview around it.
#include "parameters/report/report_form.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QLabel>
#include <QTemporaryDir>

#include "bench/scripted_operator.h"
#include "parameters/report/page_view_form.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

const QSizeF A4Room(7146, 10403);  // margins of 12 mm
const QSizeF LetterRoom(7253, 9653);

Report longReport(bool comparison, int rows) {
    Report report;
    report.head.noteShown = comparison;
    report.head.drive = {{"drive", "Larch", "2.05", "150A", "460V", "75 ( 100 )"}, 133};
    if (comparison)
        report.head.file = {{"/data/plants/mill 3/pump.txt", "Larch", "2.05", "150A", "460V", "75"}, 254};
    report.DateQRLabel = QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7));
    for (int i = 0; i < rows; ++i)
        report.records.push_back({"01-00", "0100H", "WWWWWWWWWWWWWWWW", "Hz", "60000.00", "60000.00",
                                  "60000.00", "60000.00", "Read-Only", comparison ? "Drive" : ""});
    return report;
}

QStringList textsOf(const ReportPage& page, const QString& name) {
    QStringList texts;
    for (const ReportItem& item : page.items)
        if (item.name == name) texts << item.text;
    return texts;
}

TEST(ReportPages, HeadsAndPageNumbersStandOnEveryPageAndTheIdentityOnTheFirst) {
    for (const QSizeF& room : {A4Room, LetterRoom}) {
        const Report report = longReport(true, 150);
        const ReportPages pages(report, room);
        ASSERT_GT(pages.count(), 1);
        const QFontMetricsF metrics(pages.font());
        qsizetype rows = 0;
        for (int i = 0; i < pages.count(); ++i) {
            const ReportPage& page = pages.page(i);
            EXPECT_EQ(textsOf(page, "QRLabel12"), QStringList{"Note"});
            EXPECT_EQ(textsOf(page, "PageQRLabel"),
                      QStringList{QStringLiteral("Page %1 of %2").arg(i + 1).arg(pages.count())});
            EXPECT_EQ(textsOf(page, "dDriveQRLabel").size(), i == 0 ? 1 : 0);
            rows += textsOf(page, "Pr. No").size();
            const double foot =
                std::find_if(page.items.begin(), page.items.end(), [](const ReportItem& item) {
                    return item.name == "PageQRLabel";
                })->room.top();
            for (const ReportItem& item : page.items) {
                const bool row = printFieldNames().contains(item.name);
                EXPECT_LE(item.room.bottom(), (row ? foot : room.height()) + 0.5);
                EXPECT_LE(item.room.right(), room.width() + 0.5);
                if (row) {
                    EXPECT_LE(metrics.horizontalAdvance(item.text), item.room.width()) << "a name is cut";
                }
            }
        }
        EXPECT_EQ(rows, 150);
        EXPECT_EQ(textsOf(pages.page(0), "FileNameQRLabel"), QStringList{"/data/plants/mill 3/pump.txt"});
    }
}

TEST(PrintForm, ShowsAllPagesAndWritesThePdfWhole) {
    QTemporaryDir folder;
    ScriptedOperator person;
    TReportForm form(person);
    form.setReport(longReport(false, 150));
    form.show();
    const int pages = ReportPages(longReport(false, 150), A4Room).count();
    EXPECT_EQ(form.QuickRep1->pageCount(), pages);
    form.findChild<QAbstractButton*>("NextToolButton")->click();
    EXPECT_EQ(form.QuickRep1->currentPage(), 2);
    EXPECT_EQ(form.findChild<QLabel*>("PageLabel")->text(), QStringLiteral("Page 2 of %1").arg(pages));
    // The page in sight is painted, in ink on white.
    const QImage shown = form.QuickRep1->viewport()->grab().toImage();
    bool ink = false;
    for (int y = 20; y < shown.height(); ++y) ink |= shown.pixelColor(shown.width() / 2, y).lightness() < 128;
    EXPECT_TRUE(ink);
    EXPECT_EQ(shown.pixelColor(shown.width() / 2, 14), QColor(Qt::white));

    const QString path = folder.filePath("t.pdf");
    person.expectSave("PDF Files(*.pdf)|*.pdf", "pdf", path);
    form.findChild<QAbstractButton*>("PdfTransparentButton")->click();
    const FileContent pdf = readWhole(path);
    EXPECT_TRUE(pdf.bytes.startsWith("%PDF"));
    EXPECT_TRUE(pdf.bytes.contains(QByteArray("/Count ").append(QByteArray::number(pages))));

    person.expectSave("PDF Files(*.pdf)|*.pdf", "pdf", folder.filePath("no/such.pdf"));
    const FileResult failed = writeWhole(folder.filePath("no/such.pdf"), {});
    person.expectBox(failed.error, "Error");
    form.findChild<QAbstractButton*>("PdfTransparentButton")->click();

    // A thousand pages are counted and not laid out.
    form.setReport(longReport(false, 65000));
    EXPECT_GT(form.QuickRep1->pageCount(), 500);
    EXPECT_EQ(form.QuickRep1->currentPage(), 1);
}

}  // namespace
}  // namespace kelvane
