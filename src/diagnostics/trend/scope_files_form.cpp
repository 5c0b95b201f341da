// Pictures and tables of the Trend window.
#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgGenerator>

#include "diagnostics/trend/scope_form.h"
#include "ui/trend_plot.h"

namespace kelvane {

namespace {

const QString ScreenFilter = QStringLiteral("BMP - BMP|*.bmp|JPG - JPEG|*.jpg");
const QString ScreenSuffixes = QStringLiteral(".bmp|.jpg");
const QString PlotFilter = QStringLiteral("PNG - picture|*.png|SVG - drawing|*.svg|PDF - document|*.pdf");
const QString PlotSuffixes = QStringLiteral(".png|.svg|.pdf");
constexpr int JpegQuality = 80;
constexpr int PdfResolution = 96;

QByteArray pictureBytes(const QImage& picture, const char* format, int quality = -1) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format, quality);
    return bytes;
}

QImage plotImage(const TrendPlot& plot, int scale) {
    QImage image(plot.size() * scale, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(scale, scale);
    plot.paintSheet(painter, plot.size(), plot.look.background);
    return image;
}

QByteArray svgBytes(const TrendPlot& plot) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator drawing;
    drawing.setOutputDevice(&buffer);
    drawing.setSize(plot.size());
    drawing.setViewBox(QRect(QPoint(), plot.size()));
    QPainter painter(&drawing);
    plot.paintSheet(painter, plot.size(), Qt::white);
    painter.end();
    return bytes;
}

QByteArray pdfBytes(const TrendPlot& plot) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter document(&buffer);
    document.setResolution(PdfResolution);
    document.setPageOrientation(QPageLayout::Landscape);
    QPainter painter(&document);
    plot.paintSheet(painter, QSize(document.width(), document.height()), Qt::white);
    painter.end();
    return bytes;
}

}  // namespace

// The whole screen, taken before anything is asked; where the platform does not give it away, this window.
void TScopeForm::savePicture() {
    const QPixmap whole = screen() ? screen()->grabWindow(0) : QPixmap();
    const bool given = !whole.isNull() && whole.width() > 1;
    Image1->setPixmap(given ? whole : grab());
    const auto path = m_site.person.saveFile(ScreenFilter, ScreenSuffixes);
    if (!path) return;
    const bool jpeg = path->endsWith(QLatin1String(".jpg"));
    const QImage picture = Image1->pixmap().toImage();
    const FileResult saved =
        writeWhole(*path, pictureBytes(picture, jpeg ? "JPG" : "BMP", jpeg ? JpegQuality : -1));
    const QString what =
        given ? tr("Saved %1") : tr("Saved %1: this window only, the system does not give the screen");
    say(saved.ok ? what.arg(*path) : saved.error);
}

void TScopeForm::savePlot() {
    const auto path = m_site.person.saveFile(PlotFilter, PlotSuffixes);
    if (!path) return;
    const QByteArray bytes = path->endsWith(QLatin1String(".svg")) ? svgBytes(*AbTrend1)
                             : path->endsWith(QLatin1String(".pdf"))
                                 ? pdfBytes(*AbTrend1)
                                 : pictureBytes(plotImage(*AbTrend1, 2), "PNG");
    const FileResult saved = writeWhole(*path, bytes);
    say(saved.ok ? tr("Saved %1").arg(*path) : saved.error);
}

void TScopeForm::copyPlot() {
    QGuiApplication::clipboard()->setImage(plotImage(*AbTrend1, 2));
    say(tr("The plot is in the clipboard."));
}

void TScopeForm::exportTable(qint64 from, qint64 to) { m_session.saveCsv(from, to); }

}  // namespace kelvane
