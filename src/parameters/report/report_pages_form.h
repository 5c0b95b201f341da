// The printed report as pages of placed texts, and their painting: head with identity and date on the first
// page, column heads and a foot with the page number on every page. Preview, printer and PDF paint the same
// pages.
#pragma once

#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <vector>

#include "parameters/report/print_records.h"

class QPagedPaintDevice;
class QPainter;

namespace kelvane {

// Places are in report units, 960 to the inch (fine enough for the metrics of a font), from the corner of the
// printable room.
struct ReportItem {
    QString name;  // of a field or a label of the report; empty for what has none
    QString text;
    QRectF room;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool bold = false;
};

struct ReportPage {
    std::vector<ReportItem> items;
    std::vector<QRectF> shades;  // behind column heads and group rows
    std::vector<QLineF> lines;
};

inline constexpr double ReportUnitsPerInch = 960;

class ReportPages {
   public:
    // room: printable size of a page in report units. The font is as large as the columns allow.
    ReportPages(const Report& report, QSizeF room);

    int count() const { return static_cast<int>(m_pages.size()); }
    const ReportPage& page(int index) const { return m_pages[static_cast<size_t>(index)]; }
    QFont font() const { return m_font; }
    // One page on a painter whose units are report units.
    void paint(QPainter& painter, int index) const;

   private:
    struct Column {
        int field;  // of a record
        double left = 0;
        double width = 0;
    };
    void fitColumns(const Report& report);
    double naturalWidths(const Report& report);
    double addHead(const Report& report);
    double addCaptions(double top);
    void addBlock(const ReportBlock& block, const QStringList& names, double top, double right);
    double addColumnHeads(double top);
    void addRows(const Report& report, double top);
    void addRow(const PrintRecord& record, double top);
    void addFeet(const QDateTime& at);
    double lineHeight() const;
    ReportPage& last() { return m_pages.back(); }

    QSizeF m_room;
    QFont m_font;
    std::vector<Column> m_columns;
    std::vector<ReportPage> m_pages;
};

// Paints all pages on a printer or a PDF with its page size and margins.
void paintReport(const Report& report, QPagedPaintDevice& device);
// Printable room of a device's page in report units.
QSizeF reportRoom(const QPagedPaintDevice& device);

}  // namespace kelvane
