#include "link/request_scheduler.h"

#include <gtest/gtest.h>

#include "bench/link_bench.h"
#include "link/request_chain.h"

namespace kelvane {
namespace {

const QString Poll = QStringLiteral("FF0321000010");
const QString DeadText = QStringLiteral("Communication Timeout");
const QByteArray BadFrame(":FF03020005F8\r\n");
const QList<int> Sixteen(16, 0);

// On line as Tilia, with the next send due.
struct OnLine : testing::Test, SchedulerBench {
    OnLine() { start(); }
    void start(quint8 ComMode = 0, Family family = Family::Tilia) {
        link.ComMode = ComMode;
        beOnLine(family);
        clock.advance(6000);  // no answer to anything before is on its way any more
        link.TxTimer.setInterval(1);
        link.TxTimer.setEnabled(true);
    }
    QString ask(quint8 task, const QString& command) {
        link.push(task, command);
        link.TxTimer.setEnabled(true);
        return send();
    }
    void failFiveTimes(LinkAnswer answer) {
        link.TxTimer.setEnabled(true);
        for (int i = 0; i < 5; ++i) {
            if (i == 4) person.expectLinkFailure(DeadText, true, answer);
            staySilent();
        }
    }
    std::vector<int> tasks() const { return {link.TaskQueue.begin(), link.TaskQueue.end()}; }
};
using Initial = OnLine;
using SendStep = OnLine;
using WaitStep = OnLine;
using TimeOut = OnLine;
using Reply = OnLine;

TEST_F(Initial, QueuesIdentificationAndSendsNothing) {
    link.Initial();
    EXPECT_EQ(tasks(), (std::vector<int>{0, 21}));
    EXPECT_EQ(link.CommandQueue, std::deque<QString>{"FF0321100003"});
    EXPECT_EQ(link.Labels, DriveLabelsRecord{});
    EXPECT_EQ(link.DriveStatus.KeypadDataDue, 1);
    EXPECT_FALSE(port.isOpen || link.Lamp.onLine());
    clock.advance(5000);
    EXPECT_TRUE(port.written.isEmpty());

    SchedulerBench juniper(2);
    juniper.link.Initial();
    EXPECT_EQ(juniper.link.TaskQueue, (std::deque<quint8>{50, 51, 52}));
    EXPECT_TRUE(juniper.link.CommandQueue.empty());
    juniper.link.emptyQueues();
    juniper.link.TxTimer.setEnabled(true);
    EXPECT_EQ(juniper.send(), "FF03 2100 000B");
}

TEST_F(SendStep, DropsStaleStringsAndKeepsTheSurplusCopyOfAResentPoll) {
    link.CommandQueue = {"FF0300000001", "FF0300000001"};
    EXPECT_EQ(send(), Poll);
    EXPECT_EQ(tasks(), std::vector<int>{4});
    EXPECT_FALSE(link.TxTimer.Enabled());
    staySilent();
    EXPECT_EQ(send(), Poll);
    EXPECT_EQ(link.CommandQueue.size(), 2U);
    answerWords(Sixteen);
    EXPECT_EQ(link.CommandQueue.size(), 1U);
    send();
    EXPECT_EQ(link.CommandQueue.size(), 1U);  // cleaned when TaskQueue had run empty
    staySilent();
    send();
    link.push(12, "FF030100000F");
    answerWords(Sixteen);
    EXPECT_EQ(send(), "FF030100000F") << "both copies end with their own task";
    EXPECT_EQ(port.opens, 1) << "an open port is left alone";
}

TEST_F(SendStep, TakesAFailedSendAsATimeOutAndAStatusPollAfterIt) {
    port.close();
    port.canOpen = false;
    link.push(12, "FF030100000F");
    staySilent();
    EXPECT_TRUE(port.written.isEmpty());
    EXPECT_EQ(history, QStringList{DeadText});
    port.canOpen = true;
    EXPECT_EQ(send(), Poll);

    start();
    const qsizetype before = port.written.size();
    link.push(12);  // a task without its string is a failed send too, and so is a family without a poll
    staySilent();
    link.DriveStatus.DriveFamily = 20;
    staySilent();
    EXPECT_EQ(port.written.size(), before);
}

TEST_F(WaitStep, CountsTicksOfSilenceFromTheEndOfTheRequestOnTheWire) {
    start(1);
    send();
    const qint64 wire = port.line.wireTimeUs(8) + port.line.silenceUs();
    clock.advanceUs(wire + 7 * TickLength * 1000 - 1);
    EXPECT_EQ(cycles, 0);
    EXPECT_EQ(link.RxTickCount, 6U);
    port.arrive(QByteArray(1, '\xFF'));  // a burst at the limit less one restarts the wait
    clock.advanceUs(7 * TickLength * 1000 - 1);
    EXPECT_EQ(cycles, 0);
    clock.advanceUs(1);
    EXPECT_EQ(cycles, 1);
}

TEST_F(WaitStep, EndsAnAsciiReplyByItsLineEndAndAWholeRtuReplyByOneShortSilence) {
    const auto reply = [this] {
        return buildFrame(link.mode(), "FF0320" + QString(64, '0'), FrameCheck::Standard).wire;
    };
    send();
    passRequest();
    port.arrive(reply());
    clock.advance(0);
    EXPECT_EQ(cycles, 1);

    start(1);
    send();
    passRequest();
    port.arrive(reply());
    clock.advanceUs(1000);
    port.arrive("x");  // a byte in the short silence takes the early end back
    clock.advance(20);
    EXPECT_EQ(cycles, 0);
    staySilent();  // too long, and so damaged: what follows has no quick end
    send();
    passRequest();
    port.arrive(reply());
    clock.advance(5);
    EXPECT_EQ(cycles, 1);
    staySilent();
    EXPECT_EQ(cycles, 2);
}

// Byte by byte as the line brings them; what a port holds back is one burst later.
TEST_F(WaitStep, LetsTheKnownRestOfAReplyGatherInAPortThatCan) {
    port.canHoldBack = true;
    for (const LinkMode mode : {LinkMode::Ascii, LinkMode::Rtu}) {
        start(static_cast<quint8>(mode));
        send();
        passRequest();
        cycles = port.bursts = 0;
        const QByteArray reply = buildFrame(mode, "FF0320" + QString(64, '0'), FrameCheck::Standard).wire;
        for (const char byte : reply) {
            port.arrive(QByteArray(1, byte));
            EXPECT_EQ(link.RxTickCount, 0U);
            clock.advanceUs(port.line.wireTimeUs(1));
        }
        EXPECT_FALSE(port.isHeldBack);
        EXPECT_LT(port.bursts, 8) << "for " << reply.size();
        clock.advance(5);
        EXPECT_EQ(cycles, 1);
        EXPECT_TRUE(history.isEmpty()) << history.join('\n').toStdString();
    }
}

// A line that hears itself, and a byte behind a reply: a port that holds back tells the same of them as one
// that cannot, instead of swallowing into one reply what follows.
TEST_F(WaitStep, EchoesAndTrailingBytesEndAsInAPortThatCannotHoldBack) {
    const auto told = [this](LinkMode mode, const QByteArray& heard, bool holdsBack) {
        start(static_cast<quint8>(mode));
        history.clear();
        cycles = 0;
        port.canHoldBack = holdsBack;
        link.ActiveFunction = OwnerParameter;
        ask(12, "FF030100000F");
        passRequest();
        for (const char byte : heard.isEmpty() ? port.written.back() : heard) {
            port.arrive(QByteArray(1, byte));
            clock.advanceUs(port.line.wireTimeUs(1));
        }
        // In ASCII the line end is noticed before the drive's answer, in RTU the silence of the wait.
        clock.advance(mode == LinkMode::Ascii ? 8 : 7 * TickLength + 8);
        return QStringList(history) << QString::number(cycles);
    };
    const QString record = "FF031E" + QString(60, '0');
    for (const LinkMode mode : {LinkMode::Ascii, LinkMode::Rtu}) {
        EXPECT_EQ(told(mode, {}, true), told(mode, {}, false)) << int(mode);
        const QByteArray reply = buildFrame(mode, record, FrameCheck::Standard).wire;
        EXPECT_EQ(told(mode, reply + '\0', true), told(mode, reply + '\0', false)) << int(mode);
    }
}

TEST_F(WaitStep, CountsTheSilenceOfABrokenOffReplyFromTheEndOfTheRest) {
    start(1);
    port.canHoldBack = true;
    send();
    passRequest();
    port.arrive(QByteArray::fromHex("FF0320"));
    EXPECT_TRUE(port.isHeldBack);
    clock.advanceUs(port.line.wireTimeUs(34) + 7 * TickLength * 1000 - 1);  // to the last of 37 bytes
    EXPECT_FALSE(port.isHeldBack);
    EXPECT_EQ(cycles, 0);
    clock.advanceUs(1);
    EXPECT_EQ(cycles, 1);
    // A window takes the link in the middle of a rest.
    send();
    port.arrive(QByteArray::fromHex("FF0320"));
    link.prelude();
    EXPECT_FALSE(port.isHeldBack);
}

TEST_F(WaitStep, IsShortAgainOnceTheCutOffPollHasItsAnswer) {
    const auto frame = [this](const QString& text) {
        passRequest();
        port.arrive(buildFrame(link.mode(), text, FrameCheck::Standard).wire);
    };
    for (const char* heard : {"the answer", "another answer", "nothing"}) {
        start();
        ASSERT_EQ(send(), Poll);
        link.prelude();
        if (*heard != 'n')
            frame("FF03" + QString(*heard == 't' ? "20" : "1E") +
                  QString(64, '0').mid(*heard == 't' ? 0 : 4));
        link.ActiveFunction = OwnerParameter;
        ASSERT_EQ(ask(12, "FF030100000F"), "FF030100000F");
        const int before = cycles;
        frame("FF031E" + QString(60, '0'));
        clock.advance(TickLength);
        EXPECT_EQ(cycles > before, *heard == 't') << heard;
        link.tail();
    }
}

TEST_F(WaitStep, TellsAReadError) {
    person.expectBox("I got you (com)!!", "Cofirm");
    port.arriveUnreadable();
}

TEST_F(TimeOut, TakesItsNoticeAlongWithTheLink) {
    for (const auto end : {&RequestScheduler::Initial, &RequestScheduler::prelude, &RequestScheduler::tail}) {
        start(1);
        send();
        staySilent();
        ASSERT_TRUE(link.Notice.TCEmessageFormShown);
        (link.*end)();
        EXPECT_FALSE(link.Notice.TCEmessageFormShown);
    }
}

TEST_F(TimeOut, WaitsLongerEachTimeAndAsksAtTheFifth) {
    start(1);
    link.push(12, "FF030100000F");
    const qint64 wire = port.line.wireTimeUs(8);
    std::vector<qint64> waits;
    QStringList told;
    QObject::connect(&link, &RequestScheduler::timeoutTold, [&] { told += "suspend"; });
    QObject::connect(&link, &RequestScheduler::answeredAgain, [&] { told += "resume"; });
    for (int i = 0; i < 5; ++i) {
        if (i == 4) {
            person.expectLinkFailure(DeadText, true, LinkAnswer::Retry, [&] {
                EXPECT_EQ(link.Lamp.ComStatusAbLED, "Off Line");
                EXPECT_FALSE(link.Notice.TCEmessageFormShown);
                EXPECT_EQ(link.DriveStatus.DriveReady, 1);
                EXPECT_TRUE(port.isOpen);
            });
        }
        EXPECT_EQ(send(), "FF030100000F");
        const qint64 sentAt = clock.nowUs();
        staySilent();
        waits.push_back((clock.nowUs() - sentAt - wire) / (TickLength * 1000));
        EXPECT_EQ(link.TxTimer.Interval(), 1000);
        EXPECT_EQ(link.Notice.TCEmessageFormShown, i < 4);
    }
    EXPECT_EQ(waits, (std::vector<qint64>{7, 50, 300, 300, 300}));
    EXPECT_EQ(history, QStringList(5, DeadText));
    EXPECT_EQ(link.TimeoutCount, 0);

    // Retry: the same command a second later; a good reply turns the lamp green without identification.
    EXPECT_EQ(send(), "FF030100000F");
    answerWords(QList<int>(15, 1));
    EXPECT_EQ(link.Lamp.ComStatusAbLED, "On Line");
    EXPECT_EQ(link.ReplyTimeoutTicks, link.BaudTimeoutTicks);
    EXPECT_EQ(send(), Poll);
    answerWords(Sixteen);
    EXPECT_EQ(told, QStringList(5, "suspend") + QStringList("resume")) << "what a trend does";
}

TEST_F(TimeOut, IgnoreDropsTheRequestAndAbortTakesTheLinkDown) {
    link.push(2, "FF0620000002");
    link.push(5, "FF0620000030");
    failFiveTimes(LinkAnswer::Ignore);
    EXPECT_EQ(tasks(), std::vector<int>{5});
    EXPECT_EQ(send(), "FF0620000030");

    start();
    failFiveTimes(LinkAnswer::Abort);
    EXPECT_EQ(tasks(), (std::vector<int>{0, 21}));
    EXPECT_FALSE(link.TxTimer.Enabled() || link.RxTimer.Enabled());
    EXPECT_FALSE(link.Notice.TCEmessageFormShown);
    EXPECT_EQ(link.Notice.LinkAction, 0);
}

TEST_F(Reply, TakesTheLinkOnLineBeforeItsCheckAndResendsWithoutLimit) {
    link.setLamp(LampState::OffLine);
    link.push(12, "FF030100000F");
    int badChecks = 0;
    QObject::connect(&link, &RequestScheduler::badCheck, [&] { ++badChecks; });
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(send(), "FF030100000F");
        passRequest();
        port.arrive(":garbage\r\n");
        clock.advanceUntil([&] { return cycles == i + 1; }, 1000);
        EXPECT_EQ(badChecks, i + 1);
    }
    EXPECT_TRUE(link.Lamp.green);
    EXPECT_EQ(link.Lamp.mainPanel1, "ASCII 9600 < 7, N, 2 >");
    EXPECT_EQ(link.Lamp.parameterPanel1, "On - Line");
    EXPECT_EQ(history, QStringList(20, "Checksum Error !! Receive Data > :garbage\\x0D\\x0A"));
}

TEST_F(Reply, StepsTheBarByARuleOfItsOwn) {
    link.setLamp(LampState::OffLine);
    QList<int> steps;
    QObject::connect(&link, &RequestScheduler::indicatorStepped, [&](int position) { steps += position; });
    const auto polls = [&](int times) {
        for (int i = 0; i < times; ++i) {
            send();
            answerWords(Sixteen);
        }
        return std::exchange(steps, {});
    };
    EXPECT_EQ(polls(5), (QList<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 0}));
    send();
    staySilent();  // one step without an answer: from now on the odd tens
    EXPECT_EQ(polls(5), (QList<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 100}));
    send();
    EXPECT_EQ(link.ComStatusVrIndicator(), 0);
}

TEST_F(Reply, AsksAfterABadChecksumDuringIdentification) {
    link.Initial();
    link.TxTimer.setEnabled(true);
    const QString question = "Checksum Error !!\nWould you want to try again ?";
    send();
    bool shownGreen = false;
    QObject::connect(&link, &RequestScheduler::changed, [&] { shownGreen = link.Lamp.green; });
    person.expectBox(question, "Cofirm", BoxAnswer::Retry, [&] { EXPECT_TRUE(shownGreen); });
    port.arrive(BadFrame);
    EXPECT_EQ(send(), "FF0321100003");
    EXPECT_EQ(person.lastIcon, BoxIcon::Stop);
    person.expectBox(question, "Cofirm", BoxAnswer::Cancel);
    person.expectBox("On-Line Fail !!", "Error");
    port.arrive(BadFrame);
    clock.advance(500);
    EXPECT_EQ(tasks(), (std::vector<int>{0, 21}));
    EXPECT_FALSE(link.TxTimer.Enabled());
}

// Rowan's texts are longer; a refused text read is not asked for its own text.
TEST_F(Reply, FetchesTheTextOfAnExceptionOnce) {
    start(0, Family::Rowan);
    ask(13, "FF0601001770");
    answer("FF8604");
    EXPECT_EQ(send(), "FF033304000A");
    answer("FF8302");
    EXPECT_EQ(send(), Poll);
}

TEST_F(Reply, CountsFailuresOfIdentificationTogether) {
    link.Initial();
    bool failed = false;
    QObject::connect(&link, &RequestScheduler::identificationFailed, [&] { failed = true; });
    link.TxTimer.setEnabled(true);
    const QStringList replies{"FF8302", "FF030204D2", "FF8302", "FF030204D2", "FF8302"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(send(), "FF0321100003");
        if (i == 4)
            person.expectBox("Initial drive failed !!", "Error", BoxAnswer::Ok, [&] { EXPECT_TRUE(failed); });
        answer(replies[i]);
    }
    EXPECT_FALSE(link.Lamp.onLine() || port.isOpen);
    EXPECT_FALSE(link.TxTimer.Enabled());
    EXPECT_EQ(history, QStringList(2, "Receive data length is not correct !!"));
}

TEST_F(Reply, LogsLengthAndFunctionErrorsAndGoesOnWithoutAFlag) {
    link.ActiveFunction = OwnerParameter;
    ask(12, "FF030100000F");
    answer("FF030204D2");
    EXPECT_EQ(link.ParamRead.ReadDone, 0);
    EXPECT_FALSE(link.TxTimer.Enabled());
    ask(12, "FF0401000001");
    answer("FF030204D3");
    EXPECT_EQ(history, (QStringList{"Receive data length is not correct !!", "Function code error !! -> "}));
}

// A line that hums without a pause: bytes closer together than any wait.
struct Stop : OnLine {
    const QString stop = QStringLiteral("FF0620000001");
    TickTimer hum{clock, TickKind::RealTime, 40, [this] { port.arrive("U"); }};

    qsizetype framesUntilStop(qint64 maxMs) {
        const qsizetype before = port.written.size();
        const auto left = [&] {
            return port.written.size() > before && commandOf(port.written.back()) == stop;
        };
        return clock.advanceUntil(left, maxMs) ? port.written.size() - before : 0;
    }
    void press() { link.pushCommand(StopTask, stop); }
};

TEST_F(Stop, LeavesALineThatIsNeverSilentAndIsRepeatedThereUntilItsEcho) {
    for (const quint8 ComMode : {quint8(0), quint8(1)}) {
        start(ComMode);
        RequestChain chain(clock, link);
        chain.next = [] { return LinkRequest{ParameterTask, "FF030100000F", Awaits::ReadDone}; };
        hum.setEnabled(true);
        chain.start();
        send();
        press();
        EXPECT_EQ(framesUntilStop(500), 1);
        EXPECT_EQ(framesUntilStop(1000), 1);
        answer(stop);
        EXPECT_EQ(framesUntilStop(15000), 0);
        EXPECT_EQ(history.filter("The line is never silent, something disturbs it.").size(), 1);
        EXPECT_TRUE(chain.waitsForNothing()) << "and nobody is locked in behind the other request";
        hum.setEnabled(false);
    }
}

TEST_F(Stop, LeavesBeforeTheLinkIsGivenUp) {
    for (const LinkAnswer chosen : {LinkAnswer::Retry, LinkAnswer::Ignore, LinkAnswer::Abort}) {
        start();
        for (int i = 0; i < 4; ++i) staySilent();
        person.expectLinkFailure(DeadText, true, chosen, [this] { press(); });
        staySilent();
        EXPECT_EQ(framesUntilStop(1), 1);
        staySilent();
        EXPECT_EQ(port.isOpen, chosen != LinkAnswer::Abort);
    }
}

TEST_F(Stop, OutlivesQueuesThatAreEmptiedAndAWindowThatTakesTheLine) {
    send();
    link.emptyQueues();
    press();
    answerWords(Sixteen);  // nobody's any more
    EXPECT_EQ(send(), stop);
    EXPECT_EQ(history, QStringList());
    staySilent();
    link.prelude();
    EXPECT_EQ(send(), stop) << "it was not answered";
}

// Who goes on by himself after a good reply.
TEST_F(OnLine, EndOfCycleDecidesWhetherTheLineGoesOn) {
    struct Row {
        int owner, ready, exception, writing, identified;  // TWriteCheckForm is shown while writing
        bool goesOn;
    };
    const Row rows[] = {{1, 1, 0, 0, 1, true},  {3, 1, 0, 0, 1, true},  {1, 1, 0, 0, 0, false},
                        {4, 1, 0, 0, 1, false}, {8, 1, 0, 0, 1, false}, {4, 0, 0, 0, 1, true},
                        {5, 0, 0, 0, 1, true},  {7, 0, 0, 0, 1, true},  {6, 0, 0, 0, 1, false},
                        {8, 0, 0, 0, 1, false}, {4, 0, 0, 1, 1, false}, {4, 0, 0, 0, 0, false},
                        {4, 1, 1, 1, 1, true},  {7, 1, 1, 0, 1, true},  {8, 1, 1, 0, 1, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.owner << row.ready << row.exception << row.writing);
        start();
        link.DriveStatus.DriveReady = static_cast<quint8>(row.ready);
        link.DriveIdentified = static_cast<quint8>(row.identified);
        link.Notice.TWriteCheckFormShown = row.writing;
        link.ActiveFunction = static_cast<quint8>(row.owner);
        link.push(8, "FF0620050006");
        link.push(13, "FF0601001770");
        send();
        answer(row.exception ? "FF8604" : "FF0620050006");
        EXPECT_EQ(link.TxTimer.Enabled(), row.goesOn);
        EXPECT_TRUE(row.owner < 7 || !row.ready || (link.TaskQueue.empty() && link.CommandQueue.empty()));
    }
}

// ---- Console ----

struct ConsoleLink : OnLine {
    ConsoleLink() {
        link.setLamp(LampState::OffLine);
        link.TxTimer.setEnabled(false);
        link.ActiveFunction = OwnerAdvance;
    }
    void request(const QString& command = QStringLiteral("FF0321010001")) { ask(19, command); }
    // Waits are in ms and begin 100 ms behind the request on the wire.
    qint64 waitMs() {
        const qint64 sentAt = clock.nowUs();
        staySilent();
        return (clock.nowUs() - sentAt - port.line.wireTimeUs(17)) / 1000 - 100;
    }
};

TEST_F(ConsoleLink, WaitsTwiceInTrueMillisecondsAndKeepsAFailedSendOutOfTheLog) {
    link.Console.TimeOutCheckBoxChecked = true;
    request();
    EXPECT_EQ(waitMs(), 20);
    link.Console.TimeOut2 = 30;
    request();
    EXPECT_EQ(waitMs(), 50);
    EXPECT_EQ(link.Console.Log.timeoutRecords, 2);
    port.close();
    port.canOpen = false;
    link.push(19, "FF0321010001");
    link.TxTimer.setEnabled(true);
    clock.advance(1);
    EXPECT_EQ(link.Console.Log.totalRecords, 2);
    EXPECT_EQ(link.TaskQueue.size(), 1U);
    staySilent();
    EXPECT_EQ(link.Console.Log.timeoutRecords, 3);
}

TEST_F(ConsoleLink, LetsAFrameEndTheWaitOnlyWhenItsOwnWaitIsNotTheLonger) {
    request();
    port.arrive(":FF03020005F7\r\n");
    clock.advance(19);
    EXPECT_EQ(cycles, 0);
    clock.advance(2);
    EXPECT_EQ(cycles, 1);
    link.Console.TimeOut1 = 7;
    request();
    port.arrive(":FF03020005F7\r\n");
    clock.advance(2);
    EXPECT_EQ(cycles, 2);
    // In the second wait it ends nothing.
    link.Console.TimeOut2 = 200;
    request();
    clock.advance(150);
    EXPECT_EQ(link.Console.FirstWaitOver, 1);
    port.arrive(":FF03020005F7\r\n");
    clock.advance(199);
    EXPECT_EQ(cycles, 2);
    clock.advance(2);
    EXPECT_EQ(cycles, 3);
}

// Some locales set the zone in brackets, which go with it.
TEST(HistoryTime, HasNoZoneAndNoEmptyBracketsInAnyLocale) {
    const QDateTime now(QDate(2026, 3, 2), QTime(19, 8, 7), Qt::UTC);
    int locales = 0;
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        const QString text = RequestScheduler::dateTimeText(locale, now);
        for (const char* unwanted : {"()", "( )", "[]", "UTC", "  "})
            EXPECT_FALSE(text.contains(QString::fromUtf8(unwanted)))
                << locale.name().toStdString() << ": " << text.toStdString();
        EXPECT_EQ(text, text.trimmed());
        ++locales;
    }
    EXPECT_GT(locales, 300);
    EXPECT_EQ(RequestScheduler::dateTimeText(QLocale("zh_TW"), now), "2026/3/2 19:08:07");
}

}  // namespace
}  // namespace kelvane
