#include "drive/drive_texts.h"

#include <algorithm>
#include <array>

namespace kelvane::drive {

namespace {

constexpr auto Faults = std::to_array<CodeText>({
    {1, "Over current", "oc"},       {2, "Over voltage", "ov"},       {3, "Overheat", "oH"},
    {4, "Drive overload", "oL"},     {5, "Motor overload", "oL1"},    {6, "External fault", "EF"},
    {7, "Brake chopper", "bF"},      {8, "Memory fault", "cF"},       {9, "OC in accel", "ocA"},
    {10, "OC in decel", "ocd"},      {11, "OC at speed", "ocn"},      {12, "Ground fault", "GF"},
    {13, "Input phase lost", "PHL"}, {14, "Low voltage", "Lv"},       {15, "Memory write", "cF1"},
    {16, "Memory read", "cF2"},      {17, "Base block", "bb"},        {18, "Torque overload", "oL2"},
    {19, "Auto ramp failed", "cFA"}, {20, "Password locked", "codE"}, {21, "Emergency stop", "EF1"},
    {22, "Phase U sensor", "c3.1"},  {23, "Phase V sensor", "c3.2"},  {24, "Phase W sensor", "c3.3"},
    {25, "Bus sensor", "c3.4"},      {26, "Temp. sensor 1", "c3.5"},  {27, "Temp. sensor 2", "c3.6"},
    {28, "Analog circuit", "c3.7"},  {29, "Clamp circuit", "HPF1"},   {30, "OV circuit", "HPF2"},
    {31, "Ground circuit", "HPF3"},  {32, "Line time-out", "CE10"},   {33, "Phase order", "doG"},
    {34, "Start locked", "Serr"},    {35, "Encoder fault", "ErEd"},   {36, "Feedback lost", "FbE"},
    {37, "Under current", "UdI"},    {38, "Output phase", "oPHL"},    {40, "Auto tune failed", "AUE"},
});

constexpr auto Exceptions = std::to_array<CodeText>({
    {1, "Illegal function", "CE1"},
    {2, "Illegal address", "CE2"},
    {3, "Value not legal", "CE3"},
    {4, "Read only", "CE4"},
    {5, "Drive is busy", "CE5"},
    {6, "Stop drive first", "CE6"},
    {9, "Check error", "CE9"},
    {10, "Line time-out", "CE10"},
    {40, "Auto tune failed", "AUE"},
});

constexpr bool fits(std::span<const CodeText> rows) {
    return std::ranges::all_of(rows,
                               [](const CodeText& r) { return r.text.size() <= 16 && r.name.size() <= 4; });
}
static_assert(fits(Faults) && fits(Exceptions));

QByteArray block(std::span<const CodeText> rows, uint8_t code, const char* otherText) {
    const auto row = std::ranges::find(rows, code, &CodeText::code);
    if (row != rows.end()) return padded(row->text, 16).append(padded(row->name, 4));
    return QByteArray(otherText).append(QByteArray::number(code)).leftJustified(20, ' ');
}

}  // namespace

QByteArray faultBlock(uint8_t code) { return block(Faults, code, "Fault code "); }
QByteArray exceptionBlock(uint8_t code) { return block(Exceptions, code, "Error code "); }

QByteArray padded(std::string_view text, qsizetype width) {
    return QByteArray(text.data(), qsizetype(text.size())).leftJustified(width, ' ', true);
}

}  // namespace kelvane::drive
