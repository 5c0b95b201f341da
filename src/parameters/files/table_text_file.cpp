#include "parameters/files/table_text_file.h"

#include <algorithm>

#include "base/text_8bit.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int FieldWidth = 9;
constexpr int InfoLabels = 6;
const auto EmptyUnit = QStringLiteral("    ");
const auto EmptyMark = QStringLiteral("####");
const auto ComparisonType = QStringLiteral("[Comparison Type]");
const auto DriveInfo = QStringLiteral("[Drive Info]");
const auto FileInfo = QStringLiteral("[File Info]");
const auto Result = QStringLiteral("[Result]");
const auto LineEnd = QLatin1String("\r\n");

constexpr std::array<const char*, InfoLabels> InfoLabelTexts{
    "Table Source =", "Drive Series =", "Version      =",
    "Rated Current=", "Rated Voltage=", "kW(Hp)       ="};

// Writing

QString headerText(const StringGrid& grid, int column) {
    switch (column) {
        case column::Check: return QStringLiteral("Check");
        case column::Description: return QStringLiteral("Description     ");
        case column::Address: return QStringLiteral("Address");  // Kept: also over the notes of a comparison
        case column::Dot: return QStringLiteral("Dot");
        case column::RunSet: return QStringLiteral("Run Set");
        default: return grid.cell(column, 0);
    }
}

QString cellText(const StringGrid& grid, int column, int row) {
    if (row == 0) return headerText(grid, column);
    if (column == column::Check) return grid.checkBox(row) ? QStringLiteral("V") : QStringLiteral("X");
    return grid.cell(column, row);
}

QString fieldText(const StringGrid& grid, int column, int row, TextFormat format) {
    QString text = cellText(grid, column, row);
    if (text == EmptyUnit) text = EmptyMark;
    // Kept: the quotes count for the nine characters, so a long text loses its closing one.
    if (format == TextFormat::Csv && text.contains(separatorOf(format)))
        text = QLatin1Char('"') % text % QLatin1Char('"');
    return column == column::Description ? text : text.leftJustified(FieldWidth, QLatin1Char(' '), true);
}

void appendRows(QString& memo, const StringGrid& grid, int firstColumn, int lastColumn, TextFormat format) {
    for (int row = 0; row < grid.RowCount(); ++row) {
        for (int c = firstColumn; c <= lastColumn; ++c)
            memo += fieldText(grid, c, row, format) % separatorOf(format);
        memo += LineEnd;
    }
}

QString informationLine(const TableIdentity& identity, int groups, QChar separator) {
    QStringList fields{
        identity.model,         identity.version, identity.ratedCurrent,
        identity.ratedVoltage,  identity.hp,      QString::number(static_cast<int>(identity.family)),
        QString::number(groups)};
    for (int G = 0; G < groups; ++G)
        fields << QString::number(identity.groupParamCount[static_cast<size_t>(G)]);
    return fields.join(separator) % separator % LineEnd;
}

void appendInfo(QString& memo, const QString& section, const StringGrid& info, int row) {
    memo += section % LineEnd;
    for (int i = 0; i < InfoLabels; ++i)
        memo +=
            QLatin1String(InfoLabelTexts[static_cast<size_t>(i)]) % info.visibleCell(i + 1, row) % LineEnd;
    memo += LineEnd;
}

// Reading

// Lines of a text; CR LF, CR or LF end one, and the last line end opens no further line.
std::vector<QStringView> linesOf(QStringView text, size_t maxLines) {
    std::vector<QStringView> lines;
    qsizetype start = 0;
    while (start < text.size() && lines.size() < maxLines) {
        qsizetype end = start;
        while (end < text.size() && text[end] != u'\r' && text[end] != u'\n') ++end;
        lines.push_back(text.mid(start, end - start));
        start = end + (end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n' ? 2 : 1);
    }
    return lines;
}

// The first fields of a line; reading behind the last gives empty text.
class Fields {
   public:
    Fields(QStringView line, QChar separator, size_t maxFields) {
        qsizetype start = 0;
        while (start < line.size() && m_fields.size() < maxFields) {
            qsizetype end = line.indexOf(separator, start);
            if (end < 0) end = line.size();
            m_fields.push_back(line.mid(start, end - start).toString());
            start = end + 1;
        }
    }
    QString at(size_t index) const { return index < m_fields.size() ? m_fields[index] : QString(); }
    // Number of a field; the old one when it is none or does not fit.
    int number(size_t index, int old, int largest) const {
        bool ok = false;
        const int value = at(index).toInt(&ok);
        return ok && value >= 0 && value <= largest ? value : old;
    }

   private:
    std::vector<QString> m_fields;
};

// Takes the padding of a nine-character field away, by position: what has no blank stays whole.
QString withoutPadding(QString field) {
    const qsizetype blank = field.indexOf(QLatin1Char(' '));
    if (blank >= 0 && blank < FieldWidth) field.remove(blank, FieldWidth - blank);
    return field;
}

QString withoutFirstQuote(QString field) {
    const qsizetype at = field.indexOf(QLatin1Char('"'));
    return at < 0 ? field : field.remove(at, 1);
}

TableIdentity informationOf(QStringView line, QChar separator, const TableIdentity& before) {
    constexpr size_t FirstCount = 7;
    const Fields fields(line, separator, FirstCount + before.groupParamCount.size());
    TableIdentity identity = before;
    identity.model = fields.at(0);
    identity.version = fields.at(1);
    identity.ratedCurrent = fields.at(2);
    identity.ratedVoltage = fields.at(3);
    identity.hp = fields.at(4);
    identity.family = static_cast<Family>(fields.number(5, static_cast<int>(before.family), 255));
    // Kept: a field that is no number, and every count behind the last group, stays as it was.
    identity.groupCount = static_cast<quint8>(fields.number(6, before.groupCount, 255));
    for (size_t G = 0; G < identity.groupCount; ++G)
        identity.groupParamCount[G] =
            static_cast<quint16>(fields.number(FirstCount + G, before.groupParamCount[G], 65535));
    return identity;
}

LoadedTable::Row tableRow(QStringView line, QChar separator) {
    const Fields fields(line, separator, 2 * TableColumns);
    LoadedTable::Row row;
    size_t index = 0;
    for (int c = 0; c < TableColumns; ++c, ++index) {
        QString field = fields.at(index);
        if (c != column::Description) field = withoutPadding(field);
        if (c == column::Check) {
            row.check = field == QLatin1String("V");
            continue;
        }
        if (field == EmptyMark) continue;  // Kept: a unit of four blanks comes back empty
        // Kept: a quote always means a field that was split at its own separator, in whatever column.
        if (field.contains(QLatin1Char('"'))) {
            ++index;
            field = withoutFirstQuote(field) % separator % withoutFirstQuote(fields.at(index));
        }
        row.cells[static_cast<size_t>(c)] = field;
    }
    if (row.cells[column::PrNo] == QLatin1String("*****")) row.check.reset();
    return row;
}

LoadedFile failed(const QString& error) { return {{}, {}, error, {}}; }

// The second line as a rule; a file with other lines in front is a table all the same.
bool hasHeader(const std::vector<QStringView>& lines, QChar separator) {
    return std::any_of(lines.begin(), lines.end(), [separator](QStringView line) {
        const Fields fields(line, separator, 2);
        return fields.at(0).trimmed() == QLatin1String("Pr. No") ||
               fields.at(1).trimmed() == QLatin1String("Pr. No");
    });
}

LoadedFile readTable(const std::vector<QStringView>& lines, QChar separator, const TableIdentity& before) {
    if (!hasHeader(lines, separator)) return failed(QStringLiteral("The file holds no parameter table."));
    LoadedTable table;
    table.identity = informationOf(lines[0], separator, before);
    for (size_t i = 2; i < lines.size(); ++i) table.rows.push_back(tableRow(lines[i], separator));
    return {std::move(table), {}, {}, {}};
}

std::array<QString, ComparisonColumns> comparisonRow(QStringView line, QChar separator) {
    const Fields fields(line, separator, ComparisonColumns);
    std::array<QString, ComparisonColumns> cells;
    // Kept: quotes are not put together again here, so a description with the separator in it shifts its row.
    for (size_t i = 0; i + 1 < cells.size(); ++i) {
        QString field = fields.at(i);
        if (i + 1 != column::Description) field = withoutPadding(field);
        if (field != EmptyMark) cells[i + 1] = field;
    }
    return cells;
}

// Walks the lines of a comparison file.
class ComparisonLines {
   public:
    ComparisonLines(const std::vector<QStringView>& lines, QChar separator)
        : m_lines(lines), m_separator(separator) {}

    LoadedFile read() {
        while (m_at < m_lines.size()) {
            const QStringView line = next();
            if (line == ComparisonType) m_result.CompKindLabel = next().toString();
            if (line == DriveInfo) readInfo(m_result.driveInfo);
            if (line == FileInfo) readInfo(m_result.fileInfo);
            if (line == Result) return readResult();
        }
        return failed(QStringLiteral("The file holds no comparison result."));
    }

   private:
    QStringView next() { return m_at < m_lines.size() ? m_lines[m_at++] : QStringView(); }
    void readInfo(CompInfoRow& info) {
        for (QString& text : info) {
            const QStringView line = next();
            text = line.mid(line.indexOf(u'=') + 1).toString();
        }
    }
    LoadedFile readResult() {
        next();  // the header
        while (m_at < m_lines.size()) m_result.rows.push_back(comparisonRow(next(), m_separator));
        return {{}, std::move(m_result), {}, {}};
    }

    const std::vector<QStringView>& m_lines;
    QChar m_separator;
    size_t m_at = 0;
    LoadedComparison m_result;
};

}  // namespace

QChar separatorOf(TextFormat format) {
    if (format == TextFormat::Txt) return QLatin1Char('|');
    return DecimalSep == QLatin1String(".") ? QLatin1Char(',') : QLatin1Char(';');
}

QByteArray writeTableText(const ParameterTable& table, bool RparaAbLED, TextFormat format) {
    QString memo =
        informationLine(table.identity, savedGroupCount(table.identity, RparaAbLED), separatorOf(format));
    appendRows(memo, table.grid, column::Check, column::RunSet, format);
    return to8Bit(memo);
}

QByteArray writeComparisonText(ComparisonSheet& sheet, TextFormat format) {
    StringGrid& info = sheet.CompInfoAdvStringGrid;
    info.showAllRows();
    QString memo = ComparisonType % LineEnd % sheet.CompKindLabel % LineEnd % LineEnd;
    appendInfo(memo, DriveInfo, info, 1);
    appendInfo(memo, FileInfo, info, 2);
    memo += Result % LineEnd;
    appendRows(memo, sheet.CompareAdvStringGrid, column::PrNo, column::Note, format);
    // Kept: after "Drive vs. default" row 2 stays shown.
    if (sheet.CompKindLabel == QLatin1String(FileVsDefault)) info.setRowHidden(1, true);
    return to8Bit(memo);
}

LoadedFile readTableText(const QByteArray& bytes, TextFormat format, const TableIdentity& before) {
    constexpr size_t MaxLines = 3 * size_t(MaxTableRows) + 32;  // a comparison has up to three rows a pair
    // An editor of today may have put the mark of UTF-8 in front.
    const QString text = from8Bit(bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes);
    const std::vector<QStringView> lines = linesOf(text, MaxLines + 1);
    // Kept: a comparison with anything in front of its first line is taken for a table.
    const bool comparison = !lines.empty() && lines[0] == ComparisonType;
    if (lines.size() > (comparison ? MaxLines : size_t(MaxTableRows) + 2))
        return failed(QStringLiteral("The file has more lines than a parameter table can have."));
    if (comparison) return ComparisonLines(lines, separatorOf(format)).read();
    return readTable(lines, separatorOf(format), before);
}

}  // namespace kelvane
