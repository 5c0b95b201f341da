#include "parameters/parameter_bench.h"

namespace kelvane {

bool ParameterBench::goOnLine() const {
    if (offLine()) {
        link.operatorAsked().tell(link.lang().MsgStr(7), QStringLiteral("Cofirm"), BoxIcon::Information);
        if (openComSetup) openComSetup();
    }
    return link.Lamp.onLine();
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
