// A practice drive's line at the end of a pseudo-terminal: what a program writes to the device goes through
// the line model in real time, and the replies come back paced. Used by kelvane-drive. Unix only.
#pragma once

#include <QSocketNotifier>
#include <QString>
#include <memory>

#include "base/tick_clock.h"
#include "drive/line_model.h"

namespace kelvane::drive {

class PtyEnd {
   public:
    // Clock and line must outlive it.
    PtyEnd(TickClock& clock, LineModel& line);
    ~PtyEnd();
    PtyEnd(const PtyEnd&) = delete;
    PtyEnd& operator=(const PtyEnd&) = delete;

    // Makes the device. False on failure, with plain words in error().
    bool open();
    QString error() const { return m_error; }
    QString devicePath() const { return m_path; }

   private:
    bool fail(const char* what);
    bool makeRaw();
    void readHost();
    void due();
    void writeHost(const QByteArray& bytes);
    PortSettings hostSettings() const;
    void schedule();
    void shut();

    TickClock& m_clock;
    LineModel& m_line;
    int m_master = -1;
    int m_slave = -1;  // kept open, so that the device outlives the programs that use it
    QString m_path;
    QString m_error;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<TickClock::Alarm> m_alarm;
};

}  // namespace kelvane::drive
