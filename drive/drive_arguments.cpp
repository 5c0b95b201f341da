#include "drive/drive_arguments.h"

#include <QCommandLineParser>
#include <algorithm>
#include <array>
#include <optional>

namespace kelvane::drive {

namespace {

QStringList familyNames() {
    QStringList names;
    for (const Family family : AllFamilies) names.append(QString::fromLatin1(familyName(family)).toLower());
    return names;
}

// Takes options off a parser one by one and keeps the first complaint.
class Reader {
   public:
    explicit Reader(DriveArguments& target) : m_target(target) {
        m_parser.setApplicationDescription(QStringLiteral(
            "A practice drive on a pseudo-terminal. Prints the path of its device, then answers "
            "until it is stopped."));
    }

    void add(const char* name, const char* description, const QString& value, const QString& preset) {
        m_parser.addOption({QString::fromLatin1(name), QString::fromLatin1(description), value, preset});
    }
    void addFlag(const char* name, const char* description) {
        m_parser.addOption({QString::fromLatin1(name), QString::fromLatin1(description)});
    }
    bool parse(const QStringList& arguments) {
        if (!m_parser.parse(arguments)) complain(m_parser.errorText());
        if (!m_parser.positionalArguments().isEmpty()) {
            complain(QStringLiteral("Not understood: ") + m_parser.positionalArguments().constFirst());
        }
        m_target.helpText = m_parser.helpText();
        return m_target.error.isEmpty();
    }
    bool isSet(const char* name) const { return m_parser.isSet(QString::fromLatin1(name)); }

    // Position of the option's value among the words allowed.
    int choice(const char* name, const QStringList& words) {
        const QString given = m_parser.value(QString::fromLatin1(name)).toLower();
        const auto place = words.indexOf(given);
        if (place < 0) complain(wrong(name) + QStringLiteral("one of ") + words.join(QStringLiteral(", ")));
        return std::max(0, int(place));
    }
    double number(const char* name, double least, double most) {
        bool good = false;
        const double value = m_parser.value(QString::fromLatin1(name)).toDouble(&good);
        if (good && value >= least && value <= most) return value;
        complain(wrong(name) + QStringLiteral("a number from %1 to %2").arg(least).arg(most));
        return least;
    }

    // "late:7"; nothing when the option is not set.
    void planned(const char* name) {
        if (!isSet(name)) return;
        const QStringList parts = m_parser.value(QString::fromLatin1(name)).split(QLatin1Char(':'));
        const QStringList words{QStringLiteral("lose"), QStringLiteral("corrupt"), QStringLiteral("late")};
        constexpr std::array Faults{LineFault::Silent, LineFault::BadCheck, LineFault::Late};
        const auto fault = words.indexOf(parts.value(0));
        m_target.plannedAt = parts.value(1).toInt();
        if (parts.size() != 2 || fault < 0 || m_target.plannedAt < 1)
            return complain(wrong(name) +
                            QStringLiteral("lose, corrupt or late, a colon and a number from 1"));
        m_target.planned = Faults[size_t(fault)];
    }

   private:
    static QString wrong(const char* name) {
        return QStringLiteral("--%1 wants ").arg(QString::fromLatin1(name));
    }
    void complain(const QString& text) {
        if (m_target.error.isEmpty()) m_target.error = text;
    }

    DriveArguments& m_target;
    QCommandLineParser m_parser;
};

void describe(Reader& reader) {
    const auto text = [](const char* t) { return QString::fromLatin1(t); };
    reader.add("family", "Family of the drive (larch).", familyNames().join(QLatin1Char('|')), text("larch"));
    reader.add("mode", "Framing: ascii or rtu (ascii).", text("mode"), text("ascii"));
    reader.add("baud", "Baud rate, 1200 to 115200 (9600). A program that sets another one is not heard.",
               text("rate"), text("9600"));
    reader.add("data", "Data bits, 7 or 8 (ascii 7, rtu 8). For pacing only.", text("bits"), {});
    reader.add("parity", "Parity: n, e or o (n). For pacing only.", text("letter"), text("n"));
    reader.add("stop", "Stop bits, 1 or 2 (2). For pacing only.", text("bits"), text("2"));
    reader.add("turnaround", "Milliseconds from request to reply (5).", text("ms"), text("5"));
    reader.add("bytes",
               "How bytes reach the program: single, fifo (bursts of 8) or usb (16 ms packets) (single).",
               text("flow"), text("single"));
    reader.add("lose", "Share of replies that are not sent (0).", text("percent"), text("0"));
    reader.add("corrupt", "Share of replies with a bad check (0).", text("percent"), text("0"));
    reader.add("late", "Share of replies that come 400 ms late (0).", text("percent"), text("0"));
    reader.add("fail", "One reply that fails: lose, corrupt or late, a colon and its number from 1.",
               text("fault:reply"), {});
    reader.add("seed", "Seed of the shares above (1).", text("number"), text("1"));
    reader.add("address", "Address answered beside 255 (1).", text("number"), text("1"));
    reader.add("load", "Load of the motor: steady, or working as a machine does (working).", text("load"),
               text("working"));
    reader.add("trip", "Seconds of running behind which the drive trips with an overload; 0: never (0).",
               text("seconds"), text("0"));
    reader.addFlag("keypad", "Play a keypad that holds the family's values instead of a drive.");
    reader.addFlag("until-eof", "Stop when the standard input ends.");
    reader.addFlag("help", "This text.");
}

void readLine(Reader& reader, LineOptions& line) {
    const QStringList bauds =
        QStringLiteral("1200 2400 4800 9600 19200 38400 57600 115200").split(QLatin1Char(' '));
    line.mode = LineMode(reader.choice("mode", {QStringLiteral("ascii"), QStringLiteral("rtu")}));
    line.wire.Baud = bauds[reader.choice("baud", bauds)].toInt();
    line.wire.DataBits = line.mode == LineMode::Rtu ? 8 : 7;
    if (reader.isSet("data"))
        line.wire.DataBits = 7 + reader.choice("data", {QStringLiteral("7"), QStringLiteral("8")});
    constexpr std::array Parities{ComParity::None, ComParity::Even, ComParity::Odd};
    const QStringList letters{QStringLiteral("n"), QStringLiteral("e"), QStringLiteral("o")};
    line.wire.Parity = Parities[size_t(reader.choice("parity", letters))];
    line.wire.StopBits = 1 + reader.choice("stop", {QStringLiteral("1"), QStringLiteral("2")});
    line.turnaroundUs = qint64(reader.number("turnaround", 0, 10000) * 1000);
    const QStringList flows{QStringLiteral("single"), QStringLiteral("fifo"), QStringLiteral("usb")};
    line.flow = ByteFlow(reader.choice("bytes", flows));
}

}  // namespace

DriveArguments readArguments(const QStringList& arguments) {
    DriveArguments result;
    Reader reader(result);
    describe(reader);
    if (!reader.parse(arguments)) return result;
    result.helpWanted = reader.isSet("help");
    result.untilEof = reader.isSet("until-eof");
    result.family = AllFamilies[size_t(reader.choice("family", familyNames()))];
    readLine(reader, result.line);
    result.losePercent = reader.number("lose", 0, 100);
    result.corruptPercent = reader.number("corrupt", 0, 100);
    result.latePercent = reader.number("late", 0, 100);
    reader.planned("fail");
    result.seed = uint32_t(reader.number("seed", 0, 4294967295.0));
    result.drive.workingLoad =
        reader.choice("load", {QStringLiteral("steady"), QStringLiteral("working")}) == 1;
    result.drive.tripSeconds = reader.number("trip", 0, 100000);
    result.drive.asKeypad = reader.isSet("keypad");
    result.drive.address = uint8_t(reader.number("address", 1, 255));
    return result;
}

}  // namespace kelvane::drive
