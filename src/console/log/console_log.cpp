#include "console/log/console_log.h"

namespace kelvane {

ConsoleLog::ConsoleLog(RequestScheduler& link, const TickClock& clock) : m_link(link), m_clock(clock) {
    connect(&link.Console, &ConsoleExchange::lineStarted, this, &ConsoleLog::onStarted);
    connect(&link.Console, &ConsoleExchange::lineCompleted, this, &ConsoleLog::onCompleted);
}

QString ConsoleLog::text(bool failuresOnly) const {
    QString all;
    for (const ConsoleLine& line : m_lines)
        if (!failuresOnly || line.failed()) all += line.text % QLatin1Char('\n');
    return all;
}

void ConsoleLog::ClearTransparentButtonClick() {
    m_lines.clear();
    m_open = false;
    m_link.Console.Log.totalRecords = m_link.Console.Log.errorRecords = m_link.Console.Log.timeoutRecords = 0;
    Q_EMIT cleared();
    Q_EMIT countersChanged();
}

void ConsoleLog::prepend(const QString& text) {
    m_lines.push_front({text, m_link.Console.Log.topLineColour, -1, m_link.mode() == LinkMode::Rtu});
    Q_EMIT lineAdded();
    if (static_cast<int>(m_lines.size()) <= Room) return;
    m_lines.pop_back();
    Q_EMIT oldestGone();
}

void ConsoleLog::onStarted() {
    m_sentUs = m_clock.nowUs();
    m_open = true;
    prepend(m_link.Console.Log.topLine);
    Q_EMIT countersChanged();
}

void ConsoleLog::onCompleted() {
    const QString& top = m_link.Console.Log.topLine;
    // Nothing was sent, as the port refused it, or the log was emptied meanwhile.
    if (!m_open) prepend(top);
    ConsoleLine& front = m_lines.front();
    if (m_open) front.text = top;
    front.colour = m_link.Console.Log.topLineColour;
    if (m_open) front.replyUs = m_clock.nowUs() - m_sentUs;
    m_open = false;
    Q_EMIT frontChanged();
    Q_EMIT countersChanged();
}

}  // namespace kelvane
