#include "localisation/language_sections.h"

namespace kelvane {

namespace {

constexpr KeyTarget gridRow(const char* control, int row) {
    return {.control = control, .kind = TargetKind::GridRow, .row = row};
}
constexpr KeyTarget memo(const char* control) { return {.control = control, .kind = TargetKind::MemoLine}; }
constexpr KeyTarget tuneText(int field) {
    return {.control = "TuneText", .kind = TargetKind::TuneText, .row = field};
}
constexpr KeyTarget blanks(const char* control) { return {.control = control, .blankEachSide = true}; }

constexpr KeyTarget MainButtons[] = {
    {"ComSetupTransparentButton"}, {"OpenTransparentButton"},       {"SaveTransparentButton"},
    {"ExitTransparentButton"},     {"QuickSetupTransparentButton"}, {"ParameterTransparentButton"},
    {"AdvanceTransparentButton"},  {"KeypadTransparentButton"},     {"TrendTransparentButton"},
    {"MonitorTransparentButton"},
};
constexpr KeyTarget MainLabels[] = {
    {"DispDriveVrLabel"},
    {"DispVersionVrLabel"},
    {"DispHPVrLabel"},
    {"DispRatedVoltageVrLabel"},
    {"DispRatedCurrentVrLabel"},
    {"HistMsgLabel"},
    {"FilesMenu"},
    {"DriveMenu"},
    {"DiagnosticMenu"},
    {"OptionsMenu"},
    {"HelpsMenu"},
    {"PIDControl"},
    {"AutoTuning"},
    {"MultiStep"},
    {"SetupLanguage"},
};

constexpr KeyTarget ComSetupButtons[] = {{"TestButton"}, {"OKBitBtn"}};
constexpr KeyTarget ComSetupLabels[] = {
    {"Des1Label"},
    {"Des2Label"},
    {"Des3Label"},
    {"SuccessAbLED"},
    {"FailAbLED"},
    {"ManualRadioButton"},
    {"AutoDetectRadioButton"},
    {"GroupBox1"},
    {"GroupBox2"},
};

constexpr KeyTarget QSourceButtons[] = {{"OKTransparentButton"}};
constexpr KeyTarget QSourceLabels[] = {{"FileAbLED"}, {"DriveAbLED"}};

constexpr KeyTarget QuickSetupButtons[] = {{"BackStepBitBtn"}, {"NextStepBitBtn"}, {"OKBitBtn"}};
constexpr KeyTarget QuickSetupLabels[] = {
    {"Step1VrLabel"}, {"Step2VrLabel"}, {"Step3VrLabel"}, {"Step4VrLabel"}, {"S1Label1"},
    {"S1Label2"},     {"S1Label3"},     {"S1Label4"},     {"S1Label5"},     {"S1Label6"},
    {"S2Label1"},     {"S3Label1"},     {"S3Label2"},     {"S3Label3"},     {"S3Label4"},
};

constexpr KeyTarget ParameterButtons[] = {
    {"SaveTransparentButton"},      {"ExitTransparentButton"},       {"ReadFileTransparentButton"},
    {"ReadDriveTransparentButton"}, {"WriteCheckTransparentButton"}, {"WriteAllTransparentButton"},
    {"CompareTransparentButton"},   {"PrintTransparentButton"},
};
constexpr KeyTarget ParameterLabels[] = {
    {"FolderTabSheet"}, {"ParaTabSheet"}, {"DriveTabSheet"}, {"FileTabSheet"}, {"CompareTabSheet"},
};

constexpr KeyTarget TrendButtons[] = {
    {"StartVrPowerButton"},
    {"SaveScopeDataTransparentButton"},
    {"LoadScopeDataTransparentButton"},
    {"SavePICTransparentButton"},
    {"PrintTransparentButton"},
    {"KeypadTransparentButton"},
    {"ExitTransparentButton"},
    {"ClearTransparentButton"},
    {"OptionTransparentButton"},
    {"CursorTransparentButton"},
    {"UpTransparentButton"},
    {"ZoomInTransparentButton"},
    {"ResetTransparentButton"},
    {"ZoomOutTransparentButton"},
    {"DownTransparentButton"},
};
constexpr KeyTarget TrendLabels[] = {
    {"ChStaGroupBox"},
    {"ChValueVrLabel"},
    {"LogicStaVrLabel"},
    {"RecordVrLabel"},
    blanks("ChSelGroupBox"),
    blanks("FaultGroupBox"),
    {"ErrCodeAbLED"},
    blanks("StatusGroupBox"),
    {"RUNAbLED"},
    {"STOPAbLED"},
    {"JOGAbLED"},
    {"FWDAbLED"},
    {"REVAbLED"},
    gridRow("InfoAdvStringGrid", 1),
    gridRow("InfoAdvStringGrid", 2),
    gridRow("InfoAdvStringGrid", 3),
    gridRow("InfoAdvStringGrid", 4),
    gridRow("InfoAdvStringGrid", 5),
};

constexpr KeyTarget MonitorButtons[] = {
    {"StartVrPowerButton"},      {"KeypadTransparentButton"}, {"ExitTransparentButton"},
    {"OptionTransparentButton"}, {"ClearTransparentButton"},  {"CussorTransparentButton"},
};

constexpr KeyTarget AutoTuningButtons[] = {
    {"TuneTransparentButton"},  {"MotorSelTransparentButton"}, {"ReadTransparentButton"},
    {"WriteTransparentButton"}, {"ExitTransparentButton"},
};
constexpr KeyTarget AutoTuningLabels[] = {
    {"AbLED1"},  {"AbLED2"},  {"AbLED3"},   {"Label4"},   {"AbLED5"},   tuneText(1),
    tuneText(2), tuneText(3), tuneText(4),  tuneText(5),  tuneText(6),  tuneText(7),
    tuneText(8), tuneText(9), tuneText(10), tuneText(11), tuneText(12),
};

constexpr KeyTarget PIDButtons[] = {
    {"RUNTransparentButton"},   {"STOPTransparentButton"}, {"ReadTransparentButton"},
    {"WriteTransparentButton"}, {"ExitTransparentButton"},
};
constexpr KeyTarget PIDLabels[] = {
    {"TroubleAbLED"}, {"Case1AbLED"},    {"Case2AbLED"},    {"Case3AbLED"},    {"Case4AbLED"},
    {"PIDAbLED"},     {"RUNAbLED"},      {"STOPAbLED"},     {"JOGAbLED"},      {"FWDAbLED"},
    {"REVAbLED"},     memo("Case1Memo"), memo("Case2Memo"), memo("Case3Memo"), memo("Case4Memo"),
};

constexpr KeyGroup group(int offset, std::span<const KeyTarget> targets) {
    return {.offset = offset, .targets = targets, .written = static_cast<int>(targets.size())};
}

// One line stands between two groups.
constexpr FormSectionRow row(FormSection section, const char* header, const char* window,
                             std::span<const KeyTarget> buttons, std::span<const KeyTarget> labels) {
    const int count = static_cast<int>(buttons.size());
    const int hints = FirstButtonOffset + count + 1;
    return {.section = section,
            .header = header,
            .window = window,
            .Button = group(FirstButtonOffset, buttons),
            .Hint = group(hints, buttons),
            .Label = labels.empty() ? KeyGroup{} : group(hints + count + 1, labels)};
}

constexpr FormSectionRow mainRow() {
    FormSectionRow main = row(FormSection::Main, "[Main Form]", "TMainForm", MainButtons, MainLabels);
    // Kept: the writer stops before the menus, though the reader takes all 15 lines; files in use have the
    // missing nine by hand.
    main.Label.written = 6;
    return main;
}

constexpr FormSectionRow FormSections[] = {
    mainRow(),
    row(FormSection::ComSetup, "[ComSetup Form]", "TComSetupForm", ComSetupButtons, ComSetupLabels),
    row(FormSection::QSource, "[QSource Form]", "TQSsourceForm", QSourceButtons, QSourceLabels),
    row(FormSection::QuickSetup, "[QuickSetup Form]", "TQuickSetupForm", QuickSetupButtons, QuickSetupLabels),
    row(FormSection::Parameter, "[Parameter Form]", "TParameterForm", ParameterButtons, ParameterLabels),
    row(FormSection::Trend, "[Trend Form]", "TScopeForm", TrendButtons, TrendLabels),
    row(FormSection::Monitor, "[Monitor Form]", "TMonitorForm", MonitorButtons, {}),
    row(FormSection::AutoTuning, "[AutoTuning Form]", "TAutoTuningForm", AutoTuningButtons, AutoTuningLabels),
    row(FormSection::PID, "[PID Form]", "TPIDForm", PIDButtons, PIDLabels),
};

constexpr TypeSectionRow TypeSections[] = {
    {TypeSection::Mtype, "[Mtype]"}, {TypeSection::Stype, "[Stype]"},   {TypeSection::Btype, "[Btype]"},
    {TypeSection::Ltype, "[Ltype]"}, {TypeSection::Vtype, "[Vtype]"},   {TypeSection::Ftype, "[Ftype]"},
    {TypeSection::Etype, "[Etype]"}, {TypeSection::ELtype, "[ELtype]"}, {TypeSection::VLtype, "[VLtype]"},
};

constexpr MirroredMenu MirroredMenus[] = {
    {"OpenTransparentButton", "FileOpenItem"},
    {"SaveTransparentButton", "FileSaveItem"},
    {"ExitTransparentButton", "FileExitItem"},
    {"ComSetupTransparentButton", "ComSetup"},
    {"ParameterTransparentButton", "ParameterManagement"},
    {"QuickSetupTransparentButton", "QuickSetup"},
    {"AdvanceTransparentButton", "Advance"},
    {"KeypadTransparentButton", "Keypad"},
    {"TrendTransparentButton", "Trend"},
    {"MonitorTransparentButton", "Monitor"},
};

constexpr CopiedLabel CopiedLabels[] = {
    {"DispDriveVrLabel", "TMonitorForm", "DispDriveVrLabel"},
    {"DispVersionVrLabel", "TMonitorForm", "DispVersionVrLabel"},
    {"DispHPVrLabel", "TMonitorForm", "DispHPVrLabel"},
    {"DispRatedVoltageVrLabel", "TMonitorForm", "DispRatedVoltageVrLabel"},
    {"DispRatedCurrentVrLabel", "TMonitorForm", "DispRatedCurrentVrLabel"},
    {"DispDriveVrLabel", "TParameterForm", "DispModelVrLabel"},
    {"DispVersionVrLabel", "TParameterForm", "DispVersionVrLabel"},
    {"DispHPVrLabel", "TParameterForm", "DispHPVrLabel"},
    {"DispRatedVoltageVrLabel", "TParameterForm", "DispRatedVoltageVrLabel"},
    {"DispRatedCurrentVrLabel", "TParameterForm", "DispRatedCurrentVrLabel"},
    {"DispDriveVrLabel", "TParameterForm", "DispModelFVrLabel"},
    {"DispVersionVrLabel", "TParameterForm", "DispVersionFVrLabel"},
    {"DispHPVrLabel", "TParameterForm", "DispHPFVrLabel"},
    {"DispRatedVoltageVrLabel", "TParameterForm", "DispRatedVoltageFVrLabel"},
    {"DispRatedCurrentVrLabel", "TParameterForm", "DispRatedCurrentFVrLabel"},
};

}  // namespace

std::span<const FormSectionRow> formSections() { return FormSections; }
std::span<const TypeSectionRow> typeSections() { return TypeSections; }
std::span<const MirroredMenu> mirroredMenus() { return MirroredMenus; }
std::span<const CopiedLabel> copiedLabels() { return CopiedLabels; }

FormSection titleSection(FormSection section) {
    return section == FormSection::Monitor ? FormSection::Trend : section;
}

QString shownText(const KeyTarget& target, const QString& text) {
    return target.blankEachSide ? QStringLiteral(" ") % text % QStringLiteral(" ") : text;
}

}  // namespace kelvane
