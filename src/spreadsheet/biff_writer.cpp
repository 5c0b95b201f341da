#include "spreadsheet/biff_writer.h"

#include <QSet>
#include <algorithm>
#include <array>

#include "spreadsheet/biff_records.h"
#include "spreadsheet/compound_file.h"
#include "spreadsheet/little_endian.h"
#include "spreadsheet/shared_strings.h"

namespace kelvane {

namespace {

constexpr quint16 DefaultCellXf = 15;  // 0 to 14 are the styles every workbook has
constexpr std::size_t MaxFormats = 4000;
constexpr int RowsPerBlock = 32;
constexpr std::size_t RangesPerRecord = 1027;

void appendRecord(QByteArray& out, quint16 kind, const QByteArray& body) {
    appendU16(out, kind);
    appendU16(out, quint32(body.size()));
    out.append(body);
}

// A record whose body is a row of 16-bit numbers.
void appendWords(QByteArray& out, quint16 kind, std::initializer_list<quint32> words) {
    appendU16(out, kind);
    appendU16(out, quint32(words.size()) * 2);
    for (quint32 word : words) appendU16(out, word);
}

void appendBof(QByteArray& out, quint16 substream) {
    appendWords(out, biff::Bof, {biff::Version8, substream, 0x0DBB, 0x07CC, 0x0041, 0, 0x0006, 0});
}

// Fonts and cell formats in the order of their numbers in the file.
class Formats {
   public:
    quint16 xfOf(const CellFormat& format) {
        if (format == CellFormat{}) return DefaultCellXf;
        const auto known = std::find(m_formats.begin(), m_formats.end(), format);
        if (known == m_formats.end()) {
            m_formats.push_back(format);
            return static_cast<quint16>(DefaultCellXf + m_formats.size());
        }
        return static_cast<quint16>(DefaultCellXf + 1 + (known - m_formats.begin()));
    }

    std::size_t count() const { return m_formats.size(); }

    void append(QByteArray& out) const {
        std::vector<LookOfFont> fonts(4);
        QByteArray xfs;
        for (quint16 style = 0; style < DefaultCellXf; ++style) appendStyleXf(xfs, style);
        appendXf(xfs, 0, {});
        for (const CellFormat& format : m_formats) appendXf(xfs, fontOf(fonts, format), format);
        for (const LookOfFont& font : fonts) appendFont(out, font);
        out.append(xfs);
        appendRecord(out, biff::Style, QByteArray::fromHex("008000FF"));  // cell style "Normal"
    }

   private:
    struct LookOfFont {
        bool bold = false;
        int colour = 0;
        bool operator==(const LookOfFont&) const = default;
    };

    // The format skips font number 4.
    static quint16 fontOf(std::vector<LookOfFont>& fonts, const CellFormat& format) {
        const LookOfFont font{format.bold, format.fontColour};
        auto place = std::find(fonts.begin(), fonts.end(), font);
        if (place == fonts.end()) place = fonts.insert(fonts.end(), font);
        const auto position = static_cast<quint16>(place - fonts.begin());
        return position < 4 ? position : static_cast<quint16>(position + 1);
    }

    static void appendFont(QByteArray& out, const LookOfFont& font) {
        const QString face = QStringLiteral("Arial");
        QByteArray body;
        appendU16(body, 200);  // 10 points in twentieths
        appendU16(body, 0);
        appendU16(body, font.colour == 0 ? biff::AutomaticFontColour
                                         : quint32(font.colour + biff::ColourRegisterOffset));
        appendU16(body, font.bold ? biff::BoldWeight : biff::NormalWeight);
        for (quint32 byte : {0u, 0u, 0u, 0u, 0u, 0u}) appendU8(body, byte);
        appendU8(body, quint32(face.size()));
        appendU8(body, 0);
        appendCharacters(body, face, true);
        appendRecord(out, biff::Font, body);
    }

    static void appendStyleXf(QByteArray& out, quint16 style) {
        const quint32 ownParts = style == 0 ? 0x00u : 0xF400u;
        appendWords(out, biff::Xf, {0, 0, 0xFFF5, 0x0020, ownParts, 0, 0, 0, 0, 0x20C0});
    }

    static void appendXf(QByteArray& out, quint16 font, const CellFormat& format) {
        const bool filled = format.interiorColour != 0;
        const quint32 ownParts =
            (format.text ? 0x0400u : 0u) | (font != 0 ? 0x0800u : 0u) | (filled ? 0x4000u : 0u);
        const quint32 solid = filled ? 0x0400u : 0u;
        const quint32 colours =
            filled ? quint32(format.interiorColour + biff::ColourRegisterOffset) | 0x41u << 7 : 0x20C0u;
        appendWords(out, biff::Xf,
                    {font, format.text ? biff::TextNumberFormat : 0u, 0x0001, 0x0020, ownParts, 0, 0, 0,
                     solid, colours});
    }

    std::vector<CellFormat> m_formats;
};

class SheetWriter {
   public:
    SheetWriter(const Sheet& sheet, Formats& formats, SharedStrings& strings)
        : m_sheet(sheet), m_formats(formats), m_strings(strings) {}

    QByteArray bytes(bool selected) {
        appendBof(m_out, biff::SheetSubstream);
        appendWords(m_out, biff::DefaultRowHeight, {0, 0x00FF});
        appendWords(m_out, biff::WsBool, {0x04C1});
        appendWords(m_out, biff::DefColWidth, {8});
        appendColumns();
        appendDimensions();
        appendRows();
        appendWords(m_out, biff::Window2, {selected ? 0x06B6u : 0x00B6u, 0, 0, 64, 0, 0, 0, 0, 0});
        appendMerged();
        appendWords(m_out, biff::Eof, {});
        return m_out;
    }

   private:
    void appendColumns() {
        for (const auto& [number, column] : m_sheet.columns) {
            // Without a width of its own a hidden column keeps the standard one for the day it is shown.
            const quint32 width = biff::storedWidth(column.width > 0 ? column.width : biff::StandardWidth);
            appendWords(
                m_out, biff::ColInfo,
                {quint32(number - 1), quint32(number - 1), width, DefaultCellXf, column.hidden ? 1u : 0u, 0});
        }
    }

    void appendDimensions() {
        quint32 lastColumn = 0;
        for (const auto& [number, row] : m_sheet.rows)
            if (!row.cells.empty()) lastColumn = std::max(lastColumn, quint32(row.cells.back().column));
        const bool empty = m_sheet.rows.empty();
        QByteArray body;
        appendU32(body, empty ? 0 : quint32(m_sheet.rows.begin()->first - 1));
        appendU32(body, empty ? 0 : quint32(m_sheet.rows.rbegin()->first));
        for (quint32 word : {0u, lastColumn, 0u}) appendU16(body, word);
        appendRecord(m_out, biff::Dimensions, body);
    }

    // The heads of a block of rows stand in front of the cells of the block.
    void appendRows() {
        for (auto block = m_sheet.rows.begin(); block != m_sheet.rows.end();) {
            const int number = (block->first - 1) / RowsPerBlock;
            auto end = block;
            for (; end != m_sheet.rows.end() && (end->first - 1) / RowsPerBlock == number; ++end)
                appendRowHead(end->first, end->second);
            for (; block != end; ++block)
                for (const SheetCell& cell : block->second.cells) appendCell(block->first, cell);
        }
    }

    void appendRowHead(int number, const SheetRow& row) {
        const quint32 first = row.cells.empty() ? 0 : quint32(row.cells.front().column - 1);
        const quint32 end = row.cells.empty() ? 0 : quint32(row.cells.back().column);
        appendWords(m_out, biff::Row,
                    {quint32(number - 1), first, end, 0x00FF, 0, 0, 0x0100u | (row.hidden ? 0x20u : 0u),
                     DefaultCellXf});
    }

    void appendCell(int row, const SheetCell& cell) {
        const quint32 xf = m_formats.xfOf(cell.format);
        const auto place = quint32(row - 1), column = quint32(cell.column - 1);
        if (cell.text.isEmpty()) return appendWords(m_out, biff::Blank, {place, column, xf});
        const quint32 text = m_strings.indexOf(cell.text);
        appendWords(m_out, biff::LabelSst, {place, column, xf, text, text >> 16});
    }

    void appendMerged() {
        for (std::size_t begin = 0; begin < m_sheet.merged.size(); begin += RangesPerRecord) {
            const std::size_t count = std::min(RangesPerRecord, m_sheet.merged.size() - begin);
            QByteArray body;
            appendU16(body, quint32(count));
            for (std::size_t i = begin; i < begin + count; ++i) {
                const CellRange& range = m_sheet.merged[i];
                for (int edge : {range.firstRow, range.lastRow, range.firstColumn, range.lastColumn})
                    appendU16(body, quint32(edge - 1));
            }
            appendRecord(m_out, biff::MergedCells, body);
        }
    }

    const Sheet& m_sheet;
    Formats& m_formats;
    SharedStrings& m_strings;
    QByteArray m_out;
};

QByteArray boundSheet(const QString& name) {
    const bool eightBit = fitsEightBit(name);
    QByteArray body;
    appendU32(body, 0);  // where the sheet begins, filled in later
    appendU16(body, 0);
    appendU8(body, quint32(name.size()));
    appendU8(body, eightBit ? 0 : 1);
    appendCharacters(body, name, eightBit);
    return body;
}

BiffResult workbookStream(const Workbook& workbook) {
    Formats formats;
    SharedStrings strings;
    std::vector<QByteArray> sheets;
    for (std::size_t i = 0; i < workbook.sheets.size(); ++i)
        sheets.push_back(SheetWriter(workbook.sheets[i], formats, strings).bytes(i == workbook.selected));
    if (formats.count() > MaxFormats)
        return {false, QStringLiteral("the workbook has too many cell formats"), {}};

    BiffResult result;
    QByteArray& out = result.bytes;
    appendBof(out, biff::GlobalsSubstream);
    appendWords(out, biff::CodePage, {0x04B0});  // texts are Unicode
    appendWords(out, biff::Window1, {0, 0, 0x3FFF, 0x2000, 0x0038, quint32(workbook.selected), 0, 1, 0x0258});
    appendWords(out, biff::DateMode, {0});
    formats.append(out);
    std::vector<qsizetype> places;
    for (const Sheet& sheet : workbook.sheets) {
        places.push_back(out.size() + 4);
        appendRecord(out, biff::BoundSheet, boundSheet(sheet.name));
    }
    strings.append(out);
    appendWords(out, biff::Eof, {});
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        overwriteU32(out, places[i], quint32(out.size()));
        out.append(sheets[i]);
    }
    return result;
}

QString sheetFault(const Sheet& sheet) {
    if (QString fault = sheetNameFault(sheet.name); !fault.isEmpty()) return fault;
    for (const auto& [number, row] : sheet.rows) {
        if (!isCellPlace(number, 1)) return QStringLiteral("there is no row %1").arg(number);
        for (const SheetCell& cell : row.cells) {
            if (!isCellPlace(number, cell.column))
                return QStringLiteral("there is no column %1").arg(cell.column);
            if (cell.text.size() > MaxCellText)
                return QStringLiteral("the text in row %1, column %2 is too long")
                    .arg(number)
                    .arg(cell.column);
        }
    }
    return {};
}

QString workbookFault(const Workbook& workbook) {
    if (workbook.sheets.empty()) return QStringLiteral("the workbook has no sheet");
    if (workbook.sheets.size() > MaxSheets) return QStringLiteral("there are too many sheets");
    QSet<QString> names;
    std::size_t cells = 0;
    for (const Sheet& sheet : workbook.sheets) {
        if (QString fault = sheetFault(sheet); !fault.isEmpty()) return fault;
        if (names.contains(sheet.name.toCaseFolded()))
            return QStringLiteral("two sheets are named \"%1\"").arg(sheet.name);
        names.insert(sheet.name.toCaseFolded());
        for (const auto& [number, row] : sheet.rows) cells += row.cells.size();
    }
    return cells > MaxWorkbookCells ? QStringLiteral("the workbook has too many cells") : QString();
}

}  // namespace

BiffResult writeBiff(const Workbook& workbook) {
    if (const QString fault = workbookFault(workbook); !fault.isEmpty()) return {false, fault, {}};
    BiffResult stream = workbookStream(workbook);
    if (!stream.ok) return stream;
    const StreamResult file = writeCompoundFile(QStringLiteral("Workbook"), stream.bytes);
    return {file.ok, file.error, file.bytes};
}

}  // namespace kelvane
