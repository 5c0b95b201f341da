#include "localisation/lang_table.h"

#include <algorithm>

namespace kelvane {

namespace {

constexpr std::array<const char*, 5> CommonItemNames{
    "Frequency command F", "Output Frequency H", "Output Current A", "DC-BUS Voltage U", "Output Voltage E",
};

struct BuiltInTypeSet {
    TypeSection set;
    std::array<const char*, LangTable::TypeSetSize> names;
};

constexpr std::array<const char*, LangTable::TypeSetSize> VectorNames{
    "Multi-step speed", "Time of PLC operation", "Value of the counter", "Power factor angle", "Torque",
    "Motor Speed",      "PG Pulse Count Low",    "PG Pulse Count High",  "Output Power",
};

constexpr std::array<BuiltInTypeSet, 9> BuiltInTypeSets{{
    {.set = TypeSection::Mtype,
     .names = {"Step Number of Multi-Step Speed Operation", "Time of PLC Operation",
               "Value of External Trigger", "The Correspondent Value of Power Factor",
               "Pr.65 X Low word of H", "Pr.65 X High word of H", "AC Drive Temperature",
               "PID Feedback Signal", "PID Target Value"}},
    {.set = TypeSection::Stype,
     .names = {"Step Number of Multi-Step Speed Operation", "Step number of PLC operation",
               "Time of PLC Operation", "Counter Value"}},
    {.set = TypeSection::Btype,
     .names = {"Step Number of Multi-Step Speed Operation", "Step Number of PLC Operation",
               "Content of External Trigger", "Power Factor Angle", "Estimated Torque Ratio", "Motor Speed",
               "PG Pulse Count Low", "PG Pulse Count High", "Output Power"}},
    {.set = TypeSection::Ltype,
     .names = {"Step number of multi-step speed operation", "Step number of PLC operation",
               "Time of PLC operation", "Value of the counter"}},
    {.set = TypeSection::Vtype, .names = VectorNames},
    {.set = TypeSection::Ftype,
     .names = {"Power Factor", "Output Power", "Actual Feedback Signal Value", "Feedback Signal",
               "User Output (Low)", "User Output (High)", "PLC Time"}},
    {.set = TypeSection::Etype, .names = {"Display temperature of IGBT"}},
    {.set = TypeSection::ELtype,
     .names = {"Counter", "PID feedback", "Step number of Multi-step speed operation", "TH1 Temperature",
               "Power angle", "AVI", "ACI", "MI1 ~MI6 status", "Power output"}},
    {.set = TypeSection::VLtype, .names = VectorNames},
}};

constexpr std::array<const char*, LangTable::MessageCount> BuiltInMessages{
    "The status is On-Line now !\nDo you want to change status to Off-Line then set COM setting ?",
    "The status is Off-Line now ! Please On-Line first.",
    "Checksum Error !!\nWould you want to try again ?",
    "On-Line Fail !!",
    "Do you want to change status to Off - Line now ?",
    "Please On - Line first !!",
    "The serial port is not yet functioning ! Please set up first !",
    "The serial port is not yet functioning !\nCan not perform this function !",
    "There is no item selected !",
    "No parameter table to save !!",
    "Parameter table will be transfered to EXCEL file !!",
    "File format not support !",
    "The parameter had been modfied.\nDo you want to save?",
    "Compare now ... ?",
    "Please Select the file to Compare with drive!",
    "Different types !!\nDo you want to compare?",
    "Do you want to save the parameter table before close ?",
    "Do you want to On - Line now ?",
    "Com port doesn't exist!\nPlease make sure.",
    "Can not detect any driver !!",
    "Communication Time-Out !!",
    "Communication Auto-Detect success !!",
    "Value is not Legal !! Please check it ...",
    "The value can not smaller then zero !!",
    "Do you want to write the parameter(s) to drive ?",
    "Parameter can not be set !!",
    "Do you want to write the parameter to drive ?",
    "Value is too small !! Please check it ...",
    "Value is too large !! Please check it ...",
    "Do you want write these settings to drive ?",
    "There is not any selected command or the command of selected checkbox is empty !!",
    "Illegale string length of sending command list.\n"
    "Please make sure that characters of string are even !!",
    "File is already existed !\nOverwrite ?",
    "Can not find the string !!",
    "Auto Tuning Finish !!",
    "\nWould you want to reset the drive?",
    "Motor will run after press OK !!\nAre you ready to AutoTuning ?",
};

void storeTypeNames(LangTable& table) {
    for (const BuiltInTypeSet& row : BuiltInTypeSets) {
        const size_t first = static_cast<size_t>(row.set) * LangTable::TypeSetSize;
        for (size_t i = 0; i < row.names.size(); ++i)
            table.Type[first + i] = QString::fromLatin1(row.names[i]);
    }
}

void storeCommonItemNames(LangTable& table) {
    // Kept: by key they stand one place late, from Label15 on, so Label14 is empty and what reads the keys
    // shows the names shifted. The list of their own is in order.
    constexpr size_t Label15 = 14;
    for (size_t i = 0; i < CommonItemNames.size(); ++i) {
        table.commonItemNames[i] = QString::fromLatin1(CommonItemNames[i]);
        table.form(FormSection::Trend).Label.Text[Label15 + i] = table.commonItemNames[i];
    }
}

}  // namespace

QString TextGroup::at(int number) const {
    return number < 1 || number > static_cast<int>(Text.size()) ? QString()
                                                                : Text[static_cast<size_t>(number - 1)];
}

QString LangTable::messageOfKey(int number) const {
    return number < 1 || number > MessageCount ? QString() : Message[static_cast<size_t>(number - 1)];
}

LangTable::TypeNames LangTable::typeSet(int set) const {
    TypeNames names;
    if (set < 0 || set >= TypeSetCount) return names;
    std::copy_n(Type.begin() + set * TypeSetSize, TypeSetSize, names.begin());
    return names;
}

LangTable LangTable::builtInEnglish() {
    LangTable table;
    storeTypeNames(table);
    storeCommonItemNames(table);
    std::transform(BuiltInMessages.begin(), BuiltInMessages.end(), table.Message.begin(),
                   [](const char* text) { return QString::fromLatin1(text); });
    return table;
}

}  // namespace kelvane
