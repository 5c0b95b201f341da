#include "parameters/report/report_pages_form.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QSet>
#include <algorithm>

namespace kelvane {

namespace {

constexpr int LargestFont = 120;  // 9 points
constexpr int SmallestFont = 60;
constexpr int FontStep = 5;
constexpr double ColumnGap = 80;
constexpr double BlockGap = 60;
constexpr double ToldUnit = ReportUnitsPerInch / 96;  // of the places of the blocks
constexpr int DescriptionField = 2;
constexpr int FirstValueField = 4;  // "Data" to "Max" stand at the right edge, as numbers do
constexpr int LastValueField = 7;
constexpr int NoteField = PrintFields - 1;

const QStringList HeadCaptions{QStringLiteral("Source:"),        QStringLiteral("Drive Series:"),
                               QStringLiteral("Version:"),       QStringLiteral("Rated Current:"),
                               QStringLiteral("Rated Voltage:"), QStringLiteral("kW(Hp):")};
const QStringList DriveBlockNames{
    QStringLiteral("displayQRLabel"),       QStringLiteral("dDriveQRLabel"),
    QStringLiteral("dVersionQRLabel"),      QStringLiteral("dRatedCurrentQRLabel"),
    QStringLiteral("dRatedVoltageQRLabel"), QStringLiteral("dHPQRLabel")};
const QStringList FileBlockNames{
    QStringLiteral("FileNameQRLabel"),      QStringLiteral("fDriveQRLabel"),
    QStringLiteral("fVersionQRLabel"),      QStringLiteral("fRatedCurrentQRLabel"),
    QStringLiteral("fRatedVoltageQRLabel"), QStringLiteral("fHPQRLabel")};

// So many characters of a field are never cut.
int wholeCharacters(int field) { return field == DescriptionField ? 16 : 9; }

Qt::Alignment alignmentOf(int field) {
    const bool value = field >= FirstValueField && field <= LastValueField;
    return (value ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

bool isGroupRecord(const PrintRecord& record) { return record[0] == QLatin1String("*****"); }

QFont boldOf(QFont font) {
    font.setBold(true);
    return font;
}

}  // namespace

ReportPages::ReportPages(const Report& report, QSizeF room)
    : m_report(report), m_room(room), m_font(QGuiApplication::font()) {
    for (int field = 0; field < PrintFields; ++field)
        if (field != NoteField || report.head.noteShown) m_columns.push_back({field});
    fitColumns();
    countPages();
}

int ReportPages::rowsBelow(double top) const {
    const double bottom = m_room.height() - lineHeight() * 1.5;
    return std::max(1, static_cast<int>((bottom - top) / lineHeight() + 1e-6));
}

// All rows are equally high, so the pages can be counted without laying them out.
void ReportPages::countPages() {
    ReportPage first;
    m_rowsOnFirst = rowsBelow(addColumnHeads(first, addHead(first)));
    m_rowsOnOthers = rowsBelow(lineHeight());
    const int rest = std::max(0, static_cast<int>(m_report.records.size()) - m_rowsOnFirst);
    const int others = (rest + m_rowsOnOthers - 1) / m_rowsOnOthers;
    m_pages.resize(1 + static_cast<size_t>(others));
}

const ReportPage& ReportPages::page(int index) const {
    std::optional<ReportPage>& page = m_pages[static_cast<size_t>(index)];
    if (page) return *page;
    page.emplace();
    addRows(*page, index, addColumnHeads(*page, index == 0 ? addHead(*page) : 0));
    addFoot(*page, index);
    return *page;
}

double ReportPages::lineHeight() const { return QFontMetricsF(boldOf(m_font)).height() * 1.25; }

// The largest font with which the columns stand side by side; what room is left goes to the description.
void ReportPages::fitColumns() {
    double total = 0;
    m_font.setPixelSize(LargestFont);
    const Widest texts = widestTexts();
    for (int size = LargestFont;; size -= FontStep) {
        m_font.setPixelSize(size);
        total = naturalWidths(texts);
        if (total <= m_room.width() || size <= SmallestFont) break;
    }
    double left = 0;
    for (Column& column : m_columns) {
        if (column.field == DescriptionField) column.width += std::max(0.0, m_room.width() - total);
        column.left = left;
        left += column.width;
    }
}

// The texts of each column that may be its widest in a smaller font too; measured once, however many rows
// there are.
ReportPages::Widest ReportPages::widestTexts() const {
    constexpr double Nearly = 0.9;
    const QFontMetricsF metrics(boldOf(m_font));
    Widest widest;
    for (const Column& column : m_columns) {
        QSet<QString> texts{printFieldNames()[column.field]};
        for (const PrintRecord& record : m_report.records)
            texts.insert(
                record[static_cast<size_t>(column.field)].trimmed().left(wholeCharacters(column.field)));
        double width = 0;
        for (const QString& text : texts) width = std::max(width, metrics.horizontalAdvance(text));
        for (const QString& text : texts)
            if (metrics.horizontalAdvance(text) >= width * Nearly)
                widest[static_cast<size_t>(column.field)] += text;
    }
    return widest;
}

double ReportPages::naturalWidths(const Widest& texts) {
    const QFontMetricsF metrics(boldOf(m_font));
    double total = 0;
    for (Column& column : m_columns) {
        column.width = 0;
        for (const QString& text : texts[static_cast<size_t>(column.field)])
            column.width = std::max(column.width, metrics.horizontalAdvance(text));
        column.width += ColumnGap;
        total += column.width;
    }
    return total;
}

double ReportPages::addHead(ReportPage& page) const {
    const double top = lineHeight() * 1.5;
    page.items.push_back({QStringLiteral("DateQRLabel"),
                          QLocale().toString(m_report.DateQRLabel, QLocale::ShortFormat),
                          {0, 0, m_room.width(), lineHeight()},
                          Qt::AlignRight | Qt::AlignVCenter});
    const ReportHead& head = m_report.head;
    const bool both = head.drive.left > 0 && head.file.left > 0;
    addBlock(page, head.drive, DriveBlockNames, top, both ? head.file.left * ToldUnit : m_room.width());
    addBlock(page, head.file, FileBlockNames, top, m_room.width());
    return addCaptions(page, top);
}

double ReportPages::addCaptions(ReportPage& page, double top) const {
    for (const QString& caption : HeadCaptions) {
        page.items.push_back({{}, caption, {0, top, m_room.width(), lineHeight()}});
        page.items.back().bold = true;
        top += lineHeight();
    }
    return top + lineHeight() / 2;
}

void ReportPages::addBlock(ReportPage& page, const ReportBlock& block, const QStringList& names, double top,
                           double right) const {
    const double left = block.left * ToldUnit;
    const double width = block.left > 0 ? right - left - BlockGap : 0;
    for (size_t i = 0; i < block.texts.size(); ++i) {
        page.items.push_back({names[static_cast<int>(i)],
                              block.texts[i],
                              {left, top + lineHeight() * double(i), width, lineHeight()}});
    }
}

double ReportPages::addColumnHeads(ReportPage& page, double top) const {
    const QStringList names = printFieldNames();
    page.shades.push_back({0, top, m_room.width(), lineHeight()});
    for (const Column& column : m_columns) {
        page.items.push_back({column.field == NoteField ? QStringLiteral("QRLabel12") : QString(),
                              names[column.field],
                              {column.left, top, column.width - ColumnGap, lineHeight()},
                              alignmentOf(column.field),
                              true});
    }
    return top + lineHeight();
}

void ReportPages::addRows(ReportPage& page, int index, double top) const {
    const int from = index == 0 ? 0 : m_rowsOnFirst + (index - 1) * m_rowsOnOthers;
    const int rows = index == 0 ? m_rowsOnFirst : m_rowsOnOthers;
    const int to = std::min(static_cast<int>(m_report.records.size()), from + rows);
    for (int row = from; row < to; ++row, top += lineHeight())
        addRow(page, m_report.records[static_cast<size_t>(row)], top);
}

void ReportPages::addRow(ReportPage& page, const PrintRecord& record, double top) const {
    static const QStringList names = printFieldNames();
    const bool group = isGroupRecord(record);
    if (group) page.shades.push_back({0, top, m_room.width(), lineHeight()});
    page.lines.push_back({0, top + lineHeight(), m_room.width(), top + lineHeight()});
    for (const Column& column : m_columns) {
        page.items.push_back({names[column.field],
                              record[static_cast<size_t>(column.field)].trimmed(),
                              {column.left, top, column.width - ColumnGap, lineHeight()},
                              group ? Qt::AlignLeft | Qt::AlignVCenter : alignmentOf(column.field),
                              group});
    }
}

void ReportPages::addFoot(ReportPage& page, int index) const {
    const QRectF foot(0, m_room.height() - lineHeight(), m_room.width(), lineHeight());
    page.lines.push_back({foot.topLeft(), foot.topRight()});
    page.items.push_back({{}, QLocale().toString(m_report.DateQRLabel, QLocale::ShortFormat), foot});
    page.items.push_back({QStringLiteral("PageQRLabel"),
                          QStringLiteral("Page %1 of %2").arg(index + 1).arg(count()), foot,
                          Qt::AlignRight | Qt::AlignVCenter});
}

void ReportPages::paint(QPainter& painter, int index) const {
    const QFontMetricsF plain(m_font);
    const QFontMetricsF bold(boldOf(m_font));
    for (const QRectF& shade : page(index).shades) painter.fillRect(shade, QColor(226, 232, 232));
    painter.setPen(QPen(QColor(200, 200, 200), 5));
    for (const QLineF& line : page(index).lines) painter.drawLine(line);
    painter.setPen(Qt::black);
    for (const ReportItem& item : page(index).items) {
        painter.setFont(item.bold ? boldOf(m_font) : m_font);
        const bool path = item.name.endsWith(QLatin1String("QRLabel"));
        const QString text =
            (item.bold ? bold : plain)
                .elidedText(item.text, path ? Qt::ElideMiddle : Qt::ElideRight, item.room.width() + 1);
        painter.drawText(item.room, static_cast<int>(item.alignment | Qt::TextSingleLine), text);
    }
}

QSizeF reportRoom(const QPagedPaintDevice& device) {
    const QRectF inches = device.pageLayout().paintRect(QPageLayout::Inch);
    return inches.size() * ReportUnitsPerInch;
}

void paintReport(const Report& report, QPagedPaintDevice& device) {
    const ReportPages pages(report, reportRoom(device));
    QPainter painter(&device);
    if (!painter.isActive()) return;
    painter.scale(device.logicalDpiX() / ReportUnitsPerInch, device.logicalDpiY() / ReportUnitsPerInch);
    for (int i = 0; i < pages.count(); ++i) {
        if (i > 0) device.newPage();
        pages.paint(painter, i);
    }
}

}  // namespace kelvane
