#include "link/console_exchange.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <utility>

namespace kelvane {

namespace {

constexpr qint64 LeadUs = 100000;  // the line's and the drive's share of a wait
constexpr qint64 TickUs = 1000;
constexpr int EndingSilence = 12;  // characters: an adapter hands on eight at a time

QString failureText(const JudgedReply& reply) {
    switch (reply.verdict) {
        case ReplyVerdict::BadChecksum: return QStringLiteral("Checksum Error");
        case ReplyVerdict::Exception: return QStringLiteral("CE") % QString::number(reply.ExceptionCode);
        case ReplyVerdict::LengthError: return QStringLiteral("Receive data length is not correct!!");
        default: return QStringLiteral("Function code error!!");
    }
}

}  // namespace

FrameCheck ConsoleExchange::frameCheck() const {
    if (!AddChksumCheckBoxChecked || Flasher) return FrameCheck::None;
    return Orlan ? FrameCheck::Standard : FrameCheck::Fletcher;
}

void ConsoleExchange::sent(const QString& TxFrameText) {
    const QDateTime now = m_wallClock.now();
    SendTime = {now.time().hour(), now.time().minute(), now.time().second(), now.time().msec() / 10};
    Log.topLine = QLatin1Char('[') % QLocale::system().toString(now.date(), QLocale::ShortFormat) %
                  QString::asprintf(" %02d:%02d:%02d:%02d] ", SendTime.hour, SendTime.minute, SendTime.second,
                                    SendTime.hundredth) %
                  QStringLiteral("Send > ") % TxFrameText % QStringLiteral(" .......  ");
    Log.topLineColour = ConsoleBlack;
    m_lineOpen = true;
    ++Log.totalRecords;
    if (Flasher) Log.FmonitorMemo += TxFrameText % QLatin1Char('\n');
    Q_EMIT lineStarted();
}

bool ConsoleExchange::takeBurst(const QByteArray& burst) {
    if (Monitor) Q_EMIT listenerBurst(burst);
    return listens();
}

qint64 ConsoleExchange::firstTickUs(qint64 wireTimeUs) const { return wireTimeUs + LeadUs + TickUs; }

qint64 ConsoleExchange::tickUs() const { return TickUs; }

bool ConsoleExchange::waitIsOver(quint32& RxTickCount, quint32 ReplyTimeoutTicks, const RxBuffer& Rx,
                                 const PortSettings& line) {
    const bool longWait = TimeOut1 > ReplyTimeoutTicks;
    const bool heard = !Rx.RxData.isEmpty();
    const auto silence = static_cast<quint32>((line.wireTimeUs(EndingSilence) + TickUs - 1) / TickUs);
    if (!FirstWaitOver) {
        const quint32 limit = longWait ? TimeOut1 : ReplyTimeoutTicks;
        if (RxTickCount < (heard ? std::max(limit, silence) : limit)) return Rx.RxFrameDone && !longWait;
        if (heard) return true;
        RxTickCount = 0;
        FirstWaitOver = 1;
    }
    // A frame's end does not end the second wait: everything that arrives in it is collected.
    return RxTickCount >= (heard ? std::max(TimeOut2, silence) : TimeOut2);
}

void ConsoleExchange::completeLine(const QString& addition, quint32 colour) {
    // Kept: what was not sent has no line that it could complete.
    if (!std::exchange(m_lineOpen, false)) Log.topLine.clear();
    Log.topLine += addition;
    Log.topLineColour = colour;
    Q_EMIT lineCompleted();
}

void ConsoleExchange::completeReply(const QString& RxLogText) {
    completeLine(QStringLiteral("Receive > ") % RxLogText, Log.topLineColour);
}

void ConsoleExchange::noResponse() {
    ++Log.timeoutRecords;
    completeLine(QStringLiteral("Receive > No response"), ConsoleRed);
}

bool ConsoleExchange::timedOut() {
    noResponse();
    if (ListRunning) {
        Log.RepliedMessage = QStringLiteral("Time Out");
        Log.RepliedData = QString();
        Q_EMIT rowReplied();
    }
    if (TimeOutCheckBoxChecked) {
        Q_EMIT stopWanted();
        return false;
    }
    if (ListRunning) Log.CanSend = 1;
    return !ListRunning;
}

void ConsoleExchange::failed(const JudgedReply& reply, const QString& RxLogText) {
    ++Log.errorRecords;
    completeLine(QStringLiteral("Receive > ") % RxLogText, ConsolePurple);
    if (ListRunning) {
        Log.RepliedMessage = RxLogText;
        Log.RepliedData = failureText(reply);
        Q_EMIT rowReplied();
    }
    Log.CanSend = 1;
    if (ErrorCheckBoxChecked) Q_EMIT stopWanted();
}

void ConsoleExchange::goodReply(const QString& command, const QByteArray& RxData) {
    Log.CanSend = 1;
    Q_EMIT replied(command, RxData);
}

}  // namespace kelvane
