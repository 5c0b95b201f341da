// LangTable: every text that can be translated, held by the splash and read by all windows and boxes. Filled
// by a language file or by the built-in English, which has messages and monitor item names but no form texts.
#pragma once

#include <QString>
#include <array>

#include "base/drive_family.h"

namespace kelvane {

enum class FormSection : quint8 {
    Main,
    ComSetup,
    QSource,
    QuickSetup,
    Parameter,
    Trend,
    Monitor,
    AutoTuning,
    PID,
};

// The value is the set's number among the twelve sets of type entries; sets 7, 10 and 11 lie idle.
enum class TypeSection : quint8 {
    Mtype = 0,
    Stype = 1,
    Btype = 2,
    Ltype = 3,
    Vtype = 4,
    Ftype = 5,
    Etype = 6,
    ELtype = 8,
    VLtype = 9,
};

// The messages of boxes; the value is the number of the key, 1 for "MsgStr01".
enum class Message : quint8 {
    LeaveLineForComSetup = 1,
    OffLineNow,
    ChecksumError,
    OnLineFail,
    GoOffLine,
    OnLineFirst,
    SetUpPortFirst,
    PortNotReady,
    NothingSelected,
    NoTableToSave,
    TransferToExcel,
    FormatNotSupported,
    SaveModified,
    CompareNow,
    SelectFileToCompare,
    DifferentTypes,
    SaveBeforeClose,
    GoOnLine,
    NoComPort,
    NoDriveDetected,
    ComTimeout,
    AutoDetectSuccess,
    ValueNotLegal,
    ValueBelowZero,
    WriteParameters,
    ParameterNotSettable,
    WriteParameter,
    ValueTooSmall,
    ValueTooLarge,
    WriteSettings,
    NoCommandSelected,
    CommandLengthOdd,
    OverwriteFile,
    StringNotFound,
    AutoTuningFinish,
    ResetDrive,
    MotorWillRun,
};

// Texts of one kind in a form, by key number from 1.
struct TextGroup {
    QString at(int number) const;  // empty outside 1 to 20

    std::array<QString, 20> Text;  // [0] is key number 1
    int filled = 0;                // a file has given this many, from key 1 on; only those are shown
};

struct FormTexts {
    QString Caption;
    bool captionFilled = false;  // a file has given the caption
    TextGroup Button;
    TextGroup Hint;
    TextGroup Label;
};

class LangTable {
   public:
    static constexpr int MessageCount = 37;
    static constexpr int TypeSetCount = 12;
    static constexpr int TypeSetSize = 9;
    using TypeNames = std::array<QString, TypeSetSize>;

    QString MsgStr(Message message) const { return messageOfKey(static_cast<int>(message)); }
    // The same by the number of its key, 1 to 37; empty outside.
    QString messageOfKey(int number) const;

    const FormTexts& form(FormSection section) const { return Form[static_cast<size_t>(section)]; }
    FormTexts& form(FormSection section) { return Form[static_cast<size_t>(section)]; }

    // The nine names of a set; all empty for idle sets and outside 0 to 11.
    TypeNames typeSet(int set) const;

    // Names of the items behind the five common ones; the set has the family's number. Unused names are
    // empty.
    TypeNames familyItemNames(quint8 DriveFamily) const { return typeSet(DriveFamily); }
    TypeNames familyItemNames(Family family) const { return typeSet(static_cast<quint8>(family)); }

    static LangTable builtInEnglish();

    std::array<FormTexts, 9> Form;                         // by FormSection
    std::array<QString, TypeSetCount * TypeSetSize> Type;  // set s, label n at [9 * s + n - 1]
    std::array<QString, 5> commonItemNames;                // what every family's first items are called
    std::array<QString, 60> Message;                       // [0] is MsgStr01
};

}  // namespace kelvane
