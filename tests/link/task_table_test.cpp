#include "link/task_table.h"

#include <gtest/gtest.h>

#include "bench/link_bench.h"

namespace kelvane {
namespace {

// One exchange of a pushed task, answered with words or a text.
struct Task : testing::Test, SchedulerBench {
    Task() { be(Family::Tilia); }
    void be(Family family) {
        beOnLine(family);
        link.ActiveFunction = OwnerParameter;
    }
    // On the main window's behalf, with the poll running.
    void poll() {
        link.ActiveFunction = OwnerMain;
        link.TxTimer.setEnabled(true);
    }
    void ask(quint8 task, const QString& command) {
        link.push(task, command);
        link.TxTimer.setEnabled(true);
        send();
    }
};
using StatusPoll = Task;
using ParameterRead = Task;
using GroupCounts = Task;

TEST_F(StatusPoll, DecodesItemsAsUnsignedTexts) {
    link.DriveStatus.StatusDecimals = {2, 2, 2, 1, 1, 0, 0, 0, 1, 1};
    link.DriveStatus.FaultTextValid = 1;
    link.DriveStatus.DriveReady = 0;
    int decoded = 0;
    QObject::connect(&link, &RequestScheduler::statusDecoded, [&] { ++decoded; });
    poll();
    send();
    answerWords({0x0100, 0x0024, 6000, 5000, 523, 3105, 2200, 0, 0, 0, 0, 0xFFFB, 0, 0, 0, 0});
    const DriveStatusRecord& status = link.DriveStatus;
    EXPECT_EQ(status.StatusText[0], "60.00");
    EXPECT_EQ(status.StatusText[9], "6553.1");
    EXPECT_EQ(status.StatusWords[1], 0x24U);
    EXPECT_TRUE(status.JogActive && status.ReservedEnabled && status.DriveReady);
    EXPECT_EQ(status.FaultTextValid, 0);
    EXPECT_EQ(decoded, 1);
}

TEST_F(ParameterRead, NamesHazelByTheCommandAndKeepsAllButTheValueOfAKeypad) {
    be(Family::Hazel);
    link.ParamRead.fixedParaName = [](int group, int number) {
        return QStringLiteral("%1/%2").arg(group).arg(number);
    };
    ask(12, "FF030A1F0004");
    answerWords({6000, 40000, 5000, 0x0200});
    const ParamReadRecord& read = link.ParamRead;
    EXPECT_EQ(read.ReadName, "10/31");
    EXPECT_EQ(read.ReadField, (std::array<quint16, 5>{6000, 40000, 5000, 0x0200, 0}));
    link.DriveStatus.DriveFamily = 20;
    ask(12, "FF0301000001");
    answerWords({5});
    EXPECT_EQ(read.ReadField, (std::array<quint16, 5>{5, 40000, 5000, 0x0200, 0}));
    EXPECT_EQ(read.ReadName, "10/31");
}

TEST_F(GroupCounts, OfAKeypadEndWithTheTableRead) {
    bool ready = false;
    QObject::connect(&link, &RequestScheduler::keypadTableReady, [&] { ready = true; });
    link.DriveStatus.DriveReady = 0;
    link.DriveStatus.DriveFamily = 20;
    link.push(80);
    link.push(81);
    link.TxTimer.setEnabled(true);
    EXPECT_EQ(send(), "FF0321110001");
    answerWords({0x0701});
    EXPECT_EQ(link.DriveStatus.GroupCount, 1);
    for (const int count : {3, 300}) {
        send();
        answerWords({count});
    }
    EXPECT_TRUE(ready);
    EXPECT_TRUE(link.TaskQueue.empty() && link.CommandQueue.empty());
    EXPECT_EQ(link.DriveStatus.GroupParamCount[1], 255) << "a number has one byte of its address";
}

TEST_F(Task, KeepsBytesAndWordsOfAGeneralReadWithinItsRoom) {
    ask(20, "FF0321000003");
    answerWords({1, 2, 0xFFFF});
    EXPECT_EQ(link.ParamRead.ReadDataText, QByteArray::fromHex("00010002FFFF"));
    EXPECT_EQ(link.ParamRead.ReadWords[2], 0xFFFF);
    ask(20, "FF0321000018");
    answerWords(QList<int>(24, 3));
    EXPECT_EQ(link.ParamRead.ReadWords[19], 3);
    EXPECT_EQ(link.ParamRead.ReadDone, 1);
}

}  // namespace
}  // namespace kelvane
