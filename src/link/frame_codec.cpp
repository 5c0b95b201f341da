#include "link/frame_codec.h"

#include <algorithm>

#include "base/text_8bit.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

int foldedSum(int a, int b) {
    const int sum = a + b;
    if (sum == 255) return 0;
    return sum > 255 ? (sum & 0xFF) + 1 : sum;
}

QString hexDigits(const QByteArray& bytes) { return QString::fromLatin1(bytes.toHex().toUpper()); }

bool asciiCheckIsGood(const RxBuffer& reply) {
    const QByteArray payload = reply.RxData.mid(1, reply.RxData.size() - 5);
    // The place of the check follows the 8-bit byte count, not the length of the text.
    const QByteArray received =
        reply.RxByteCount < 5 ? QByteArray() : reply.RxData.mid(reply.RxByteCount - 4, 2);
    const QByteArray bytes = StrTo8bitInt(from8Bit(payload));
    return IntToBaseStr(CalcLRC(bytes), 16, 2) == from8Bit(received);
}

// Binary of an ASCII reply. Kept: the last character, the line feed, stays behind the N bytes, so that one
// length rule serves both modes.
QByteArray asciiToBinary(const QByteArray& RxData) {
    const QByteArray bytes = StrTo8bitInt(from8Bit(RxData.mid(1, std::max<qsizetype>(RxData.size() - 3, 0))));
    return bytes + RxData.right(1);
}

// Over all bytes: a console's reply may be longer than the room for raw ones, and than their counter.
bool rtuCheckIsGood(const RxBuffer& reply) {
    const QByteArray& raw = reply.RxData;
    const auto count = static_cast<int>(raw.size());
    if (count < 2) return false;
    const quint16 check = CalcCRC16(raw.left(count - 2));
    return byteAt(raw, count - 1) == (check >> 8) && byteAt(raw, count) == (check & 0xFF);
}

int wantedRegisters(const QString& command) { return BaseStrToInt(command.mid(8, 4), 16); }

ReplyVerdict judgeContent(const QString& command, const QByteArray& RxData) {
    // An exception is shorter than the reply asked for; it is tested first and wins over the length.
    if (byteAt(RxData, 2) & 0x80) return ReplyVerdict::Exception;
    const QChar function = command.size() > 3 ? command[3] : QChar();
    if (function == QLatin1Char('3'))
        return RxData.size() == 2 * wantedRegisters(command) + 5 ? ReplyVerdict::Good
                                                                 : ReplyVerdict::LengthError;
    if (function == QLatin1Char('6'))
        return RxData.size() == command.size() / 2 + 2 ? ReplyVerdict::Good : ReplyVerdict::LengthError;
    return ReplyVerdict::FunctionError;
}

int lengthIn(LinkMode mode, int rtuLength) { return mode == LinkMode::Ascii ? 2 * rtuLength + 1 : rtuLength; }

}  // namespace

quint8 CalcLRC(const QByteArray& bytes) {
    quint8 sum = 0;
    for (const char byte : bytes) sum = static_cast<quint8>(sum - static_cast<quint8>(byte));
    return sum;
}

quint16 CalcCRC16(const QByteArray& bytes) {
    quint16 crc = 0xFFFF;
    for (const char byte : bytes) {
        crc = static_cast<quint16>(crc ^ static_cast<quint8>(byte));
        for (int bit = 0; bit < 8; ++bit)
            crc = static_cast<quint16>((crc & 1) ? (crc >> 1) ^ 0xA001 : crc >> 1);
    }
    return static_cast<quint16>(crc << 8 | crc >> 8);
}

quint16 CalcFletcher(const QByteArray& bytes) {
    int a = 0;
    int b = 0;
    for (const char byte : bytes) {
        a = foldedSum(a, static_cast<quint8>(byte));
        b = foldedSum(b, a);
    }
    const int x = 255 - foldedSum(a, b);
    const int y = 255 - foldedSum(x, a);
    return static_cast<quint16>(x << 8 | y);
}

TxFrame buildFrame(LinkMode mode, const QString& command, FrameCheck check) {
    const QByteArray bytes = StrTo8bitInt(command);
    if (mode == LinkMode::Rtu) {
        QString text = command;
        if (check == FrameCheck::Standard) text += IntToBaseStr(CalcCRC16(bytes), 16, 4);
        if (check == FrameCheck::Fletcher) text += IntToBaseStr(CalcFletcher(bytes), 16, 4);
        return {StrTo8bitInt(text), text};
    }
    QByteArray wire = to8Bit(command);
    if (check != FrameCheck::None)
        wire = ":" + wire + IntToBaseStr(CalcLRC(bytes), 16, 2).toLatin1() + "\r\n";
    return {wire, withControlsEscaped(wire)};
}

void RxBuffer::prepare(LinkMode mode) {
    RxByteCount = 0;
    RxData.clear();
    RxLogText.clear();
    if (mode == LinkMode::Rtu) return;
    RxAwaitColon = 1;
    RxGotCR = 0;
    RxFrameDone = 0;
}

void RxBuffer::takeBurst(LinkMode mode, const QByteArray& burst) {
    for (qsizetype i = 0; i < burst.size(); ++i) {
        const qsizetype at = RxByteCount + i;
        if (at < RawRoom) RxRawBytes[static_cast<size_t>(at)] = static_cast<quint8>(burst[i]);
    }
    if (mode == LinkMode::Ascii && RxAwaitColon) {
        RxAwaitColon = 0;
        if (!burst.startsWith(':')) return;
    }
    if (mode == LinkMode::Ascii) {
        for (const char byte : burst) {
            if (byte == '\r') RxGotCR = 1;
            if (RxGotCR && byte == '\n') RxFrameDone = 1;
        }
    }
    RxData += burst;
    RxByteCount = static_cast<quint8>(RxByteCount + burst.size());
    RxLogText += mode == LinkMode::Rtu ? hexDigits(burst) : withControlsEscaped(burst);
}

JudgedReply judgeReply(LinkMode mode, const QString& command, const RxBuffer& reply, bool rules) {
    JudgedReply judged;
    judged.RxData = reply.RxData;
    const bool checkIsGood =
        !rules || (mode == LinkMode::Ascii ? asciiCheckIsGood(reply) : rtuCheckIsGood(reply));
    if (!checkIsGood) return judged;
    if (mode == LinkMode::Ascii) judged.RxData = asciiToBinary(reply.RxData);
    judged.verdict = rules ? judgeContent(command, judged.RxData) : ReplyVerdict::Good;
    if (judged.verdict == ReplyVerdict::Exception) judged.ExceptionCode = byteAt(judged.RxData, 3);
    return judged;
}

int answerLength(LinkMode mode, const QString& command) {
    const QByteArray sent = StrTo8bitInt(command);
    const quint8 asked = sent.size() < 6 ? quint8(0) : byteAt(sent, 2);
    if (asked == 3) return lengthIn(mode, 5 + 2 * wordAt(sent, 5));
    return asked == 6 ? lengthIn(mode, 8) : 0;
}

int replyLength(LinkMode mode, const QString& command, const RxBuffer& reply) {
    const bool ascii = mode == LinkMode::Ascii;
    const QByteArray sent = StrTo8bitInt(command);
    if (sent.size() < 6 || reply.RxData.size() < (ascii ? 5 : 2)) return 0;
    const quint8 asked = byteAt(sent, 2);
    const quint8 came =
        ascii ? byteAt(QByteArray::fromHex(reply.RxData.mid(3, 2)), 1) : byteAt(reply.RxData, 2);
    if (came == (asked | 0x80)) return lengthIn(mode, 5);
    return came == asked ? answerLength(mode, command) : 0;
}

bool isWholeRtuReply(const QString& command, const RxBuffer& reply) {
    const int count = reply.RxByteCount;
    if (count == 0 || count != reply.RxData.size()) return false;
    if (count != replyLength(LinkMode::Rtu, command, reply) || !rtuCheckIsGood(reply)) return false;
    return byteAt(reply.RxData, 2) != 3 || byteAt(reply.RxData, 3) == count - 5;
}

qint64 rtuSilenceUs(qint64 characterTimesUs35, int baud, qint64 minimumUs) {
    const qint64 silence = baud > 19200 ? 1750 : characterTimesUs35;
    return std::max(silence, minimumUs);
}

quint8 byteAt(const QByteArray& RxData, int position) {
    return position < 1 || position > RxData.size() ? quint8(0) : static_cast<quint8>(RxData[position - 1]);
}

quint16 wordAt(const QByteArray& RxData, int position) {
    return static_cast<quint16>(byteAt(RxData, position) << 8 | byteAt(RxData, position + 1));
}

QString dataText(const QByteArray& RxData, int first, int count) {
    return from8Bit(RxData.mid(2 + first, count));
}

}  // namespace kelvane
