#include "commissioning/commissioning_link.h"

#include <utility>

namespace kelvane {

namespace {

constexpr quint8 WriteTask = 13;

}  // namespace

CommissioningLink::CommissioningLink(const CommissioningBench& with) : bench(with) {
    connect(&bench.link, &RequestScheduler::cycleEnded, this, &CommissioningLink::cycleEnded);
    connect(&bench.link, &RequestScheduler::refused, this, [this](quint8, quint8 code) { m_refusal = code; });
    connect(&bench.link, &RequestScheduler::changed, this, &CommissioningLink::linkChanged);
    connect(&bench.link, &RequestScheduler::initialRun, this, &CommissioningLink::initialRun);
}

void CommissioningLink::open() {
    m_open = true;
    m_awaited.reset();
    setStanding(Standing::No);
}

void CommissioningLink::close() {
    if (!std::exchange(m_open, false)) return;
    bench.link.emptyQueues();
    m_awaited.reset();
    setStanding(Standing::No);
    closeWait();
}

bool CommissioningLink::isFree() const { return bench.link.idle() && bench.link.CommandQueue.empty(); }

void CommissioningLink::setUp(RequestChain& chain) const {
    chain.mayAsk = [this] { return isFree(); };
    chain.asksAnew = false;
}

bool CommissioningLink::refusesOffLine() const {
    if (bench.link.Lamp.onLine()) return false;
    bench.person.tell(bench.lang.MsgStr(Message::OffLineNow), QStringLiteral("Cofirm"));
    return true;
}

void CommissioningLink::startAnew() {
    bench.link.emptyQueues();
    bench.link.ParamRead.ReadDone = bench.link.ParamRead.WriteDone = 1;
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
    const ParamReadRecord& done = bench.link.ParamRead;
    const bool answered = *m_awaited == Awaits::ReadDone ? done.ReadDone : done.WriteDone;
    if (!answered && !bench.link.TaskQueue.empty()) return;  // it is sent again
    m_awaited.reset();
    if (answered) return;
    refusalCode = refusal;
    setStanding(refusal ? Standing::Refused : Standing::Lost);
}

void CommissioningLink::setStanding(Standing why) {
    if (standing == why) return;
    standing = why;
    bench.link.Notice.waitTrouble = m_waitShown ? standingText() : QString();
    bench.link.notifyChanged();
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
    bench.link.Notice.waitTrouble.clear();
    bench.link.Notice.TInitialForm = bench.link.Notice.waitMayBeLeft = true;
    bench.link.notifyChanged();
}

void CommissioningLink::closeWait() {
    if (!std::exchange(m_waitShown, false)) return;
    bench.link.Notice.TInitialForm = bench.link.Notice.waitMayBeLeft = false;
    bench.link.notifyChanged();
    Q_EMIT waitEnded();
}

void CommissioningLink::linkChanged() {
    if (!m_waitShown || bench.link.Notice.TInitialForm) return;
    m_waitShown = false;
    bench.link.Notice.waitMayBeLeft = false;
    Q_EMIT waitLeft();
    Q_EMIT waitEnded();
}

void CommissioningLink::initialRun() {
    if (!m_open) return;
    m_awaited.reset();
    Q_EMIT wentToRest();
    closeWait();
}

}  // namespace kelvane
