#include "console/flasher/flasher.h"

#include <algorithm>

#include "base/whole_file.h"
#include "console/flasher/motorola_file.h"

namespace kelvane {

namespace {

constexpr int IntervalAtCreation = 50;  // ms
constexpr quint32 LongestInterval = 3600000;
constexpr qint64 MaxFileBytes = 16 * 1024 * 1024;
const QString MotFilter = QStringLiteral("(*.mot)|*.mot");

}  // namespace

Flasher::Flasher(ConsoleTraffic& traffic, TickClock& clock, const Voice& voice)
    : MotTimer(clock, TickKind::RealTime, IntervalAtCreation, [this] { MotTimerTimer(); }),
      m_traffic(traffic),
      m_voice(voice) {}

void Flasher::LoadClick() {
    Operator& person = m_voice.person;
    const std::optional<QString> path = person.openFile(MotFilter);
    if (!path) return;
    const FileContent content = readWhole(*path, MaxFileBytes);
    const MotorolaFile file = readMotorolaFile(content.bytes);
    const QString wrong = !content.ok ? content.error
                          : file.tooLong
                              ? QStringLiteral("The file has more than %1 records.").arg(FlashLinesRoom)
                          : file.lines.isEmpty() ? QStringLiteral("The file has no S-records.")
                                                 : QString();
    if (!wrong.isEmpty()) return person.tell(wrong, QStringLiteral("Error"), BoxIcon::Stop);
    FlashLines = file.lines;
    FlashLineIndex = 0;
    gauge = 0;
    Q_EMIT changed();
}

void Flasher::SendFileTransparentButtonClick() {
    if (running() || FlashLines.isEmpty() || !m_traffic.openPort(m_voice)) return;
    FlashLineIndex = 0;
    gauge = 0;
    MotTimer.setInterval(static_cast<int>(std::clamp(m_traffic.link.Console.TimeOut1, 1U, LongestInterval)));
    MotTimer.setEnabled(true);
    Q_EMIT changed();
}

void Flasher::stop() {
    MotTimer.setEnabled(false);
    // Without a cycle the last line would wait in the queue for the next send.
    m_traffic.link.emptyQueues();
    Q_EMIT changed();
}

void Flasher::MotTimerTimer() {
    if (FlashLineIndex >= FlashLines.size()) return stop();
    m_traffic.link.emptyQueues();
    m_traffic.send(ConsoleTask, FlashLines[FlashLineIndex]);
    ++FlashLineIndex;
    ++gauge;
    Q_EMIT changed();
}

}  // namespace kelvane
