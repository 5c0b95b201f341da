#include "console/listener/port_listener.h"

#include <algorithm>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int DefaultLimit = 20;
constexpr int LongestBreakLine = 400;  // characters
constexpr int LongestLine = 40000;     // of one that never ends
constexpr int RtuItem = 4;             // characters of "\x0A"
constexpr int AsciiItem = 2;
constexpr quint8 LineFeed = 10;

}  // namespace

PortListener::PortListener(ConsoleTraffic& traffic, const WallClock& wallClock, const Voice& voice)
    : BreakAdvStringGrid(MaxBreakLength), m_traffic(traffic), m_voice(voice), m_wallClock(wallClock) {
    setBreakCells({QStringLiteral("00"), QStringLiteral("00"), QStringLiteral("00"), QStringLiteral("00")});
    BreakAdvStringGrid.mayType = [this](int, int) { return !running(); };
    connect(&BreakAdvStringGrid, &StringGrid::cellTyped, this, [this](int column, int row) {
        BreakAdvStringGrid.setCell(column, row, BreakAdvStringGrid.cell(column, row).toUpper());
        AutoBreakChRadioButtonChecked = true;
        Q_EMIT stateChanged();
    });
    connect(&m_traffic.link.Console, &ConsoleExchange::listenerBurst, this, &PortListener::takeBurst);
}

// ---- Break bytes ----

QString PortListener::breakCell(int index) const {
    return index < m_breakLength ? BreakAdvStringGrid.cell(index, 1) : QString();
}

std::array<QString, PortListener::MaxBreakLength> PortListener::breakCells() const {
    return {breakCell(0), breakCell(1), breakCell(2), breakCell(3)};
}

void PortListener::setBreakCells(const std::array<QString, MaxBreakLength>& cells) {
    for (int i = 0; i < MaxBreakLength; ++i) BreakAdvStringGrid.setCell(i, 1, cells[static_cast<size_t>(i)]);
}

void PortListener::setBreakLength(int count) {
    m_breakLength = std::clamp(count, 1, MaxBreakLength);
    for (int i = 0; i < MaxBreakLength; ++i) BreakAdvStringGrid.setColumnHidden(i, i >= m_breakLength);
    Q_EMIT stateChanged();
}

// ---- Run and stop ----

void PortListener::RUNmonitorTransparentButtonClick() {
    if (m_running) return;
    if (!m_traffic.openPort(m_voice)) return;
    clearCutting();
    m_notice.clear();
    m_running = true;
    Q_EMIT stateChanged();
}

void PortListener::STOPmonitorTransparentButtonClick() {
    if (!m_running) return;
    m_running = false;
    m_traffic.link.port().close();
    if (MonitorFirstChar && !MonitorRxLine.isEmpty()) putLine(MonitorRxLine);
    clearCutting();
    Q_EMIT linesAdded();
    Q_EMIT stateChanged();
}

void PortListener::portLost(const QString& reason) {
    if (!m_running) return;
    m_notice = reason;
    STOPmonitorTransparentButtonClick();
}

void PortListener::clearCutting() {
    MonitorRxLine.clear();
    MonitorFirstChar = 0;
    BreakIndex = 0;
}

void PortListener::Button1Click() {
    m_traffic.link.emptyQueues();
    m_traffic.send(ConsoleTask, m_step == 0 ? QStringLiteral("3A3A") : QStringLiteral("3A00942C06"));
    m_step = 1 - m_step;
    if (m_step == 0) RUNmonitorTransparentButtonClick();
}

// ---- Lines ----

void PortListener::ClearClick() {
    // Kept: one empty line is left.
    m_lines.assign(1, {QString(), m_wallClock.now().time()});
    m_added = 1;
    m_characters = 0;
    Q_EMIT cleared();
}

QString PortListener::text() const {
    QString all;
    for (const ListenerLine& line : m_lines) all += line.text % QLatin1String("\r\n");
    return all;
}

void PortListener::putLine(const QString& line) {
    m_lines.push_back({line, m_lineAt});
    m_lineAt = m_burstAt;
    ++m_added;
    m_characters += line.size();
    while (m_lines.size() > Room || m_characters > RoomCharacters) {
        m_characters -= m_lines.front().text.size();
        m_lines.pop_front();
    }
}

// ---- Cutting ----

int PortListener::lengthLimit() const {
    const int limit = WordCntLabeledEdit.toInt();
    return limit > 0 ? std::min(limit, LongestLine / RtuItem) : DefaultLimit;
}

QString PortListener::added(const QString& item) const {
    return (rtu() ? QStringLiteral("\\x") : QStringLiteral(" ")) % item;
}

void PortListener::add(const QString& item) {
    if (MonitorRxLine.isEmpty()) m_lineAt = m_burstAt;
    MonitorRxLine += added(item);
}

// Mode and expected cell are taken once a burst.
void PortListener::takeBurst(const QByteArray& bytes) {
    if (!m_running) return;
    m_burstAt = m_wallClock.now().time();
    m_expected = breakCell(BreakIndex);
    m_byBreak = AutoBreakChRadioButtonChecked && !m_expected.isEmpty();
    const qint64 before = m_added;
    for (const char c : bytes) {
        const auto byte = static_cast<quint8>(c);
        const QString digits = IntToBaseStr(byte, 16, 2);
        const bool shown = byte >= 33 && byte < 127;
        takeItem(rtu()   ? digits
                 : shown ? QString(QLatin1Char(c))
                         : QString(QLatin1String("\\x") + digits),
                 byte);
    }
    MonitorFirstChar = 1;
    if (m_added != before) Q_EMIT linesAdded();
}

void PortListener::takeItem(const QString& item, quint8 byte) {
    m_byBreak ? takeByBreak(item) : takeByLength(item, byte);
    if (MonitorRxLine.size() < LongestLine) return;
    putLine(MonitorRxLine);
    MonitorRxLine.clear();
}

void PortListener::takeByLength(const QString& item, quint8 byte) {
    add(item);
    const bool full = rtu() ? MonitorRxLine.size() >= RtuItem * lengthLimit() : byte == LineFeed;
    if (!full) return;
    putLine(MonitorRxLine);
    MonitorRxLine.clear();
}

void PortListener::takeByBreak(const QString& item) {
    if (item == m_expected) return takeBreakItem(item);
    add(item);
    if (MonitorRxLine.size() > LongestBreakLine) {
        putLine(MonitorRxLine);
        MonitorRxLine.clear();
    }
    BreakIndex = 0;
    m_expected = breakCell(0);
}

void PortListener::takeBreakItem(const QString& item) {
    const int itemLength = rtu() ? RtuItem : AsciiItem;
    if (m_breakLength == 1) {
        // Kept: behind fewer than two characters the break byte itself is dropped.
        if (MonitorRxLine.size() <= 2) return;
        putLine(MonitorRxLine);
        MonitorRxLine = added(item);
        return;
    }
    add(item);
    if (BreakIndex < m_breakLength - 1) {
        m_expected = breakCell(++BreakIndex);
        return;
    }
    BreakIndex = 0;
    m_expected = breakCell(0);
    if (MonitorRxLine.size() <= RtuItem * m_breakLength) return;
    putLine(MonitorRxLine.chopped(std::min<qsizetype>(itemLength * m_breakLength, MonitorRxLine.size())));
    MonitorRxLine.clear();
    for (int i = 0; i < m_breakLength; ++i) MonitorRxLine += added(breakCell(i));
}

}  // namespace kelvane
