// Communication Setup without its window: finds the line settings by hand or by a walk over all combinations,
// on a port and a wait of its own, and hands them to the link port. Any answer counts as success; its content
// is not looked at. TComSetupForm shows it.
#pragma once

#include <QObject>
#include <QStringList>

#include "link/com_setup_section.h"
#include "link/request_scheduler.h"
#include "localisation/voice.h"

namespace kelvane {

// One combination of the walk, packed in DetectCode.
struct DetectedLine {
    LinkMode mode = LinkMode::Ascii;
    int Baud = 9600;
    int DataBits = 7;
    std::optional<ComParity> Parity;  // nothing: no change
    int StopBits = 1;
};
DetectedLine decodeDetectCode(quint8 DetectCode);
// The next combination: parity has three values in two bits.
quint8 nextDetectCode(quint8 DetectCode);
inline constexpr quint8 LastDetectCode = 221;

// Reply wait in ticks for a baud rate.
quint32 baudTimeoutTicks(int Baud);

class ComSetup : public QObject {
    Q_OBJECT
   public:
    // setupPort is the dialog's own port; link's port is closed before it opens.
    ComSetup(RequestScheduler& link, TApdComPort& setupPort, TickClock& clock, const Voice& voice);
    ~ComSetup() override;

    quint8 DetectCode = 0;
    QString TestCommand = QStringLiteral("FF0321010001");
    quint8 TestTickCount = 0;
    QByteArray TestRxText;
    quint32 TestRxCount = 0;
    TickTimer RxTimer;

    // Texts of the boxes and what the dialog shows.
    struct Shown : ComSetupSection {
        bool dataBitsEnabled = true;
        bool ManualRadioButtonChecked = true;  // else AutoDetectRadioButton
        bool OKBitBtnEnabled = false;
        bool SuccessAbLEDLit = false;
        bool FailAbLEDLit = false;
        bool TConnectFormShown = false;
        QString connectBaud;
        QString connectProtocol;
        QString consoleTimeOutCaption;  // of TimeOutTransparentButton and FtimeoutTransparentButton
        QString advanceCaption;
        bool operator==(const Shown&) const = default;
    };
    Shown shown;
    static QStringList comPortItems();
    static QStringList modeItems();
    static QStringList baudItems();
    static QStringList dataBitsItems();
    static QStringList parityItems();
    static QStringList stopBitsItems();

    // Change handlers of the boxes, with the text chosen. A text that is not offered is ignored.
    void ComPortComboBoxChange(const QString& text);
    void ModeComboBoxChange(const QString& text);
    void BaudComboBoxChange(const QString& text);
    void DataBitsComboBoxChange(const QString& text);
    void ParityComboBoxChange(const QString& text);
    void StopBitsComboBoxChange(const QString& text);
    void ManualRadioButtonClick();
    void AutoDetectRadioButtonClick();
    void TestButtonClick();
    void OKBitBtnClick();
    void FormClose();
    void closeConnectForm();
    // After the dialog, when the link goes on line: shows TInitialForm until it is known who the drive is, or
    // that this cannot be known.
    void awaitDrive();

    // Before the dialog: false when the operator wants to stay on line.
    bool mayOpen();
    void copySettingsToLink();
    TApdComPort& port() { return m_setupPort; }

   Q_SIGNALS:
    void changed();
    void goingOnLine();  // identification is about to begin
    void closeWanted();

   private:
    void ApdComPort1TriggerAvail(int count);
    void RxTimerTimer();
    void takeNextCombination();
    void applyParity(ComParity parity);
    bool openForTest();
    void failToOpen();
    void sendTest();
    void succeed();
    void failTest(Message message);
    void setLine(const std::function<void(PortSettings&)>& change);
    void notify();
    void endWait();

    RequestScheduler& m_link;
    const Voice m_voice;
    TApdComPort& m_setupPort;
    Shown m_lastShown;
    bool m_awaitsDrive = false;
};

}  // namespace kelvane
