#include "console/connection/console_texts.h"

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint32 MsPerSecond = 1000;
constexpr quint32 WholeSecondsFrom = 100;

QString bits(int byte) {
    const QString digits = IntToBaseStr(byte, 2, 8);
    return digits.left(4) % QLatin1Char('.') % digits.mid(4);
}

}  // namespace

QString hexWord(quint16 word) { return IntToBaseStr(word, 16, 4); }

QString binaryWord(quint16 word) { return bits(word >> 8) % QLatin1Char('-') % bits(word & 0xFF); }

QString asciiWord(quint16 word) { return QString(QChar(word >> 8)) % QChar(word & 0xFF); }

QString timeOutCaption(const QString& text) {
    const quint32 value = text.toUInt();
    if (value < MsPerSecond) return text % QStringLiteral(" ms");
    if (value / MsPerSecond < WholeSecondsFrom) return InsertDecimalPoint(QString::number(value), 3);
    return QString::number(value / MsPerSecond) % QStringLiteral(" s");
}

QString advanceCaption(const ComSetup::Shown& boxes) {
    return QStringLiteral("Advance - Com ") % boxes.ComPortComboBox % QStringLiteral(" , BaudRate ") %
           boxes.BaudComboBox % QStringLiteral(" , Protocol < ") % boxes.ModeComboBox %
           QStringLiteral(" , ") % boxes.DataBitsComboBox % QStringLiteral(" , ") % boxes.ParityComboBox %
           QStringLiteral(" , ") % boxes.StopBitsComboBox % QStringLiteral(" >");
}

QString advanceCaption(const ComSetup::Shown& boxes, const PortSettings& port) {
    ComSetup::Shown shown = boxes;
    shown.ComPortComboBox = QString::number(port.ComNumber);
    shown.BaudComboBox = QString::number(port.Baud);
    shown.DataBitsComboBox = QString::number(port.DataBits);
    shown.StopBitsComboBox = QString::number(port.StopBits);
    return advanceCaption(shown);
}

}  // namespace kelvane
