// What only the Advance console does in an exchange: which check a frame gets, its two waits, its time-outs
// and failures, its log. The scheduler asks it while the console owns the link; the console's window owns the
// settings and shows the log.
#pragma once

#include <QObject>

#include "base/wall_clock.h"
#include "link/com_port.h"
#include "link/frame_codec.h"
#include "link/link_records.h"

namespace kelvane {

class ConsoleExchange : public QObject, public ConsoleSettings {
    Q_OBJECT
   public:
    explicit ConsoleExchange(const WallClock& wallClock) : m_wallClock(wallClock) {}

    ConsoleRecord Log;
    ClockReading SendTime;  // of the last send
    quint8 FirstWaitOver = 0;

    FrameCheck frameCheck() const;
    bool rules() const { return CheckRuleCheckBoxChecked; }
    bool listens() const { return Monitor || Flasher; }  // without waiting for replies
    void sent(const QString& TxFrameText);
    // A burst for the listener, or for nobody; false when it belongs to the exchange.
    bool takeBurst(const QByteArray& burst);

    // Waits, in true milliseconds.
    qint64 firstTickUs(qint64 wireTimeUs) const;
    qint64 tickUs() const;
    bool waitIsOver(quint32& RxTickCount, quint32 ReplyTimeoutTicks, const RxBuffer& Rx,
                    const PortSettings& line);

    void noResponse();  // counted and logged
    // The same with what follows it; true when the common count of time-outs goes on.
    bool timedOut();
    void failed(const JudgedReply& reply, const QString& RxLogText);
    void completeReply(const QString& RxLogText);  // "Receive > " in the line's own colour
    void goodReply(const QString& command, const QByteArray& RxData);  // task 19

   Q_SIGNALS:
    void listenerBurst(const QByteArray& bytes);
    void lineStarted();
    void lineCompleted();
    void rowReplied();
    void replied(const QString& command, const QByteArray& RxData);
    void stopWanted();

   private:
    void completeLine(const QString& addition, quint32 colour);
    bool m_lineOpen = false;  // it has no reply yet
    const WallClock& m_wallClock;
};

}  // namespace kelvane
