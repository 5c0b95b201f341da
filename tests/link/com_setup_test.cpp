#include "link/com_setup.h"

#include <span>

#include "bench/link_bench.h"

namespace kelvane {
namespace {

struct SetupBench : SchedulerBench {
    StubPort setupPort;
    ComSetup setup{link, setupPort, clock, {person, lang}};
    bool closed = false;
    SetupBench() {
        QObject::connect(&setup, &ComSetup::closeWanted, [this] { closed = true; });
    }
    void expectMessage(Message message, const char* title, BoxAnswer answer = BoxAnswer::Ok) {
        person.expectBox(lang.MsgStr(message), QLatin1String(title), answer);
    }
};
struct ComSetupTest : testing::Test, SetupBench {};
using ComSetupWalk = ComSetupTest;
using ComSetupAccept = ComSetupTest;

TEST_F(ComSetupTest, BoxesSetTheWaitAndDamagedSettingsOfAFileChangeNothing) {
    setup.ComPortComboBoxChange(QStringLiteral("20"));
    setup.BaudComboBoxChange(QStringLiteral("128000"));
    EXPECT_EQ(link.BaudTimeoutTicks, 1u);
    setup.BaudComboBoxChange(QStringLiteral("300"));
    EXPECT_EQ(link.BaudTimeoutTicks, 8u);
    const PortSettings before{20, 300, 7, ComParity::None, 2};
    EXPECT_EQ(setupPort.line, before);
    for (const QString& bad : {QString(), QStringLiteral("0"), QStringLiteral("21"), QStringLiteral("x")}) {
        setup.ComPortComboBoxChange(bad);
        setup.ModeComboBoxChange(bad);
        setup.DataBitsComboBoxChange(bad);
        setup.StopBitsComboBoxChange(bad);
    }
    setup.BaudComboBoxChange(QStringLiteral("-9600"));
    EXPECT_EQ(setupPort.line, before);
    EXPECT_EQ(link.ComMode, 0);
}

// ---- One test by hand ----

TEST_F(ComSetupTest, SendsItsCommandInTheModeAndClosesTheLinkPort) {
    port.isOpen = true;
    link.Console.AddChksumCheckBoxChecked = false;  // the console's switches play no part
    setup.TestButtonClick();
    EXPECT_FALSE(port.isOpen);
    setup.ModeComboBoxChange(QStringLiteral("RTU"));
    setup.TestButtonClick();
    EXPECT_EQ(setupPort.written,
              (QByteArrayList{":FF0321010001DB\r\n", QByteArray::fromHex("FF0321010001CA28")}));
    EXPECT_EQ(setupPort.kinds, (QByteArrayList{"string", "block"}));
    EXPECT_TRUE(link.TaskQueue.empty());
}

TEST_F(ComSetupTest, WaitsFromTheEndOfTheRequestAndAgainAfterEveryBurst) {
    setup.TestButtonClick();
    const qint64 requestMs = PortSettings{1, 9600, 7, ComParity::None, 2}.wireTimeUs(17) / 1000;
    clock.advance(requestMs + 7 * TickLength - 4);
    EXPECT_EQ(setup.TestTickCount, 6);
    setupPort.arrive("x");  // its content is not looked at: noise and echoes count
    EXPECT_EQ(setup.TestTickCount, 0);
    clock.advance(7 * TickLength - 1);
    EXPECT_FALSE(setup.shown.SuccessAbLEDLit);
    clock.advance(1);
    EXPECT_TRUE(setup.shown.SuccessAbLEDLit);
    EXPECT_FALSE(setupPort.isOpen || setup.RxTimer.Enabled());
}

TEST_F(ComSetupTest, AnOpenErrorIsLoggedAndDoesNotStartTheWalkOver) {
    setupPort.canOpen = false;
    setup.AutoDetectRadioButtonClick();
    expectMessage(Message::NoComPort, "Error Message");
    setup.TestButtonClick();
    EXPECT_EQ(history, QStringList{QStringLiteral("there is no such device")});
    EXPECT_EQ(setup.DetectCode, 1);
}

// ---- The walk ----

struct Combination {
    LinkMode mode;
    PortSettings line;
    quint32 ticks;
};

// All that a walk tries, in its order.
std::vector<Combination> combinations() {
    const std::pair<int, quint32> bauds[] = {{9600, 7}, {19200, 6}, {38400, 5}, {4800, 8},
                                             {2400, 8}, {1200, 8},  {57600, 4}, {115200, 3}};
    std::vector<Combination> all;
    for (const LinkMode mode : {LinkMode::Ascii, LinkMode::Rtu})
        for (const auto& [Baud, ticks] : std::span(bauds).first(mode == LinkMode::Rtu ? 6 : 8))
            for (const int DataBits : {7, 8})
                for (const ComParity Parity : {ComParity::None, ComParity::Even, ComParity::Odd})
                    for (const int StopBits : {1, 2})
                        all.push_back(
                            {mode, {1, Baud, mode == LinkMode::Rtu ? 8 : DataBits, Parity, StopBits}, ticks});
    return all;
}

TEST_F(ComSetupWalk, TriesAllCombinationsOnADeafLine) {
    setup.AutoDetectRadioButtonClick();
    setup.TestButtonClick();
    EXPECT_FALSE(setup.shown.TConnectFormShown) << "not before the first silence";
    qsizetype n = 0;
    for (const Combination& tried : combinations()) {
        ASSERT_EQ(setupPort.written.size(), ++n);
        EXPECT_EQ(setupPort.line, tried.line) << n;
        EXPECT_EQ(link.mode(), tried.mode);
        EXPECT_EQ(link.BaudTimeoutTicks, tried.ticks);
        const QString protocol = setup.shown.connectProtocol;
        EXPECT_TRUE(n != 98 || protocol == "Modbus RTU mode, protocol < 8, N, 2 >");
        if (n == 168) expectMessage(Message::NoDriveDetected, "Warning");
        clock.advanceUntil([&] { return setupPort.written.size() > n || !setup.RxTimer.Enabled(); }, 1000);
        EXPECT_EQ(setup.shown.TConnectFormShown, n < 168) << n;
    }
    EXPECT_EQ(setupPort.written.size(), 168);
    EXPECT_EQ(setup.DetectCode, 0);
    EXPECT_TRUE(setup.shown.FailAbLEDLit && setup.shown.ManualRadioButtonChecked);
}

// ---- Accept and close ----

TEST_F(ComSetupAccept, TakesTheSettingsWithoutATest) {
    setup.ComPortComboBoxChange(QStringLiteral("4"));
    setup.BaudComboBoxChange(QStringLiteral("1200"));
    port.line.ComNumber = 2;
    port.open();  // as the console leaves it
    link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
    setup.OKBitBtnClick();
    EXPECT_TRUE(closed);
    EXPECT_EQ(port.line, (PortSettings{4, 1200, 7, ComParity::None, 2}));
    EXPECT_FALSE(port.Open()) << "the next send opens the port of the new number";
    EXPECT_EQ(link.ReplyTimeoutTicks, 8u);
    EXPECT_EQ(link.Lamp, LampRecord());
    EXPECT_FALSE(link.TxTimer.Enabled());
    EXPECT_EQ(setup.shown.advanceCaption.toStdString(),
              "Advance - Com 4 , BaudRate 1200 , Protocol < ASCII , 7 , N , 2 >");
}

TEST_F(ComSetupAccept, AsksToGoOnLineAfterASuccessOutsideTheConsole) {
    QObject::connect(&setup, &ComSetup::goingOnLine, [] { ADD_FAILURE() << "nobody said yes"; });
    for (const quint8 owner : {OwnerMain, OwnerAdvance}) {
        closed = false;
        link.ActiveFunction = owner;
        setup.shown.SuccessAbLEDLit = true;
        if (owner == OwnerMain) expectMessage(Message::GoOnLine, "Cofirm", BoxAnswer::No);
        setup.OKBitBtnClick();
        EXPECT_FALSE(link.TxTimer.Enabled());
        EXPECT_TRUE(closed && port.written.isEmpty());
    }
}

TEST_F(ComSetupAccept, OpeningFromAnOnLineLinkIsAsked) {
    link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
    link.ActiveFunction = OwnerParameter;
    expectMessage(Message::LeaveLineForComSetup, "Cofirm", BoxAnswer::No);
    EXPECT_FALSE(setup.mayOpen());
    EXPECT_EQ(link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(link.TaskQueue.empty());
    setup.shown.OKBitBtnEnabled = true;
    expectMessage(Message::LeaveLineForComSetup, "Cofirm", BoxAnswer::Yes);
    EXPECT_TRUE(setup.mayOpen());
    EXPECT_FALSE(setup.shown.OKBitBtnEnabled);
    EXPECT_EQ(link.TaskQueue, (std::deque<quint8>{0, 21}));
    EXPECT_EQ(history, QStringList(2, QStringLiteral("Setup the Com port and protocol")));
}

}  // namespace
}  // namespace kelvane
