// Small conversions between numbers and texts, used on command strings, register words and value texts. They
// never fail: a bad character gives a wrong result, and only BaseStrToInt has an error value.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace kelvane {

// Decimal separator of the machine, "." or ",". Decided once at start by findDecimalSep(); every decimal text
// of the program uses it.
inline QString DecimalSep = QStringLiteral(".");

// "." when "12.34" converts in the system's locale, else ",".
QString findDecimalSep();

// Value of one hexadecimal digit pair, by one rule: below 58 the character minus 48, else minus 55, in 8-bit
// arithmetic. Nothing is validated.
quint8 HexPairToInt(QChar high, QChar low);

// Bytes of a text, two characters a byte; a last single character is ignored.
QByteArray StrTo8bitInt(const QString& text);

// Text of value in a base from 2 to 36, upper case, padded with "0" to width; only the last width digits are
// kept. Width 0 drops leading zeros. A negative value first has 65536 added.
QString IntToBaseStr(int value, int base, int width);

// Value of text in a base; -1 when a character is no digit of it (0-9, A-F, a-f). An empty text gives 0.
int BaseStrToInt(const QString& text, int base);

// "5" with 2 decimals gives "0.05". 0 decimals returns the text unchanged.
QString InsertDecimalPoint(const QString& text, int decimals);

// The inverse on text: "12.3" with 2 gives "1230"; more fraction digits than decimals are cut off.
QString ScaleDecimalText(const QString& text, int decimals);

// Single precision; the fraction is always added, also to a negative integer part.
float DecimalTextToFloat(const QString& text);

// Text with the first DecimalSep deleted, read as a decimal integer; nothing when that is no integer.
std::optional<int> withoutSeparatorToInt(const QString& text);

}  // namespace kelvane
