// A serial port as the plant wants it: TApdComPort. The link port and com setup's port are two of these. Real
// ports, the practice drive in process and the test line stand behind the same interface.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <functional>
#include <optional>

namespace kelvane {

enum class ComParity : quint8 { None = 0, Odd = 1, Even = 2 };  // the port's own values

// Letter of the log and of the project files: "N", "E", "O".
inline QString parityLetter(ComParity parity) {
    return QString(QLatin1Char("NOE"[static_cast<quint8>(parity) % 3]));
}

struct PortSettings {
    int ComNumber = 1;  // 1 to 20
    int Baud = 9600;
    int DataBits = 8;
    ComParity Parity = ComParity::None;
    int StopBits = 2;
    bool operator==(const PortSettings&) const = default;

    // Bits of one character on the wire: start, data, parity, stop.
    int bitsPerCharacter() const { return 1 + DataBits + (Parity == ComParity::None ? 0 : 1) + StopBits; }
    // Time of count characters on the wire in microseconds, rounded up.
    qint64 wireTimeUs(qint64 count) const {
        return Baud <= 0 ? 0 : (count * bitsPerCharacter() * 1000000 + Baud - 1) / Baud;
    }
    // 3.5 characters: by their silence an RTU drive knows that a request has ended, so it never answers
    // sooner.
    qint64 silenceUs() const { return wireTimeUs(7) / 2; }
};

class TApdComPort {
   public:
    virtual ~TApdComPort() = default;

    // Opens the port with its settings. False on failure, with plain words in openError(). Opening an open
    // port is harmless.
    virtual bool open() = 0;
    virtual void close() = 0;  // may be repeated
    virtual bool Open() const = 0;
    virtual QString openError() const = 0;

    virtual const PortSettings& settings() const = 0;
    // Takes effect at once on an open port, which also drops input that has not been taken; a changed
    // ComNumber takes effect at the next open.
    virtual void setSettings(const PortSettings& settings) = 0;

    virtual bool PutBlock(const QByteArray& bytes) = 0;  // an RTU frame; false when not written
    virtual bool PutString(const QByteArray& text) = 0;  // an ASCII frame
    virtual std::optional<char> GetChar() = 0;           // one received byte; nothing is a read error
    virtual void dropInput() = 0;                        // throws away what has arrived and was not taken
    // Lets bytes wait unannounced (true) until the next call with false or the next opening. False from a
    // port that cannot, which goes on announcing them.
    virtual bool holdBack(bool) { return false; }

    // Called in the event loop, never from inside another call of the port, whenever bytes wait; count of
    // them may be taken with GetChar.
    std::function<void(int count)> OnTriggerAvail;
    // Called when the port closed itself because the device went away, with the reason in plain words.
    std::function<void(const QString& reason)> onLost;
};

}  // namespace kelvane
