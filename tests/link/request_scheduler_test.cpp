#include "link/request_scheduler.h"

#include <gtest/gtest.h>

#include "bench/link_bench.h"

namespace kelvane {
namespace {

using testing::Test;

const QString Poll = QStringLiteral("FF0321000010");
const QString DeadText = QStringLiteral("Communication Timeout");

std::vector<int> tasks(const RequestScheduler& link) { return {link.TaskQueue.begin(), link.TaskQueue.end()}; }

TEST(Initial, QueuesIdentificationAndSendsNothing) {
    SchedulerBench bench;
    bench.port.open();
    bench.link.Labels.DriveVrLabel = "Larch";
    bench.link.Lamp.ComStatusAbLED = "On Line";
    bench.link.Initial();
    EXPECT_EQ(tasks(bench.link), (std::vector<int>{0, 21}));
    EXPECT_EQ(bench.link.CommandQueue, std::deque<QString>{"FF0321100003"});
    EXPECT_EQ(bench.link.Labels, DriveLabelsRecord{});
    EXPECT_EQ(bench.link.Lamp.ComStatusAbLED, "Off Line");
    EXPECT_EQ(bench.link.DriveIdentified, 1);
    EXPECT_EQ(bench.link.DriveStatus.KeypadDataDue, 1);
    EXPECT_FALSE(bench.port.isOpen);
    bench.clock.advance(5000);
    EXPECT_TRUE(bench.port.written.isEmpty());

    SchedulerBench juniper(2);
    juniper.link.Initial();
    EXPECT_EQ(tasks(juniper.link), (std::vector<int>{50, 51, 52}));
    EXPECT_TRUE(juniper.link.CommandQueue.empty());
}

TEST(SendStep, DropsStaleStringsAndPollsWhenNothingIsQueued) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.CommandQueue = {"FF0300000001", "FF0300000001"};
    bench.link.TxTimer.setEnabled(true);
    EXPECT_EQ(bench.send(), Poll);
    EXPECT_EQ(tasks(bench.link), std::vector<int>{4});
    EXPECT_EQ(bench.port.kinds.back(), "string");
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
    EXPECT_TRUE(bench.link.RxTimer.Enabled());
    EXPECT_EQ(bench.link.ComStatusVrIndicator, 10);

    SchedulerBench juniper(2);
    juniper.beOnLine();
    juniper.link.TxTimer.setEnabled(true);
    EXPECT_EQ(juniper.send(), "FF03 2100 000B");
}

TEST(SendStep, OpensAClosedPortAndLeavesAnOpenOneAlone) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.ComMode = 1;
    bench.link.TxTimer.setEnabled(true);
    EXPECT_EQ(bench.send(), Poll);
    EXPECT_EQ(bench.port.kinds.back(), "block");
    EXPECT_EQ(bench.port.opens, 1);
    bench.answerWords(QList<int>(16, 0));
    EXPECT_EQ(bench.send(), Poll);
    EXPECT_EQ(bench.port.opens, 1);
}

TEST(SendStep, TakesAFailedSendAsATimeOutAndAStatusPollAfterIt) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.port.canOpen = false;
    bench.link.push(12, "FF030100000F");
    bench.link.TxTimer.setEnabled(true);
    bench.staySilent();
    EXPECT_TRUE(bench.port.written.isEmpty());
    EXPECT_EQ(bench.history, QStringList{DeadText});
    bench.port.canOpen = true;
    EXPECT_EQ(bench.send(), Poll);

    // A family without a poll command is a failed send too.
    bench.beOnLine(20, 0);
    bench.link.TxTimer.setInterval(1);
    bench.link.TxTimer.setEnabled(true);
    const qsizetype before = bench.port.written.size();
    bench.staySilent();
    EXPECT_EQ(bench.port.written.size(), before);
}

TEST(SendStep, KeepsTheSurplusCopyOfAResentGeneratedCommand) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.staySilent();
    bench.send();
    EXPECT_EQ(bench.link.CommandQueue.size(), 2U);
    bench.answerWords(QList<int>(16, 0));
    EXPECT_EQ(bench.link.CommandQueue.size(), 1U);
    bench.send();
    EXPECT_EQ(bench.link.CommandQueue.size(), 1U);  // cleaned when TaskQueue had run empty
}

TEST(WaitStep, CountsTicksOfSilenceFromTheEndOfTheRequestOnTheWire) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.ComMode = 1;
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    const qint64 wire = bench.port.line.wireTimeUs(8) + bench.port.line.silenceUs();
    bench.clock.advanceUs(wire + 7 * TickLength * 1000 - 1);
    EXPECT_EQ(bench.cycles, 0);
    EXPECT_EQ(bench.link.RxTickCount, 6U);
    bench.port.arrive(QByteArray(1, '\xFF'));  // a burst at the limit less one restarts the wait
    bench.clock.advanceUs(7 * TickLength * 1000 - 1);
    EXPECT_EQ(bench.cycles, 0);
    bench.clock.advanceUs(1);
    EXPECT_EQ(bench.cycles, 1);
}

TEST(WaitStep, EndsAnAsciiReplyByItsLineEndAndAWholeRtuReplyByOneShortSilence) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.port.arrive(buildFrame(LinkMode::Ascii, "FF0320" + QString(64, '0'), FrameCheck::Standard).wire);
    bench.clock.advance(0);
    EXPECT_EQ(bench.cycles, 1);

    bench.link.ComMode = 1;
    bench.clock.advance(0);
    bench.clock.advance(1);
    const QByteArray reply = buildFrame(LinkMode::Rtu, "FF0320" + QString(64, '0'), FrameCheck::Standard).wire;
    bench.staySilent();  // the request that was sent in ASCII
    bench.send();
    const int before = bench.cycles;
    bench.port.arrive(reply);
    bench.clock.advanceUs(1000);
    bench.port.arrive("x");  // a byte in the short silence takes the early end back
    bench.clock.advance(20);
    EXPECT_EQ(bench.cycles, before);
    bench.staySilent();
    bench.send();
    const int again = bench.cycles;
    bench.port.arrive(reply);
    bench.clock.advance(5);
    EXPECT_EQ(bench.cycles, again + 1);
}

// Byte by byte as the line brings them; what a port holds back is one burst later.
TEST(WaitStep, LetsTheKnownRestOfAReplyGatherInAPortThatCan) {
    for (const LinkMode mode : {LinkMode::Ascii, LinkMode::Rtu}) {
        SchedulerBench bench;
        bench.beOnLine();
        bench.port.canHoldBack = true;
        bench.link.ComMode = static_cast<quint8>(mode);
        bench.link.TxTimer.setEnabled(true);
        bench.send();
        const QByteArray reply = buildFrame(mode, "FF0320" + QString(64, '0'), FrameCheck::Standard).wire;
        for (const char byte : reply) {
            bench.port.arrive(QByteArray(1, byte));
            EXPECT_EQ(bench.link.RxTickCount, 0U);
            bench.clock.advanceUs(bench.port.line.wireTimeUs(1));
        }
        EXPECT_FALSE(bench.port.isHeldBack);
        EXPECT_LT(bench.port.bursts, 15) << "for " << reply.size();
        bench.clock.advance(5);
        EXPECT_EQ(bench.cycles, 1);
        EXPECT_TRUE(bench.history.isEmpty()) << bench.history.join('\n').toStdString();
    }
}

TEST(WaitStep, CountsTheSilenceOfABrokenOffReplyFromTheEndOfTheRest) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.port.canHoldBack = true;
    bench.link.ComMode = 1;
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.port.arrive(QByteArray::fromHex("FF03"));
    EXPECT_TRUE(bench.port.isHeldBack);
    bench.clock.advanceUs(TickLength * 1000 + 7 * TickLength * 1000 - 1);
    EXPECT_FALSE(bench.port.isHeldBack);
    EXPECT_EQ(bench.cycles, 0);
    bench.clock.advanceUs(1);
    EXPECT_EQ(bench.cycles, 1);
    // A window takes the link in the middle of a rest.
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.port.arrive(QByteArray::fromHex("FF03"));
    bench.link.prelude();
    EXPECT_FALSE(bench.port.isHeldBack);
}

TEST(ReceiveEvent, TellsAReadError) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.person.expectBox("I got you (com)!!", "Cofirm");
    bench.port.arriveUnreadable();
}

TEST(TimeOut, WaitsLongerEachTimeAndAsksAtTheFifth) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.ComMode = 1;
    bench.link.Lamp.ComStatusAbLED = "On Line";
    bench.link.Lamp.green = true;
    bench.link.push(12, "FF030100000F");
    bench.link.TxTimer.setEnabled(true);
    const qint64 wire = bench.port.line.wireTimeUs(8);
    std::vector<qint64> waits;
    for (int i = 0; i < 5; ++i) {
        if (i == 4) {
            bench.person.expectLinkFailure(DeadText, true, LinkAnswer::Retry, [&] {
                EXPECT_EQ(bench.link.Lamp.ComStatusAbLED, "Off Line");
                EXPECT_FALSE(bench.link.Notice.TCEmessageForm);
                EXPECT_EQ(bench.link.DriveStatus.DriveReady, 1);
                EXPECT_TRUE(bench.port.isOpen);
            });
        }
        EXPECT_EQ(bench.send(), "FF030100000F");
        const qint64 sentAt = bench.clock.nowUs();
        bench.staySilent();
        waits.push_back((bench.clock.nowUs() - sentAt - wire) / (TickLength * 1000));
        EXPECT_EQ(bench.link.Keypad.ErrNameVrLabel, "CE 10");
        EXPECT_EQ(bench.link.Keypad.pageIndex, 2);
        EXPECT_EQ(bench.link.TxTimer.Interval(), 1000);
        EXPECT_EQ(bench.link.Notice.TCEmessageForm, i < 4);
    }
    EXPECT_EQ(waits, (std::vector<qint64>{7, 50, 300, 300, 300}));
    EXPECT_EQ(bench.history, QStringList(5, DeadText));
    EXPECT_EQ(bench.link.TimeoutCount, 0);

    // Retry: the same command a second later; a good reply turns the lamp green without identification.
    EXPECT_EQ(bench.send(), "FF030100000F");
    bench.answerWords(QList<int>(15, 1));
    EXPECT_EQ(bench.link.Lamp.ComStatusAbLED, "On Line");
    EXPECT_EQ(bench.link.ReplyTimeoutTicks, bench.link.BaudTimeoutTicks);
    EXPECT_EQ(bench.send(), Poll);
}

void failFiveTimes(SchedulerBench& bench, LinkAnswer answer, bool ignoreShown = true) {
    bench.link.TxTimer.setEnabled(true);
    for (int i = 0; i < 5; ++i) {
        if (i == 4) bench.person.expectLinkFailure(DeadText, ignoreShown, answer);
        bench.staySilent();
    }
}

TEST(TimeOut, IgnoreDropsTheRequestAndAbortTakesTheLinkDown) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.push(2, "FF0620000002");
    bench.link.push(3, "FF0620000001");
    failFiveTimes(bench, LinkAnswer::Ignore);
    EXPECT_EQ(tasks(bench.link), std::vector<int>{3});
    EXPECT_EQ(bench.send(), "FF0620000001");

    bench.beOnLine();
    bench.link.TxTimer.setInterval(1);
    failFiveTimes(bench, LinkAnswer::Abort);
    EXPECT_EQ(tasks(bench.link), (std::vector<int>{0, 21}));
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
    EXPECT_EQ(bench.link.Notice.LinkAction, 0);
}

TEST(TimeOut, AbortDuringAParameterReadClosesItsProgressAndKeepsTheLink) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.ActiveFunction = OwnerParameter;
    bench.link.Notice.TProgressForm = true;
    bool stopped = false;
    int focus = 0;
    bench.link.stopParameterRead = [&] { stopped = true; };
    QObject::connect(&bench.link, &RequestScheduler::focusWanted, [&](int code) { focus = code; });
    bench.link.Labels.DriveVrLabel = "Tilia";
    bench.link.push(12, "FF030100000F");
    // Expected in this order: the failure question, then the box.
    bench.link.TxTimer.setEnabled(true);
    for (int i = 0; i < 4; ++i) bench.staySilent();
    bench.person.expectLinkFailure(DeadText, false, LinkAnswer::Abort);
    bench.person.expectBox("On-Line Fail !!", "Error");
    bench.staySilent();
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(bench.link.Notice.TProgressForm);
    EXPECT_EQ(focus, OwnerParameter);
    EXPECT_EQ(bench.link.Labels.DriveVrLabel, "Tilia");
    EXPECT_TRUE(bench.link.TaskQueue.empty());
}

TEST(TimeOut, IgnoreAndAbortReachARunningWriteList) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.ActiveFunction = OwnerParameter;
    bench.link.Notice.TWriteCheckForm = true;
    bench.link.push(13, "FF0601001770");
    failFiveTimes(bench, LinkAnswer::Ignore);
    EXPECT_EQ(bench.link.ParamRead.WriteDone, 1);
    EXPECT_EQ(bench.link.Notice.LinkAction, 0);

    bench.link.ParamRead.WriteDone = 0;
    bench.link.push(13, "FF0601001770");
    failFiveTimes(bench, LinkAnswer::Abort);
    EXPECT_EQ(bench.link.DriveStatus.ExceptionTextDone, 1);
    EXPECT_EQ(bench.link.Notice.LinkAction, 3);  // kept for the write list's next tick
}

TEST(TimeOut, SuspendsATrendUntilTheNextReply) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.Trend.StartVrPowerButton = bench.link.Trend.GetDataTimer = bench.link.Trend.recording1 = true;
    bench.link.TxTimer.setEnabled(true);
    bench.staySilent();
    EXPECT_FALSE(bench.link.Trend.GetDataTimer || bench.link.Trend.recording1);
    bench.send();
    bench.answerWords(QList<int>(16, 0));
    const TrendLinkRecord& trend = bench.link.Trend;
    EXPECT_TRUE(trend.GetDataTimer && trend.recording1 && trend.flow1 && trend.flow2);
}

TEST(Reply, TakesTheLinkOnLineBeforeTheFrameIsChecked) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.port.arrive(":garbage\r\n");
    bench.clock.advance(1);
    EXPECT_EQ(bench.link.Lamp.ComStatusAbLED, "On Line");
    EXPECT_TRUE(bench.link.Lamp.green);
    EXPECT_EQ(bench.link.Lamp.mainPanel1, "ASCII 9600 < 7, N, 2 >");
    EXPECT_EQ(bench.link.Lamp.parameterPanel1, "On - Line");
    EXPECT_EQ(bench.history, QStringList{"Checksum Error !! Receive Data > :garbage\\x0D\\x0A"});
}

TEST(Reply, StepsTheBarByARuleOfItsOwn) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.TxTimer.setEnabled(true);
    const int rows[][3] = {{70, 80, 90}, {80, 90, 0}, {90, 100, 100}, {100, 0, 10}};  // before, sent, answered
    for (const auto& row : rows) {
        bench.link.ComStatusVrIndicator = row[0];
        bench.send();
        EXPECT_EQ(bench.link.ComStatusVrIndicator, row[1]);
        bench.answerWords(QList<int>(16, 0));
        EXPECT_EQ(bench.link.ComStatusVrIndicator, row[2]);
    }
}

TEST(Reply, KeepsResendingWithoutLimitAfterBadChecksumsOnLine) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.push(12, "FF030100000F");
    bench.link.TxTimer.setEnabled(true);
    for (int i = 0; i < 20; ++i) {
        bench.link.Keypad.GetDataTimer = true;
        EXPECT_EQ(bench.send(), "FF030100000F");
        bench.port.arrive(":FF03020005F8\r\n");
        bench.clock.advanceUntil([&] { return bench.cycles == i + 1; }, 10);
        EXPECT_FALSE(bench.link.Keypad.GetDataTimer);
    }
    EXPECT_EQ(bench.history.size(), 20);
    EXPECT_EQ(bench.send(), "FF030100000F");
}

TEST(Reply, AsksAfterABadChecksumDuringIdentification) {
    SchedulerBench bench;
    bench.link.Initial();
    bench.link.TxTimer.setEnabled(true);
    const QString question = "Checksum Error !!\nWould you want to try again ?";
    bench.send();
    bench.person.expectBox(question, "Cofirm", BoxAnswer::Retry);
    bench.port.arrive(":FF03020005F8\r\n");
    EXPECT_EQ(bench.send(), "FF0321100003");
    EXPECT_EQ(bench.person.lastIcon, BoxIcon::Stop);
    bench.person.expectBox(question, "Cofirm", BoxAnswer::Cancel);
    bench.person.expectBox("On-Line Fail !!", "Error");
    bench.port.arrive(":FF03020005F8\r\n");
    bench.clock.advance(5);
    EXPECT_EQ(tasks(bench.link), (std::vector<int>{0, 21}));
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
}

TEST(Reply, FetchesTheTextOfAnExceptionAndDropsTheRequest) {
    for (const auto& [family, command] : {std::pair{4, "FF0333040008"}, {0, "FF033304000A"}}) {
        SchedulerBench bench;
        bench.beOnLine(static_cast<quint8>(family));
        bench.link.ActiveFunction = OwnerParameter;
        bench.link.push(13, "FF0601001770");
        bench.link.TxTimer.setEnabled(true);
        bench.send();
        bench.answer("FF8604");
        EXPECT_EQ(bench.link.DriveStatus.ExceptionPending, 1);
        EXPECT_EQ(bench.link.DriveStatus.ExceptionCode, 4);
        EXPECT_EQ(bench.link.ParamRead.WriteDone, 0);
        EXPECT_EQ(bench.send(), command);
        bench.answer("FF0310" + hexOf("Data out of rang"));
        if (family != 0) {
            EXPECT_EQ(bench.history.back(), "CE 4 : Data out of rang");
            EXPECT_EQ(bench.link.DriveStatus.ExceptionTextDone, 1);
            EXPECT_FALSE(bench.link.TxTimer.Enabled());  // the window has the line again
        }
    }
}

TEST(Reply, DoesNotAskForTheTextOfARefusedTextRead) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.push(13, "FF0601001770");
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.answer("FF8604");
    EXPECT_EQ(bench.send(), "FF0333040008");
    bench.answer("FF8302");
    EXPECT_EQ(bench.send(), Poll);
}

TEST(Reply, CountsFailuresOfIdentificationTogether) {
    SchedulerBench bench;
    bench.link.Initial();
    bench.link.Notice.TInitialForm = true;
    bench.link.TxTimer.setEnabled(true);
    const QStringList replies{"FF8302", "FF030204D2", "FF8302", "FF030204D2", "FF8302"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(bench.send(), "FF0321100003");
        if (i == 4) bench.person.expectBox("Initial drive failed !!", "Error");
        bench.answer(replies[i]);
    }
    EXPECT_FALSE(bench.link.Notice.TInitialForm);
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
    EXPECT_EQ(bench.history, QStringList(2, "Receive data length is not correct !!"));
}

TEST(Reply, LogsLengthAndFunctionErrorsAndGoesOnWithoutAFlag) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.ActiveFunction = OwnerParameter;
    bench.link.push(12, "FF030100000F");
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.answer("FF030204D2");
    EXPECT_EQ(bench.link.ParamRead.ReadDone, 0);
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
    bench.link.push(12, "FF0401000001");
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.answer("FF030204D2");
    EXPECT_EQ(bench.history, (QStringList{"Receive data length is not correct !!", "Function code error !! -> "}));
}

// Who goes on by himself after a good reply: ActiveFunction, DriveReady, ExceptionPending, TWriteCheckForm,
// DriveIdentified -> TxTimer enabled.
struct GoOnRow {
    int owner, ready, exception, writing, identified;
    bool goesOn;
};
class EndOfCycle : public testing::TestWithParam<GoOnRow> {};

TEST_P(EndOfCycle, DecidesWhetherTheLineGoesOn) {
    const GoOnRow& row = GetParam();
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.DriveStatus.DriveReady = static_cast<quint8>(row.ready);
    bench.link.DriveIdentified = static_cast<quint8>(row.identified);
    bench.link.Notice.TWriteCheckForm = row.writing;
    bench.link.ActiveFunction = static_cast<quint8>(row.owner);
    bench.link.push(8, "FF0620050006");
    bench.link.push(13, "FF0601001770");
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.answer(row.exception ? "FF8604" : "FF0620050006");
    EXPECT_EQ(bench.link.TxTimer.Enabled(), row.goesOn);
    if (row.owner >= 7 && row.ready) {
        EXPECT_TRUE(bench.link.TaskQueue.empty() && bench.link.CommandQueue.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EndOfCycle,
                         testing::Values(GoOnRow{1, 1, 0, 0, 1, true}, GoOnRow{2, 1, 0, 0, 1, true},
                                         GoOnRow{3, 1, 0, 0, 1, true}, GoOnRow{1, 1, 0, 0, 0, false},
                                         GoOnRow{4, 1, 0, 0, 1, false}, GoOnRow{5, 1, 0, 0, 1, false},
                                         GoOnRow{6, 1, 0, 0, 1, false}, GoOnRow{7, 1, 0, 0, 1, false},
                                         GoOnRow{8, 1, 0, 0, 1, false}, GoOnRow{4, 0, 0, 0, 1, true},
                                         GoOnRow{5, 0, 0, 0, 1, true}, GoOnRow{7, 0, 0, 0, 1, true},
                                         GoOnRow{6, 0, 0, 0, 1, false}, GoOnRow{8, 0, 0, 0, 1, false},
                                         GoOnRow{4, 0, 0, 1, 1, false}, GoOnRow{4, 0, 0, 0, 0, false},
                                         GoOnRow{4, 1, 1, 0, 1, true}, GoOnRow{4, 1, 1, 1, 1, true},
                                         GoOnRow{7, 1, 1, 0, 1, true}, GoOnRow{8, 1, 1, 0, 1, false}));

TEST(PreludeAndTail, StopTheLineAndRestartItOnLine) {
    SchedulerBench bench;
    bench.beOnLine();
    bench.link.Lamp.ComStatusAbLED = "On Line";
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.link.prelude();
    bench.link.ActiveFunction = OwnerParameter;
    bench.clock.advance(3000);
    EXPECT_EQ(bench.port.written.size(), 1);
    EXPECT_TRUE(bench.link.TaskQueue.empty());
    bench.link.tail();
    EXPECT_EQ(bench.send(), Poll);
    EXPECT_EQ(bench.link.ActiveFunction, OwnerMain);

    bench.link.prelude();
    bench.link.Lamp.ComStatusAbLED = "Off Line";
    bench.link.tail();
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
}

TEST(History, HasDateTimeAndText) {
    SchedulerBench bench;
    QString line;
    QObject::connect(&bench.link, &RequestScheduler::historyLine, [&](const QString& l) { line = l; });
    bench.link.ShowHistoryMsg("Open x.prj");
    EXPECT_EQ(line.toStdString(), bench.link.dateTimeText().toStdString() + " > Open x.prj");
    EXPECT_TRUE(line.contains("9:08:07"));
}

// ---- Console ----

struct ConsoleBench : SchedulerBench {
    ConsoleBench() {
        beOnLine();
        link.ActiveFunction = OwnerAdvance;
    }
    void request(const QString& command) {
        link.push(19, command);
        link.TxTimer.setEnabled(true);
        send();
    }
};

TEST(ConsoleLink, LogsEachExchangeAndSetsBothFlags) {
    ConsoleBench bench;
    bench.request("FF0321010001");
    EXPECT_TRUE(bench.link.ConsoleLog.topLine.endsWith("09:08:07:06] Send > :FF0321010001DB\\x0D\\x0A .......  "));
    EXPECT_EQ(bench.link.ConsoleLog.totalRecords, 1);
    bench.answer("FF03020005");
    EXPECT_TRUE(bench.link.ConsoleLog.topLine.endsWith("Receive > :FF03020005F7\\x0D\\x0A"));
    EXPECT_EQ(bench.link.ConsoleLog.topLineColour, ConsoleBlack);
    EXPECT_EQ(bench.link.ParamRead.ReadDone, 1);
    EXPECT_EQ(bench.link.ParamRead.WriteDone, 1);
    EXPECT_EQ(bench.link.Lamp.ComStatusAbLED, "Off Line");  // the console does not touch the lamp

    bench.link.Console.ListRunning = 1;
    bench.request("FF0321010001");
    bench.answer("FF8302");
    EXPECT_EQ(bench.link.ConsoleLog.RepliedData, "CE2");
    EXPECT_EQ(bench.link.ConsoleLog.topLineColour, ConsolePurple);
    EXPECT_EQ(bench.link.ConsoleLog.errorRecords, 1);
    EXPECT_TRUE(bench.link.TaskQueue.empty());  // no text is fetched
}

TEST(ConsoleLink, KeepsAFailedSendOutOfTheLogAndItsQueues) {
    ConsoleBench bench;
    bench.port.canOpen = false;
    bench.link.Console.TimeOutCheckBox = true;
    bench.link.port().close();
    bench.link.push(19, "FF0321010001");
    bench.link.TxTimer.setEnabled(true);
    bench.clock.advance(1);
    EXPECT_EQ(bench.link.ConsoleLog.totalRecords, 0);
    EXPECT_EQ(bench.link.TaskQueue.size(), 1U);
    bench.staySilent();
    EXPECT_EQ(bench.link.ConsoleLog.timeoutRecords, 1);
}

TEST(ConsoleLink, FramesByItsSettings) {
    ConsoleBench bench;
    bench.link.ComMode = 1;
    const auto wire = [&] {
        bench.link.emptyQueues();
        bench.request("FF0321100003");
        return bench.port.written.back().toHex().toUpper();
    };
    EXPECT_EQ(wire(), "FF03211000031BEC");
    bench.link.Console.Orlan = false;
    EXPECT_EQ(wire(), "FF032110000302C6");
    bench.link.Console.AddChksumCheckBox = false;
    EXPECT_EQ(wire(), "FF0321100003");
    bench.link.ActiveFunction = OwnerMain;  // elsewhere the boxes play no part
    EXPECT_EQ(wire(), "FF03211000031BEC");
}

// Console waits are in ms and begin 100 ms behind the request on the wire.
qint64 consoleWaitMs(ConsoleBench& bench) {
    const qint64 sentAt = bench.clock.nowUs();
    bench.staySilent();
    return (bench.clock.nowUs() - sentAt - bench.port.line.wireTimeUs(17)) / 1000 - 100;
}

TEST(ConsoleLink, WaitsTwiceInTrueMilliseconds) {
    ConsoleBench bench;
    bench.link.Console.TimeOutCheckBox = true;
    bench.request("FF0321010001");
    EXPECT_EQ(consoleWaitMs(bench), 20);
    bench.link.Console.TimeOut2 = 30;
    bench.request("FF0321010001");
    EXPECT_EQ(consoleWaitMs(bench), 50);
    EXPECT_EQ(bench.link.ConsoleLog.timeoutRecords, 2);
    EXPECT_TRUE(bench.link.ConsoleLog.topLine.endsWith("Receive > No response"));
    EXPECT_EQ(bench.link.ConsoleLog.topLineColour, ConsoleRed);
    EXPECT_EQ(bench.link.TxTimer.Interval(), 1);
}

TEST(ConsoleLink, LetsAFrameEndTheWaitOnlyWhenItsOwnWaitIsNotTheLonger) {
    ConsoleBench bench;
    bench.request("FF0321010001");
    bench.port.arrive(":FF03020005F7\r\n");
    bench.clock.advance(19);
    EXPECT_EQ(bench.cycles, 0);
    bench.clock.advance(2);
    EXPECT_EQ(bench.cycles, 1);
    bench.link.Console.TimeOut1 = 7;
    bench.request("FF0321010001");
    bench.port.arrive(":FF03020005F7\r\n");
    bench.clock.advance(2);
    EXPECT_EQ(bench.cycles, 2);
}

TEST(ConsoleLink, CountsTimeOutsOfASingleSendAndTakesAnythingAsGoodWithoutRules) {
    ConsoleBench bench;
    bench.request("FF0321010001");
    for (int i = 0; i < 4; ++i) bench.staySilent();
    bench.person.expectLinkFailure(DeadText, true, LinkAnswer::Ignore);
    bench.staySilent();
    EXPECT_EQ(bench.link.TimeoutCount, 0);
    EXPECT_TRUE(bench.link.TaskQueue.empty());
    EXPECT_TRUE(bench.history.isEmpty());

    bench.link.Console.CheckRuleCheckBox = false;
    bench.request("FF0321010001");
    bench.port.arrive(":nonsense\r\n");
    bench.clock.advance(30);
    EXPECT_EQ(bench.link.ConsoleLog.errorRecords, 0);
    EXPECT_EQ(bench.link.ConsoleLog.CanSend, 1);
}

TEST(ConsoleLink, DoesNotWaitWhileItListens) {
    ConsoleBench bench;
    bench.link.Console.Monitor = true;
    QByteArray heard;
    QObject::connect(&bench.link, &RequestScheduler::listenerBurst, [&](const QByteArray& b) { heard = b; });
    bench.request("FF0321010001");
    EXPECT_FALSE(bench.link.RxTimer.Enabled());
    bench.port.arrive("abc");
    EXPECT_EQ(heard, "abc");
}

}  // namespace
}  // namespace kelvane
