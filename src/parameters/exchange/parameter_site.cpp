#include "parameters/exchange/parameter_site.h"

namespace kelvane {

void ParameterSite::goOnLine(const std::function<void()>& then) const {
    if (!offLine()) {
        then();
        return;
    }
    voice.person.tell(voice.text(Message::SetUpPortFirst), QStringLiteral("Cofirm"), BoxIcon::Information);
    if (openComSetup) {
        openComSetup(then);
    } else {
        then();
    }
}

void ParameterSite::whenOnLine(const std::function<void()>& go) const {
    goOnLine([this, go] {
        if (link.Lamp.onLine()) go();
    });
}

QString ParameterSite::noAnswerText(const QString& PrNo) const {
    const DriveStatusRecord& status = link.DriveStatus;
    QString why = QStringLiteral("the reply was lost or could not be used");
    if (status.ExceptionTextDone)
        why = QStringLiteral("refused, CE %1 %2")
                  .arg(status.ExceptionCode)
                  .arg(status.ExceptionText.trimmed())
                  .trimmed();
    if (link.neverSilent()) why = QStringLiteral("the line is never silent, something disturbs it");
    return QStringLiteral("No answer is coming for Pr %1: %2.").arg(PrNo, why);
}

}  // namespace kelvane
