#include "link/task_table.h"

#include <gtest/gtest.h>

#include "bench/link_bench.h"
#include "link/fault_names.h"

namespace kelvane {
namespace {

TEST(GeneratedCommand, FollowsTheFamily) {
    struct Row {
        Family family;
        const char* poll;
        const char* model;
        const char* name;
    };
    for (const Row& row : {Row{Family::Rowan, "FF0321000010", "FF0300500001", "FF0300500001"},
                           Row{Family::Aspen, "FF032100000B", "FF0300000001", "FF0300000001"},
                           Row{Family::Larch, "FF0321000010", "FF0300000001", "FF03310B0008"},
                           Row{Family::Hazel, "FF032100000B", "FF0300000001", "FF0300060001"},
                           Row{Family::Tilia, "FF0321000010", "FF0300000001", "FF03310B0008"},
                           Row{Family::Osier, "FF032100000E", "FF0307000001", "FF03310B0008"},
                           Row{Family::Willow, "FF032100000B", "FF0300000001", "FF03310B0008"},
                           Row{Family::Yarrow, "FF0321000010", "FF0300000001", "FF03310B0008"},
                           Row{Family::Sorrel, "FF0321000010", "FF0300000001", "FF03310B0008"}}) {
        DriveStatusRecord status;
        status.DriveFamily = static_cast<quint8>(row.family);
        status.GroupIndex = 11;
        EXPECT_EQ(generatedCommand(4, status).toStdString(), row.poll);
        EXPECT_EQ(generatedCommand(1, status).toStdString(), row.model);
        EXPECT_EQ(generatedCommand(21, status).toStdString(), row.name);
    }
    for (const int other : {7, 10, 20, 255}) {
        DriveStatusRecord status;
        status.DriveFamily = static_cast<quint8>(other);
        EXPECT_TRUE(generatedCommand(4, status).isEmpty());
    }
}

TEST(GeneratedCommand, ReadsTheCountTableBehindTheLastGroup) {
    DriveStatusRecord status;
    status.GroupCount = 2;
    status.GroupIndex = 1;
    EXPECT_EQ(generatedCommand(11, status), "FF0303010001");
    status.GroupCount = 11;
    status.GroupIndex = 0;
    EXPECT_EQ(generatedCommand(81, status), "FF030C000001");
    EXPECT_EQ(generatedCommand(80, status), "FF0321110001");
    for (const int pushed : {0, 2, 3, 5, 10, 12, 15, 20})
        EXPECT_TRUE(generatedCommand(static_cast<quint8>(pushed), status).isEmpty());
}

// One exchange of a pushed task, answered with words or a text.
struct TaskBench : SchedulerBench {
    explicit TaskBench(Family family = Family::Tilia, quint8 items = 14) {
        beOnLine(static_cast<quint8>(family), items);
        link.ActiveFunction = OwnerParameter;
    }
    void ask(quint8 task, const QString& command) {
        link.push(task, command);
        link.TxTimer.setEnabled(true);
        send();
    }
};

TEST(StatusPoll, DecodesItemsAsUnsignedTexts) {
    TaskBench bench;
    bench.link.DriveStatus.StatusDecimals = {2, 2, 2, 1, 1, 0, 0, 0, 1, 1};
    bench.link.DriveStatus.FaultTextValid = 1;
    bench.link.DriveStatus.DriveReady = 0;
    bench.link.Notice.TInitialForm = true;
    bench.link.ActiveFunction = OwnerMain;
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.answerWords({0x0100, 0x0024, 6000, 5000, 523, 3105, 2200, 0, 0, 0, 0, 0xFFFB, 0, 0, 0, 0});
    const DriveStatusRecord& status = bench.link.DriveStatus;
    EXPECT_EQ(status.StatusText[0], "60.00");
    EXPECT_EQ(status.StatusText[2], "5.23");
    EXPECT_EQ(status.StatusText[4], "220.0");
    EXPECT_EQ(status.StatusText[9], "6553.1");
    EXPECT_EQ(status.StatusWords[1], 0x24U);
    EXPECT_EQ(status.JogActive, 1);
    EXPECT_EQ(status.ReservedEnabled, 1);
    EXPECT_EQ(status.FaultTextValid, 0);
    EXPECT_EQ(status.DriveReady, 1);
    EXPECT_FALSE(bench.link.Notice.TInitialForm);
    EXPECT_TRUE(bench.link.Trend.KeypadTransparentButton);
    EXPECT_TRUE(bench.link.Keypad.GetDataTimer);
}

TEST(StatusPoll, KeepsTheSecondStateWordOfRowanAndLarchApart) {
    for (const Family family : {Family::Rowan, Family::Larch}) {
        TaskBench bench(family);
        bench.link.ActiveFunction = OwnerMain;
        bench.link.DriveStatus.StatusWords[1] = 0x1234;
        bench.link.TxTimer.setEnabled(true);
        EXPECT_EQ(bench.send(), "FF0321000010");
        bench.answerWords({0, 0xFFFF, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
        EXPECT_EQ(bench.link.DriveStatus.StatusWords[1], 0x1234U);
        EXPECT_EQ(bench.link.DriveStatus.StatusWords[2], 7U);
        EXPECT_EQ(bench.send(), "FF0321190001");
        bench.answerWords({0x0100});
        EXPECT_EQ(bench.link.DriveStatus.StatusWords[1], 0x0100U);
        EXPECT_EQ(bench.send(), "FF0321000010");
    }
}

TEST(StatusPoll, AsksForTheUserDisplayOnItsPage) {
    TaskBench bench(Family::Hazel, 9);
    bench.link.ActiveFunction = OwnerMain;
    bench.link.Keypad.KeypadPage = 2;
    bench.link.DriveStatus.RatedWords[2] = 99;
    bench.link.TxTimer.setEnabled(true);
    bench.send();
    bench.answerWords(QList<int>(11, 0));
    EXPECT_EQ(bench.send(), "FF03210B0002");
    bench.answerWords({1, 2});
    EXPECT_EQ(bench.link.DriveStatus.RatedWords, (std::array<quint16, 3>{1, 2, 99}));
}

TEST(ParameterRead, StoresTheWholeRecord) {
    TaskBench bench;
    bench.ask(12, "FF030100000F");
    bench.port.arrive(":FF031E1770EA601388020217704D6178204F757470757420467265712E487A202034\r\n");
    bench.clock.advance(1);
    const ParamReadRecord& read = bench.link.ParamRead;
    EXPECT_EQ(read.ReadField, (std::array<quint16, 5>{6000, 60000, 5000, 0x0202, 6000}));
    EXPECT_EQ(read.ReadName, "Max Output Freq.");
    EXPECT_EQ(read.ReadUnit, "Hz  ");
    EXPECT_EQ(read.ReadDone, 1);
    bench.ask(18, "FF0301000001");
    bench.answerWords({77});
    EXPECT_EQ(read.ReadField[0], 77);
    EXPECT_EQ(read.ReadField[1], 60000);
}

TEST(ParameterRead, NamesHazelByTheCommandAndKeepsAllButTheValueOfAKeypad) {
    TaskBench bench(Family::Hazel, 9);
    bench.link.fixedParaName = [](int group, int number) { return QStringLiteral("%1/%2").arg(group).arg(number); };
    bench.ask(12, "FF030A1F0004");
    bench.answerWords({6000, 40000, 5000, 0x0200});
    const ParamReadRecord& read = bench.link.ParamRead;
    EXPECT_EQ(read.ReadName, "10/31");
    EXPECT_EQ(read.ReadField, (std::array<quint16, 5>{6000, 40000, 5000, 0x0200, 0}));
    bench.link.DriveStatus.DriveFamily = 20;
    bench.ask(12, "FF0301000001");
    bench.answerWords({5});
    EXPECT_EQ(read.ReadField, (std::array<quint16, 5>{5, 40000, 5000, 0x0200, 0}));
    EXPECT_EQ(read.ReadName, "10/31");
}

TEST(GroupCounts, AreReadForEveryGroupAndEndWithTheMaximumFrequency) {
    TaskBench bench;
    bench.link.ActiveFunction = OwnerMain;
    bench.link.DriveStatus.DriveReady = 0;
    bench.link.DriveStatus.GroupCount = 2;
    bench.link.push(11);
    bench.link.TxTimer.setEnabled(true);
    QStringList line;
    for (const int count : {8, 18, 3}) {
        line += bench.send();
        bench.answerWords({count});
    }
    line += bench.send();
    EXPECT_EQ(line, (QStringList{"FF0303000001", "FF0303010001", "FF0303020001", "FF03211B0001"}));
    bench.answerWords({6000});
    EXPECT_EQ(bench.link.DriveStatus.GroupParamCount[1], 18);
    EXPECT_EQ(bench.link.DriveStatus.MaxFreqWord, 6000);
    EXPECT_TRUE(bench.link.Keypad.keys);
    EXPECT_EQ(bench.link.Keypad.KeypadPage, 0);  // from page 4 on to the first
    EXPECT_EQ(bench.send(), "FF0321000010");
}

TEST(GroupCounts, OfAKeypadEndWithTheTableRead) {
    TaskBench bench(Family::Tilia, 14);
    bool ready = false;
    QObject::connect(&bench.link, &RequestScheduler::keypadTableReady, [&] { ready = true; });
    bench.link.DriveStatus.DriveReady = 0;
    bench.link.DriveStatus.DriveFamily = 20;
    bench.link.push(80);
    bench.link.push(81);
    bench.link.TxTimer.setEnabled(true);
    EXPECT_EQ(bench.send(), "FF0321110001");
    bench.answerWords({0x0701});
    EXPECT_EQ(bench.link.DriveStatus.GroupCount, 1);
    for (const int count : {3, 4}) {
        bench.send();
        bench.answerWords({count});
    }
    EXPECT_TRUE(ready);
    EXPECT_TRUE(bench.link.TaskQueue.empty() && bench.link.CommandQueue.empty());
    EXPECT_EQ(bench.link.DriveStatus.GroupParamCount[1], 4);
}

TEST(Texts, OfFaultsAndRefusalsGoToTheHistory) {
    const QByteArray fault = QByteArray("Over current    oc  ").toHex().toUpper();
    TaskBench bench;
    bench.link.DriveStatus.FaultCode = 5;
    bench.ask(14, "FF033205000A");
    bench.answer("FF0314" + QString::fromLatin1(fault));
    EXPECT_EQ(bench.history.back(), "oc   : Over current    ");
    EXPECT_EQ(bench.link.DriveStatus.FaultName, "oc  ");
    EXPECT_EQ(bench.link.DriveStatus.FaultTextValid, 1);
    bench.link.DriveStatus.DriveFamily = 1;
    bench.ask(14, "FF033205000A");
    bench.answer("FF0314" + QString::fromLatin1(fault));
    EXPECT_EQ(bench.history.back(), "oL1 : Over current    ");

    bench.link.DriveStatus.ExceptionCode = 10;
    bench.link.ActiveFunction = OwnerQuickSetup;
    bench.ask(15, "FF03330A0008");
    bench.answer("FF0310" + hexOf("Wrong password  "));
    EXPECT_EQ(bench.history.back(), "CE 10 : Wrong password  ");
    EXPECT_EQ(bench.link.ParamRead.WriteDone, 1);
    EXPECT_EQ(FaultNamesHazel(17), "b.b.");
    EXPECT_EQ(FaultNamesAspen(39), "");
}

TEST(CommandLines, OfTheTrendFollowKeypadCommands) {
    TaskBench bench;
    bench.ask(2, "FF0620000002");
    bench.answer("FF0620000002");
    EXPECT_EQ(bench.link.Trend.AbTrend2Digit[0], 10);
    bench.ask(3, "FF0620000001");
    bench.answer("FF0620000001");
    EXPECT_EQ(bench.link.Trend.AbTrend2Digit[0], 0);
    for (const auto& [word, digit] : {std::pair{8U, 50}, {0U, 40}}) {
        bench.link.DriveStatus.StatusWords[1] = word;
        bench.ask(5, "FF0620000030");
        bench.answer("FF0620000030");
        EXPECT_EQ(bench.link.Trend.AbTrend2Digit[2], digit);
    }
}

TEST(GeneralRead, KeepsBytesAndWordsWithinItsRoom) {
    TaskBench bench;
    bench.ask(20, "FF0321000003");
    bench.answerWords({1, 2, 0xFFFF});
    EXPECT_EQ(bench.link.ReadDataText, QByteArray::fromHex("00010002FFFF"));
    EXPECT_EQ(bench.link.ReadWords[2], 0xFFFF);
    bench.ask(20, "FF0321000018");
    bench.answerWords(QList<int>(24, 3));
    EXPECT_EQ(bench.link.ReadWords[19], 3);
    EXPECT_EQ(bench.link.ParamRead.ReadDone, 1);
}

TEST(RefusedFrequency, LetsTheKeypadGoOn) {
    TaskBench bench;
    bench.link.DriveStatus.KeypadDataDue = 0;
    bench.ask(10, "FF0620011388");
    bench.answer("FF8603");
    EXPECT_EQ(bench.link.DriveStatus.KeypadDataDue, 1);
}

}  // namespace
}  // namespace kelvane
