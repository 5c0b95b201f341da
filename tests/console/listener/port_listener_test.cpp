// The listener's cutting of lines, and the flasher's lines on the wire.
#include "console/listener/port_listener.h"

#include "console/console_bench.h"

namespace kelvane {
namespace {

struct Listener : ConsoleBenchWithoutDrive, testing::Test {
    PortListener& listener = console->listener;
    Listener() { console->showPage(ConsolePage::Monitor); }

    // Lines and the rest, after hearing bytes in one burst or one by one.
    QStringList heard(const QByteArray& bytes, bool oneByOne = false) {
        listener.RUNmonitorTransparentButtonClick();
        const size_t before = listener.lines().size();
        if (oneByOne) {
            for (const char byte : bytes) port.arrive(QByteArray(1, byte));
        } else {
            port.arrive(bytes);
        }
        listener.STOPmonitorTransparentButtonClick();
        QStringList lines;
        for (size_t i = before; i < listener.lines().size(); ++i) lines += listener.lines()[i].text;
        return lines;
    }
    void breakAt(const std::array<QString, 4>& cells, int length) {
        listener.AutoBreakChRadioButtonChecked = true;
        listener.setBreakCells(cells);
        listener.setBreakLength(length);
    }
    static QByteArray bytes(const char* digits) { return QByteArray::fromHex(digits); }
};

TEST_F(Listener, CutsRtuByLengthAndByBreakBytes) {
    listener.AutoBreakChRadioButtonChecked = false;
    listener.WordCntLabeledEdit = "3";
    EXPECT_EQ(heard(bytes("01020304050607")), QStringList({R"(\x01\x02\x03)", R"(\x04\x05\x06)", R"(\x07)"}));
    listener.WordCntLabeledEdit = "0";
    EXPECT_EQ(heard(QByteArray(41, 'x')).size(), 3);
    breakAt({"0A"}, 1);
    EXPECT_EQ(heard(bytes("01020A03040A05")), QStringList({R"(\x01\x02)", R"(\x0A\x03\x04)", R"(\x0A\x05)"}));
    breakAt({"0D", "0A"}, 2);
    for (const bool oneByOne : {false, true})
        EXPECT_EQ(heard(bytes("010D0A020D0A"), oneByOne),
                  QStringList({R"(\x01)", R"(\x0D\x0A\x02)", R"(\x0D\x0A)"}));
    breakAt({"FF"}, 1);
    const QStringList lines = heard(QByteArray(119, 'x'));
    EXPECT_EQ(lines[0].size(), 404);
    EXPECT_EQ(lines[1].size(), 18 * 4);
}

TEST_F(Listener, CutsAsciiByLineFeedAndByCharacter) {
    link.ComMode = 0;
    listener.AutoBreakChRadioButtonChecked = false;
    EXPECT_EQ(heard("AB\r\nC D\n"), QStringList({R"( A B \x0D \x0A)", R"( C \x20 D \x0A)"}));
    EXPECT_EQ(heard("~\x7F\xFF"), QStringList(R"( ~ \x7F \xFF)"));
    breakAt({"A"}, 1);
    EXPECT_EQ(heard("12A34A5"), QStringList({" 1 2", " A 3 4", " A 5"}));
}

TEST_F(Listener, OwnsThePortOnlyWhileItRuns) {
    port.canOpen = false;
    person.expectBox(lang.MsgStr(Message::NoComPort), "Error Message");
    listener.RUNmonitorTransparentButtonClick();
    EXPECT_FALSE(listener.running());
    port.canOpen = true;
    port.open();
    port.arrive("ignored");
    EXPECT_TRUE(listener.lines().empty());
    listener.RUNmonitorTransparentButtonClick();
    port.arrive("\x01");
    run(5000);
    EXPECT_TRUE(sentFrames().isEmpty() && link.Rx.RxData.isEmpty());
    console->showPage(ConsolePage::Connection);
    EXPECT_EQ(console->page, ConsolePage::Monitor);
    EXPECT_TRUE(console->mayClose());
    EXPECT_FALSE(port.Open());
    listener.ClearClick();
    EXPECT_EQ(listener.text(), "\r\n");
}

// Two minutes without pause at 115200 baud: every byte is in a line, and the oldest lines go with their
// number known.
TEST_F(Listener, LosesNothingAndStaysBounded) {
    listener.AutoBreakChRadioButtonChecked = false;
    listener.WordCntLabeledEdit = "20";
    listener.RUNmonitorTransparentButtonClick();
    constexpr qint64 Bytes = 115200 / 10 * 120;
    const QByteArray burst(512, 'x');
    for (qint64 sentBytes = 0; sentBytes < Bytes; sentBytes += burst.size()) port.arrive(burst);
    EXPECT_EQ(listener.addedLines(), Bytes / 20);
    EXPECT_EQ(listener.lines().size(), PortListener::Room);
    EXPECT_EQ(listener.goneLines(), Bytes / 20 - qint64(PortListener::Room));
}

TEST_F(Listener, FlashesLineByLineWithoutACheck) {
    console->showPage(ConsolePage::Flasher);
    const QString path = dir.filePath("image.mot");
    writeWhole(path, "S00600004844521B\r\nS9030000FC\r\n");
    person.expectOpen("(*.mot)|*.mot", path);
    console->flasher.LoadClick();
    person.expectOpen("(*.mot)|*.mot", dir.filePath("default.cml"));
    writeWhole(dir.filePath("default.cml"), "no record\r\n");
    person.expectBox("The file has no S-records.", "Error");
    console->flasher.LoadClick();  // what was loaded stays
    console->flasher.SendFileTransparentButtonClick();
    run(25);
    EXPECT_FALSE(link.RxTimer.Enabled()) << "nobody waits for an answer";
    run(1000);
    EXPECT_EQ(sentFrames(), QStringList({"53300600004844521B", "5339030000FC"}));
    EXPECT_FALSE(console->flasher.running());
    EXPECT_TRUE(link.TaskQueue.empty()) << "nothing is left for the next send";
    port.arrive("dropped");
    EXPECT_TRUE(link.Rx.RxData.isEmpty());
    link.ComMode = 0;
    console->flasher.SendFileTransparentButtonClick();
    run(1000);
    EXPECT_EQ(port.written.back(), "5339030000FC");
}

}  // namespace
}  // namespace kelvane
