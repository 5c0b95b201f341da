// The line that the link benchmark measures on: kelvane-drive as a child process on a paced pseudo terminal,
// the parameters that are read from it, and the least time that one exchange can take there.
#pragma once

#include <QProcess>
#include <QString>
#include <vector>

#include "link/com_port.h"
#include "link/frame_codec.h"

namespace kelvane::bench {

inline constexpr int RecordWords = 15;
inline constexpr quint8 PeerAddress = 1;  // libmodbus refuses 255
inline constexpr qint64 TurnaroundUs = 5000;

struct LineCase {
    LinkMode mode;
    int Baud;

    PortSettings settings() const;
    qint64 requestUs() const;  // on the wire
    qint64 replyUs() const;
    qint64 silenceUs() const;  // 3.5 characters, 1.75 ms above 19200 baud; 0 in ASCII
    // Both frames on the wire and the drive's turnaround.
    qint64 limitUs() const;
    QString name() const;
};

// What one side did over all its exchanges.
struct SideResult {
    double usPerExchange = 0;
    double cpuUsPerExchange = 0;
    int failures = 0;
    QString error;  // why the side could not run at all
};

// Processor time of this process, its children not counted, in microseconds.
double cpuUs();
double nowUs();

// Registers of count parameters of Larch, from the first again when it has fewer.
std::vector<quint16> parametersToRead(int count);

class DriveProcess {
   public:
    // flow: how bytes reach the tool, in kelvane-drive's words ("single", "fifo", "usb"). more: its other
    // options.
    explicit DriveProcess(const LineCase& line, const QString& flow = QStringLiteral("single"),
                          const QStringList& more = {});
    ~DriveProcess();
    bool running() const { return !m_device.isEmpty(); }
    QString device() const { return m_device; }
    // Ends it without warning, as an adapter is pulled out.
    void vanish();

   private:
    QProcess m_process;
    QString m_device;
};

}  // namespace kelvane::bench
