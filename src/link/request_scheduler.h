// The one road to the drive: two queues, a send step and a wait step, one request outstanding at a time. Owns
// time-outs, retries and the On Line / Off Line state. Windows push a task and a command, enable TxTimer
// where no poll runs, and look at ReadDone or WriteDone when cycleEnded() comes. What a task does with a good
// reply stands in the task table (task_table.h) and, for identification, in the catalogue.
#pragma once

#include <QObject>
#include <array>
#include <deque>
#include <functional>

#include "base/operator.h"
#include "base/tick_clock.h"
#include "base/wall_clock.h"
#include "link/com_port.h"
#include "link/frame_codec.h"
#include "link/link_records.h"
#include "localisation/lang_table.h"

namespace kelvane {

// Values of ActiveFunction.
enum LinkOwner : quint8 {
    OwnerMain = 1,
    OwnerTrend = 2,
    OwnerMonitor = 3,
    OwnerParameter = 4,
    OwnerQuickSetup = 5,
    OwnerAdvance = 6,
    OwnerAutoTuning = 7,
    OwnerPid = 8,
};

// What the scheduler works on; all of it outlives the scheduler.
struct LinkBench {
    TickClock& clock;
    const WallClock& wallClock;
    Operator& operatorAsked;
    TApdComPort& ApdComPort1;
    const LangTable& LangTable1;
};

class RequestScheduler : public QObject {
    Q_OBJECT
   public:
    explicit RequestScheduler(const LinkBench& bench, int BrandVariant = 0);
    ~RequestScheduler() override;

    // Queues. The front task is the one in progress. The two are not pairs: copies of a resent generated
    // command stay in CommandQueue until TaskQueue runs empty.
    std::deque<quint8> TaskQueue;
    std::deque<QString> CommandQueue;

    quint8 ActiveFunction = OwnerMain;
    quint8 ComMode = 0;  // 0 ASCII, 1 RTU
    quint32 RxTickCount = 0;
    quint32 ReplyTimeoutTicks = 6;
    quint32 BaudTimeoutTicks = 7;  // owner: com setup
    quint8 TimeoutCount = 0;       // in a row
    quint8 InitFailCount = 0;
    quint8 DriveIdentified = 0;
    quint8 FirstWaitOver = 0;
    ClockReading SendTime;  // last send of the console
    QString TxFrameText;
    RxBuffer Rx;
    DriveStatusRecord DriveStatus;
    ParamReadRecord ParamRead;
    std::array<quint16, 20> ReadWords{};  // task 20
    QByteArray ReadDataText;
    DriveLabelsRecord Labels;
    LampRecord Lamp;
    int ComStatusVrIndicator = 0;  // scanner bar, 0 to 100
    KeypadLinkRecord Keypad;
    TrendLinkRecord Trend;
    NoticeRecord Notice;
    ConsoleSettings Console;
    ConsoleRecord ConsoleLog;
    bool AutoTuning = false;  // menu items, enabled by identification
    bool PIDControl = false;
    const int BrandVariant;

    TickTimer TxTimer;
    TickTimer RxTimer;

    // Takes the link Off Line and queues identification. Sends nothing.
    void Initial();
    // Before and after a window that owns the link.
    void prelude();
    void tail();
    // One line of the history: date and time, " > ", text.
    void ShowHistoryMsg(const QString& text);
    // Pushes a task with its command; the caller enables TxTimer where no poll runs.
    void push(quint8 task, const QString& command);
    void push(quint8 task) { TaskQueue.push_back(task); }
    void emptyQueues();
    LinkMode mode() const { return ComMode ? LinkMode::Rtu : LinkMode::Ascii; }
    TApdComPort& port() { return m_bench.ApdComPort1; }
    Operator& operatorAsked() { return m_bench.operatorAsked; }
    const LangTable& lang() const { return m_bench.LangTable1; }
    // Time text of history lines and reports: the system's short date and long time.
    QString dateTimeText() const;

    // Reply handlers by task code; a code without one does nothing.
    using TaskHandler = std::function<void(const QString& command, const QByteArray& RxData)>;
    std::array<TaskHandler, 82> taskHandlers;
    // Name of a parameter of a drive that has none in its record (Hazel), by group and number.
    std::function<QString(int group, int number)> fixedParaName;
    // Stops the Parameter window's read and closes its progress dialog.
    std::function<void()> stopParameterRead;
    void notifyChanged();  // emits changed() when a record that windows show differs from the last time
    void completeConsoleLine(const QString& addition, quint32 colour);

   Q_SIGNALS:
    void changed();  // lamp, labels, keypad, trend, notices or menu items differ from before
    void indicatorStepped(int position);
    void historyLine(const QString& line);
    void cycleEnded();        // one exchange is over and its flags are set
    void statusDecoded();     // a status poll was stored
    void initialRun();        // Initial has run
    void keypadModeClick();   // identification ended: the keypad shows its first page
    void keypadTableReady();  // the keypad's counts are read: start the table read
    void focusWanted(int ActiveFunction);
    void listenerBurst(const QByteArray& bytes);
    void consoleLineStarted();
    void consoleLineCompleted();
    void consoleRowReplied();
    void consoleGoodReply(const QString& command, const QByteArray& RxData);
    void consoleStopWanted();

   private:
    void TxTimerTimer();
    void RxTimerTimer();
    void ApdComPort1TriggerAvail(int count);

    // Send step.
    void stepIndicatorForSend();
    void pushPollIfIdle();
    bool SendUsart(const QString& command);
    FrameCheck frameCheck() const;
    void logConsoleSend();
    void prepareToReceive();
    void armFirstWait();

    // Wait step.
    bool waitIsOver();
    bool consoleWaitIsOver();
    void goOnWaiting();
    bool restUntilNearlyWhole();
    void endRest();
    void endCycle();
    void handleTimeout();
    void showErrorOnKeypad();
    void announceRetry();
    void askAfterFifthTimeout();
    void handleConsoleTimeout();
    void suspendTrend();
    void handleReply();
    void stepIndicatorForReply();
    void resumeTrend();
    void goOnLine();
    void actOn(const JudgedReply& reply, const QString& command, quint8 task);
    void onBadChecksum();
    void onException(quint8 code, quint8 task);
    void countRule();
    void finishConsoleFailure(const JudgedReply& reply);
    void finishByLinkAction();
    void giveUp();
    bool readIsRunning() const;
    void stopReadIfRunning();
    void dropFront();
    void decideWhetherToGoOn();
    bool inConsole() const { return ActiveFunction == OwnerAdvance; }
    bool ownedByWindow() const { return ActiveFunction >= OwnerParameter && ActiveFunction <= OwnerPid; }
    void clearReception();

    struct ShownRecords {
        DriveLabelsRecord Labels;
        LampRecord Lamp;
        KeypadLinkRecord Keypad;
        TrendLinkRecord Trend;
        NoticeRecord Notice;
        bool AutoTuning = false;
        bool PIDControl = false;
        bool operator==(const ShownRecords&) const = default;
    };
    LinkBench m_bench;
    ShownRecords m_lastShown;
    bool m_wholeReply = false;  // RTU: the silence behind a whole reply is being waited for
    bool m_resting = false;     // the port holds back while the known rest of a reply is on the wire
    qint64 m_wireTimeUs = 0;    // of the request that was sent
};

}  // namespace kelvane
