// Modbus frames of the drive link: a command string (hexadecimal text without check) becomes the bytes on the
// wire, and what comes back is judged. Pure functions; the scheduler and com setup call them.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>

namespace kelvane {

enum class LinkMode : quint8 { Ascii = 0, Rtu = 1 };  // values of ComMode

// Two's complement of the 8-bit sum.
quint8 CalcLRC(const QByteArray& bytes);
// Modbus CRC-16 (start FFFFh, polynomial A001h), returned with its two bytes swapped so that four hexadecimal
// digits of it read in the order of the wire.
quint16 CalcCRC16(const QByteArray& bytes);
// Second check of the raw console: two sums modulo 255 with a fold at the byte boundary, X in the high byte.
quint16 CalcFletcher(const QByteArray& bytes);

enum class FrameCheck { Standard, Fletcher, None };

struct TxFrame {
    QByteArray wire;      // what is written, in one piece
    QString TxFrameText;  // the form of the logs
};

// RTU: the bytes and the check. ASCII: colon, command, LRC, CR LF; without check the command alone. Fletcher
// is an RTU check; ASCII has its LRC either way. A last odd digit of the command is lost in RTU and stands in
// ASCII.
TxFrame buildFrame(LinkMode mode, const QString& command, FrameCheck check);

// A reply as it arrives. Counts and room are those of the plant: 200 raw bytes, an 8-bit counter that wraps.
struct RxBuffer {
    static constexpr int RawRoom = 200;
    QByteArray RxData;
    std::array<quint8, RawRoom> RxRawBytes{};
    quint8 RxByteCount = 0;
    QString RxLogText;
    quint8 RxAwaitColon = 0;
    quint8 RxGotCR = 0;
    quint8 RxFrameDone = 0;

    void prepare(LinkMode mode);  // for the reply to a request that was just sent
    void takeBurst(LinkMode mode, const QByteArray& burst);
};

enum class ReplyVerdict { BadChecksum, Exception, LengthError, FunctionError, Good };

struct JudgedReply {
    ReplyVerdict verdict = ReplyVerdict::BadChecksum;
    QByteArray RxData;  // binary after a good check: address, function, count or data, ...
    quint8 ExceptionCode = 0;
};

// Judges a finished reply to command. Without rules every reply is good, as the console may ask. Tests look
// at the command only: address and echo are never compared.
JudgedReply judgeReply(LinkMode mode, const QString& command, const RxBuffer& reply, bool rules = true);

// Length on the wire of a good answer to command; 0 for a function that has none.
int answerLength(LinkMode mode, const QString& command);
// Length on the wire of the reply to command, by the function that has come: the asked data, the echo of
// a write or an exception. 0 while the function has not come, and for a function that is neither.
int replyLength(LinkMode mode, const QString& command, const RxBuffer& reply);

// RTU: the bytes at hand are exactly a reply to command, of the length that its function and count ask for or
// an exception's five bytes, with a good check.
bool isWholeRtuReply(const QString& command, const RxBuffer& reply);

// Silence that ends an RTU frame in microseconds: 3.5 characters, and 1750 us above 19200 baud (Modbus over
// serial line, 2.5.1.1), but never less than minimumUs.
qint64 rtuSilenceUs(qint64 characterTimesUs35, int baud, qint64 minimumUs);

// Fields of a binary reply by 1-based position; 0 or empty where the reply is shorter.
quint8 byteAt(const QByteArray& RxData, int position);
quint16 wordAt(const QByteArray& RxData, int position);
// count data bytes from number first (1-based, behind the byte count) as text of one character a byte.
QString dataText(const QByteArray& RxData, int first, int count);

}  // namespace kelvane
