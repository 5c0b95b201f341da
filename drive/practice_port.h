// A port of the plant with a practice drive at its other end, in process: the same line model as on a pty,
// moved by the tick clock, so a test on a hand-driven clock is exact and the tool's built-in drive needs no
// device. Several ports may share one line (the link port and com setup's port); only one of them is open at
// a time.
#pragma once

#include <QList>
#include <QStringList>
#include <memory>

#include "base/tick_clock.h"
#include "drive/line_model.h"
#include "link/com_port.h"

namespace kelvane::drive {

class PracticePort final : public TApdComPort {
   public:
    struct Write {
        qint64 atUs;
        QByteArray bytes;
        bool block;  // PutBlock, else PutString
    };

    // Clock and line must outlive the port.
    PracticePort(TickClock& clock, LineModel& line);

    bool open() override;
    void close() override;
    bool Open() const override { return m_open; }
    QString openError() const override { return m_openError; }
    const PortSettings& settings() const override { return m_settings; }
    void setSettings(const PortSettings& settings) override;
    bool PutBlock(const QByteArray& bytes) override { return put(bytes, true); }
    bool PutString(const QByteArray& text) override { return put(text, false); }
    std::optional<char> GetChar() override;
    void dropInput() override;
    bool holdBack(bool on) override;

    // Lets holdBack() work as on a device with a buffer of its own; without it the port announces every byte.
    void setCanHoldBack(bool on) { m_canHoldBack = on; }
    // Pulls the adapter out: an open port closes itself and tells why, from the event loop. Opening fails
    // until it is plugged in again.
    void unplug();
    void plugIn() { m_line.setUnplugged(false); }
    // Makes the next open fail, times times.

    // What was written last, in order: the bytes of each write, and the command text of each ("FF0321100003";
    // a frame without a good check as all its characters behind a question mark). Of many only the newest
    // stay.
    static constexpr qsizetype MostWrites = 50000;
    const QList<Write>& writes() const { return m_writes; }
    QStringList transcript() const;
    void clearTranscript() { m_writes.clear(); }

   private:
    bool put(const QByteArray& bytes, bool block);
    void schedule();
    void armAt(qint64 dueUs);
    void due();
    void deliver();
    void lose();

    TickClock& m_clock;
    LineModel& m_line;
    PortSettings m_settings;
    bool m_open = false;
    QString m_openError;
    QByteArray m_input;
    bool m_newInput = false;  // bytes have come that were not announced yet
    bool m_canHoldBack = false;
    bool m_heldBack = false;
    bool m_inHandler = false;  // the port's user is at work; nothing more is announced meanwhile
    QList<Write> m_writes;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::unique_ptr<TickClock::Alarm> m_alarm;
};

// Command text of a frame as it left a port, of either mode.
QString commandText(const QByteArray& frame, bool block);

// Drive, line and port as one, for whoever needs all three.
struct PracticeStation {
    PracticeStation(TickClock& clock, const FamilyData& data, const LineOptions& lineOptions = {},
                    const DriveOptions& driveOptions = {})
        : drive(data, driveOptions), line(drive, lineOptions), port(clock, line) {}

    PracticeDrive drive;
    LineModel line;
    PracticePort port;
};

}  // namespace kelvane::drive
