#include "shell/commissioning_windows.h"

#include "commissioning/auto_tuning_form.h"
#include "commissioning/motor_sel_form.h"
#include "commissioning/pid_form.h"
#include "shell/windows.h"

namespace kelvane {

namespace {

// The window is shown when the notice of its first read has gone, whoever closed it.
template <class Engine>
void openBehindWait(Windows& w, Engine& engine, QWidget& form) {
    QObject::connect(
        &engine.line, &CommissioningLink::waitEnded, &form, [&w, &form] { w.showModal(form); },
        Qt::SingleShotConnection);
    engine.opened();
}

}  // namespace

std::unique_ptr<QWidget> makePid(Windows& w) {
    return std::make_unique<TPIDForm>(w.tool.pid, w.tool.site.clock);
}

std::unique_ptr<QWidget> makeAutoTuning(Windows& w) {
    return std::make_unique<TAutoTuningForm>(w.tool.autoTuning, w.tool.site.language.table);
}

std::unique_ptr<QWidget> makeMotorSel(Windows&) { return std::make_unique<TMotorSelForm>(); }

void wirePid(Windows& w, QWidget& form) {
    PidControl& pid = w.tool.pid;
    w.stopKey.add(
        form, [&pid] { return pid.line.isOpen(); }, [&pid] { pid.STOPTransparentButtonClick(); });
}

void wireAutoTuning(Windows& w, QWidget& form) {
    auto& tuningForm = static_cast<TAutoTuningForm&>(form);
    AutoTuning& tuning = w.tool.autoTuning;
    w.stopKey.add(
        form, [&tuning] { return tuning.line.isOpen(); }, [&tuning] { tuning.stopDrive(); });
    QObject::connect(&tuningForm, &TAutoTuningForm::motorSelFormWanted, &w, [&w](int marked) {
        w.form<TMotorSelForm>().ask(
            marked, [&w](std::optional<int> chosen) { w.tool.autoTuning.motorSelFormClosed(chosen); });
    });
}

void openPid(Windows& w, QWidget& form) { openBehindWait(w, w.tool.pid, form); }

void openAutoTuning(Windows& w, QWidget& form) { openBehindWait(w, w.tool.autoTuning, form); }

}  // namespace kelvane
