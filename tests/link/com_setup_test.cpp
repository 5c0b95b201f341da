#include "link/com_setup.h"

#include <array>

#include "bench/link_bench.h"

namespace kelvane {
namespace {

struct SetupBench : SchedulerBench {
    StubPort setupPort;
    ComSetup setup{link, setupPort, clock};
    bool closed = false;
    SetupBench() {
        QObject::connect(&setup, &ComSetup::closeWanted, [this] { closed = true; });
    }
    void testIsOver() {
        clock.advanceUntil([this] { return !setup.RxTimer.Enabled(); }, 60000);
    }
    void expectMessage(int number, const char* title, BoxAnswer answer = BoxAnswer::Ok) {
        person.expectBox(lang.MsgStr(number), QLatin1String(title), answer);
    }
};

std::string lineText(quint8 DetectCode) {
    const DetectedLine line = decodeDetectCode(DetectCode);
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(line.mode == LinkMode::Rtu ? QStringLiteral("RTU") : QStringLiteral("ASCII"))
        .arg(line.Baud)
        .arg(line.DataBits)
        .arg(line.Parity ? parityLetter(*line.Parity) : QStringLiteral("same"))
        .arg(line.StopBits)
        .toStdString();
}

TEST(DetectCode, DescribesOneCombination) {
    const std::array<std::pair<quint8, const char*>, 16> rows{{
        {0, "ASCII 9600 7 N 1"},
        {1, "ASCII 9600 7 N 2"},
        {2, "ASCII 9600 7 E 1"},
        {5, "ASCII 9600 7 O 2"},
        {6, "ASCII 9600 7 same 1"},
        {8, "ASCII 9600 8 N 1"},
        {16, "ASCII 19200 7 N 1"},
        {32, "ASCII 38400 7 N 1"},
        {48, "ASCII 4800 7 N 1"},
        {64, "ASCII 2400 7 N 1"},
        {80, "ASCII 1200 7 N 1"},
        {96, "ASCII 57600 7 N 1"},
        {112, "ASCII 115200 7 N 1"},
        {125, "ASCII 115200 8 O 2"},
        {128, "RTU 9600 8 N 1"},
        {221, "RTU 1200 8 O 2"},
    }};
    for (const auto& [code, text] : rows) EXPECT_EQ(lineText(code), text) << int(code);
}

TEST(ComSetup, ReplyWaitByBaudRate) {
    const std::array<std::pair<int, quint32>, 11> rows{{{1200, 8},
                                                        {2400, 8},
                                                        {4800, 8},
                                                        {9600, 7},
                                                        {19200, 6},
                                                        {38400, 5},
                                                        {57600, 4},
                                                        {115200, 3},
                                                        {300, 8},
                                                        {14400, 8},
                                                        {128000, 1}}};
    SetupBench bench;
    for (const auto& [baud, ticks] : rows) {
        bench.setup.BaudComboBoxChange(QString::number(baud));
        EXPECT_EQ(bench.link.BaudTimeoutTicks, ticks) << baud;
        EXPECT_EQ(bench.setupPort.line.Baud, baud);
    }
}

TEST(ComSetup, BoxesSetThePort) {
    SetupBench bench;
    EXPECT_EQ(bench.setupPort.line, (PortSettings{1, 9600, 7, ComParity::None, 2}));
    bench.setup.ComPortComboBoxChange(QStringLiteral("20"));
    bench.setup.ModeComboBoxChange(QStringLiteral("RTU"));
    bench.setup.ParityComboBoxChange(QStringLiteral("O"));
    bench.setup.StopBitsComboBoxChange(QStringLiteral("1"));
    EXPECT_EQ(bench.setupPort.line, (PortSettings{20, 9600, 8, ComParity::Odd, 1}));
    EXPECT_EQ(bench.link.ComMode, 1);
    EXPECT_FALSE(bench.setup.shown.dataBitsEnabled);
    bench.setup.ModeComboBoxChange(QStringLiteral("ASCII"));
    EXPECT_EQ(bench.link.ComMode, 0);
    EXPECT_TRUE(bench.setup.shown.dataBitsEnabled);
    // Damaged settings of a project file change nothing.
    const PortSettings before = bench.setupPort.line;
    for (const QString& bad : {QString(), QStringLiteral("0"), QStringLiteral("21"), QStringLiteral("x")}) {
        bench.setup.ComPortComboBoxChange(bad);
        bench.setup.ModeComboBoxChange(bad);
        bench.setup.DataBitsComboBoxChange(bad);
        bench.setup.StopBitsComboBoxChange(bad);
    }
    bench.setup.BaudComboBoxChange(QStringLiteral("-9600"));
    EXPECT_EQ(bench.setupPort.line, before);
}

// ---- One test by hand ----

TEST(ComSetupTest, SendsItsCommandInTheModeAndClosesTheLinkPort) {
    SetupBench bench;
    bench.port.isOpen = true;
    bench.link.Console.AddChksumCheckBox = false;  // the console's switches play no part
    bench.setup.TestButtonClick();
    EXPECT_FALSE(bench.port.isOpen);
    EXPECT_TRUE(bench.setupPort.isOpen);
    EXPECT_TRUE(bench.setup.shown.OKBitBtn);
    bench.setup.ModeComboBoxChange(QStringLiteral("RTU"));
    bench.setup.TestButtonClick();
    EXPECT_EQ(bench.setupPort.written,
              (QByteArrayList{":FF0321010001DB\r\n", QByteArray::fromHex("FF0321010001CA28")}));
    EXPECT_EQ(bench.setupPort.kinds, (QByteArrayList{"string", "block"}));
    EXPECT_TRUE(bench.link.TaskQueue.empty());
}

TEST(ComSetupTest, WaitsFromTheEndOfTheRequestAndAgainAfterEveryBurst) {
    SetupBench bench;
    bench.setup.TestButtonClick();
    const qint64 requestMs = PortSettings{1, 9600, 7, ComParity::None, 2}.wireTimeUs(17) / 1000;
    bench.clock.advance(requestMs + 7 * TickLength - 4);
    EXPECT_EQ(bench.setup.TestTickCount, 6);
    bench.setupPort.arrive("x");  // its content is not looked at: noise and echoes count
    EXPECT_EQ(bench.setup.TestTickCount, 0);
    EXPECT_EQ(bench.setup.TestRxText, "x");
    bench.clock.advance(7 * TickLength - 1);
    EXPECT_FALSE(bench.setup.shown.SuccessAbLED);
    bench.clock.advance(1);
    EXPECT_TRUE(bench.setup.shown.SuccessAbLED);
    EXPECT_FALSE(bench.setupPort.isOpen);
    EXPECT_EQ(bench.setup.TestRxCount, 0u);
    EXPECT_FALSE(bench.setup.RxTimer.Enabled());
}

TEST(ComSetupTest, SilenceByHand) {
    SetupBench bench;
    bench.setup.TestButtonClick();
    bench.expectMessage(21, "Warning");
    bench.testIsOver();
    EXPECT_TRUE(bench.setup.shown.FailAbLED);
    EXPECT_FALSE(bench.setupPort.isOpen);
    EXPECT_EQ(bench.setupPort.written.size(), 1);
    // The next test starts with both lamps dark.
    bench.setup.TestButtonClick();
    EXPECT_FALSE(bench.setup.shown.FailAbLED);
}

TEST(ComSetupTest, PortThatCannotBeOpened) {
    SetupBench bench;
    bench.setupPort.canOpen = false;
    bench.setup.AutoDetectRadioButtonClick();
    bench.expectMessage(19, "Error Message");
    bench.setup.TestButtonClick();
    EXPECT_TRUE(bench.setup.shown.FailAbLED);
    EXPECT_TRUE(bench.setupPort.written.isEmpty());
    EXPECT_FALSE(bench.setup.RxTimer.Enabled());
    EXPECT_EQ(bench.history, QStringList{QStringLiteral("there is no such device")});
    EXPECT_EQ(bench.setup.DetectCode, 1) << "an open error does not start the walk over";
}

// ---- The walk ----

TEST(ComSetupWalk, TriesAllCombinationsOnADeafLine) {
    SetupBench bench;
    std::vector<quint8> codes;
    for (int code = 0; code <= 221; ++code)
        if ((code & 7) < 6) codes.push_back(static_cast<quint8>(code));
    ASSERT_EQ(codes.size(), 168u);
    ASSERT_EQ(codes[96], 128) << "the first in RTU";

    bench.setup.AutoDetectRadioButtonClick();
    bench.setup.TestButtonClick();
    EXPECT_FALSE(bench.setup.shown.TConnectForm) << "not before the first silence";
    for (size_t n = 0; n < codes.size(); ++n) {
        ASSERT_EQ(bench.setupPort.written.size(), qsizetype(n + 1));
        const DetectedLine line = decodeDetectCode(codes[n]);
        EXPECT_EQ(bench.setupPort.line,
                  (PortSettings{1, line.Baud, line.DataBits, *line.Parity, line.StopBits}))
            << n;
        EXPECT_EQ(bench.link.mode(), line.mode);
        EXPECT_EQ(bench.link.BaudTimeoutTicks, baudTimeoutTicks(line.Baud));
        EXPECT_EQ(bench.setup.shown.BaudComboBox, QString::number(line.Baud));
        if (n + 1 == codes.size()) bench.expectMessage(20, "Warning");
        bench.clock.advanceUntil(
            [&] {
                return bench.setupPort.written.size() > qsizetype(n + 1) || !bench.setup.RxTimer.Enabled();
            },
            1000);
        EXPECT_EQ(bench.setup.shown.TConnectForm, n + 1 < codes.size()) << n;
    }
    EXPECT_EQ(bench.setupPort.written.size(), 168);
    EXPECT_EQ(bench.setup.DetectCode, 0);
    EXPECT_TRUE(bench.setup.shown.FailAbLED);
    EXPECT_TRUE(bench.setup.shown.ManualRadioButton);
    EXPECT_FALSE(bench.setupPort.isOpen);
}

TEST(ComSetupWalk, TextsOfTheCombinationUnderTest) {
    SetupBench bench;
    bench.setup.AutoDetectRadioButtonClick();
    bench.setup.DetectCode = 1;
    bench.setup.TestButtonClick();
    EXPECT_EQ(bench.setup.shown.connectBaud.toStdString(), "Baud rate 9600");
    EXPECT_EQ(bench.setup.shown.connectProtocol.toStdString(), "Modbus ASCII mode, protocol <7, N, 2 >");
    bench.setup.DetectCode = 129;
    bench.setup.TestButtonClick();
    EXPECT_EQ(bench.setup.shown.connectProtocol.toStdString(), "Modbus RTU mode, protocol < 8, N, 2 >");
    EXPECT_EQ(bench.setup.shown.ModeComboBox, QStringLiteral("RTU"));
}

TEST(ComSetupWalk, EndsAtTheFirstAnswer) {
    SetupBench bench;
    bench.setup.AutoDetectRadioButtonClick();
    bench.setup.TestButtonClick();
    bench.clock.advanceUntil([&] { return bench.setupPort.written.size() == 2; }, 1000);
    bench.setupPort.arrive(":FF83027C\r\n");
    bench.expectMessage(22, "Cofirm");
    bench.testIsOver();
    EXPECT_TRUE(bench.setup.shown.SuccessAbLED);
    EXPECT_FALSE(bench.setup.shown.TConnectForm);
    EXPECT_EQ(bench.setup.DetectCode, 0);
    EXPECT_EQ(bench.setupPort.line, (PortSettings{1, 9600, 7, ComParity::None, 2}));
}

TEST(ComSetupWalk, ClosedByHandEndsAsATestByHand) {
    SetupBench bench;
    bench.setup.AutoDetectRadioButtonClick();
    bench.setup.TestButtonClick();
    bench.clock.advanceUntil([&] { return bench.setupPort.written.size() == 3; }, 1000);
    bench.setup.closeConnectForm();
    EXPECT_TRUE(bench.setup.shown.ManualRadioButton);
    bench.expectMessage(21, "Warning");
    bench.testIsOver();
    EXPECT_EQ(bench.setupPort.written.size(), 3);
    EXPECT_EQ(bench.setup.DetectCode, 0);
}

// ---- Accept and close ----

TEST(ComSetupAccept, TakesTheSettingsWithoutATest) {
    SetupBench bench;
    bench.setup.ComPortComboBoxChange(QStringLiteral("4"));
    bench.setup.BaudComboBoxChange(QStringLiteral("1200"));
    bench.link.Console.TimeOut1 = 3;
    bench.port.line.ComNumber = 2;
    bench.port.open();  // as the console leaves it
    bench.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
    bench.setup.OKBitBtnClick();
    EXPECT_TRUE(bench.closed);
    EXPECT_EQ(bench.port.line, (PortSettings{4, 1200, 7, ComParity::None, 2}));
    EXPECT_FALSE(bench.port.Open()) << "the next send opens the port of the new number";
    EXPECT_EQ(bench.link.ReplyTimeoutTicks, 8u);
    EXPECT_EQ(bench.link.Lamp, LampRecord());
    EXPECT_FALSE(bench.link.TxTimer.Enabled());
    EXPECT_EQ(bench.link.Console.TimeOut1, 8u);
    EXPECT_EQ(bench.setup.shown.consoleTimeOutCaption, QStringLiteral("8 ms"));
    EXPECT_EQ(bench.setup.shown.advanceCaption.toStdString(),
              "Advance - Com 4 , BaudRate 1200 , Protocol < ASCII , 7 , N , 2 >");
}

TEST(ComSetupAccept, AsksToGoOnLineAfterASuccess) {
    for (const bool yes : {true, false}) {
        SetupBench bench;
        bench.setup.shown.SuccessAbLED = true;
        bench.expectMessage(18, "Cofirm", yes ? BoxAnswer::Yes : BoxAnswer::No);
        bench.setup.OKBitBtnClick();
        EXPECT_EQ(bench.link.TxTimer.Enabled(), yes);
        EXPECT_EQ(bench.link.Keypad.OnLineTransparentButton, !yes);
        EXPECT_EQ(bench.link.Keypad.InitialVrLabel, yes);
        EXPECT_EQ(bench.link.Console.TimeOut1, 20u) << "only raised, never lowered";
        EXPECT_TRUE(bench.closed);
        EXPECT_TRUE(bench.port.written.isEmpty());
    }
    SetupBench console;
    console.link.ActiveFunction = OwnerAdvance;
    console.setup.shown.SuccessAbLED = true;
    console.setup.OKBitBtnClick();  // not asked
    EXPECT_FALSE(console.link.TxTimer.Enabled());
}

TEST(ComSetupAccept, OpeningFromAnOnLineLinkIsAsked) {
    SetupBench bench;
    bench.link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
    bench.link.ActiveFunction = OwnerParameter;
    bench.expectMessage(1, "Cofirm", BoxAnswer::No);
    EXPECT_FALSE(bench.setup.mayOpen());
    EXPECT_EQ(bench.link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(bench.link.TaskQueue.empty());
    bench.setup.shown.OKBitBtn = true;
    bench.expectMessage(1, "Cofirm", BoxAnswer::Yes);
    EXPECT_TRUE(bench.setup.mayOpen());
    EXPECT_FALSE(bench.setup.shown.OKBitBtn);
    EXPECT_EQ(bench.link.TaskQueue, (std::deque<quint8>{0, 21}));
    EXPECT_EQ(bench.history, QStringList(2, QStringLiteral("Setup the Com port and protocol")));
    bench.setup.returnToParameterWindow();
    EXPECT_EQ(bench.link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(bench.link.TaskQueue.empty());
}

TEST(ComSetupAccept, ClosingForgetsTheTest) {
    SetupBench bench;
    bench.setup.AutoDetectRadioButtonClick();
    bench.setup.TestButtonClick();
    bench.clock.advanceUntil([&] { return bench.setupPort.written.size() == 5; }, 1000);
    bench.setup.FormClose();
    EXPECT_EQ(bench.setup.DetectCode, 0);
    EXPECT_FALSE(bench.setupPort.isOpen);
    EXPECT_FALSE(bench.setup.shown.TConnectForm);
    EXPECT_FALSE(bench.setup.shown.SuccessAbLED || bench.setup.shown.FailAbLED);
    bench.clock.advance(5000);
    EXPECT_EQ(bench.setupPort.written.size(), 5);
}

}  // namespace
}  // namespace kelvane
