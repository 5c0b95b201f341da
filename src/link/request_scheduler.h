// The one road to the drive: two queues, a send step and a wait step, one request outstanding at a time. This
// is the exchange: queues, send, wait, judge, end. Windows push a task and a command (through a RequestChain)
// and look at ReadDone or WriteDone when cycleEnded() comes. What a task does with a good reply stands in the
// task table (task_table.h), in the catalogue (identification) and with the windows that own a task. What the
// link means to windows they do themselves, on its signals.
#pragma once

#include <QLocale>
#include <QObject>
#include <array>
#include <functional>

#include "base/operator.h"
#include "base/tick_clock.h"
#include "base/wall_clock.h"
#include "link/com_port.h"
#include "link/console_exchange.h"
#include "link/frame_codec.h"
#include "link/link_owners.h"
#include "link/link_records.h"
#include "link/reply_trust.h"
#include "link/request_queues.h"
#include "localisation/lang_table.h"

namespace kelvane {

// What the scheduler works on; all of it outlives the scheduler.
struct LinkSite {
    TickClock& clock;
    const WallClock& wallClock;
    Operator& operatorAsked;
    TApdComPort& ApdComPort1;
    const LangTable& LangTable1;
};

class RequestScheduler : public QObject, public RequestQueues {
    Q_OBJECT
   public:
    explicit RequestScheduler(const LinkSite& site, int BrandVariant = 0);
    ~RequestScheduler() override;

    quint8 ActiveFunction = OwnerMain;
    quint8 ComMode = 0;  // 0 ASCII, 1 RTU
    quint32 RxTickCount = 0;
    quint32 ReplyTimeoutTicks = 6;
    quint32 BaudTimeoutTicks = 7;  // owner: com setup
    quint8 TimeoutCount = 0;       // in a row
    quint8 InitFailCount = 0;
    quint8 DriveIdentified = 0;
    QString TxFrameText;  // of the last request, as the logs show it
    RxBuffer Rx;
    DriveStatusRecord DriveStatus;
    ParamReadRecord ParamRead;
    DriveLabelsRecord Labels;
    LampRecord Lamp;
    NoticeRecord Notice;
    ConsoleExchange Console;
    TickTimer TxTimer;
    TickTimer RxTimer;

    // ---- Requests
    // Pushes a request of a window and starts the link, behind the exchange that is open if there is one.
    void request(quint8 task, const QString& command);
    // A command that a person gave: goes out once, with its own task's handler. STOP goes right behind the
    // exchange in hand, which is then waited for no longer than a usual reply takes; a RUN or JOG that has
    // not left by then is withdrawn.
    void pushCommand(quint8 task, const QString& command);
    void start();  // sends what waits in the queues
    bool idle() const { return !TxTimer.Enabled() && !RxTimer.Enabled() && !m_ending; }
    // Bytes have been coming for so long that nothing can be sent or answered.
    bool neverSilent() const;
    // Reply handlers by task code; a code without one does nothing.
    using TaskHandler = std::function<void(const QString& command, const QByteArray& RxData)>;
    void onReply(quint8 task, TaskHandler handler);
    // Hands a good reply to its handler and tells it.
    void credit(quint8 task, const QString& command, const QByteArray& RxData);

    // ---- Lifecycle
    // Takes the link Off Line and queues identification. Sends nothing.
    void Initial();
    // The same under an open window, which keeps the link.
    void InitialUnder(quint8 owner);
    // Before and after a window that owns the link.
    void prelude();
    void tail();
    // Ends whatever goes on, without a word to anybody. The next send waits until an answer could still come.
    void rest();
    void setLamp(LampState state);
    void notifyChanged();  // emits changed() when a record that windows show differs from the last time

    // ---- Texts
    // One line of the history: date and time, " > ", text.
    void ShowHistoryMsg(const QString& text);
    // Time text of history lines and reports: the system's short date and long time.
    QString dateTimeText() const;
    static QString dateTimeText(const QLocale& locale, const QDateTime& now);

    LinkMode mode() const { return ComMode ? LinkMode::Rtu : LinkMode::Ascii; }
    const OwnerRow& owner() const { return ownerRow(ActiveFunction); }
    TApdComPort& port() const { return m_site.ApdComPort1; }
    int BrandVariant() const { return m_brandVariant; }
    int ComStatusVrIndicator() const { return m_indicator; }  // scanner bar, 0 to 100

   Q_SIGNALS:
    void changed();  // lamp, labels or notices differ from before
    void indicatorStepped(int position);
    void historyLine(const QString& line);
    void cycleEnded();  // one exchange is over and its flags are set
    void answered(quint8 task, const QString& command, const QByteArray& RxData);  // a good reply
    void statusDecoded();                                                          // a status poll was stored
    void identificationFailed();  // who the drive is cannot be known; before a box says so
    void identificationEnded();   // the last group's count is in and the maximum frequency is asked for
    void keypadTableReady();      // the keypad's counts are read: start the table read
    void timedOut();              // no reply came; before anybody is asked
    void timeoutTold();           // the same, behind question and history line
    void answeredAgain();         // the first reply behind time-outs
    void badCheck();              // on line
    void refused(quint8 task, quint8 code);
    void wentOnLine();
    void initialRun();  // Initial has run
    void preludeRun();
    void tailRun();               // the poll goes on
    void parameterReadStopped();  // the link gave up while the progress dialog showed
    void focusWanted(int ActiveFunction);

   private:
    Operator& operatorAsked() { return m_site.operatorAsked; }
    const LangTable& lang() const { return m_site.LangTable1; }
    void TxTimerTimer();
    void RxTimerTimer();
    void ApdComPort1TriggerAvail(int count);

    // Send step.
    bool sendMustWait();
    void stepIndicator(int position);
    void pushPollIfIdle();
    bool SendUsart(const QString& command);
    void prepareToReceive(const QString& command);
    void armFirstWait();

    // Wait step.
    bool waitIsOver();
    bool ownAnswerIsHeard() const;
    bool stopIsDue() const { return stopWaits() || stopIsNext(); }
    bool stopOutwaitsNoise() const;
    void goOnWaiting();
    bool restUntilNearlyWhole();
    int knownLength() const;
    bool echoIsHeard() const;
    void endHoldBack();
    void endCycle();
    void judgeCycle();
    quint32 adapterGapTicks();
    bool takeTrustedAnswer();
    void askOnceMore();
    void yieldToStop();
    void handleTimeout();
    void announceRetry();
    void askAfterFifthTimeout();
    void handleReply();
    void actOn(const JudgedReply& reply, const QString& command, quint8 task);
    void onGoodReply(const QString& command, const QByteArray& RxData, quint8 task);
    void onBadChecksum();
    void onException(quint8 code, quint8 task);
    void onExceptionTextFailed();
    void countRule();
    void finishByLinkAction();
    void sendAgain();
    void giveUp();
    bool readIsRunning() const { return owner().reads && Notice.TProgressFormShown; }
    void stopReadIfRunning();
    void decideWhetherToGoOn();
    bool inConsole() const { return owner().console; }
    void clearReception();
    void abandonExchange();

    static constexpr int StepInterval = 1;             // of TxTimer, outside the pause behind a time-out
    static constexpr quint32 SilenceAfterResend = 50;  // ticks
    static constexpr quint32 LongestWait = 300;        // ticks
    struct ShownRecords {
        DriveLabelsRecord Labels;
        LampRecord Lamp;
        NoticeRecord Notice;
        bool operator==(const ShownRecords&) const = default;
    };
    LinkSite m_site;
    const int m_brandVariant;
    std::array<TaskHandler, 82> m_handlers;
    ReplyTrust m_trust;
    ShownRecords m_lastShown;
    QByteArray m_sentWire;
    qint64 m_wireTimeUs = 0;  // of the request that was sent
    int m_indicator = 0;
    int m_unclear = 0;            // exchanges in a row whose answer could be another's
    bool m_sentAgain = false;     // the exchange in hand needed a resend
    bool m_wholeReply = false;    // RTU: the silence behind a whole reply is being waited for
    bool m_resting = false;       // the port holds back while the known rest of a reply is on the wire
    bool m_ending = false;        // an exchange is being judged, perhaps behind an open question
    bool m_startWanted = false;   // a window pushed while an exchange was open
    bool m_sendDeferred = false;  // until the line is silent
    bool m_silentSince = false;   // time-outs since the last reply
    bool m_humTold = false;       // in this exchange
    bool m_givingUp = false;      // a STOP goes out once more before the link is given up
};

}  // namespace kelvane
