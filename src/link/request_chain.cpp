#include "link/request_chain.h"

namespace kelvane {

RequestChain::RequestChain(TickClock& clock, RequestScheduler& link)
    : m_link(link), m_timer(clock, TickKind::Stepping, 1, [this] { tick(); }) {
    connect(&link, &RequestScheduler::cycleEnded, this, &RequestChain::step);
}

void RequestChain::start() {
    if (running()) return;
    m_out.reset();
    m_timer.setEnabled(true);
}

void RequestChain::stop() {
    m_timer.setEnabled(false);
    m_out.reset();
}

quint8 RequestChain::flagOf(const LinkRequest& request) const {
    return request.awaits == Awaits::ReadDone ? m_link.ParamRead.ReadDone : m_link.ParamRead.WriteDone;
}

void RequestChain::clearFlag(const LinkRequest& request) {
    (request.awaits == Awaits::ReadDone ? m_link.ParamRead.ReadDone : m_link.ParamRead.WriteDone) = 0;
}

// The port could not be opened or written and the link is about to try again with empty queues.
bool RequestChain::thrownAway() const { return m_link.TaskQueue.empty() && m_link.TxTimer.Enabled(); }

void RequestChain::tick() {
    if (m_out && !takeAnswer()) {
        if (asksAnew && thrownAway()) m_link.request(m_out->task, m_out->command);
        return;
    }
    if (running() && !m_out) ask();
}

// True when nothing is out any more; the engine may have stopped or restarted the chain by then.
bool RequestChain::takeAnswer() {
    if (!flagOf(*m_out) && !(alsoAnswered && alsoAnswered())) return false;
    const LinkRequest request = *m_out;
    clearFlag(request);
    m_out.reset();
    if (answered) answered(request);
    return true;
}

void RequestChain::ask() {
    if (mayAsk && !mayAsk()) return;
    std::optional<LinkRequest> request = next ? next() : std::nullopt;
    if (!running() || m_out) return;
    if (!request) {
        stop();
        if (ended) ended();
        return;
    }
    m_out = std::move(request);
    clearFlag(*m_out);
    m_link.request(m_out->task, m_out->command);
}

}  // namespace kelvane
