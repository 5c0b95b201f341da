#include "diagnostics/trend/trend_print_form.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QScrollArea>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/tab_order.h"
#include "ui/transparent_button.h"
#include "ui/trend_plot.h"

namespace kelvane {

namespace {

constexpr int ScreenDpi = 96;
constexpr int PrintLeft = 100;
constexpr int PrintTop = 50;
constexpr std::array<int, 6> Percentages{25, 50, 75, 100, 150, 200};

}  // namespace

// ---- The page ----

TrendPreview::TrendPreview(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("The page as it will be printed"));
    resizeToPaper();
}

void TrendPreview::SetRecFrom(qint64 record) {
    m_from = record;
    update();
}

void TrendPreview::SetRecTo(qint64 record) {
    m_to = record;
    update();
}

void TrendPreview::SetPreviewZoom(double factor) {
    m_zoom = factor;
    resizeToPaper();
}

void TrendPreview::resizeToPaper() {
    setFixedSize(Paper * m_zoom);
    update();
}

void TrendPreview::paint(QPainter& painter, QSize size) const {
    if (m_plot) m_plot->paintSheet(painter, size, Qt::white, m_from, m_to);
}

void TrendPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.scale(m_zoom, m_zoom);
    painter.translate(PrintLeft, PrintTop);
    paint(painter, Paper - QSize(2 * PrintLeft, 2 * PrintTop));
}

// In the units of the preview, so that the page comes out as it was seen.
void TrendPreview::PrintTrend(QPrinter& printer, int left, int top) const {
    QPainter painter;
    if (!painter.begin(&printer)) return;
    const double scale = printer.resolution() / double(ScreenDpi);
    painter.scale(scale, scale);
    painter.translate(left, top);
    const QSizeF room(printer.width() / scale - 2 * left, printer.height() / scale - 2 * top);
    paint(painter, room.toSize());
}

// ---- The window ----

TPrintForm::TPrintForm(QWidget* parent)
    : QDialog(parent),
      m_preview(new TrendPreview),
      FirstRecEdit(named<QLineEdit>("FirstRecEdit", this)),
      LastRecEdit(named<QLineEdit>("LastRecEdit", this)),
      ZoomComboBox(named<QComboBox>("ZoomComboBox", this)) {
    setObjectName(QStringLiteral("TPrintForm"));
    setWindowTitle(tr("Print the Trend"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* row = new QHBoxLayout;
    auto* print = framedButton("PrintTransparentButton", Icon::Print, tr("Print..."), this);
    print->setShortcut(QKeySequence::Print);
    row->addWidget(print);
    row->addSpacing(fontMetrics().height());
    for (auto* edit : {FirstRecEdit, LastRecEdit}) {
        edit->setValidator(new QIntValidator(0, 1000000000, edit));
        edit->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
        connect(edit, &QLineEdit::returnPressed, this, &TPrintForm::takeRange);
    }
    row->addWidget(captionFor(FirstRecEdit, "Label1", tr("&First record"), this));
    row->addWidget(FirstRecEdit);
    row->addWidget(captionFor(LastRecEdit, "Label2", tr("&Last record"), this));
    row->addWidget(LastRecEdit);
    row->addSpacing(fontMetrics().height());
    for (const int percent : Percentages) ZoomComboBox->addItem(QStringLiteral("%1 %").arg(percent), percent);
    ZoomComboBox->setCurrentIndex(2);
    connect(ZoomComboBox, &QComboBox::activated, this, &TPrintForm::ZoomComboBoxChange);
    row->addWidget(captionFor(ZoomComboBox, "Label3", tr("&Zoom"), this));
    row->addWidget(ZoomComboBox);
    row->addStretch();
    auto* exit = framedButton("ExitTransparentButton", Icon::Exit, tr("Exit"), this);
    row->addWidget(exit);
    auto* area = new QScrollArea(this);
    area->setAlignment(Qt::AlignCenter);
    area->setBackgroundRole(QPalette::Dark);
    area->setWidget(m_preview);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(area, 1);
    tabThroughFromStart(*this, {print, FirstRecEdit, LastRecEdit, ZoomComboBox, exit});
    connect(print, &TransparentButton::clicked, this, &TPrintForm::PrintTransparentButtonClick);
    connect(exit, &TransparentButton::clicked, this, &QDialog::accept);
    // Enter in an edit takes the range and presses nothing.
    for (auto* button : findChildren<QAbstractButton*>()) button->setFocusPolicy(Qt::TabFocus);
    resize(940, 720);
}

void TPrintForm::prepare(TrendPlot& plot) {
    m_preview->setPlot(&plot);
    FirstRecEdit->setText(QString::number(plot.FirstDisplayedRec()));
    LastRecEdit->setText(QString::number(plot.LastDisplayedRec()));
    takeRange();
    ZoomComboBoxChange();
}

void TPrintForm::takeRange() {
    m_preview->SetRecFrom(FirstRecEdit->text().toLongLong());
    m_preview->SetRecTo(LastRecEdit->text().toLongLong());
}

void TPrintForm::ZoomComboBoxChange() {
    m_preview->SetPreviewZoom(ZoomComboBox->currentData().toInt() * 0.01);
}

void TPrintForm::PrintTransparentButtonClick() {
    takeRange();
    if (!m_printer) {
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        m_printer->setPageOrientation(QPageLayout::Landscape);
    }
    auto* dialog = new QPrintDialog(m_printer.get(), this);
    dialog->setObjectName(QStringLiteral("PrintDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this,
            [this](QPrinter* printer) { m_preview->PrintTrend(*printer, PrintLeft, PrintTop); });
    dialog->open();
}

void TPrintForm::done(int result) {
    m_preview->setPlot(nullptr);
    QDialog::done(result);
}

}  // namespace kelvane
