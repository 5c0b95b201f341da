// Numbers of the published BIFF8 format that writer and reader share: record kinds, limits, and how a
// column's width and a colour index are stored.
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <cmath>

namespace kelvane::biff {

enum Record : quint16 {
    Formula = 0x0006,
    Eof = 0x000A,
    DateMode = 0x0022,
    FilePass = 0x002F,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    CodePage = 0x0042,
    DefColWidth = 0x0055,
    ColInfo = 0x007D,
    WsBool = 0x0081,
    BoundSheet = 0x0085,
    MulRk = 0x00BD,
    MulBlank = 0x00BE,
    RString = 0x00D6,
    Xf = 0x00E0,
    MergedCells = 0x00E5,
    SharedStrings = 0x00FC,
    LabelSst = 0x00FD,
    ExtSst = 0x00FF,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Label = 0x0204,
    BoolErr = 0x0205,
    FormulaString = 0x0207,
    Row = 0x0208,
    DefaultRowHeight = 0x0225,
    Window2 = 0x023E,
    Rk = 0x027E,
    Style = 0x0293,
    Format = 0x041E,
    Bof = 0x0809,
};

inline constexpr int MaxRecordBytes = 8224;
inline constexpr quint16 Version8 = 0x0600;
inline constexpr quint16 GlobalsSubstream = 0x0005;
inline constexpr quint16 SheetSubstream = 0x0010;
inline constexpr quint16 TextNumberFormat = 49;  // the built-in "@"
inline constexpr quint16 AutomaticFontColour = 0x7FFF;
inline constexpr quint16 BoldWeight = 700;
inline constexpr quint16 NormalWeight = 400;

inline constexpr int ColourRegisterOffset = 7;  // colour index n is colour register n + 7

// Widths are 1/256 of a character with the cell's edges; the standard font has digits of 7 pixels and edges
// of 5 pixels in all. Below one character the pixels are spread evenly.
inline constexpr double StandardWidth = 8.43;

inline quint16 storedWidth(double characters) {
    const double pixels = characters < 1 ? characters * 12 : characters * 7 + 5;
    return static_cast<quint16>(std::floor(std::round(pixels) / 7 * 256));
}
inline double widthInCharacters(quint16 stored) {
    const double pixels = std::round(stored * 7.0 / 256);
    const double characters = pixels < 12 ? pixels / 12 : (pixels - 5) / 7;
    return std::min(std::round(characters * 100) / 100, 255.0);
}

}  // namespace kelvane::biff
