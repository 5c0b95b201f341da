#include "shell/monitor_windows.h"

#include "diagnostics/faults/err_history_form.h"
#include "diagnostics/monitor/meter_type_form.h"
#include "diagnostics/monitor/monitor_form.h"
#include "diagnostics/trend/scope_form.h"
#include "shell/windows.h"

namespace kelvane {

std::unique_ptr<QWidget> makeMonitor(Windows& w) {
    return std::make_unique<TMonitorForm>(w.tool.monitor, w.tool.link);
}

std::unique_ptr<QWidget> makeMeterType(Windows& w) {
    return std::make_unique<TMeterTypeForm>(w.tool.monitor.meterType);
}

std::unique_ptr<QWidget> makeErrHistory(Windows& w) {
    return std::make_unique<TErrHistoryForm>(w.tool.faults);
}

void wireMonitor(Windows& w, QWidget& form) {
    auto& monitor = static_cast<TMonitorForm&>(form);
    w.tool.monitor.openComSetup = [&w](std::function<void()> then) { w.openComSetup(std::move(then)); };
    QObject::connect(&monitor, &TMonitorForm::keypadWanted, &w, [&w] { w.openWindow(OwnerKeypad); });
    QObject::connect(&monitor, &TMonitorForm::meterTypeWanted, &w,
                     [&w](const std::function<void()>& then) { w.form<TMeterTypeForm>().ask(then); });
}

// The Trend window's Status tab shows the fault and opens the list.
void wireErrHistory(Windows& w, QWidget& form) {
    auto& scope = w.form<TScopeForm>();
    QObject::connect(&scope, &TScopeForm::errHistoryWanted, &w, [&w, &form] { w.showModal(form); });
    QObject::connect(&w.tool.faults, &FaultHistory::changed, &scope, [&w, &scope] {
        const FaultHistory& faults = w.tool.faults;
        scope.showFault(faults.standing(), faults.ErrCodeLabel, faults.ErrDescriptLabel);
    });
}

}  // namespace kelvane
