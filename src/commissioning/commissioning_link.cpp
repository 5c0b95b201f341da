#include "commissioning/commissioning_link.h"

#include <utility>

namespace kelvane {

CommissioningLink::CommissioningLink(const CommissioningSite& with) : site(with) {
    connect(&site.link, &RequestScheduler::cycleEnded, this, &CommissioningLink::cycleEnded);
    connect(&site.link, &RequestScheduler::refused, this, [this](quint8, quint8 code) { m_refusal = code; });
    connect(&site.link, &RequestScheduler::changed, this, &CommissioningLink::linkChanged);
    connect(&site.link, &RequestScheduler::initialRun, this, &CommissioningLink::initialRun);
}

void CommissioningLink::open() {
    m_open = true;
    m_awaited.reset();
    setStanding(Standing::No);
}

void CommissioningLink::close() {
    if (!std::exchange(m_open, false)) return;
    site.link.emptyQueues();
    m_awaited.reset();
    setStanding(Standing::No);
    closeWait();
}

bool CommissioningLink::isFree() const { return site.link.idle() && site.link.CommandQueue.empty(); }

void CommissioningLink::setUp(RequestChain& chain) const {
    chain.mayAsk = [this] { return isFree(); };
    chain.asksAnew = false;
}

bool CommissioningLink::refusesOffLine() const {
    if (site.link.Lamp.onLine()) return false;
    site.person.tell(site.lang.MsgStr(Message::OffLineNow), QStringLiteral("Cofirm"));
    return true;
}

void CommissioningLink::startAnew() {
    site.link.emptyQueues();
    site.link.ParamRead.ReadDone = site.link.ParamRead.WriteDone = 1;
    m_awaited.reset();
    setStanding(Standing::No);
}

LinkRequest CommissioningLink::asked(quint8 task, const QString& command, Awaits awaits) {
    m_awaited = awaits;
    return {task, command, awaits};
}

LinkRequest CommissioningLink::read(quint8 task, const QString& command) {
    return asked(task, command, Awaits::ReadDone);
}

LinkRequest CommissioningLink::write(const QString& command) {
    return asked(WriteTask, command, Awaits::WriteDone);
}

// An exchange that ends without the flag of its request was refused or given up: nobody repeats it.
void CommissioningLink::cycleEnded() {
    const quint8 refusal = std::exchange(m_refusal, quint8(0));
    if (!m_open || !m_awaited) return;
    const ParamReadRecord& done = site.link.ParamRead;
    const bool answered = *m_awaited == Awaits::ReadDone ? done.ReadDone : done.WriteDone;
    if (!answered && !site.link.TaskQueue.empty()) return;  // it is sent again
    m_awaited.reset();
    if (answered) return;
    refusalCode = refusal;
    setStanding(refusal ? Standing::Refused : Standing::Lost);
}

void CommissioningLink::setStanding(Standing why) {
    if (standing == why) return;
    standing = why;
    site.link.Notice.waitTrouble = m_waitShown ? standingText() : QString();
    site.link.notifyChanged();
    Q_EMIT changed();
}

QString CommissioningLink::standingText() const {
    switch (standing) {
        case Standing::Refused: return tr("The drive refused the last command (CE %1).").arg(refusalCode);
        case Standing::Lost: return tr("The drive gave no answer to the last command that could be used.");
        default: return {};
    }
}

// ---- Wait notice ----

void CommissioningLink::showWait() {
    m_waitShown = true;
    site.link.Notice.waitTrouble.clear();
    site.link.Notice.TInitialFormShown = site.link.Notice.waitMayBeLeft = true;
    site.link.notifyChanged();
}

void CommissioningLink::closeWait() {
    if (!std::exchange(m_waitShown, false)) return;
    site.link.Notice.TInitialFormShown = site.link.Notice.waitMayBeLeft = false;
    site.link.notifyChanged();
    Q_EMIT waitEnded();
}

void CommissioningLink::linkChanged() {
    if (!site.link.Notice.TInitialFormShown) leaveWait();
}

void CommissioningLink::leaveWait() {
    if (!std::exchange(m_waitShown, false)) return;
    site.link.Notice.TInitialFormShown = site.link.Notice.waitMayBeLeft = false;
    site.link.notifyChanged();
    Q_EMIT waitLeft();
    Q_EMIT waitEnded();
}

void CommissioningLink::initialRun() {
    leaveWait();
    if (!m_open) return;
    m_awaited.reset();
    Q_EMIT wentToRest();
}

}  // namespace kelvane
