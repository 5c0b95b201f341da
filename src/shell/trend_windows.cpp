#include "shell/trend_windows.h"

#include "diagnostics/trend/scope_form.h"
#include "diagnostics/trend/tool_form.h"
#include "diagnostics/trend/trend_print_form.h"
#include "shell/windows.h"

namespace kelvane {

std::unique_ptr<QWidget> makeScope(Windows& w) {
    return std::make_unique<TScopeForm>(w.tool.trend, ScopeFormSite{w.tool.site.clock, w.tool.site.person});
}

std::unique_ptr<QWidget> makeTool(Windows& w) { return std::make_unique<TToolForm>(w.tool.trend); }

std::unique_ptr<QWidget> makeTrendPrint(Windows&) { return std::make_unique<TPrintForm>(); }

void wireScope(Windows& w, QWidget& form) {
    auto& scope = static_cast<TScopeForm&>(form);
    w.tool.trend.openComSetup = [&w](std::function<void()> then) { w.openComSetup(std::move(then)); };
    QObject::connect(&scope, &TScopeForm::toolWanted, &w, [&w] {
        w.form<TToolForm>().prepare();
        w.showModal(w.form<TToolForm>());
    });
    QObject::connect(&scope, &TScopeForm::printWanted, &w, [&w, &scope] {
        w.form<TPrintForm>().prepare(*scope.AbTrend1);
        w.showModal(w.form<TPrintForm>());
    });
    QObject::connect(&scope, &TScopeForm::keypadWanted, &w, [&w] { w.openWindow(OwnerKeypad); });
    QObject::connect(&scope, &TScopeForm::practiceFaultWanted, &w, [&w] { w.tool.raiseFault(); });
    const auto showDrive = [&w, &scope] {
        scope.setDriveLabel(w.tool.link.Labels.DriveVrLabel);
        scope.offerPracticeFault(w.tool.mayRaiseFault());
    };
    QObject::connect(&w.tool.link, &RequestScheduler::changed, &scope, showDrive);
    showDrive();
}

}  // namespace kelvane
