#include "link/task_table.h"

#include <algorithm>
#include <array>

#include "link/number_text.h"
#include "link/request_scheduler.h"

namespace kelvane {

namespace {

constexpr quint8 Hazel = static_cast<quint8>(Family::Hazel);
constexpr quint8 Keypad = static_cast<quint8>(Family::Keypad);
constexpr int StateWords = 2;  // before the items of the poll

// How a family is identified and polled, by its index. Without task 21 the group names are read, which need
// no entry; the length of the poll follows from the status items.
struct FamilyCommands {
    const char* task1 = "FF0300000001";
    const char* task21 = nullptr;
    bool stateWordApart = false;  // not 2101h, which comes with the poll, but 2119h
    const char* ratedWords = "FF0321160003";
    const char* maxFreq = "FF03211B0001";
};

constexpr FamilyCommands usualCommands;
constexpr std::array<FamilyCommands, 10> familyCommands{{
    {.task1 = "FF0300500001", .task21 = "FF0300500001", .stateWordApart = true},          // Rowan
    {.task21 = "FF0300000001"},                                                           // Aspen
    {.stateWordApart = true},                                                             // Larch
    {.task21 = "FF0300060001", .ratedWords = "FF03210B0002", .maxFreq = "FF0301000001"},  // Hazel
    {},                                                                                   // Tilia
    {.task1 = "FF0307000001"},                                                            // Osier
    {},                                                                                   // Willow
    {.task1 = nullptr},                                                                   // no family
    {},                                                                                   // Yarrow
    {},                                                                                   // Sorrel
}};

bool hasCommands(quint8 DriveFamily) {
    return DriveFamily < familyCommands.size() && familyCommands[DriveFamily].task1;
}

const FamilyCommands& commandsOf(quint8 DriveFamily) {
    return hasCommands(DriveFamily) ? familyCommands[DriveFamily] : usualCommands;
}

QString groupNameCommand(const DriveStatusRecord& status) {
    if (const char* task21 = commandsOf(status.DriveFamily).task21) return QString::fromLatin1(task21);
    return QStringLiteral("FF0331") % IntToBaseStr(status.GroupIndex, 16, 2) % QStringLiteral("0008");
}

QString pollCommand(const DriveStatusRecord& status) {
    return QStringLiteral("FF032100") % IntToBaseStr(status.StatusWordCount + StateWords, 16, 4);
}

// The register table behind the last group gives each group's parameter count.
QString groupCountCommand(const DriveStatusRecord& status) {
    return QStringLiteral("FF03") % IntToBaseStr(status.GroupCount + 1, 16, 2) %
           IntToBaseStr(status.GroupIndex, 16, 2) % QStringLiteral("0001");
}

void setAt(auto& array, int index, auto value) {
    if (index >= 0 && static_cast<size_t>(index) < array.size())
        array[static_cast<size_t>(index)] =
            static_cast<typename std::decay_t<decltype(array)>::value_type>(value);
}

// ---- Status poll ----

void storeStatusWords(RequestScheduler& link, const QByteArray& RxData) {
    DriveStatusRecord& status = link.DriveStatus;
    const bool stateWordApart = commandsOf(status.DriveFamily).stateWordApart;
    for (int i = 0; i < status.StatusWordCount + StateWords; ++i) {
        if (i == 1 && stateWordApart) continue;
        const quint16 word = wordAt(RxData, 4 + 2 * i);
        setAt(status.StatusWords, i, word);
        if (i == 0 && stateWordApart) link.push(17, QStringLiteral("FF0321190001"));
        if (i < StateWords || i - StateWords >= static_cast<int>(status.StatusText.size())) continue;
        const auto item = static_cast<size_t>(i - StateWords);
        status.StatusText[item] = InsertDecimalPoint(QString::number(word), status.StatusDecimals[item]);
    }
}

void decodeStatus(RequestScheduler& link, const QByteArray& RxData) {
    storeStatusWords(link, RxData);
    DriveStatusRecord& status = link.DriveStatus;
    status.FaultCode = static_cast<quint8>(status.StatusWords[0] & 0xFF);
    if (status.FaultCode == 0) status.FaultTextValid = 0;
    status.JogActive = (status.StatusWords[1] >> 2) & 1;
    status.ReservedEnabled = (status.StatusWords[1] >> 5) & 1;
    status.DriveReady = 1;
    Q_EMIT link.statusDecoded();
}

// ---- Group counts ----

void storeGroupParamCount(RequestScheduler& link, const QByteArray& RxData) {
    // An address has one byte for the number.
    setAt(link.DriveStatus.GroupParamCount, link.DriveStatus.GroupIndex,
          std::min<int>(wordAt(RxData, 4), 0xFF));
}

// True while another group follows, whose read is then pushed.
bool pushNextGroup(RequestScheduler& link, quint8 task) {
    if (link.DriveStatus.GroupIndex >= link.DriveStatus.GroupCount) return false;
    ++link.DriveStatus.GroupIndex;
    link.push(task);
    return true;
}

void onGroupCount(RequestScheduler& link, const QByteArray& RxData) {
    storeGroupParamCount(link, RxData);
    if (pushNextGroup(link, 11)) return;
    link.push(9, maxFreqCommand(link.DriveStatus.DriveFamily));
    Q_EMIT link.identificationEnded();
}

void onKeypadGroupCount(RequestScheduler& link, const QByteArray& RxData) {
    storeGroupParamCount(link, RxData);
    if (pushNextGroup(link, 81)) return;
    link.emptyQueues();
    link.DriveStatus.DriveReady = 1;
    Q_EMIT link.keypadTableReady();
}

// ---- Parameters ----

void onParameterRead(RequestScheduler& link, const QString& command, const QByteArray& RxData) {
    ParamReadRecord& read = link.ParamRead;
    read.ReadDone = 1;
    read.ReadField[0] = wordAt(RxData, 4);
    const quint8 family = link.DriveStatus.DriveFamily;
    if (family == Keypad) return;
    for (int field = 1; field <= 3; ++field)
        read.ReadField[static_cast<size_t>(field)] = wordAt(RxData, 4 + 2 * field);
    if (family != Hazel) {
        read.ReadField[4] = wordAt(RxData, 12);
        read.ReadName = dataText(RxData, 11, 16);
        read.ReadUnit = dataText(RxData, 27, 4);
        return;
    }
    read.ReadField[4] = 0;
    read.ReadUnit.clear();
    const int group = BaseStrToInt(command.mid(4, 2), 16);
    const int number = BaseStrToInt(command.mid(6, 2), 16);
    read.ReadName = link.ParamRead.fixedParaName ? link.ParamRead.fixedParaName(group, number) : QString();
}

void onGeneralRead(RequestScheduler& link, const QByteArray& RxData) {
    const int bytes = byteAt(RxData, 3);
    link.ParamRead.ReadDataText = RxData.mid(3, bytes);
    for (int i = 0; i < bytes / 2; ++i) setAt(link.ParamRead.ReadWords, i, wordAt(RxData, 4 + 2 * i));
    if (link.owner().console) link.Console.completeReply(link.Rx.RxLogText);
    link.ParamRead.ReadDone = 1;
}

void onWritten(RequestScheduler& link) {
    if (link.owner().console) link.Console.completeReply(link.Rx.RxLogText);
    link.ParamRead.WriteDone = 1;
}

// ---- Console ----

void onConsoleReply(RequestScheduler& link, const QString& command, const QByteArray& RxData) {
    link.Console.completeReply(link.Rx.RxLogText);
    link.Console.goodReply(command, RxData);
}

}  // namespace

QString generatedCommand(quint8 task, const DriveStatusRecord& DriveStatus) {
    if ((task == 1 || task == 4 || task == 21) && !hasCommands(DriveStatus.DriveFamily)) return {};
    switch (task) {
        case 1: return QString::fromLatin1(commandsOf(DriveStatus.DriveFamily).task1);
        case 4: return pollCommand(DriveStatus);
        case 11:
        case 81: return groupCountCommand(DriveStatus);
        case 21: return groupNameCommand(DriveStatus);
        // Kept: the blanks stand in the strings of the brand variant's tasks.
        case 50: return QStringLiteral("FF03 4001 0402");
        case 51: return QStringLiteral("FF03 4005 0002");
        case 52: return QStringLiteral("FF03 2110 0001");
        case 53: return QStringLiteral("FF03 2100 000B");
        case 80: return QStringLiteral("FF0321110001");
        default: return {};
    }
}

QString exceptionTextCommand(quint8 DriveFamily, quint8 code) {
    return QStringLiteral("FF0333") % IntToBaseStr(code, 16, 2) %
           (DriveFamily == 0 ? QStringLiteral("000A") : QStringLiteral("0008"));
}

void storeExceptionText(RequestScheduler& link, const QString& text) {
    DriveStatusRecord& status = link.DriveStatus;
    status.ExceptionText = text;
    link.ShowHistoryMsg(QStringLiteral("CE ") % QString::number(status.ExceptionCode) %
                        QStringLiteral(" : ") % text);
    status.ExceptionTextDone = 1;
    if (link.owner().refusalMarksWritten) link.ParamRead.WriteDone = 1;
}

QString ratedWordsCommand(quint8 DriveFamily) {
    return QString::fromLatin1(commandsOf(DriveFamily).ratedWords);
}

QString maxFreqCommand(quint8 DriveFamily) { return QString::fromLatin1(commandsOf(DriveFamily).maxFreq); }

void installTaskTable(RequestScheduler& link) {
    using Text = const QString&;
    using Bytes = const QByteArray&;
    link.onReply(4, [&link](Text, Bytes data) { decodeStatus(link, data); });
    link.onReply(11, [&link](Text, Bytes data) { onGroupCount(link, data); });
    link.onReply(12, [&link](Text command, Bytes data) { onParameterRead(link, command, data); });
    link.onReply(13, [&link](Text, Bytes) { onWritten(link); });
    link.onReply(15, [&link](Text, Bytes data) { storeExceptionText(link, dataText(data, 1, 16)); });
    link.onReply(17, [&link](Text, Bytes data) { link.DriveStatus.StatusWords[1] = wordAt(data, 4); });
    link.onReply(18, [&link](Text, Bytes data) {
        link.ParamRead.ReadField[0] = wordAt(data, 4);
        link.ParamRead.ReadDone = 1;
    });
    link.onReply(19, [&link](Text command, Bytes data) { onConsoleReply(link, command, data); });
    link.onReply(20, [&link](Text, Bytes data) { onGeneralRead(link, data); });
    link.onReply(80, [&link](Text, Bytes data) {
        link.DriveStatus.GroupCount = byteAt(data, 5);
        link.DriveStatus.GroupIndex = 0;
    });
    link.onReply(81, [&link](Text, Bytes data) { onKeypadGroupCount(link, data); });
}

}  // namespace kelvane
