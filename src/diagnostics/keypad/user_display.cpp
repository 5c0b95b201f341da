#include "diagnostics/keypad/user_display.h"

#include <algorithm>
#include <array>

#include "diagnostics/keypad/keypad_families.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

struct GlyphRow {
    quint8 pattern;
    const char* text;
};

constexpr std::array<GlyphRow, 25> segmentGlyphs{{
    {0x04, "-"},  {0x7E, "A"},  {0x07, "C"},  {0x6E, "H"},  {0x53, "U"}, {0x1F, "E"}, {0x46, "n"},
    {0x3E, "P"},  {0x06, "r"},  {0x0F, "t"},  {0x5B, "G"},  {0x4F, "b"}, {0x13, "i"}, {0xE0, "1."},
    {0xB7, "2."}, {0xF5, "3."}, {0x8F, "t."}, {0x1A, "T"},  {0x6C, "4"}, {0x47, "o"}, {0x5D, "S"},
    {0x93, "i."}, {0xC7, "o."}, {0x11, "Z"},  {0xEC, "4."},
}};

bool bit(quint16 word, int number) { return word >> number & 1; }

int decimalsOf(const KeypadFamily& family, quint16 format) {
    switch (family.displayDecimals) {
        case DisplayDecimals::HighByte: return format >> 8;
        case DisplayDecimals::TwoOrNone: return format != 0 ? 2 : 0;
        case DisplayDecimals::Bits8And9: break;
    }
    return format >> 8 & 3;
}

QString valueText(const KeypadFamily& family, quint16 value, quint16 format) {
    const int decimals = decimalsOf(family, format);
    // Kept: without decimals a value is unsigned, whatever the format says.
    const bool isSigned = decimals > 0 && family.signedValues && bit(format, 15);
    return InsertDecimalPoint(QString::number(isSigned ? static_cast<qint16>(value) : int(value)), decimals);
}

}  // namespace

QString SegmentGlyphs(quint8 pattern) {
    const auto* row = std::find_if(segmentGlyphs.begin(), segmentGlyphs.end(),
                                   [=](const GlyphRow& glyph) { return glyph.pattern == pattern; });
    return row == segmentGlyphs.end() ? QString() : QString::fromLatin1(row->text);
}

UserDisplay userDisplay(quint8 DriveFamily, quint16 value, quint16 format) {
    const KeypadFamily& family = keypadFamily(DriveFamily);
    const auto low = static_cast<quint8>(format & 0xFF);
    UserDisplay shown{valueText(family, value, format), std::nullopt};
    if (family.segmentLead) {
        if (bit(format, 12)) shown.displayVrLabel = IntToBaseStr(value, 16, 4);
        shown.LeadChVrLabel = SegmentGlyphs(low);
    } else if (family.letterLead) {
        shown.LeadChVrLabel = low == 0 ? QString() : QString(QLatin1Char(static_cast<char>(low)));
    }
    if (family.pointBehindLead && bit(format, 10)) {
        // Kept: the point overwrites a lead that came as a pattern.
        shown.LeadChVrLabel = (family.segmentLead ? QString() : *shown.LeadChVrLabel) + QLatin1Char('.');
    }
    return shown;
}

}  // namespace kelvane
