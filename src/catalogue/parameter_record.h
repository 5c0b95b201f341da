// What a drive tells of one parameter, and how its words become texts and a text becomes a word again. Used
// by everything that reads or writes single parameters: table, quick setup, keypad, PID, tuning.
#pragma once

#include <QString>
#include <optional>

#include "base/drive_family.h"

namespace kelvane {

// One reply of the drive. The words are integers without decimal point.
struct ParameterRecord {
    quint16 ParaData = 0;
    quint16 ParaMax = 0;
    quint16 ParaMin = 0;
    quint16 ParaAttr = 0;
    quint16 ParaDefault = 0;
    QString ParaName;  // spaces kept
    QString ParaUnit;  // spaces kept
};

// Addresses and numbers. N may be more than two digits in the number text.
QString addressText(int G, int N);                         // "0269"
QString parameterNumberText(Family family, int G, int N);  // "02-05", "02-105", Rowan "105" or "0261"

// Attribute bits.
bool runSetOf(quint16 ParaAttr);
bool readOnlyOf(quint16 ParaAttr);
inline constexpr quint16 SignedBit = 0x0080;
bool signedOf(Family family, quint16 ParaAttr);
int placesOf(Family family, quint16 ParaAttr);  // 0 to 3
// A word as text with its places, signed when the attribute says so.
QString valueText(Family family, quint16 ParaAttr, quint16 word, int places);

// Register word of a value text as four hexadecimal digits: the text loses its separator, so the digits
// behind the point decide the scale. Nothing when the rest is no integer or does not fit a register.
inline constexpr int LeastWord = -32768;
inline constexpr int GreatestWord = 65535;
std::optional<QString> registerWordOf(const QString& value);

}  // namespace kelvane
