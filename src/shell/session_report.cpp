#include "shell/session_report.h"

namespace kelvane {

namespace {

QString heading(const QString& text) { return QStringLiteral("<h2>%1</h2>").arg(text.toHtmlEscaped()); }

QString cell(const QString& text, const char* tag = "td") {
    return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(tag), text.toHtmlEscaped());
}

QString pairs(const QList<std::pair<QString, QString>>& lines) {
    QString html = QStringLiteral("<table cellpadding=2>");
    for (const auto& [name, value] : lines)
        html += QStringLiteral("<tr>") % cell(name) % cell(value) % QStringLiteral("</tr>");
    return html % QStringLiteral("</table>");
}

// Columns 1 to `last`, header and rows; a group row is one bold line.
QString gridRows(const StringGrid& grid, int last) {
    QString html = QStringLiteral("<table border=1 cellspacing=0 cellpadding=2 width=100%>");
    for (int row = 0; row < grid.RowCount(); ++row) {
        if (row > 0 && grid.cell(1, row) == QLatin1String("*****")) {
            html += QStringLiteral("<tr><td colspan=%1><b>%2</b></td></tr>")
                        .arg(last)
                        .arg(grid.cell(3, row).toHtmlEscaped());
            continue;
        }
        html += row == 0 ? QStringLiteral("<thead><tr>") : QStringLiteral("<tr>");
        for (int column = 1; column <= last; ++column)
            html += cell(grid.cell(column, row), row == 0 ? "th" : "td");
        html += row == 0 ? QStringLiteral("</tr></thead>") : QStringLiteral("</tr>");
    }
    return html % QStringLiteral("</table>");
}

QString identity(const Tool& tool) {
    const DriveLabelsRecord& drive = tool.link.Labels;
    if (drive.DriveVrLabel.isEmpty()) return QStringLiteral("<p>No drive was on line.</p>");
    return pairs({{QStringLiteral("Drive"), drive.DriveVrLabel},
                  {QStringLiteral("Version"), drive.VersionVrLabel},
                  {QStringLiteral("kW ( Hp )"), drive.HPVrLabel},
                  {QStringLiteral("Rated Voltage"), drive.RatedVoltageVrLabel},
                  {QStringLiteral("Rated Current"), drive.RatedCurrentVrLabel}});
}

QString connection(const Tool& tool) {
    const PortSettings& line = tool.linkPort.settings();
    return pairs({{QStringLiteral("State"), tool.link.Lamp.ComStatusAbLED},
                  {QStringLiteral("Port"), QStringLiteral("%1, %2")
                                               .arg(line.ComNumber)
                                               .arg(PortDirectory::describe(tool.linkPort.target()).device)},
                  {QStringLiteral("Line"),
                   QStringLiteral("%1, %2, %3, %4, %5")
                       .arg(tool.link.ComMode ? QStringLiteral("RTU") : QStringLiteral("ASCII"))
                       .arg(line.Baud)
                       .arg(line.DataBits)
                       .arg(parityLetter(line.Parity))
                       .arg(line.StopBits)}});
}

QString tables(const Tool& tool) {
    constexpr int TableColumns = 9;
    constexpr int ComparisonColumns = 10;
    const ParameterSession& parameters = tool.parameters;
    QString html;
    const auto add = [&html](const QString& title, const StringGrid& grid, int columns) {
        constexpr int EmptyRows = 2;  // the header and one blank row
        if (grid.RowCount() < EmptyRows || grid.cell(1, 1).trimmed().isEmpty()) return;
        html += heading(title) % gridRows(grid, columns);
    };
    add(QStringLiteral("Comparison: ") % parameters.comparison.CompKindLabel, parameters.CompareAdvStringGrid,
        ComparisonColumns);
    const bool whole = parameters.reader.DriveTableComplete == 1;
    add(whole ? QStringLiteral("Table from Drive") : QStringLiteral("Table from Drive, not read to its end"),
        parameters.DriveAdvStringGrid, TableColumns);
    add(QStringLiteral("Table from File"), parameters.FileAdvStringGrid, TableColumns);
    return html;
}

}  // namespace

QString sessionReport(const Tool& tool, const QString& notes, bool hasTrend) {
    const QDateTime now = tool.site.wallClock.now();
    QString html = QStringLiteral("<h1>Orlan Kelvane 1.30: session report</h1><p>%1</p>")
                       .arg(QLocale().toString(now, QLocale::ShortFormat));
    if (!notes.trimmed().isEmpty())
        html +=
            heading(QStringLiteral("Notes")) %
            QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(notes.trimmed().toHtmlEscaped());
    html += heading(QStringLiteral("Drive")) % identity(tool) % heading(QStringLiteral("Connection")) %
            connection(tool);
    html += heading(QStringLiteral("Faults"));
    html += tool.faults.entries() > 0 ? gridRows(tool.faults.ErrorAdvStringGrid, 3)
                                      : QStringLiteral("<p>None was seen while a trend ran.</p>");
    if (hasTrend) html += heading(QStringLiteral("Trend")) % QStringLiteral("<p><img src=\"trend\"></p>");
    return html % tables(tool);
}

QString sessionReportName(const Tool& tool) {
    const QString drive = tool.link.Labels.DriveVrLabel.simplified();
    return tool.site.wallClock.now().date().toString(Qt::ISODate) % QLatin1Char(' ') %
           (drive.isEmpty() ? QString() : drive % QLatin1Char(' ')) % QStringLiteral("session");
}

}  // namespace kelvane
