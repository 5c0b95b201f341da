#include "link/com_setup.h"

#include <array>

namespace kelvane {

namespace {

constexpr std::array<int, 8> walkBauds{9600, 19200, 38400, 4800, 2400, 1200, 57600, 115200};
constexpr quint8 RtuBit = 0x80;

const QString Cofirm = QStringLiteral("Cofirm");
const QString Warning = QStringLiteral("Warning");

struct BaudRow {
    int Baud;
    quint32 ticks;
};
constexpr std::array<BaudRow, 8> baudRows{
    {{1200, 8}, {2400, 8}, {4800, 8}, {9600, 7}, {19200, 6}, {38400, 5}, {57600, 4}, {115200, 3}}};

ComParity parityOfItem(qsizetype item) {
    switch (item) {
        case 0: return ComParity::None;
        case 1: return ComParity::Even;
        default: return ComParity::Odd;
    }
}

}  // namespace

DetectedLine decodeDetectCode(quint8 DetectCode) {
    DetectedLine line;
    line.mode = DetectCode & RtuBit ? LinkMode::Rtu : LinkMode::Ascii;
    line.Baud = walkBauds[(DetectCode >> 4) & 7];
    line.DataBits = DetectCode >= 127 || DetectCode & 8 ? 8 : 7;
    const int parity = (DetectCode >> 1) & 3;
    if (parity < 3) line.Parity = parityOfItem(parity);
    line.StopBits = DetectCode & 1 ? 2 : 1;
    return line;
}

quint8 nextDetectCode(quint8 DetectCode) {
    const bool pastOdd = (DetectCode & 1) && (DetectCode & 4);
    return static_cast<quint8>(DetectCode + (pastOdd ? 3 : 1));
}

quint32 baudTimeoutTicks(int Baud) {
    for (const BaudRow& row : baudRows)
        if (row.Baud == Baud) return row.ticks;
    return Baud > 115200 ? 1 : 8;
}

ComSetup::ComSetup(RequestScheduler& link, TApdComPort& setupPort, TickClock& clock, const Voice& voice)
    : RxTimer(clock, TickKind::Waiting, 1, [this] { RxTimerTimer(); }),
      m_link(link),
      m_voice(voice),
      m_setupPort(setupPort) {
    m_setupPort.OnTriggerAvail = [this](int count) { ApdComPort1TriggerAvail(count); };
    setLine([](PortSettings& line) { line = {1, 9600, 7, ComParity::None, 2}; });
    m_link.BaudTimeoutTicks = baudTimeoutTicks(9600);
    connect(&m_link, &RequestScheduler::statusDecoded, this, [this] {
        if (m_link.owner().endsWaitNotice) endWait();
    });
    connect(&m_link, &RequestScheduler::identificationFailed, this, &ComSetup::endWait);
    connect(&m_link, &RequestScheduler::initialRun, this, &ComSetup::endWait);
}

void ComSetup::awaitDrive() {
    m_awaitsDrive = m_link.Notice.TInitialFormShown = true;
    m_link.notifyChanged();
}

void ComSetup::endWait() {
    if (!std::exchange(m_awaitsDrive, false)) return;
    m_link.Notice.TInitialFormShown = false;
    m_link.notifyChanged();
}

ComSetup::~ComSetup() { m_setupPort.OnTriggerAvail = nullptr; }

QStringList ComSetup::comPortItems() {
    QStringList items;
    for (int number = 1; number <= 20; ++number) items += QString::number(number);
    return items;
}
QStringList ComSetup::modeItems() { return {QStringLiteral("ASCII"), QStringLiteral("RTU")}; }
QStringList ComSetup::baudItems() {
    QStringList items;
    for (const BaudRow& row : baudRows) items += QString::number(row.Baud);
    return items;
}
QStringList ComSetup::dataBitsItems() { return {QStringLiteral("7"), QStringLiteral("8")}; }
QStringList ComSetup::parityItems() {
    return {QStringLiteral("N"), QStringLiteral("E"), QStringLiteral("O")};
}
QStringList ComSetup::stopBitsItems() { return {QStringLiteral("1"), QStringLiteral("2")}; }

void ComSetup::notify() {
    if (shown == m_lastShown) return;
    m_lastShown = shown;
    Q_EMIT changed();
}

void ComSetup::setLine(const std::function<void(PortSettings&)>& change) {
    PortSettings line = m_setupPort.settings();
    change(line);
    m_setupPort.setSettings(line);
}

// ---- Boxes ----

void ComSetup::ComPortComboBoxChange(const QString& text) {
    if (!comPortItems().contains(text)) return;
    shown.ComPortComboBox = text;
    setLine([&](PortSettings& line) { line.ComNumber = text.toInt(); });
    notify();
}

void ComSetup::ModeComboBoxChange(const QString& text) {
    if (!modeItems().contains(text)) return;
    const bool rtu = text == QLatin1String("RTU");
    shown.ModeComboBox = text;
    shown.dataBitsEnabled = !rtu;
    m_link.ComMode = rtu;
    if (rtu) DataBitsComboBoxChange(QStringLiteral("8"));
    notify();
}

void ComSetup::BaudComboBoxChange(const QString& text) {
    bool ok = false;
    const int baud = text.toInt(&ok);
    if (!ok || baud <= 0) return;
    shown.BaudComboBox = text;
    setLine([&](PortSettings& line) { line.Baud = baud; });
    m_link.BaudTimeoutTicks = baudTimeoutTicks(baud);
    notify();
}

void ComSetup::DataBitsComboBoxChange(const QString& text) {
    // RTU has bytes of eight bits, whatever a file says.
    if (!dataBitsItems().contains(text) || (!shown.dataBitsEnabled && text != QLatin1String("8"))) return;
    shown.DataBitsComboBox = text;
    setLine([&](PortSettings& line) { line.DataBits = text.toInt(); });
    notify();
}

void ComSetup::ParityComboBoxChange(const QString& text) {
    const qsizetype item = parityItems().indexOf(text);
    if (item >= 0) applyParity(parityOfItem(item));
    notify();
}

void ComSetup::applyParity(ComParity parity) {
    shown.ParityComboBox = parityLetter(parity);
    setLine([&](PortSettings& line) { line.Parity = parity; });
}

void ComSetup::StopBitsComboBoxChange(const QString& text) {
    if (!stopBitsItems().contains(text)) return;
    shown.StopBitsComboBox = text;
    setLine([&](PortSettings& line) { line.StopBits = text.toInt(); });
    notify();
}

void ComSetup::ManualRadioButtonClick() {
    shown.ManualRadioButtonChecked = true;
    notify();
}

void ComSetup::AutoDetectRadioButtonClick() {
    shown.ManualRadioButtonChecked = false;
    notify();
}

// ---- Test ----

void ComSetup::TestButtonClick() {
    shown.OKBitBtnEnabled = true;
    shown.FailAbLEDLit = shown.SuccessAbLEDLit = false;
    if (!shown.ManualRadioButtonChecked) takeNextCombination();
    notify();
    if (openForTest()) {
        sendTest();
    } else {
        failToOpen();
    }
}

void ComSetup::takeNextCombination() {
    if (DetectCode <= LastDetectCode) {
        const DetectedLine line = decodeDetectCode(DetectCode);
        const bool rtu = line.mode == LinkMode::Rtu;
        BaudComboBoxChange(QString::number(line.Baud));
        ModeComboBoxChange(modeItems()[rtu]);
        DataBitsComboBoxChange(QString::number(line.DataBits));
        if (line.Parity) applyParity(*line.Parity);
        StopBitsComboBoxChange(QString::number(line.StopBits));
        shown.connectBaud = QStringLiteral("Baud rate ") % shown.BaudComboBox;
        shown.connectProtocol = (rtu ? QStringLiteral("Modbus RTU mode, protocol < ")
                                     : QStringLiteral("Modbus ASCII mode, protocol <")) %
                                shown.DataBitsComboBox % QStringLiteral(", ") % shown.ParityComboBox %
                                QStringLiteral(", ") % shown.StopBitsComboBox % QStringLiteral(" >");
    }
    DetectCode = nextDetectCode(DetectCode);
}

bool ComSetup::openForTest() {
    while (m_link.port().Open()) m_link.port().close();
    return m_setupPort.Open() || m_setupPort.open();
}

void ComSetup::failToOpen() {
    closeConnectForm();
    shown.FailAbLEDLit = true;
    notify();
    const QString why = m_setupPort.openError();
    if (!why.isEmpty()) m_link.ShowHistoryMsg(why);
    m_voice.person.tell(m_voice.text(Message::NoComPort), QStringLiteral("Error Message"));
}

void ComSetup::sendTest() {
    m_setupPort.dropInput();
    TestTickCount = 0;
    TestRxCount = 0;
    TestRxText.clear();
    const TxFrame frame = buildFrame(m_link.mode(), TestCommand, FrameCheck::Standard);
    m_link.mode() == LinkMode::Rtu ? m_setupPort.PutBlock(frame.wire) : m_setupPort.PutString(frame.wire);
    RxTimer.setEnabled(true);
    const PortSettings& line = m_setupPort.settings();
    const qint64 silence = m_link.mode() == LinkMode::Rtu ? line.silenceUs() : 0;
    RxTimer.tickIn(line.wireTimeUs(frame.wire.size()) + silence + qint64(TickLength) * 1000);
}

void ComSetup::ApdComPort1TriggerAvail(int count) {
    for (int i = 0; i < count; ++i) {
        const std::optional<char> byte = m_setupPort.GetChar();
        if (!byte) break;
        TestRxText += *byte;
        ++TestRxCount;
    }
    TestTickCount = 0;
    RxTimer.tickIn(qint64(TickLength) * 1000);
}

void ComSetup::RxTimerTimer() {
    ++TestTickCount;
    if (TestTickCount != m_link.BaudTimeoutTicks) return;
    RxTimer.setEnabled(false);
    if (TestRxCount > 0) {
        succeed();
    } else if (shown.ManualRadioButtonChecked) {
        failTest(Message::ComTimeout);
    } else if (DetectCode > LastDetectCode) {
        failTest(Message::NoDriveDetected);
    } else {
        shown.TConnectFormShown = true;
        TestButtonClick();
    }
}

void ComSetup::succeed() {
    m_setupPort.close();
    shown.SuccessAbLEDLit = true;
    const bool detecting = !shown.ManualRadioButtonChecked;
    if (detecting) {
        DetectCode = 0;
        closeConnectForm();
    }
    notify();
    TestRxText.clear();
    TestRxCount = 0;
    if (detecting) m_voice.person.tell(m_voice.text(Message::AutoDetectSuccess), Cofirm);
}

void ComSetup::failTest(Message message) {
    DetectCode = 0;
    closeConnectForm();
    m_setupPort.close();
    shown.FailAbLEDLit = true;
    notify();
    m_voice.person.tell(m_voice.lang.MsgStr(message), Warning);
}

void ComSetup::closeConnectForm() {
    if (!shown.TConnectFormShown) return;
    shown.TConnectFormShown = false;
    shown.ManualRadioButtonChecked = true;
    notify();
}

// ---- Accept ----

void ComSetup::OKBitBtnClick() {
    if (shown.SuccessAbLEDLit) {
        m_setupPort.close();
        if (!m_link.owner().console && m_voice.person.yes(m_voice.text(Message::GoOnLine), Cofirm)) {
            m_link.start();
            Q_EMIT goingOnLine();
        }
    } else {
        m_link.setLamp(LampState::OffLine);
    }
    copySettingsToLink();
    m_link.ReplyTimeoutTicks = m_link.BaudTimeoutTicks;
    shown.consoleTimeOutCaption.clear();
    if (m_link.Console.TimeOut1 < m_link.BaudTimeoutTicks) {
        m_link.Console.TimeOut1 = m_link.BaudTimeoutTicks;
        shown.consoleTimeOutCaption = QString::number(m_link.Console.TimeOut1) % QStringLiteral(" ms");
    }
    shown.advanceCaption = QStringLiteral("Advance - Com %1 , BaudRate %2 , Protocol < %3 , %4 , %5 , %6 >")
                               .arg(shown.ComPortComboBox, shown.BaudComboBox, shown.ModeComboBox,
                                    shown.DataBitsComboBox, shown.ParityComboBox, shown.StopBitsComboBox);
    notify();
    m_link.notifyChanged();
    Q_EMIT closeWanted();
}

// The console leaves the link port open; the next send opens it afresh.
void ComSetup::copySettingsToLink() {
    if (m_link.owner().console || m_link.port().settings().ComNumber != m_setupPort.settings().ComNumber)
        m_link.port().close();
    m_link.port().setSettings(m_setupPort.settings());
}

void ComSetup::FormClose() {
    RxTimer.setEnabled(false);
    closeConnectForm();
    DetectCode = 0;
    shown.SuccessAbLEDLit = shown.FailAbLEDLit = false;
    m_setupPort.close();
    notify();
}

// ---- Opening ----

bool ComSetup::mayOpen() {
    m_link.ShowHistoryMsg(QStringLiteral("Setup the Com port and protocol"));
    if (m_link.Lamp.onLine() && !m_voice.person.yes(m_voice.text(Message::LeaveLineForComSetup), Cofirm))
        return false;
    m_link.Initial();
    shown.OKBitBtnEnabled = false;
    notify();
    return true;
}

}  // namespace kelvane
