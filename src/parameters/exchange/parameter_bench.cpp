#include "parameters/exchange/parameter_bench.h"

namespace kelvane {

void ParameterBench::goOnLine(const std::function<void()>& then) const {
    if (!offLine()) {
        then();
        return;
    }
    link.operatorAsked().tell(link.lang().MsgStr(7), QStringLiteral("Cofirm"), BoxIcon::Information);
    if (openComSetup) {
        openComSetup(then);
    } else {
        then();
    }
}

void ParameterBench::whenOnLine(const std::function<void()>& go) const {
    goOnLine([this, go] {
        if (link.Lamp.onLine()) go();
    });
}

void ParameterBench::request(quint8 task, const QString& command) const {
    link.push(task, command);
    link.TxTimer.setEnabled(true);
}

bool ParameterBench::requestThrownAway() const {
    return link.ActiveFunction == OwnerParameter && link.TaskQueue.empty() && link.TxTimer.Enabled() &&
           (!link.port().Open() || !link.DriveStatus.ExceptionPending);
}

}  // namespace kelvane
