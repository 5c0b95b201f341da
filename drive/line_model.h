// The serial line between a port and a practice drive: bytes take their time on the wire in both directions,
// the drive hears only a host with its own settings, and replies can be made to fail, by plan or by chance.
// It has no clock of its own: its user tells the time with every call and asks when to come back. Used by
// PracticePort (in process) and by PtyEnd (kelvane-drive).
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <random>

#include "drive/drive_frame.h"
#include "drive/drive_registers.h"
#include "link/com_port.h"

namespace kelvane::drive {

// How received bytes reach the host.
enum class ByteFlow : uint8_t {
    Single,  // each as it ends on the wire
    Fifo,    // eight at a time; fewer after four characters of silence
    Usb,     // whatever has come, in packets every 16 ms
};

enum class LineFault : uint8_t {
    None,
    Silent,         // heard and carried out, not answered
    BadCheck,       // the check of the reply does not hold
    CutShort,       // the first half of the reply only
    Noise,          // one foreign byte before the reply
    Late,           // the reply comes lateUs later
    Exception,      // not carried out, answered with exceptionCode
    WrongFunction,  // another function code, with a good check
    Echo,           // the request itself comes back
    Unplugged,      // the adapter goes away in place of a reply
    Doubled,        // the reply comes once more, secondUs behind its end
    InPieces,       // the reply comes in pieces with a pause of pieceGapUs before each but the first
};
inline constexpr size_t LineFaultCount = 12;

struct LineOptions {
    LineMode mode = LineMode::Ascii;
    // What the drive's side is set to; ComNumber plays no part.
    PortSettings wire{.DataBits = 7};
    // From the last byte of a request to the first of its reply. In RTU never less than the 3.5 characters by
    // which the drive knows that the request has ended.
    qint64 turnaroundUs = 5000;
    ByteFlow flow = ByteFlow::Single;
    qint64 lateUs = 400000;
    qint64 secondUs = 2000;
    int pieces = 2;
    qint64 pieceGapUs = 200000;
    uint8_t exceptionCode = 4;
};

// Which reply fails and how. Planned failures come first, then chance; both are the same on every run.
class FaultPlan {
   public:
    // The k-th reply from now on (1 is the next one) fails.
    void failAt(int k, LineFault fault) { m_planned[m_replies + quint64(k)] = fault; }
    // The next replies that have no plan yet fail.
    void failNext(LineFault fault, int times = 1);
    // Share of the other replies, 0 to 100.
    void setChance(LineFault fault, double percent) { m_chance[size_t(fault)] = percent; }
    void setSeed(uint32_t seed) { m_random.seed(seed); }
    void clear();

    LineFault next();
    quint64 replies() const { return m_replies; }

   private:
    std::map<quint64, LineFault> m_planned;
    std::array<double, LineFaultCount> m_chance{};
    std::mt19937 m_random{1};
    quint64 m_replies = 0;
};

class LineModel {
   public:
    // The drive must outlive the line.
    LineModel(PracticeDrive& drive, const LineOptions& options) : m_drive(drive), m_options(options) {}

    PracticeDrive& drive() { return m_drive; }
    LineOptions& options() { return m_options; }
    FaultPlan& faults() { return m_faults; }

    // The host writes bytes; they leave behind what is still leaving.
    void send(const QByteArray& bytes, const PortSettings& host, qint64 nowUs);
    // Everything that falls due until then happens, the motor's movement included.
    void advanceTo(qint64 nowUs);
    // When the model wants to be advanced next; -1 when nothing is under way.
    qint64 nextDueUs() const;
    // What has reached the host until the time it was last advanced to, and was not taken yet.
    QByteArray takeArrived();

    // The adapter is away: nothing is heard and nothing answered.
    bool unplugged() const { return m_unplugged; }
    void setUnplugged(bool on);

   private:
    struct Burst {
        qint64 atUs;
        QByteArray bytes;
    };
    struct LineByte {
        qint64 atUs;  // end of the character
        char byte;
        bool heard;
    };
    qint64 silenceUs() const { return m_options.wire.wireTimeUs(7) / 2; }  // 3.5 characters
    void takeByte(const LineByte& in);
    void closeSilentFrame(qint64 untilUs);
    void frameComplete(qint64 atUs);
    QByteArray replyFrame(const QByteArray& body, const QByteArray& request, LineFault fault);
    void scheduleFaulty(const QByteArray& frame, qint64 startUs, LineFault fault);
    void schedule(const QByteArray& frame, qint64 startUs);
    void passDriveTime(qint64 atUs);

    PracticeDrive& m_drive;
    LineOptions m_options;
    FaultPlan m_faults;
    std::deque<LineByte> m_toDrive;
    std::deque<Burst> m_toHost;
    QByteArray m_frame;       // what the drive has heard of a request
    qint64 m_lastByteUs = 0;  // end of the last character in m_frame
    qint64 m_wireFreeUs = 0;  // end of the last character to the drive
    qint64 m_replyEndUs =
        0;  // end of the last character from the drive, which sends one thing behind the other
    qint64 m_nowUs = 0;
    qint64 m_driveUs = -1;  // time up to which the motor has moved
    bool m_unplugged = false;
};

}  // namespace kelvane::drive
