#include "parameters/report/report_pages_form.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
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

ReportPages::ReportPages(const Report& report, QSizeF room) : m_room(room), m_font(QGuiApplication::font()) {
    for (int field = 0; field < PrintFields; ++field)
        if (field != NoteField || report.head.noteShown) m_columns.push_back({field});
    fitColumns(report);
    m_pages.emplace_back();
    addRows(report, addColumnHeads(addHead(report)));
    addFeet(report.DateQRLabel);
}

double ReportPages::lineHeight() const { return QFontMetricsF(boldOf(m_font)).height() * 1.25; }

// The largest font with which the columns stand side by side; what room is left goes to the description.
void ReportPages::fitColumns(const Report& report) {
    double total = 0;
    for (int size = LargestFont;; size -= FontStep) {
        m_font.setPixelSize(size);
        total = naturalWidths(report);
        if (total <= m_room.width() || size <= SmallestFont) break;
    }
    double left = 0;
    for (Column& column : m_columns) {
        if (column.field == DescriptionField) column.width += std::max(0.0, m_room.width() - total);
        column.left = left;
        left += column.width;
    }
}

double ReportPages::naturalWidths(const Report& report) {
    const QFontMetricsF metrics(boldOf(m_font));
    const QStringList names = printFieldNames();
    double total = 0;
    for (Column& column : m_columns) {
        column.width = metrics.horizontalAdvance(names[column.field]);
        for (const PrintRecord& record : report.records) {
            const QString text = record[static_cast<size_t>(column.field)].trimmed();
            column.width =
                std::max(column.width, metrics.horizontalAdvance(text.left(wholeCharacters(column.field))));
        }
        column.width += ColumnGap;
        total += column.width;
    }
    return total;
}

double ReportPages::addHead(const Report& report) {
    const double top = lineHeight() * 1.5;
    last().items.push_back({QStringLiteral("DateQRLabel"),
                            QLocale().toString(report.DateQRLabel, QLocale::ShortFormat),
                            {0, 0, m_room.width(), lineHeight()},
                            Qt::AlignRight | Qt::AlignVCenter});
    const bool both = report.head.drive.left > 0 && report.head.file.left > 0;
    addBlock(report.head.drive, DriveBlockNames, top,
             both ? report.head.file.left * ToldUnit : m_room.width());
    addBlock(report.head.file, FileBlockNames, top, m_room.width());
    return addCaptions(top);
}

double ReportPages::addCaptions(double top) {
    for (const QString& caption : HeadCaptions) {
        last().items.push_back({{}, caption, {0, top, m_room.width(), lineHeight()}});
        last().items.back().bold = true;
        top += lineHeight();
    }
    return top + lineHeight() / 2;
}

void ReportPages::addBlock(const ReportBlock& block, const QStringList& names, double top, double right) {
    const double left = block.left * ToldUnit;
    const double width = block.left > 0 ? right - left - BlockGap : 0;
    for (size_t i = 0; i < block.texts.size(); ++i) {
        last().items.push_back({names[static_cast<int>(i)],
                                block.texts[i],
                                {left, top + lineHeight() * double(i), width, lineHeight()}});
    }
}

double ReportPages::addColumnHeads(double top) {
    const QStringList names = printFieldNames();
    last().shades.push_back({0, top, m_room.width(), lineHeight()});
    for (const Column& column : m_columns) {
        last().items.push_back({column.field == NoteField ? QStringLiteral("QRLabel12") : QString(),
                                names[column.field],
                                {column.left, top, column.width - ColumnGap, lineHeight()},
                                alignmentOf(column.field),
                                true});
    }
    return top + lineHeight();
}

void ReportPages::addRows(const Report& report, double top) {
    const double bottom = m_room.height() - lineHeight() * 1.5;
    for (const PrintRecord& record : report.records) {
        if (top + lineHeight() > bottom) {
            m_pages.emplace_back();
            top = addColumnHeads(0);
        }
        addRow(record, top);
        top += lineHeight();
    }
}

void ReportPages::addRow(const PrintRecord& record, double top) {
    const bool group = isGroupRecord(record);
    if (group) last().shades.push_back({0, top, m_room.width(), lineHeight()});
    last().lines.push_back({0, top + lineHeight(), m_room.width(), top + lineHeight()});
    for (const Column& column : m_columns) {
        last().items.push_back({printFieldNames()[column.field],
                                record[static_cast<size_t>(column.field)].trimmed(),
                                {column.left, top, column.width - ColumnGap, lineHeight()},
                                group ? Qt::AlignLeft | Qt::AlignVCenter : alignmentOf(column.field),
                                group});
    }
}

void ReportPages::addFeet(const QDateTime& at) {
    const QRectF foot(0, m_room.height() - lineHeight(), m_room.width(), lineHeight());
    for (int i = 0; i < count(); ++i) {
        ReportPage& page = m_pages[static_cast<size_t>(i)];
        page.lines.push_back({foot.topLeft(), foot.topRight()});
        page.items.push_back({{}, QLocale().toString(at, QLocale::ShortFormat), foot});
        page.items.push_back({QStringLiteral("PageQRLabel"),
                              QStringLiteral("Page %1 of %2").arg(i + 1).arg(count()), foot,
                              Qt::AlignRight | Qt::AlignVCenter});
    }
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
