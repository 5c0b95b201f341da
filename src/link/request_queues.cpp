#include "link/request_queues.h"

#include <algorithm>
#include <array>

namespace kelvane {

bool isGeneratedTask(quint8 task) {
    constexpr std::array<quint8, 10> generated{1, 4, 11, 21, 50, 51, 52, 53, 80, 81};
    return std::find(generated.begin(), generated.end(), task) != generated.end();
}

void RequestQueues::push(quint8 task, const QString& command) {
    if (TaskQueue.empty()) CommandQueue.clear();
    TaskQueue.push_back(task);
    CommandQueue.push_back(command);
}

void RequestQueues::push(quint8 task) {
    if (TaskQueue.empty()) CommandQueue.clear();
    TaskQueue.push_back(task);
}

void RequestQueues::clearQueues() {
    TaskQueue.clear();
    CommandQueue.clear();
    m_copies = 0;
    m_inHand = false;
}

void RequestQueues::emptyQueues() {
    const size_t first = m_inHand ? 1 : 0;
    std::deque<QString> stops;
    for (size_t i = first; i < TaskQueue.size(); ++i)
        if (TaskQueue[i] == StopTask) stops.push_back(CommandQueue[static_cast<size_t>(stringsBefore(i))]);
    clearQueues();
    for (const QString& command : stops) push(StopTask, command);
}

QString RequestQueues::takeUp(const QString& generated) {
    const quint8 task = TaskQueue.front();
    if (isGeneratedTask(task)) {
        // Kept: a resent generated task gets its string again and sends the old one.
        if (!generated.isEmpty()) {
            CommandQueue.insert(CommandQueue.begin() + m_copies, generated);
            ++m_copies;
        }
    } else if (!m_inHand) {
        m_copies = CommandQueue.empty() ? 0 : 1;
    }
    m_inHand = true;
    return m_copies > 0 ? CommandQueue.front() : QString();
}

void RequestQueues::dropFront() {
    if (!inHand()) return;  // emptied meanwhile; what stands there now has not left
    TaskQueue.pop_front();
    // With nothing behind them copies stay until the next send step or push.
    const int ended = TaskQueue.empty() ? std::min(m_copies, 1) : m_copies;
    for (int i = 0; i < ended && !CommandQueue.empty(); ++i) CommandQueue.pop_front();
    m_copies = 0;
    m_inHand = false;
}

// ---- STOP ----

qsizetype RequestQueues::stringsBefore(size_t position) const {
    qsizetype strings = 0;
    for (size_t i = 0; i < position && i < TaskQueue.size(); ++i) {
        const bool front = i == 0 && m_inHand;
        strings += front ? m_copies : isGeneratedTask(TaskQueue[i]) ? 0 : 1;
    }
    return std::min(strings, static_cast<qsizetype>(CommandQueue.size()));
}

void RequestQueues::withdraw(size_t position) {
    const qsizetype string = stringsBefore(position);
    TaskQueue.erase(TaskQueue.begin() + static_cast<qsizetype>(position));
    if (string < static_cast<qsizetype>(CommandQueue.size()))
        CommandQueue.erase(CommandQueue.begin() + string);
}

void RequestQueues::dropWaiting(quint8 task, const QString& command) {
    for (size_t i = TaskQueue.size(); i-- > (m_inHand ? 1u : 0u);) {
        if (TaskQueue[i] != task) continue;
        const qsizetype string = stringsBefore(i);
        if (string < static_cast<qsizetype>(CommandQueue.size()) &&
            CommandQueue[static_cast<size_t>(string)] == command)
            withdraw(i);
    }
}

// RUN and JOG that have not left when STOP is pressed would start the motor after it.
void RequestQueues::withdrawMotion() {
    for (size_t i = TaskQueue.size(); i-- > (m_inHand ? 1u : 0u);)
        if (TaskQueue[i] == RunTask || TaskQueue[i] == JogTask) withdraw(i);
}

void RequestQueues::pushStop(const QString& command) {
    if (TaskQueue.empty()) CommandQueue.clear();
    withdrawMotion();
    size_t at = m_inHand ? 1 : 0;
    while (at < TaskQueue.size() && TaskQueue[at] == StopTask) ++at;
    CommandQueue.insert(CommandQueue.begin() + stringsBefore(at), command);
    TaskQueue.insert(TaskQueue.begin() + static_cast<qsizetype>(at), StopTask);
}

bool RequestQueues::stopWaits() const { return m_inHand && TaskQueue.size() > 1 && TaskQueue[1] == StopTask; }

bool RequestQueues::stopIsNext() const {
    return !m_inHand && !TaskQueue.empty() && TaskQueue.front() == StopTask;
}

void RequestQueues::keepStop() {
    if (!stopIsOut()) return;
    m_inHand = false;
    m_copies = 0;
}

bool RequestQueues::stopIsOut() const { return inHand() && TaskQueue.front() == StopTask; }

void RequestQueues::promoteStop() {
    const quint8 failed = TaskQueue.front();
    const QString command = m_copies > 0 ? CommandQueue.front() : QString();
    dropFront();
    if (failed == RunTask || failed == JogTask || failed == DirectionTask) return;
    size_t at = 0;
    while (at < TaskQueue.size() && TaskQueue[at] == StopTask) ++at;
    if (!isGeneratedTask(failed)) CommandQueue.insert(CommandQueue.begin() + stringsBefore(at), command);
    TaskQueue.insert(TaskQueue.begin() + static_cast<qsizetype>(at), failed);
}

}  // namespace kelvane
