#include "link_bench_tool.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include "link/com_setup.h"

namespace kelvane::bench {

namespace {

// A chain of exchanges on ReadDone, as the Parameter window reads its table.
class ReadChain {
   public:
    ReadChain(RequestScheduler& link, const std::vector<quint16>& registers)
        : m_link(link), m_registers(registers) {
        QObject::connect(&link, &RequestScheduler::cycleEnded, &m_loop, [this] { step(); });
    }
    int run() {
        ask();
        m_loop.exec();
        return m_failures;
    }

   private:
    void ask() {
        m_link.ParamRead.ReadDone = 0;
        m_link.push(12, QString::asprintf("FF03%04X%04X", m_registers[m_next], RecordWords));
        m_link.TxTimer.setEnabled(true);
    }
    void step() {
        if (!m_link.TaskQueue.empty()) return void(++m_failures);  // it goes out again
        if (!m_link.ParamRead.ReadDone) ++m_failures;
        if (++m_next == m_registers.size()) return m_loop.quit();
        ask();
    }

    RequestScheduler& m_link;
    const std::vector<quint16>& m_registers;
    QEventLoop m_loop;
    size_t m_next = 0;
    int m_failures = 0;
};

}  // namespace

ToolSide::ToolSide(const LineCase& line, const QString& device)
    : port(device), link({clock, wall, person, port, lang}), m_line(line) {
    port.setSettings(line.settings());
    QObject::connect(&link, &RequestScheduler::historyLine, &link,
                     [this](const QString& text) { history += text; });
}

void ToolSide::beReady() {
    link.Initial();
    link.emptyQueues();
    link.ComMode = static_cast<quint8>(m_line.mode);
    link.BaudTimeoutTicks = link.ReplyTimeoutTicks = baudTimeoutTicks(m_line.Baud);
    link.DriveStatus.DriveFamily = static_cast<quint8>(Family::Larch);
    link.DriveStatus.StatusWordCount = 14;
    link.DriveStatus.DriveReady = 1;
}

SideResult ToolSide::read(const std::vector<quint16>& registers) {
    beReady();
    link.ActiveFunction = OwnerParameter;
    if (!port.open()) return {.error = port.openError()};
    SideResult result;
    const double cpuBefore = cpuUs();
    const double before = nowUs();
    result.failures = ReadChain(link, registers).run();
    const auto exchanges = static_cast<double>(registers.size());
    result.usPerExchange = (nowUs() - before) / exchanges;
    result.cpuUsPerExchange = (cpuUs() - cpuBefore) / exchanges;
    offLine();
    return result;
}

void ToolSide::poll() {
    beReady();
    link.TxTimer.setEnabled(true);
}

void ToolSide::offLine() { link.Initial(); }

bool runUntil(const std::function<bool()>& done, int limitMs, int lookEveryMs) {
    QElapsedTimer time;
    time.start();
    while (!done()) {
        if (time.elapsed() >= limitMs) return false;
        runFor(lookEveryMs);
    }
    return true;
}

void runFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace kelvane::bench
