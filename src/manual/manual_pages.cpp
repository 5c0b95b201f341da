#include "manual/manual_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <algorithm>
#include <vector>

namespace kelvane {

namespace {

constexpr int Dpi = 96;  // of the layout: a pixel of a picture is a pixel of the page
constexpr int MarginMm = 18;
constexpr int FooterRoom = 30;
constexpr double PictureShare = 0.85;  // of the width

// Each picture stands in a paragraph of its own.
QString withPictures(const QString& markdown, const QString& folder) {
    static const QRegularExpression picture(QStringLiteral(R"(!\[([^\]]*)\]\(pictures/([^)]+)\)\n?)"));
    QString text = markdown;
    qsizetype at = 0;
    for (QRegularExpressionMatch match = picture.match(text); match.hasMatch();
         match = picture.match(text, at)) {
        const QString file = QDir(folder).filePath(match.captured(2));
        const QString shown =
            folder.isEmpty() || !QFileInfo::exists(file)
                ? QString()
                : QStringLiteral("![%1](%2)\n")
                      .arg(match.captured(1), QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded));
        text.replace(match.capturedStart(), match.capturedLength(), shown);
        at = match.capturedStart() + shown.size();
    }
    return text;
}

void fitPictures(QTextDocument& document, double width) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.charFormat().isImageFormat()) continue;
            QTextImageFormat format = fragment.charFormat().toImageFormat();
            const QSize size = QImageReader(QUrl(format.name()).toLocalFile()).size();
            format.setWidth(std::min(double(size.width()), width));
            format.setHeight(format.width() * size.height() / std::max(1, size.width()));
            QTextCursor cursor(&document);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
}

void drawTableLines(QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorder(0.5);
        format.setBorderCollapse(true);
        format.setCellPadding(3);
        format.setCellSpacing(0);
        format.setHeaderRowCount(1);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        table->setFormat(format);
    }
}

// ---- PDF ----

struct Place {
    int page = 0;  // from 0, in the whole file
    double y = 0;  // from the top of the page's text, in layout units
};

// A4 sheets on which documents are printed with the page's number at the foot.
class Paper {
   public:
    explicit Paper(QIODevice& device) : m_writer(&device) {
        m_writer.setPageSize(QPageSize(QPageSize::A4));
        m_writer.setResolution(Dpi);
        m_writer.setPageMargins(QMarginsF(MarginMm, MarginMm, MarginMm, MarginMm), QPageLayout::Millimeter);
        m_writer.setTitle(QStringLiteral("Kelvane"));
        m_room = QSizeF(m_writer.width(), m_writer.height() - FooterRoom);
    }
    QSizeF room() const { return m_room; }
    void prepare(QTextDocument& document) {
        document.documentLayout()->setPaintDevice(&m_writer);
        QFont face(QStringLiteral("DejaVu Sans"), 10);
        face.setLetterSpacing(QFont::AbsoluteSpacing, 0.01);  // no ligatures, which a search would not find
        document.setDefaultFont(face);
        document.setDocumentMargin(0);
    }
    void print(QTextDocument& document, int pagesBefore) {
        if (pagesBefore == 0)
            m_painter.begin(&m_writer);
        else
            m_writer.newPage();
        for (int page = 0; page < document.pageCount(); ++page) {
            if (page > 0) m_writer.newPage();
            printPage(document, page);
            m_painter.setFont(document.defaultFont());
            m_painter.drawText(QRectF(0, m_room.height(), m_room.width(), FooterRoom),
                               Qt::AlignRight | Qt::AlignBottom, QString::number(pagesBefore + page + 1));
        }
    }

   private:
    void printPage(QTextDocument& document, int page) {
        m_painter.save();
        m_painter.translate(0, -page * m_room.height());
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = QRectF(QPointF(0, page * m_room.height()), m_room);
        context.palette.setColor(QPalette::Text, Qt::black);
        m_painter.setClipRect(context.clip);
        document.documentLayout()->draw(&m_painter, context);
        m_painter.restore();
    }

    QPdfWriter m_writer;
    QPainter m_painter;  // ends before its writer
    QSizeF m_room;
};

class ManualPdf {
   public:
    ManualPdf(const ManualText& manual, const QString& pictureFolder, QIODevice& device)
        : m_manual(manual), m_paper(device), m_room(m_paper.room()) {
        layOutChapters(pictureFolder);
        layOutContents(0);
        layOutContents(m_contents.pageCount());  // with the page numbers as they come to be
    }
    std::vector<Place> write() {
        m_paper.print(m_contents, 0);
        m_paper.print(m_text, m_contents.pageCount());
        return m_places;
    }

   private:
    void layOutChapters(const QString& pictureFolder) {
        m_paper.prepare(m_text);
        QString all;
        for (const ManualChapter& chapter : m_manual.chapters()) all += chapter.text % QLatin1Char('\n');
        setManualText(m_text, all, pictureFolder, m_room.width() * PictureShare);
        for (QTextBlock block = m_text.begin(); block.isValid(); block = block.next()) {
            if (block.blockFormat().headingLevel() != 1) continue;
            if (block.position() > 0) {
                QTextBlockFormat format = block.blockFormat();
                format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
                QTextCursor(block).setBlockFormat(format);
            }
            m_headings.push_back(block.blockNumber());
        }
        m_text.setPageSize(m_room);
    }
    void layOutContents(int pagesBefore) {
        m_paper.prepare(m_contents);
        m_places.clear();
        QString lines = QStringLiteral("# Kelvane 1.30\n\n");
        for (size_t i = 0; i < m_headings.size() && i < m_manual.chapters().size(); ++i) {
            const QRectF place =
                m_text.documentLayout()->blockBoundingRect(m_text.findBlockByNumber(m_headings[i]));
            const int page = static_cast<int>(place.top() / m_room.height()) + pagesBefore;
            m_places.push_back({page, std::fmod(place.top(), m_room.height())});
            const ManualChapter& chapter = m_manual.chapters()[i];
            lines += QStringLiteral("[%1](%2) … %3\n\n").arg(chapter.title, chapter.name).arg(page + 1);
        }
        setManualText(m_contents, lines, {}, m_room.width());
        m_contents.setPageSize(m_room);
    }

    const ManualText& m_manual;
    Paper m_paper;
    QSizeF m_room;
    QTextDocument m_text;
    QTextDocument m_contents;
    std::vector<int> m_headings;  // blocks
    std::vector<Place> m_places;  // by chapter
};

// Qt writes every link as one to the network. Those to chapters become links inside the file, each within the
// bytes that it has, so that no place in the file moves. Source of the forms: PDF 1.4, 8.2.1 and 8.5.3.
void turnLinksInside(QByteArray& pdf, const ManualText& manual, const std::vector<Place>& places) {
    static const QRegularExpression kids(QStringLiteral(R"(/Kids\s*\[([^\]]*)\])"));
    static const QRegularExpression link(QStringLiteral(R"(/S\s*/URI\s*/URI\s*\(([^)]*)\))"));
    const QString text = QString::fromLatin1(pdf);
    QStringList pages = kids.match(text).captured(1).split(QLatin1Char('R'), Qt::SkipEmptyParts);
    for (auto it = link.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const int chapter = manual.chapterNamed(match.captured(1));
        if (chapter < 0 || chapter >= static_cast<int>(places.size())) continue;
        const QString page = pages.value(places[static_cast<size_t>(chapter)].page).trimmed();
        QByteArray inside = "/S/GoTo/D[" + page.toLatin1() + " R/Fit]";
        if (page.isEmpty() || inside.size() > match.capturedLength()) continue;
        inside += QByteArray(match.capturedLength() - inside.size(), ' ');
        pdf.replace(match.capturedStart(), inside.size(), inside);
    }
}

}  // namespace

void setManualText(QTextDocument& document, const QString& markdown, const QString& pictureFolder,
                   double width) {
    document.setMarkdown(withPictures(markdown, pictureFolder));
    fitPictures(document, width);
    drawTableLines(document);
}

FileResult writeManualPdf(const ManualText& manual, const QString& pictureFolder, const QString& path) {
    QByteArray pdf;
    std::vector<Place> places;
    {
        QBuffer buffer(&pdf);
        buffer.open(QIODevice::WriteOnly);
        places = ManualPdf(manual, pictureFolder, buffer).write();
    }
    turnLinksInside(pdf, manual, places);
    return writeWhole(path, pdf);
}

FileResult writeHtmlPdf(const QString& html, const QImage& trend, const QString& path) {
    QByteArray pdf;
    {
        QBuffer buffer(&pdf);
        buffer.open(QIODevice::WriteOnly);
        Paper paper(buffer);
        QTextDocument document;
        paper.prepare(document);
        const int width = static_cast<int>(paper.room().width());
        if (!trend.isNull())
            document.addResource(
                QTextDocument::ImageResource, QUrl(QStringLiteral("trend")),
                trend.width() > width ? trend.scaledToWidth(width, Qt::SmoothTransformation) : trend);
        document.setHtml(html);
        document.setPageSize(paper.room());
        paper.print(document, 0);
    }
    return writeWhole(path, pdf);
}

}  // namespace kelvane
