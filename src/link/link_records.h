// Plain records that the link fills and that windows read: the drive's status, the last parameter read, what
// the link shows on the main window, and the records of the console. Fields are the plant's.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>

#include "base/drive_family.h"
#include "link/com_port.h"
#include "link/frame_codec.h"

namespace kelvane {

// Result of the status poll and of identification; copied whole to the keypad's and the trend's routines.
struct DriveStatusRecord {
    std::array<quint8, 16> StatusDecimals{};
    quint8 StatusWordCount = 0;  // items; the poll reads two words more
    quint8 DriveFamily = 0;
    quint8 DriveIdCode = 0;
    std::array<QString, 16> StatusUnit;
    std::array<QString, 16> StatusFormat;
    std::array<QString, 16> StatusText;
    std::array<quint32, 16> StatusWords{};  // [0], [1] state words, [2 + k] item k
    std::array<quint8, 16> StatusScale{};   // 100, 10 or 0
    std::array<quint16, 3> RatedWords{};
    quint16 MaxFreqWord = 0;  // 0.01 Hz
    quint8 GroupCount = 0;
    quint8 GroupIndex = 0;
    std::array<quint16, 20> GroupParamCount{};  // highest number of each group
    quint8 DriveReady = 0;
    quint8 JogActive = 0;
    quint8 ReservedEnabled = 0;
    quint8 KeypadDataDue = 0;
    quint8 FaultTextValid = 0;
    quint8 ExceptionTextDone = 0;
    quint8 ExceptionCode = 0;
    quint8 ExceptionPending = 0;
    quint8 FaultCode = 0;
    QString FaultName;
    QString ExceptionText;
};

// Result of tasks 12, 18 and 20, and the completion flags that windows poll and clear.
struct ParamReadRecord {
    std::array<quint16, 5> ReadField{};  // ReadField0 to ReadField4
    QString ReadName;
    QString ReadUnit;
    quint8 ReadDone = 0;
    quint8 WriteDone = 0;
    std::array<quint16, 20> ReadWords{};  // task 20
    QByteArray ReadDataText;              // of the same
    // Name of a parameter of a drive that has none in its record (Hazel); owner: catalogue.
    std::function<QString(int group, int number)> fixedParaName;
};

// Identity labels of the main window, mirrored by the Trend, Monitor and Parameter windows.
struct DriveLabelsRecord {
    QString DriveVrLabel;
    QString VersionVrLabel;
    QString RatedCurrentVrLabel;
    QString RatedVoltageVrLabel;
    QString HPVrLabel;
    bool AutoTuningEnabled = false;  // menu items that this drive has
    bool PIDControlEnabled = false;
    bool operator==(const DriveLabelsRecord&) const = default;
};

// Lamp and status panels. Other code asks the caption, not the colour, whether the link is on line.
struct LampRecord {
    QString ComStatusAbLED = QStringLiteral("Off Line");
    bool green = false;
    QString mainPanel1 = QStringLiteral("Off - Line");
    QString parameterPanel1 = QStringLiteral("Off - Line");
    bool onLine() const { return ComStatusAbLED == QLatin1String("On Line"); }
    bool operator==(const LampRecord&) const = default;
};

enum class LampState {
    OffLine,
    Silent,  // the drive does not answer: red, the panels stay
    OnLine,
    KeypadAsSource,  // the caption alone
};
LampRecord lampOnLine(LinkMode mode, const PortSettings& line);

// TMessageForm's answer and the notices that the link shows and closes.
struct NoticeRecord {
    quint8 LinkAction = 0;  // 0 go on, 1 send again, 2 skip, 3 give up
    bool TCEmessageFormShown = false;
    QString CEmessageText;
    QString CEmessageTitle;
    bool TInitialFormShown = false;
    bool waitMayBeLeft = false;  // a person may close TInitialForm; whoever opened it goes on without
    QString waitTrouble;         // why it waits for nothing; empty while it may still end
    bool TProgressFormShown = false;
    bool TWriteCheckFormShown = false;
    bool operator==(const NoticeRecord&) const = default;
};

struct ClockReading {
    int hour = 0;
    int minute = 0;
    int second = 0;
    int hundredth = 0;
};

// Settings of the Advance console that decide how the link sends and judges while ActiveFunction is 6.
struct ConsoleSettings {
    bool AddChksumCheckBoxChecked = true;
    bool CheckRuleCheckBoxChecked = true;
    bool Orlan = true;  // unchecked: Mallow
    bool Flasher = false;
    bool Monitor = false;
    bool TimeOutCheckBoxChecked = false;
    bool ErrorCheckBoxChecked = false;
    quint32 TimeOut1 = 20;  // ms
    quint32 TimeOut2 = 0;   // ms
    quint8 ListRunning = 0;
};

inline constexpr quint32 ConsoleBlack = 0x000000;
inline constexpr quint32 ConsoleRed = 0xFF0000;
inline constexpr quint32 ConsolePurple = 0x800080;

// What the link writes into the console.
struct ConsoleRecord {
    int totalRecords = 0;    // panel 1
    int errorRecords = 0;    // panel 3
    int timeoutRecords = 0;  // panel 5
    QString topLine;         // newest line of MsgRichEdit
    quint32 topLineColour = ConsoleBlack;
    QString FmonitorMemo;
    quint8 CanSend = 1;
    // Columns 2 and 3 of the running row of CmdAdvStringGrid; data stays as it was when it is null.
    QString RepliedMessage;
    QString RepliedData;
};

}  // namespace kelvane
