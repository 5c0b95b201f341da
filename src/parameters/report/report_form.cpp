#include "parameters/report/report_form.h"

#include <QBuffer>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QToolButton>
#include <QVBoxLayout>

#include "parameters/report/page_view_form.h"
#include "ui/icons.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int MarginMm = 12;
constexpr int PdfResolution = 600;

const QMarginsF Margins(MarginMm, MarginMm, MarginMm, MarginMm);

struct WaitCursor {
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

TReportForm::TReportForm(Operator& person, QWidget* parent) : QDialog(parent), m_person(person) {
    setObjectName(QStringLiteral("TReportForm"));
    setWindowTitle(QStringLiteral("Print Preview"));
    setModal(true);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
}

// Asking the system for its printers would slow every start, so it waits for a report.
void TReportForm::build() {
    m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    m_printer->setPageMargins(Margins, QPageLayout::Millimeter);
    QuickRep1 = new PageView(this);
    QuickRep1->setObjectName(QStringLiteral("QuickRep1"));
    QuickRep1->setAccessibleName(QStringLiteral("Pages of the report"));
    connect(QuickRep1, &PageView::currentPageChanged, this, &TReportForm::showPageNumber);

    auto* buttons = new QHBoxLayout;
    buildButtons(buttons);
    auto* column = new QVBoxLayout(this);
    column->addLayout(buttons);
    column->addWidget(QuickRep1, 1);
    choosePageSize();
    resize(fontMetrics().height() * 50, fontMetrics().height() * 42);
}

TransparentButton* TReportForm::addButton(QHBoxLayout* row, const char* name, Icon which,
                                          const QString& text) {
    TransparentButton* button = framedButton(name, which, text, this);
    row->addWidget(button);
    return button;
}

QToolButton* TReportForm::addPageButton(QHBoxLayout* row, const char* name, const QIcon& icon,
                                        const QString& text, int step) {
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(icon);
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    connect(button, &QToolButton::clicked, QuickRep1,
            [this, step] { QuickRep1->setCurrentPage(QuickRep1->currentPage() + step); });
    row->addWidget(button);
    return button;
}

void TReportForm::buildButtons(QHBoxLayout* row) {
    auto* printButton = addButton(row, "PrintTransparentButton", Icon::Print, QStringLiteral("Print..."));
    printButton->setShortcut(QKeySequence::Print);
    connect(printButton, &QToolButton::clicked, this, &TReportForm::print);
    auto* pdf = addButton(row, "PdfTransparentButton", Icon::Save, QStringLiteral("PDF..."));
    pdf->setShortcut(QKeySequence::Save);
    connect(pdf, &QToolButton::clicked, this, &TReportForm::savePdf);

    PageSizeComboBox = new QComboBox(this);
    PageSizeComboBox->setObjectName(QStringLiteral("PageSizeComboBox"));
    PageSizeComboBox->addItem(QStringLiteral("A4"), int(QPageSize::A4));
    PageSizeComboBox->addItem(QStringLiteral("Letter"), int(QPageSize::Letter));
    if (QLocale().measurementSystem() == QLocale::ImperialUSSystem) PageSizeComboBox->setCurrentIndex(1);
    connect(PageSizeComboBox, &QComboBox::activated, this, &TReportForm::choosePageSize);
    auto* size = new QLabel(QStringLiteral("&Page size:"), this);
    size->setBuddy(PageSizeComboBox);
    row->addSpacing(fontMetrics().height());
    row->addWidget(size);
    row->addWidget(PageSizeComboBox);

    row->addStretch();
    PreviousToolButton =
        addPageButton(row, "PreviousToolButton", icon(Icon::Previous), QStringLiteral("Previous page"), -1);
    PageLabel = new QLabel(this);
    PageLabel->setObjectName(QStringLiteral("PageLabel"));
    row->addWidget(PageLabel);
    NextToolButton = addPageButton(row, "NextToolButton", icon(Icon::Next), QStringLiteral("Next page"), 1);
    row->addSpacing(fontMetrics().height());
    auto* exit = addButton(row, "ExitTransparentButton", Icon::Exit, QStringLiteral("Exit"));
    connect(exit, &QToolButton::clicked, this, &QDialog::accept);
}

void TReportForm::setReport(const Report& report) {
    if (!m_printer) build();
    m_report = report;
    showPages();
    QuickRep1->setCurrentPage(1);
    QuickRep1->setFocus();
}

void TReportForm::choosePageSize() {
    m_printer->setPageSize(
        QPageSize(static_cast<QPageSize::PageSizeId>(PageSizeComboBox->currentData().toInt())));
    m_printer->setPageMargins(Margins, QPageLayout::Millimeter);
    showPages();
}

void TReportForm::showPages() {
    const QPageLayout& layout = m_printer->pageLayout();
    QuickRep1->setPages(std::make_unique<ReportPages>(m_report, reportRoom(*m_printer)),
                        layout.fullRect(QPageLayout::Inch).size() * ReportUnitsPerInch,
                        layout.margins(QPageLayout::Inch) * ReportUnitsPerInch);
}

void TReportForm::showPageNumber() {
    const int page = QuickRep1->currentPage();
    const int pages = QuickRep1->pageCount();
    PageLabel->setText(QStringLiteral("Page %1 of %2").arg(page).arg(pages));
    PreviousToolButton->setEnabled(page > 1);
    NextToolButton->setEnabled(page < pages);
}

// A thousand pages take seconds.
FileResult TReportForm::writePdf(const QString& path) const {
    const WaitCursor busy;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(PdfResolution);
        writer.setTitle(QStringLiteral("Parameter Table"));
        writer.setPageLayout(m_printer->pageLayout());
        paintReport(m_report, writer);
    }
    return writeWhole(path, bytes);
}

void TReportForm::savePdf() {
    const std::optional<QString> path =
        m_person.saveFile(QStringLiteral("PDF Files(*.pdf)|*.pdf"), QStringLiteral("pdf"));
    if (!path) return;
    if (const FileResult written = writePdf(*path); !written.ok)
        m_person.tell(written.error, QStringLiteral("Error"), BoxIcon::Stop);
}

void TReportForm::print() {
    auto* dialog = new QPrintDialog(m_printer.get(), this);
    dialog->setObjectName(QStringLiteral("PrintDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this, [this](QPrinter* printer) {
        const WaitCursor busy;
        paintReport(m_report, *printer);
    });
    dialog->open();
}

}  // namespace kelvane
