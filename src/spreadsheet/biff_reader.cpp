#include "spreadsheet/biff_reader.h"

#include <cmath>
#include <cstring>
#include <optional>

#include "spreadsheet/biff_records.h"
#include "spreadsheet/biff_stream.h"
#include "spreadsheet/compound_file.h"

namespace kelvane {

namespace {

constexpr std::size_t MaxSharedStrings = 1'000'000;
constexpr std::size_t MaxLooks = 65536;  // fonts, formats and number formats are addressed by 16 bits

QString olderFormat() {
    return QStringLiteral(
        "the workbook is in an older format; save it as a workbook of version 97 or later (.xls)");
}
QString withPassword() { return QStringLiteral("the workbook is protected by a password"); }
QString damagedFile(const QString& what) { return QStringLiteral("the file is damaged (%1)").arg(what); }
QString tooLarge() { return QStringLiteral("the workbook is too large"); }

QString errorAsShown(quint8 code) {
    switch (code) {
        case 0x00: return QStringLiteral("#NULL!");
        case 0x07: return QStringLiteral("#DIV/0!");
        case 0x0F: return QStringLiteral("#VALUE!");
        case 0x17: return QStringLiteral("#REF!");
        case 0x1D: return QStringLiteral("#NAME?");
        case 0x24: return QStringLiteral("#NUM!");
        default: return QStringLiteral("#N/A");
    }
}

QString boolOrError(quint8 value, bool isError) {
    if (isError) return errorAsShown(value);
    return value != 0 ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

// 30 bits of an integer or of the upper end of a double, and whether it is a hundredth.
double rkNumber(quint32 rk) {
    const bool isInteger = (rk & 2) != 0;
    const double value = isInteger ? static_cast<qint32>(rk) >> 2
                                   : std::bit_cast<double>(static_cast<quint64>(rk & 0xFFFFFFFC) << 32);
    return (rk & 1) != 0 ? value / 100 : value;
}

int colourIndex(int colourRegister) {
    const int index = colourRegister - biff::ColourRegisterOffset;
    return index >= 1 && index <= MaxColourIndex ? index : 0;
}

struct SheetPlace {
    QString name;
    std::size_t offset = 0;
};

// What the sheets of a workbook share.
struct Globals {
    struct LookOfFont {
        bool bold = false;
        int colour = 0;
    };
    struct Xf {
        quint16 font = 0, numberFormat = 0;
        int interior = 0;
    };
    std::vector<LookOfFont> fonts;
    std::vector<Xf> xfs;
    std::vector<quint16> textFormats{biff::TextNumberFormat};
    std::vector<QString> strings;
    std::vector<SheetPlace> places;
    int front = 0;

    CellFormat formatOf(quint16 number) const {
        CellFormat format;
        if (number >= xfs.size()) return format;
        const Xf& xf = xfs[number];
        // Font number 4 does not exist.
        const std::size_t font = xf.font > 4 ? xf.font - 1u : xf.font;
        if (font < fonts.size()) {
            format.bold = fonts[font].bold;
            format.fontColour = fonts[font].colour;
        }
        format.text = std::find(textFormats.begin(), textFormats.end(), xf.numberFormat) != textFormats.end();
        format.interiorColour = xf.interior;
        return format;
    }
};

class GlobalsReader {
   public:
    GlobalsReader(RecordWalker& walker, Globals& globals) : m_walker(walker), m_globals(globals) {}

    // Empty or what is wrong.
    QString read() {
        while (m_walker.next()) {
            if (m_walker.kind() == biff::Eof) return {};
            take();
            if (!m_error.isEmpty()) return m_error;
        }
        return damagedFile(QStringLiteral("it is cut short"));
    }

   private:
    void take() {
        const ByteView& head = m_walker.head();
        switch (m_walker.kind()) {
            case biff::FilePass: m_error = withPassword(); break;
            case biff::Window1: m_globals.front = head.u16(10); break;
            case biff::Font: takeFont(head); break;
            case biff::Format: takeFormat(); break;
            case biff::Xf: takeXf(head); break;
            case biff::BoundSheet: takePlace(); break;
            case biff::SharedStrings: takeStrings(); break;
            default: break;
        }
        if (std::max(m_globals.fonts.size(), m_globals.xfs.size()) > MaxLooks) m_error = tooLarge();
    }

    void takeFont(const ByteView& head) {
        m_globals.fonts.push_back({.bold = head.u16(6) >= 600, .colour = colourIndex(head.u16(4))});
    }

    void takeFormat() {
        BodyReader body = m_walker.body();
        const quint16 number = body.u16();
        const bool isText = body.longText() == QStringLiteral("@");
        if (isText && m_globals.textFormats.size() < 64) m_globals.textFormats.push_back(number);
    }

    void takeXf(const ByteView& head) {
        const bool solid = head.u32(14) >> 26 == 1;
        m_globals.xfs.push_back({.font = head.u16(0),
                                 .numberFormat = head.u16(2),
                                 .interior = solid ? colourIndex(head.u16(18) & 0x7F) : 0});
    }

    void takePlace() {
        BodyReader body = m_walker.body();
        const quint32 offset = body.u32();
        const bool worksheet = (body.u16() >> 8) == 0;  // else a chart or a macro sheet
        const QString name = body.shortText();
        if (!body.good()) m_error = damagedFile(QStringLiteral("a sheet's name"));
        if (worksheet) m_globals.places.push_back({name, offset});
        if (m_globals.places.size() > MaxSheets) m_error = tooLarge();
    }

    void takeStrings() {
        BodyReader body = m_walker.body();
        body.skip(4);
        const quint32 count = body.u32();
        for (quint32 i = 0; i < count && m_error.isEmpty(); ++i) {
            m_globals.strings.push_back(body.longText());
            if (!body.good()) m_error = damagedFile(QStringLiteral("its texts"));
            if (m_globals.strings.size() > MaxSharedStrings) m_error = tooLarge();
        }
    }

    RecordWalker& m_walker;
    Globals& m_globals;
    QString m_error;
};

class SheetReader {
   public:
    SheetReader(RecordWalker& walker, const Globals& globals, std::size_t& cellsLeft, Sheet& sheet)
        : m_walker(walker), m_globals(globals), m_cellsLeft(cellsLeft), m_sheet(sheet) {}

    QString read() {
        int depth = 0;  // charts inside the sheet are workbook parts of their own
        while (m_walker.next()) {
            if (m_walker.kind() == biff::Bof)
                ++depth;
            else if (m_walker.kind() == biff::Eof && --depth == 0)
                return {};
            else if (depth == 1)
                take();
            if (depth <= 0) return damagedFile(QStringLiteral("a sheet does not begin where it should"));
            if (!m_error.isEmpty()) return m_error;
        }
        return damagedFile(QStringLiteral("it is cut short"));
    }

   private:
    void take() {
        const ByteView& head = m_walker.head();
        switch (m_walker.kind()) {
            case biff::ColInfo: takeColumns(head); break;
            case biff::Row: takeRow(head); break;
            case biff::MergedCells: takeMerged(head); break;
            case biff::LabelSst: takeSharedText(head); break;
            case biff::Label:
            case biff::RString: takeText(); break;
            case biff::Number: putNumber(head, head.f64(6)); break;
            case biff::Rk: putNumber(head, rkNumber(head.u32(6))); break;
            case biff::BoolErr: put(head, boolOrError(head.u8(6), head.u8(7) != 0)); break;
            case biff::Blank: put(head, {}); break;
            case biff::MulRk: takeSeveral(head, 6); break;
            case biff::MulBlank: takeSeveral(head, 2); break;
            case biff::Formula: takeFormula(head); break;
            case biff::FormulaString: takeFormulaText(); break;
            default: break;
        }
    }

    void put(quint16 row, quint16 column, quint16 xf, const QString& text, bool number = false) {
        if (column >= MaxSheetColumn) return fail(QStringLiteral("a cell outside its sheet"));
        const CellFormat format = m_globals.formatOf(xf);
        if (text.isEmpty() && format == CellFormat{}) return;
        if (m_cellsLeft == 0) {
            m_error = tooLarge();
            return;
        }
        --m_cellsLeft;
        SheetCell& cell = m_sheet.at(row + 1, column + 1);
        cell.format = format;
        cell.text = text;
        cell.number = number;
    }
    void put(const ByteView& head, const QString& text) { put(head.u16(0), head.u16(2), head.u16(4), text); }
    void putNumber(const ByteView& head, double value) {
        put(head.u16(0), head.u16(2), head.u16(4), numberAsShown(value), true);
    }

    void takeSharedText(const ByteView& head) {
        const quint32 number = head.u32(6);
        if (number >= m_globals.strings.size()) return fail(QStringLiteral("a text that is not there"));
        put(head, m_globals.strings[number]);
    }

    void takeText() {
        const ByteView head = m_walker.head();
        BodyReader body = m_walker.body();
        body.skip(6);
        const QString text = body.longText();
        if (!body.good()) return fail(QStringLiteral("a text"));
        put(head, text);
    }

    // Several cells of one row, each of a format and, with 6 bytes a cell, a number.
    void takeSeveral(const ByteView& head, std::size_t bytesPerCell) {
        quint32 column = head.u16(2);
        for (std::size_t at = 4; at + bytesPerCell + 2 <= head.size(); at += bytesPerCell, ++column) {
            if (column >= MaxSheetColumn) return fail(QStringLiteral("a cell outside its sheet"));
            const QString text = bytesPerCell == 6 ? numberAsShown(rkNumber(head.u32(at + 2))) : QString();
            put(head.u16(0), static_cast<quint16>(column), head.u16(at), text, bytesPerCell == 6);
        }
    }

    void takeFormula(const ByteView& head) {
        m_waiting.reset();
        if (head.u16(12) != 0xFFFF) return putNumber(head, head.f64(6));
        switch (head.u8(6)) {
            case 0: m_waiting = head; break;  // its text comes in a record of its own
            case 1: put(head, boolOrError(head.u8(8), false)); break;
            case 2: put(head, boolOrError(head.u8(8), true)); break;
            default: put(head, {}); break;
        }
    }

    void takeFormulaText() {
        BodyReader body = m_walker.body();
        const QString text = body.longText();
        if (!body.good()) return fail(QStringLiteral("a text"));
        if (m_waiting) put(*m_waiting, text);
        m_waiting.reset();
    }

    void takeRow(const ByteView& head) {
        if ((head.u16(12) & 0x20) != 0) m_sheet.rows[head.u16(0) + 1].hidden = true;
    }

    void takeColumns(const ByteView& head) {
        const double width = biff::widthInCharacters(head.u16(4));
        const bool hidden = (head.u16(8) & 1) != 0;
        const bool standard = width == biff::StandardWidth;
        if (standard && !hidden) return;
        // The last column's number may be one too many.
        const int last = std::min<int>(head.u16(2), MaxSheetColumn - 1);
        for (int column = head.u16(0); column <= last; ++column)
            m_sheet.columns[column + 1] = {.width = standard ? 0 : width, .hidden = hidden};
    }

    void takeMerged(const ByteView& head) {
        const std::size_t count =
            std::min<std::size_t>(head.u16(0), (head.size() - std::min<std::size_t>(2, head.size())) / 8);
        for (std::size_t at = 2; at < 2 + count * 8; at += 8) {
            const CellRange range{.firstRow = head.u16(at) + 1,
                                  .firstColumn = head.u16(at + 4) + 1,
                                  .lastRow = head.u16(at + 2) + 1,
                                  .lastColumn = head.u16(at + 6) + 1};
            if (range.lastRow >= range.firstRow && range.lastColumn >= range.firstColumn &&
                range.lastColumn <= MaxSheetColumn)
                m_sheet.merged.push_back(range);
        }
    }

    void fail(const QString& what) { m_error = damagedFile(what); }

    RecordWalker& m_walker;
    const Globals& m_globals;
    std::size_t& m_cellsLeft;
    Sheet& m_sheet;
    std::optional<ByteView> m_waiting;
    QString m_error;
};

QString readStream(const QByteArray& stream, Workbook& workbook) {
    const ByteView view(stream);
    if (view.u16(0) != biff::Bof)
        return view.u16(0) == 0x0009 || view.u16(0) == 0x0209 || view.u16(0) == 0x0409
                   ? olderFormat()
                   : damagedFile(QStringLiteral("it does not begin as a workbook"));
    if (view.u16(4) != biff::Version8) return olderFormat();

    RecordWalker::Budget budget{2 * view.size()};
    Globals globals;
    RecordWalker walker(stream, 0, budget);
    if (QString error = GlobalsReader(walker, globals).read(); !error.isEmpty()) return error;
    if (globals.places.empty()) return damagedFile(QStringLiteral("it has no sheet"));

    std::size_t cellsLeft = MaxWorkbookCells;
    for (const SheetPlace& place : globals.places) {
        Sheet& sheet = workbook.sheets.emplace_back();
        sheet.name = place.name;
        RecordWalker sheetWalker(stream, place.offset, budget);
        if (QString error = SheetReader(sheetWalker, globals, cellsLeft, sheet).read(); !error.isEmpty())
            return error;
    }
    const auto front = static_cast<std::size_t>(globals.front);
    workbook.selected = front < workbook.sheets.size() ? front : 0;
    return {};
}

// Foreign files that a person might take for an .xls.
QString foreignFile(const QByteArray& file) {
    if (file.isEmpty()) return QStringLiteral("the file is empty");
    if (file.startsWith("PK\x03\x04"))
        return QStringLiteral(
            "the workbook is in a newer format; save it as a workbook of version 97 to 2003 (.xls)");
    const ByteView view(file);
    const quint16 kind = view.u16(0);
    const bool oldWorkbook = (kind == 0x0009 || kind == 0x0209 || kind == 0x0409 || kind == biff::Bof);
    if (oldWorkbook && view.u16(2) <= 16) return olderFormat();
    return QStringLiteral("the file is no .xls workbook");
}

}  // namespace

QString numberAsShown(double value) {
    if (!std::isfinite(value)) return errorAsShown(0x24);
    if (value == 0) return QStringLiteral("0");
    const double size = std::fabs(value);
    if (size < 1e-9 || size >= 1e15) return QString::number(value, 'G', 15);
    const int digitsInFront = static_cast<int>(std::floor(std::log10(size))) + 1;
    QString text = QString::number(value, 'f', std::max(0, 15 - digitsInFront));
    if (!text.contains(u'.')) return text;
    while (text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    return text;
}

WorkbookResult readBiff(const QByteArray& file) {
    WorkbookResult result;
    if (!looksLikeCompoundFile(file)) return {false, foreignFile(file), {}};
    const StreamResult stream = readCompoundStream(
        file, {QStringLiteral("Workbook"), QStringLiteral("Book"), QStringLiteral("EncryptedPackage")});
    if (!stream.ok) return {false, stream.error, {}};
    if (stream.name == QStringLiteral("EncryptedPackage")) return {false, withPassword(), {}};
    result.error = readStream(stream.bytes, result.workbook);
    result.ok = result.error.isEmpty();
    if (!result.ok) result.workbook = {};
    return result;
}

}  // namespace kelvane
