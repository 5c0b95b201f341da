#include "link/number_text.h"

#include <QLocale>

namespace kelvane {

namespace {

quint8 digitByRule(QChar digit) {
    const int code = digit.unicode() & 0xFF;
    return static_cast<quint8>(code < 58 ? code - 48 : code - 55);
}

int digitValue(QChar digit) {
    const char16_t c = digit.unicode();
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

QString findDecimalSep() {
    bool ok = false;
    QLocale::system().toDouble(QStringLiteral("12.34"), &ok);
    // A locale may take "." as its grouping sign and still succeed; the value tells.
    if (ok && !qFuzzyCompare(QLocale::system().toDouble(QStringLiteral("12.34")), 12.34)) ok = false;
    return ok ? QStringLiteral(".") : QStringLiteral(",");
}

quint8 HexPairToInt(QChar high, QChar low) {
    return static_cast<quint8>(digitByRule(high) * 16 + digitByRule(low));
}

QByteArray StrTo8bitInt(const QString& text) {
    QByteArray bytes;
    for (qsizetype i = 0; i + 1 < text.size(); i += 2)
        bytes += static_cast<char>(HexPairToInt(text[i], text[i + 1]));
    return bytes;
}

QString IntToBaseStr(int value, int base, int width) {
    constexpr int MaxDigits = 32;
    qint64 rest = value < 0 ? qint64(value) + 65536 : value;
    QString digits;
    for (; rest > 0 && digits.size() < MaxDigits; rest /= base)
        digits.prepend(QLatin1Char("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[rest % base]));
    if (width == 0) return digits;
    return digits.rightJustified(width, QLatin1Char('0')).right(width);
}

int BaseStrToInt(const QString& text, int base) {
    qint64 value = 0;
    qint64 weight = 1;
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        const int digit = digitValue(text[i]);
        if (digit < 0 || digit >= base) return -1;
        value = static_cast<qint32>(value + digit * weight);
        weight = static_cast<qint32>(weight * base);
    }
    return static_cast<int>(value);
}

QString InsertDecimalPoint(const QString& text, int decimals) {
    if (decimals <= 0) return text;
    QString padded = text;
    if (padded.size() <= decimals) padded = padded.rightJustified(decimals + 1, QLatin1Char('0'));
    return padded.insert(padded.size() - decimals, DecimalSep);
}

QString ScaleDecimalText(const QString& text, int decimals) {
    const qsizetype at = text.indexOf(DecimalSep);
    const QString whole = at < 0 ? text : text.left(at);
    const QString fraction = at < 0 ? QString() : text.mid(at + DecimalSep.size());
    return whole % fraction.left(decimals).leftJustified(decimals, QLatin1Char('0'));
}

float DecimalTextToFloat(const QString& text) {
    const qsizetype at = text.indexOf(DecimalSep);
    if (at < 0) return static_cast<float>(text.toInt());
    const QString fraction = text.mid(at + DecimalSep.size());
    float value = static_cast<float>(fraction.toInt());
    for (qsizetype i = 0; i < fraction.size(); ++i) value *= 0.1F;
    return static_cast<float>(text.left(at).toInt()) + value;
}

std::optional<int> withoutSeparatorToInt(const QString& text) {
    QString digits = text;
    const qsizetype at = digits.indexOf(DecimalSep);
    if (at >= 0) digits.remove(at, DecimalSep.size());
    bool ok = false;
    const int value = digits.trimmed().toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

}  // namespace kelvane
