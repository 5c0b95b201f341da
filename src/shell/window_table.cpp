#include "shell/window_table.h"

#include <QCoreApplication>
#include <algorithm>
#include <vector>

#include "quicksetup/qs_source_form.h"
#include "shell/commissioning_windows.h"
#include "shell/console_windows.h"
#include "shell/edit_form.h"
#include "shell/help_windows.h"
#include "shell/monitor_windows.h"
#include "shell/parameter_windows.h"
#include "shell/quick_setup_windows.h"
#include "shell/trend_windows.h"
#include "shell/windows.h"

namespace kelvane {

namespace {

using Made = std::unique_ptr<QWidget>;

Made makeComSetup(Windows& w) { return std::make_unique<TComSetupForm>(w.tool.comSetup, w.tool.ports); }
Made makeConnect(Windows& w) { return std::make_unique<TConnectForm>(w.tool.comSetup, w.tool.site.clock); }
Made makeCEmessage(Windows& w) { return std::make_unique<TCEmessageForm>(w.tool.link); }
Made makeInitial(Windows& w) { return std::make_unique<TInitialForm>(w.tool.link, w.tool.site.clock); }
Made makeAbout(Windows& w) {
    return std::make_unique<TAboutForm>(w.tool.link.BrandVariant(), w.tool.site.folder.path());
}
Made makePassword(Windows& w) { return std::make_unique<TPasswordForm>(w.tool.link, w.tool.voice); }
Made makeInput(Windows& w) { return std::make_unique<TInputForm>(w.tool.comSetup); }
Made makeKeypad(Windows& w) {
    return std::make_unique<TKeypadForm>(w.tool.keypad, w.looks, w.tool.site.clock);
}
template <class Form>
Made makeForm(Windows&) {
    return std::make_unique<Form>();
}

// clang-format off
const WindowRow Rows[] = {
    {.form = "TMainForm", .rule = {.ActiveFunction = OwnerMain}},
    {.form = "TComSetupForm", .make = makeComSetup, .wire = Windows::wireComSetup,
     .entry = {.place = 1, .button = "ComSetupTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Com Setup"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Set up the COM port and the protocol"),
               .menu = "DriveMenu", .menuItem = "ComSetup", .icon = Icon::ComSetup, .key = Qt::Key_F2},
     .open = Windows::openComSetupAlone},
    {.form = "TScopeForm", .make = makeScope, .wire = wireScope,
     .rule = {.ActiveFunction = OwnerTrend, .closesKeypad = true},
     .entry = {.place = 6, .button = "TrendTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Trend"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Record drive values over time"),
               .menu = "DiagnosticMenu", .menuItem = "Trend", .icon = Icon::Trend, .key = Qt::Key_F9}},
    {.form = "TMonitorForm", .make = makeMonitor, .wire = wireMonitor,
     .rule = {.ActiveFunction = OwnerMonitor, .closesKeypad = true},
     .entry = {.place = 7, .button = "MonitorTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Monitor"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Watch drive values on meters"),
               .menu = "DiagnosticMenu", .menuItem = "Monitor", .icon = Icon::Monitor, .key = Qt::Key_F11}},
    {.form = "TParameterForm", .make = makeParameterForm, .wire = wireParameterForm,
     .rule = {.ActiveFunction = OwnerParameter, .prelude = true, .closesKeypad = true, .tail = true,
              .endsKeypadSource = true},
     .entry = {.place = 2, .button = "ParameterTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Parameter"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Read, compare, save and write the parameters"),
               .menu = "DriveMenu", .menuItem = "ParameterManagement",
               .menuCaption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Parameter Management"),
               .icon = Icon::Parameter, .key = Qt::Key_F5},
     .open = openParameterForm},
    {.form = "TMeterTypeForm", .make = makeMeterType},
    {.form = "TToolForm", .make = makeTool},
    {.form = "TProgressForm", .make = makeProgress},
    {.form = "TWriteCheckForm", .make = makeWriteCheck},
    {.form = "TInputValueForm", .make = makeInputValue},
    {.form = "TSelParaSourceForm", .make = makeForm<TSelParaSourceForm>, .wire = wireSelParaSource},
    {.form = "TSelCompKindForm", .make = makeForm<TSelCompKindForm>},
    {.form = "TSelReadKindForm", .make = makeForm<TSelReadKindForm>},
    {.form = "TSelFileFormatForm", .make = makeForm<TSelFileFormatForm>},
    {.form = "TKeypadForm", .make = makeKeypad, .wire = Windows::wireKeypad,
     .rule = {.ActiveFunction = OwnerKeypad, .offLine = OffLineBox::OnLineFirst, .beside = true},
     .entry = {.place = 5, .button = "KeypadTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Keypad"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Operate the drive from the screen"),
               .menu = "DiagnosticMenu", .menuItem = "Keypad", .icon = Icon::Keypad, .key = Qt::Key_F8},
     .open = Windows::openBeside},
    {.form = "TMessageForm", .make = makeForm<TMessageForm>},
    {.form = "TPrintForm", .make = makeTrendPrint},
    {.form = "TReportForm", .make = makeReport},
    {.form = "TConnectForm", .make = makeConnect},
    {.form = "TCEmessageForm", .make = makeCEmessage},
    {.form = "TInitialForm", .make = makeInitial},
    {.form = "TAboutForm", .make = makeAbout, .wire = Windows::wireAbout},
    {.form = "TQuickSetupForm", .make = makeQuickSetup, .wire = wireQuickSetup,
     .rule = {.ActiveFunction = OwnerQuickSetup, .offLine = OffLineBox::QuickSetup, .prelude = true,
              .closesKeypad = true, .marksRead = true, .tail = true},
     .entry = {.place = 3, .button = "QuickSetupTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Quick Setup"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Set the most important parameters in four steps"),
               .menu = "DriveMenu", .menuItem = "QuickSetup", .icon = Icon::QuickSetup, .key = Qt::Key_F6},
     .open = openQuickSetup},
    {.form = "TQSsourceForm", .make = makeForm<TQSsourceForm>, .wire = wireQSsource},
    {.form = "TAdvanceForm", .make = makeAdvanceForm, .wire = wireAdvanceForm,
     .rule = {.ActiveFunction = OwnerAdvance, .prelude = true, .closesKeypad = true, .tail = true},
     .entry = {.place = 4, .button = "AdvanceTransparentButton",
               .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Advance"),
               .hint = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Send Modbus commands and watch registers"),
               .menu = "DriveMenu", .menuItem = "Advance", .icon = Icon::Advance, .key = Qt::Key_F7},
     .open = openAdvanceForm},
    {.form = "TInputTimeOutForm", .make = makeInputTimeOut},
    {.form = "TMultiStepForm",
     .entry = {.place = 10, .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Multi Step"),
               .menu = "DiagnosticMenu", .menuItem = "MultiStep", .icon = Icon::MultiStep, .visible = false}},
    {.form = "TAutoTuningForm", .make = makeAutoTuning, .wire = wireAutoTuning,
     .rule = {.ActiveFunction = OwnerAutoTuning, .offLine = OffLineBox::OnLineFirst, .stopsKeypad = true,
              .closesKeypad = true, .marksRead = true, .marksWritten = true, .tail = true},
     .entry = {.place = 9, .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "Auto Tuning"),
               .menu = "DiagnosticMenu", .menuItem = "AutoTuning", .icon = Icon::AutoTuning,
               .offered = &DriveLabelsRecord::AutoTuningEnabled},
     .open = openAutoTuning},
    {.form = "TPIDForm", .make = makePid, .wire = wirePid,
     .rule = {.ActiveFunction = OwnerPid, .offLine = OffLineBox::OnLineFirst, .stopsKeypad = true,
              .closesKeypad = true, .marksRead = true, .marksWritten = true, .tail = true},
     .entry = {.place = 8, .caption = QT_TRANSLATE_NOOP("kelvane::TMainForm", "PID Control"),
               .menu = "DiagnosticMenu", .menuItem = "PIDControl", .icon = Icon::Pid,
               .offered = &DriveLabelsRecord::PIDControlEnabled},
     .open = openPid},
    {.form = "TEditForm", .make = makeForm<TEditForm>},
    {.form = "TPasswordForm", .make = makePassword, .wire = Windows::wirePassword},
    {.form = "TErrHistoryForm", .make = makeErrHistory, .wire = wireErrHistory},
    {.form = "TMotorSelForm", .make = makeMotorSel},
    {.form = "TInputForm", .make = makeInput},
    {.form = "TSelParaPrintForm", .make = makeForm<TSelParaPrintForm>},
    {.form = "TSelGroupLoadForm", .make = makeSelGroupLoad},
    {.form = "TWriteCheckErrRecordForm", .make = makeWriteCheckErrRecord},
    {.form = "TSessionReportForm", .make = makeSessionReport, .wire = wireSessionReport},
    {.form = "THelpForm", .make = makeHelp, .wire = wireHelp},
};
// clang-format on

template <class Condition>
const WindowRow* rowWhere(Condition holds) {
    const auto* found = std::find_if(std::begin(Rows), std::end(Rows), holds);
    return found == std::end(Rows) ? nullptr : found;
}

}  // namespace

std::span<const WindowRow> windowTable() { return Rows; }

const WindowRow* windowRow(quint8 ActiveFunction) {
    if (ActiveFunction == OwnerNone) return nullptr;
    return rowWhere([=](const WindowRow& row) { return row.rule.ActiveFunction == ActiveFunction; });
}

const WindowRow* windowRow(const QString& form) {
    return rowWhere([&](const WindowRow& row) { return form == QLatin1String(row.form); });
}

std::span<const WindowRow* const> windowEntries() {
    static const std::vector<const WindowRow*> entries = [] {
        std::vector<const WindowRow*> rows;
        for (const WindowRow& row : Rows)
            if (row.entry.place > 0) rows.push_back(&row);
        std::sort(rows.begin(), rows.end(),
                  [](const WindowRow* a, const WindowRow* b) { return a->entry.place < b->entry.place; });
        return rows;
    }();
    return entries;
}

}  // namespace kelvane
