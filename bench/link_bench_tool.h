// The tool's side of the link benchmark: the whole scheduler on the real clock and the real port, without
// windows.
#pragma once

#include <QStringList>
#include <functional>
#include <vector>

#include "base/qt_tick_clock.h"
#include "base/wall_clock.h"
#include "link/qt_com_port.h"
#include "link/request_scheduler.h"
#include "link_bench_line.h"

namespace kelvane::bench {

// Asks for one more try whatever happens, so that a lost line is picked up again, and says Yes to every
// question.
class PatientOperator final : public Operator {
   public:
    BoxAnswer box(const QString&, const QString&, BoxIcon, BoxButtons buttons) override {
        const bool question = buttons == BoxButtons::YesNo || buttons == BoxButtons::YesNoOrLeave;
        return question ? BoxAnswer::Yes : BoxAnswer::Retry;
    }
    std::optional<QString> openFile(const QString&) override { return std::nullopt; }
    std::optional<QString> saveFile(const QString&, const QString&) override { return std::nullopt; }
    LinkAnswer linkFailure(const QString&, bool) override { return LinkAnswer::Retry; }
    void editValue(ValueEdit&) override {}
};

struct ToolSide {
    ToolSide(const LineCase& line, const QString& device);

    // Reads the parameters one by one, each kicked off by the end of the exchange before.
    SideResult read(const std::vector<quint16>& registers);
    void poll();     // goes on until offLine()
    void offLine();  // closes the port and stops

    QtTickClock clock;
    SystemWallClock wall;
    PatientOperator person;
    QtComPort port;
    LangTable lang = LangTable::builtInEnglish();
    RequestScheduler link;
    QStringList history;

    void beReady();  // on line with Larch, as far as the link knows

   private:
    LineCase m_line;
};

// Lets the event loop run until done() or the limit; asleep while nothing happens. False at the limit.
bool runUntil(const std::function<bool()>& done, int limitMs, int lookEveryMs);
void runFor(int ms);

}  // namespace kelvane::bench
