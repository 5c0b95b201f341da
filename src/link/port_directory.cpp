#include "link/port_directory.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSerialPortInfo>
#include <optional>

#include "base/whole_file.h"

namespace kelvane {

namespace {

constexpr qint64 LargestFile = 64 * 1024;
const QString PracticeLine = QStringLiteral("answers at ASCII, 9600, 7, N, 2");
const QString GatewayLine =
    QStringLiteral("its line settings are set there; choose the same, the waits go by them");

PortTarget device(const QString& path) { return {.kind = PortTarget::Kind::Device, .devicePath = path}; }
PortTarget practice(Family family) { return {.kind = PortTarget::Kind::Practice, .family = family}; }

// Behind "tcp:": "host:port", with brackets around an address that has colons of its own.
std::optional<PortTarget> gateway(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral(R"(^(?:\[([0-9A-Fa-f:.%\w]+)\]|([^\s:/\[\]]+)):(\d{1,5})$)"));
    const QRegularExpressionMatch match = form.match(text);
    const int tcpPort = match.captured(3).toInt();
    if (tcpPort < 1 || tcpPort > 0xFFFF) return std::nullopt;
    return PortTarget{.kind = PortTarget::Kind::Gateway,
                      .host = match.captured(1) % match.captured(2),
                      .tcpPort = static_cast<quint16>(tcpPort)};
}

PortTarget fixedRule(int ComNumber) {
    if (ComNumber <= 4) return device(QStringLiteral("/dev/ttyS%1").arg(ComNumber - 1));
    if (ComNumber <= 12) return device(QStringLiteral("/dev/ttyUSB%1").arg(ComNumber - 5));
    if (ComNumber <= 19) return device(QStringLiteral("/dev/ttyACM%1").arg(ComNumber - 13));
    return practice(Family::Larch);
}

std::optional<Family> familyOf(const QString& name) {
    for (const Family family : AllFamilies) {
        if (name.compare(QLatin1String(familyName(family)), Qt::CaseInsensitive) == 0) return family;
    }
    return std::nullopt;
}

}  // namespace

PortDirectory::PortDirectory() {
    for (int n = FirstComNumber; n <= LastComNumber; ++n) m_targets[n - 1] = fixedRule(n);
}

PortDirectory PortDirectory::ofFile(const QString& path) {
    if (path.isEmpty()) return {};
    const FileContent content = readWhole(path, LargestFile);
    if (content.ok) return fromText(QString::fromUtf8(content.bytes));
    PortDirectory directory;
    directory.m_complaints << content.error;
    return directory;
}

PortDirectory PortDirectory::fromText(const QString& text) {
    PortDirectory directory;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].section(QLatin1Char('#'), 0, 0).trimmed();
        if (line.isEmpty()) continue;
        const QString reason = directory.takeLine(line);
        if (!reason.isEmpty()) {
            directory.m_complaints << QStringLiteral("serial_ports.txt line %1: %2").arg(i + 1).arg(reason);
        }
    }
    return directory;
}

QString PortDirectory::takeLine(const QString& line) {
    const QString value = line.section(QLatin1Char('='), 1).trimmed();
    bool isNumber = false;
    const int ComNumber = line.section(QLatin1Char('='), 0, 0).trimmed().toInt(&isNumber);
    if (!isNumber || ComNumber < FirstComNumber || ComNumber > LastComNumber) {
        return QStringLiteral("a port number from 1 to 20 must stand before the \"=\"");
    }
    const QString practicePrefix = QStringLiteral("practice:");
    if (value.startsWith(practicePrefix, Qt::CaseInsensitive)) {
        const std::optional<Family> family = familyOf(value.mid(practicePrefix.size()).trimmed());
        if (!family) return QStringLiteral("there is no drive family of that name");
        m_targets[ComNumber - 1] = practice(*family);
        return {};
    }
    const QString tcpPrefix = QStringLiteral("tcp:");
    if (value.startsWith(tcpPrefix, Qt::CaseInsensitive)) {
        const std::optional<PortTarget> found = gateway(value.mid(tcpPrefix.size()).trimmed());
        if (!found) return QStringLiteral("a gateway is written \"tcp:host:port\", port from 1 to 65535");
        m_targets[ComNumber - 1] = *found;
        return {};
    }
    // Paths from ":" on lie in the program, not on the disk.
    if (!QDir::isAbsolutePath(value) || value.startsWith(QLatin1Char(':')))
        return QStringLiteral("the device must be written with its full path");
    m_targets[ComNumber - 1] = device(value);
    return {};
}

void PortDirectory::choosePractice(int ComNumber, Family family) {
    if (ComNumber < FirstComNumber || ComNumber > LastComNumber) return;
    m_targets[static_cast<size_t>(ComNumber - 1)] = {PortTarget::Kind::Practice, {}, family};
}

PortTarget PortDirectory::target(int ComNumber) const {
    return ComNumber >= FirstComNumber && ComNumber <= LastComNumber ? m_targets[ComNumber - 1]
                                                                     : PortTarget{};
}

bool PortDirectory::isPresent(const PortTarget& target) {
    switch (target.kind) {
        case PortTarget::Kind::Practice:
        case PortTarget::Kind::Gateway: return true;  // whether one answers is seen when it is asked
        case PortTarget::Kind::Device: return QFileInfo::exists(target.devicePath);
        case PortTarget::Kind::Nothing: break;
    }
    return false;
}

PortDescription PortDirectory::describe(const PortTarget& target) {
    PortDescription result{.present = isPresent(target)};
    if (target.kind == PortTarget::Kind::Practice) {
        result.device = QStringLiteral("practice drive %1").arg(QLatin1String(familyName(target.family)));
        result.description = PracticeLine;
    } else if (target.kind == PortTarget::Kind::Gateway) {
        result.device = QStringLiteral("gateway %1, port %2").arg(target.host).arg(target.tcpPort);
        result.description = GatewayLine;
    } else if (target.kind == PortTarget::Kind::Device) {
        result.device = target.devicePath;
        // A link such as those of /dev/serial/by-id is described by the device that it leads to.
        const QString real = QFileInfo(target.devicePath).canonicalFilePath();
        const QSerialPortInfo info(QFileInfo(real).fileName());
        if (result.present && info.systemLocation() == real) {
            result.maker = info.manufacturer();
            result.description = info.description();
        }
    }
    return result;
}

QString PortDescription::text() const {
    if (device.isEmpty()) return QStringLiteral("no such port");
    QStringList parts{device};
    if (!maker.isEmpty()) parts << maker;
    if (!description.isEmpty()) parts << description;
    if (!present) parts << QStringLiteral("not connected");
    return parts.join(QStringLiteral(", "));
}

}  // namespace kelvane
