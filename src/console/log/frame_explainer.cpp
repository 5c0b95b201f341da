#include "console/log/frame_explainer.h"

#include <QByteArray>
#include <QStringList>

#include "base/text_8bit.h"
#include "console/connection/console_texts.h"
#include "link/frame_codec.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint8 ReadRegisters = 3;
constexpr quint8 WriteRegister = 6;
constexpr int RequestBody = 6;  // address, function, register, count or value

const QString SendMark = QStringLiteral("Send > ");
const QString ReceiveMark = QStringLiteral("Receive > ");
const QString SendEnd = QStringLiteral(" .......  ");

struct Frame {
    QByteArray body;  // address, function, data; empty when it is no frame
    QString check;    // a line about the check
};

QString hexByte(quint8 byte) { return IntToBaseStr(byte, 16, 2); }

QString functionText(quint8 function) {
    switch (function & 0x7F) {
        case 1: return QStringLiteral("read coils");
        case 2: return QStringLiteral("read discrete inputs");
        case ReadRegisters: return QStringLiteral("read registers");
        case 4: return QStringLiteral("read input registers");
        case 5: return QStringLiteral("write one coil");
        case WriteRegister: return QStringLiteral("write one register");
        case 8: return QStringLiteral("diagnostics");
        case 16: return QStringLiteral("write registers");
        default: return QStringLiteral("unknown");
    }
}

QString exceptionText(quint8 code) {
    switch (code) {
        case 1: return QStringLiteral("illegal function");
        case 2: return QStringLiteral("illegal data address");
        case 3: return QStringLiteral("illegal data value");
        case 4: return QStringLiteral("the drive cannot carry it out");
        case 5: return QStringLiteral("accepted, takes some time");
        case 6: return QStringLiteral("busy");
        case 9: return QStringLiteral("check error");
        case 10: return QStringLiteral("time-out");
        default: return QStringLiteral("a code of the drive's own");
    }
}

// ---- From log text to bytes ----

// Hexadecimal pairs; anything else ends the text.
QByteArray fromPairs(const QString& text) {
    QByteArray bytes;
    for (qsizetype at = 0; at + 1 < text.size(); at += 2) {
        const int value = BaseStrToInt(text.mid(at, 2), 16);
        if (value < 0) break;
        bytes += static_cast<char>(value);
    }
    return bytes;
}

// "\x0D" becomes one byte, other characters themselves.
QByteArray unescaped(const QString& text) {
    QByteArray bytes;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const int value =
            text.mid(at, 2) == QLatin1String("\\x") ? BaseStrToInt(text.mid(at + 2, 2), 16) : -1;
        if (value >= 0 && at + 3 < text.size()) {
            bytes += static_cast<char>(value);
            at += 3;
        } else {
            bytes += to8Bit(text.mid(at, 1));
        }
    }
    return bytes;
}

QString checkLine(const QString& kind, const QString& came, const QString& wanted) {
    if (came == wanted) return QStringLiteral("Check: %1 %2, good").arg(kind, came);
    return QStringLiteral("Check: %1 %2 is wrong, it should be %3").arg(kind, came, wanted);
}

Frame rtuFrame(const QByteArray& bytes) {
    if (bytes.size() < 4) return {{}, QStringLiteral("Too short for a frame")};
    const QByteArray body = bytes.chopped(2);
    const QString came = QString::fromLatin1(bytes.right(2).toHex().toUpper());
    if (came == hexWord(CalcFletcher(body)) && came != hexWord(CalcCRC16(body)))
        return {body, checkLine(QStringLiteral("Fletcher"), came, came)};
    return {body, checkLine(QStringLiteral("CRC"), came, hexWord(CalcCRC16(body)))};
}

Frame asciiFrame(const QByteArray& text) {
    const qsizetype colon = text.lastIndexOf(':');
    qsizetype end = text.indexOf('\r', colon + 1);
    if (end < 0) end = text.size();
    if (colon < 0) return {{}, QStringLiteral("No colon: not a whole frame")};
    const QByteArray bytes = fromPairs(from8Bit(text.mid(colon + 1, end - colon - 1)));
    if (bytes.size() < 3) return {{}, QStringLiteral("Too short for a frame")};
    const QByteArray body = bytes.chopped(1);
    return {body, checkLine(QStringLiteral("LRC"), hexByte(byteAt(bytes, static_cast<int>(bytes.size()))),
                            hexByte(CalcLRC(body)))};
}

Frame frameOf(const QString& logged, bool rtu) {
    return rtu ? rtuFrame(fromPairs(logged)) : asciiFrame(unescaped(logged));
}

// ---- Words ----

QString registerText(quint16 address, const RegisterNames& names) {
    const std::optional<RegisterName> known = names ? names(address) : std::nullopt;
    QString text = hexWord(address) % QLatin1Char('H');
    if (!known) return text;
    if (!known->number.isEmpty()) text += QLatin1Char(' ') % known->number;
    return known->name.isEmpty() ? text : QString(text % QLatin1Char(' ') % known->name);
}

QString valueText(quint16 address, quint16 value, const RegisterNames& names) {
    QString text = hexWord(value) % QStringLiteral("H = ") % QString::number(value);
    const std::optional<RegisterName> known = names ? names(address) : std::nullopt;
    if (!known || (known->unit.isEmpty() && known->decimals == 0)) return text;
    return text % QStringLiteral(" = ") % InsertDecimalPoint(QString::number(value), known->decimals) %
           (known->unit.isEmpty() ? QString() : QString(QLatin1Char(' ') % known->unit));
}

QStringList headLines(const QByteArray& body) {
    const quint8 address = byteAt(body, 1);
    const QString all = address == 255 ? QStringLiteral(" (any drive)")
                        : address == 0 ? QStringLiteral(" (all)")
                                       : QString();
    return {
        QStringLiteral("Address: ") % QString::number(address) % all,
        QStringLiteral("Function: %1, %2").arg(byteAt(body, 2) & 0x7F).arg(functionText(byteAt(body, 2)))};
}

QStringList requestLines(const QByteArray& body, const RegisterNames& names) {
    QStringList lines = headLines(body);
    const quint8 function = byteAt(body, 2);
    if (body.size() != RequestBody || (function != ReadRegisters && function != WriteRegister)) {
        lines += QStringLiteral("Data: ") % QString::fromLatin1(body.mid(2).toHex(' ').toUpper());
        return lines;
    }
    const quint16 address = wordAt(body, 3);
    lines += QStringLiteral("Register: ") % registerText(address, names);
    lines += function == ReadRegisters
                 ? QStringLiteral("Registers asked for: %1").arg(wordAt(body, 5))
                 : QStringLiteral("Value: ") % valueText(address, wordAt(body, 5), names);
    return lines;
}

QStringList readLines(const QByteArray& body, std::optional<quint16> first, const RegisterNames& names) {
    const int words = byteAt(body, 3) / 2;
    QStringList lines;
    if (byteAt(body, 3) != body.size() - 3)
        lines += QStringLiteral("The byte count %1 does not fit the %2 bytes of data")
                     .arg(byteAt(body, 3))
                     .arg(body.size() - 3);
    for (int i = 0; i < words && 3 + 2 * i + 1 < body.size(); ++i) {
        const quint16 value = wordAt(body, 4 + 2 * i);
        if (!first) {
            lines += QStringLiteral("Word %1: ").arg(i + 1) % valueText(0, value, {});
            continue;
        }
        const auto address = static_cast<quint16>(*first + i);
        lines += registerText(address, names) % QStringLiteral(": ") % valueText(address, value, names);
    }
    return lines;
}

QStringList replyLines(const QByteArray& body, const QByteArray& request, const RegisterNames& names) {
    const quint8 function = byteAt(body, 2);
    if (function & 0x80)
        return headLines(body) + QStringList{QStringLiteral("Refused: exception %1, %2")
                                                 .arg(byteAt(body, 3))
                                                 .arg(exceptionText(byteAt(body, 3)))};
    QStringList lines = headLines(body);
    if (!request.isEmpty() && function != byteAt(request, 2))
        lines += QStringLiteral("It answers another function than the one that was sent");
    if (function == ReadRegisters) {
        const bool known = request.size() == RequestBody && byteAt(request, 2) == ReadRegisters;
        return lines + readLines(body, known ? std::optional(wordAt(request, 3)) : std::nullopt, names);
    }
    if (function == WriteRegister && body == request)
        return lines + QStringList{QStringLiteral("Carried out")};
    return requestLines(body, names);
}

// "\x01\x03" in RTU, one blank before each item in ASCII.
Frame heardFrame(QString line, bool rtu) {
    return rtu ? rtuFrame(fromPairs(line.remove(QLatin1String("\\x"))))
               : asciiFrame(unescaped(line.remove(QLatin1Char(' '))));
}

// A request and a reply of function 3 differ by their byte count alone.
bool looksLikeReply(const QByteArray& body) {
    if (byteAt(body, 2) & 0x80) return true;
    return byteAt(body, 2) == ReadRegisters && byteAt(body, 3) == body.size() - 3;
}

bool answers(const QByteArray& body, const QByteArray& request) {
    if (request.size() != RequestBody || looksLikeReply(request)) return false;
    const bool sameAddress = body[0] == request[0] || byteAt(request, 1) == 255;
    return sameAddress && (byteAt(body, 2) & 0x7F) == byteAt(request, 2) &&
           (looksLikeReply(body) || body == request);
}

}  // namespace

QString explainExchange(const QString& logLine, bool rtu, qint64 replyUs, const RegisterNames& names) {
    const qsizetype sent = logLine.indexOf(SendMark);
    const qsizetype received = logLine.lastIndexOf(ReceiveMark);
    QStringList lines;
    QByteArray request;
    if (sent >= 0) {
        const qsizetype from = sent + SendMark.size();
        const qsizetype end = logLine.indexOf(SendEnd, from);
        const Frame frame = frameOf(logLine.mid(from, (end < 0 ? logLine.size() : end) - from), rtu);
        request = frame.body;
        lines += QStringLiteral("-- Sent --");
        if (!request.isEmpty()) lines += requestLines(request, names);
        lines += frame.check;
    }
    if (received < 0) return lines.join(QLatin1Char('\n'));
    const QString reply = logLine.mid(received + ReceiveMark.size());
    lines += QStringLiteral("-- Received --");
    if (replyUs >= 0)
        lines += QStringLiteral("%1 ms after the send").arg(static_cast<double>(replyUs) / 1000, 0, 'f', 1);
    if (reply == QLatin1String("No response")) {
        lines += QStringLiteral("No byte came");
        return lines.join(QLatin1Char('\n'));
    }
    const Frame frame = frameOf(reply, rtu);
    if (!frame.body.isEmpty()) lines += replyLines(frame.body, request, names);
    lines += frame.check;
    return lines.join(QLatin1Char('\n'));
}

QString explainHeard(const HeardLine& line, bool rtu, const RegisterNames& names) {
    const Frame frame = heardFrame(line.text, rtu);
    if (frame.body.isEmpty()) return frame.check;
    const QByteArray before = heardFrame(line.before, rtu).body;
    QStringList lines;
    if (answers(frame.body, before)) {
        lines += QStringLiteral("%1 ms after the request above it").arg(line.apartMs);
        lines += replyLines(frame.body, before, names);
    } else {
        lines +=
            looksLikeReply(frame.body) ? replyLines(frame.body, {}, names) : requestLines(frame.body, names);
    }
    lines += frame.check;
    return lines.join(QLatin1Char('\n'));
}

}  // namespace kelvane
