// What stands behind a port number. The operator chooses plain numbers 1 to 20; a fixed rule, which the file
// serial_ports.txt in the program's folder may override line by line, says which device, practice
// drive or gateway that is. Owned by the shell; asked by the link port, com setup and the presence rules.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "base/drive_family.h"

namespace kelvane {

inline constexpr int FirstComNumber = 1;
inline constexpr int LastComNumber = 20;

struct PortTarget {
    enum class Kind { Nothing, Device, Practice, Gateway };
    Kind kind = Kind::Nothing;
    QString devicePath{};           // of a Device
    Family family = Family::Larch;  // of a Practice drive
    QString host{};                 // of a Gateway: name or address
    quint16 tcpPort = 0;            // of a Gateway
    bool operator==(const PortTarget&) const = default;
};

// What com setup shows beside the number.
struct PortDescription {
    bool present = false;
    QString device{};       // "/dev/ttyUSB0", "practice drive Larch", "gateway 10.0.0.7:4001"
    QString maker{};        // of the adapter; empty when unknown
    QString description{};  // of the adapter; empty when unknown
    QString text() const;   // all of it in one line
};

class PortDirectory {
   public:
    PortDirectory();  // the fixed rule alone

    // Reads serial_ports.txt; an empty path (there is none) leaves the fixed rule.
    static PortDirectory ofFile(const QString& path);
    // Lines "N=/path/of/device", "N=practice:Family" or "N=tcp:host:port"; blank lines and lines from "#" on
    // are skipped.
    static PortDirectory fromText(const QString& text);

    // Puts the practice drive of a family behind a number, until the program ends.
    void choosePractice(int ComNumber, Family family);

    // Kind Nothing outside 1 to 20.
    PortTarget target(int ComNumber) const;
    bool isPresent(int ComNumber) const { return isPresent(target(ComNumber)); }
    static bool isPresent(const PortTarget& target);
    static PortDescription describe(const PortTarget& target);

    // Why lines of the file were left out, each with its line number, for a person.
    const QStringList& complaints() const { return m_complaints; }

   private:
    QString takeLine(const QString& line);  // the reason when the line is damaged
    std::array<PortTarget, LastComNumber> m_targets;
    QStringList m_complaints;
};

}  // namespace kelvane
