#include "shell/project_file.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <span>

#include "base/text_8bit.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

// A list of slots on one line of the Quick Setup section.
struct SlotLine {
    const char* key;
    char separator;
    int firstSlot;
    int count;
    bool mayBeShort;
};
constexpr SlotLine SlotLines[] = {
    {"Step1    = ", '|', 1, 7, false},  {"Step2    = ", '|', 8, 14, true},
    {"Step3    = ", ',', 22, 3, false}, {"Step4Out = ", ',', 25, 8, false},
    {"Step4In  = ", ',', 33, 8, false},
};

// The fields behind the lines of a section, in the order of the file.
constexpr QString ComSetupSection::*ComSetupFields[] = {
    &ComSetupSection::ComPortComboBox,  &ComSetupSection::ModeComboBox,   &ComSetupSection::BaudComboBox,
    &ComSetupSection::DataBitsComboBox, &ComSetupSection::ParityComboBox, &ComSetupSection::StopBitsComboBox};
constexpr int MonitorSection::*MonitorFields[] = {&MonitorSection::ComboBox1st, &MonitorSection::ComboBox2nd,
                                                  &MonitorSection::VrMeterComboBox,
                                                  &MonitorSection::Ch1ComboBox};
constexpr QString QuickSetupSection::*IdentityFields[] = {
    &QuickSetupSection::DriveVrLabel, &QuickSetupSection::VersionVrLabel, &QuickSetupSection::HPVrLabel,
    &QuickSetupSection::RatedVoltageVrLabel, &QuickSetupSection::RatedCurrentVrLabel};
constexpr int ChannelCount = 8;

// Keys, misspellings included.
constexpr const char* DefaultComKeys[] = {
    "Com port    =", "Modbus Mode =", "Baud Rate   =", "Dtatabits   =", "Parity Check=", "Stopbits    ="};
constexpr const char* NamedComKeys[] = {"Com port     = ", "Modbus Mode  = ", "Baud Rate    = ",
                                        "Dtatabits    = ", "Parity Check = ", "Stopbits     = "};
constexpr const char* NamedMonitorKeys[] = {
    "Meter1stIndex = ", "Meter2ndIndex = ", "Meter3rdIndex = ", "TrendIndex    = "};
constexpr const char* IdentityKeys[] = {
    "Drive    = ", "Version  = ", "kW(Hp)   = ", "Rated_V  = ", "Rated_A  = "};

class Writer {
   public:
    void line(const QString& text = {}) { m_bytes += to8Bit(text) + "\r\n"; }
    void line(const char* key, const QString& value = {}) { line(QLatin1String(key) % value); }
    void line(const char* key, int value) { line(key, QString::number(value)); }
    const QByteArray& bytes() const { return m_bytes; }

   private:
    QByteArray m_bytes;
};

void writeComSetup(Writer& out, std::span<const char* const> keys, const ComSetupSection& section) {
    for (std::size_t i = 0; i < keys.size(); ++i) out.line(keys[i], section.*ComSetupFields[i]);
}

QString channelKey(int channel, const char* rest) {
    return QStringLiteral("Ch") % QString::number(channel + 1) % QLatin1String(rest);
}

void writeTrend(Writer& out, const TrendSection& section) {
    for (int c = 0; c < ChannelCount; ++c)
        out.line(channelKey(c, "VrPowerButton=") %
                 QLatin1String(section.ChVrPowerButton[c] ? "True" : "False"));
    out.line();
    for (int c = 0; c < ChannelCount; ++c)
        out.line(channelKey(c, "ComboBox=") % QString::number(section.ChComboBox[c]));
}

QString commaList(const std::array<int, ChannelCount>& values) {
    QStringList texts;
    for (const int value : values) texts += QString::number(value);
    return texts.join(QLatin1Char(','));
}

void writeQuickSetup(Writer& out, const QuickSetupSection& section) {
    for (std::size_t i = 0; i < std::size(IdentityKeys); ++i)
        out.line(IdentityKeys[i], section.*IdentityFields[i]);
    for (const SlotLine& slots : SlotLines) {
        QStringList texts;
        for (int i = 0; i < slots.count; ++i) texts += section.SlotFileValue[slots.firstSlot + i];
        out.line(slots.key, texts.join(QLatin1Char(slots.separator)));
    }
}

enum class Taken { Yes, NotReadable, TooFew };
using Take = std::function<Taken(int place, const QString& value)>;
constexpr int CutAtEqualSign = -1;

// Kept: the key is for the reader's eye and is not compared; a line without the sign is taken whole.
QString behindKey(const QString& line, int keyWidth) {
    return line.mid(keyWidth == CutAtEqualSign ? line.indexOf(QLatin1Char('=')) + 1 : keyWidth);
}

QString lineError(qsizetype line, const QString& what) {
    return QStringLiteral("Line %1 %2").arg(QString::number(line + 1), what);
}

QString valueError(qsizetype line, Taken result, const QString& value) {
    if (result == Taken::TooFew) return lineError(line, QStringLiteral("has too few values."));
    return lineError(line, QStringLiteral("cannot be read: \"") % value.left(60) % QStringLiteral("\""));
}

// Takes the lines at the offsets behind every line that equals the header; the last section of a name wins.
SectionRead readSection(const QStringList& lines, const char* header, std::span<const int> offsets,
                        int keyWidth, const Take& take) {
    SectionRead read;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (lines[at] != QLatin1String(header)) continue;
        read.found = true;
        for (int place = 0; place < static_cast<int>(offsets.size()); ++place) {
            const qsizetype line = at + offsets[place];
            if (line >= lines.size()) {
                read.error = lineError(line, QStringLiteral("is missing."));
                return read;
            }
            const QString value = behindKey(lines[line], keyWidth);
            const Taken result = take(place, value);
            if (result != Taken::Yes) {
                read.error = valueError(line, result, value);
                return read;
            }
            read.taken = std::max(read.taken, place + 1);
        }
    }
    return read;
}

Taken takeNumber(const QString& value, int& into) {
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok) return Taken::NotReadable;
    into = number;
    return Taken::Yes;
}

Taken takeBoolean(const QString& value, bool& into) {
    const bool isTrue = value.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
    if (!isTrue && value.compare(QLatin1String("False"), Qt::CaseInsensitive) != 0) return Taken::NotReadable;
    into = isTrue;
    return Taken::Yes;
}

QStringList splitAt(char separator, const QString& value) {
    return value.isEmpty() ? QStringList() : value.split(QLatin1Char(separator));
}

// Each comma ends a line of a list, and each line is a number.
Taken takeChannels(const QString& value, std::array<int, ChannelCount>& into) {
    const QStringList texts = splitAt(',', value);
    for (int c = 0; c < ChannelCount; ++c) {
        if (c >= texts.size()) return Taken::TooFew;
        const Taken result = takeNumber(texts[c], into[c]);
        if (result != Taken::Yes) return result;
    }
    return Taken::Yes;
}

// An empty text counts as 0.
Taken takeSlot(const QString& text, int slot, QuickSetupSection& section) {
    const std::optional<int> number = text.isEmpty() ? 0 : withoutSeparatorToInt(text);
    if (!number) return Taken::NotReadable;
    section.SlotFileValue[slot] = text;
    section.SlotValue[slot] = *number;
    return Taken::Yes;
}

Taken takeSlots(const SlotLine& slots, const QString& value, QuickSetupSection& section) {
    QStringList texts = splitAt(slots.separator, value);
    // Kept: files of an older version have one value less, and it becomes empty.
    if (slots.mayBeShort && texts.size() == slots.count - 1) texts += QString();
    for (int i = 0; i < slots.count; ++i) {
        if (i >= texts.size()) return slots.mayBeShort ? Taken::Yes : Taken::TooFew;
        const Taken result = takeSlot(texts[i], slots.firstSlot + i, section);
        if (result != Taken::Yes) return result;
    }
    return Taken::Yes;
}

constexpr int ValueOffsets[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
// Line +9 of the trend section is the empty line.
constexpr int TrendOffsets[] = {1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 14, 15, 16, 17};

constexpr std::span<const int> firstLines(std::size_t count) { return std::span(ValueOffsets).first(count); }

// Port, baud rate, data bits and stop bits of a named file are numbers; default.prj is read in silence, and
// its box stays as it was when it does not offer a text.
SectionRead readNamedComSetup(const QStringList& lines, ComSetupSection& section) {
    return readSection(lines, "[Com Setup]", firstLines(6), 15, [&](int place, const QString& value) {
        QString ComSetupSection::*const field = ComSetupFields[place];
        const bool isText =
            field == &ComSetupSection::ModeComboBox || field == &ComSetupSection::ParityComboBox;
        int number = 0;
        if (!isText && takeNumber(value, number) != Taken::Yes) return Taken::NotReadable;
        section.*field = value;
        return Taken::Yes;
    });
}

SectionRead readNamedMonitor(const QStringList& lines, NamedProject& project) {
    return readSection(lines, "[Monitor Form]", firstLines(6), 16, [&](int place, const QString& value) {
        if (place < 4) return takeNumber(value, project.Monitor.*MonitorFields[place]);
        return takeNumber(value, project.MeterType);  // Kept: two lines for one field, the second wins
    });
}

SectionRead readNamedTrend(const QStringList& lines, NamedProject& project) {
    return readSection(lines, "[Trend Form]", firstLines(2), 15, [&](int place, const QString& value) {
        return takeChannels(value, place == 0 ? project.ChComboBox : project.ChannelWidth);
    });
}

SectionRead readNamedQuickSetup(const QStringList& lines, QuickSetupSection& section) {
    return readSection(lines, "[QuickSetup Form]", firstLines(10), 11, [&](int place, const QString& value) {
        if (place >= 5) return takeSlots(SlotLines[place - 5], value, section);
        section.*IdentityFields[place] = value;
        return Taken::Yes;
    });
}

}  // namespace

// Kept: whatever is not N or E is the third item.
int parityItemIndex(const QString& letter) {
    if (letter == QLatin1String("N")) return 0;
    return letter == QLatin1String("E") ? 1 : 2;
}

QByteArray defaultProjectBytes(const DefaultProject& project) {
    Writer out;
    out.line("[Language]");
    out.line("LangID=", project.LanguageIndex);
    out.line();
    out.line("[ComSetup Form]");
    writeComSetup(out, DefaultComKeys, project.ComSetup);
    out.line();
    out.line("[Trend Form]");
    writeTrend(out, project.Trend);
    out.line();
    out.line("[Monitor Form]");
    for (int i = 0; i < 4; ++i)
        out.line(QStringLiteral("ComboBox%1=%2").arg(i + 1).arg(project.Monitor.*MonitorFields[i]));
    return out.bytes();
}

QByteArray namedProjectBytes(const NamedProject& project) {
    Writer out;
    out.line("[Language]");
    out.line("Language = ", project.LanguageIndex);
    out.line();
    out.line("[Com Setup]");
    writeComSetup(out, NamedComKeys, project.ComSetup);
    out.line();
    out.line("[Monitor Form]");
    for (int i = 0; i < 4; ++i) out.line(NamedMonitorKeys[i], project.Monitor.*MonitorFields[i]);
    out.line("Meter1stkind  = ", project.MeterType);
    out.line("Meter2ndkind  = ", project.MeterType);
    out.line();
    out.line("[Trend Form]");
    out.line("ChannelIndex = ", commaList(project.ChComboBox));
    // Kept: channel 1's width stands for all eight.
    std::array<int, ChannelCount> widths{};
    widths.fill(project.ChannelWidth[0]);
    out.line("ChannelWidth = ", commaList(widths));
    out.line();
    out.line("[Parameter Form]");
    out.line();
    out.line("[QuickSetup Form]");
    writeQuickSetup(out, project.QuickSetup);
    out.line();
    return out.bytes();
}

QStringList projectLines(const QByteArray& bytes) {
    QString text = from8Bit(bytes);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.last().isEmpty()) lines.removeLast();
    return lines;
}

SectionRead readComSetupSection(const QStringList& lines, ComSetupSection& section) {
    return readSection(lines, "[ComSetup Form]", firstLines(6), CutAtEqualSign,
                       [&](int place, const QString& value) {
                           section.*ComSetupFields[place] = value;
                           return Taken::Yes;
                       });
}

SectionRead readTrendSection(const QStringList& lines, TrendSection& section) {
    return readSection(lines, "[Trend Form]", TrendOffsets, CutAtEqualSign,
                       [&](int place, const QString& value) {
                           if (place < ChannelCount)
                               return takeBoolean(value, section.ChVrPowerButton[place]);
                           return takeNumber(value, section.ChComboBox[place - ChannelCount]);
                       });
}

SectionRead readMonitorSection(const QStringList& lines, MonitorSection& section) {
    return readSection(
        lines, "[Monitor Form]", firstLines(4), CutAtEqualSign,
        [&](int place, const QString& value) { return takeNumber(value, section.*MonitorFields[place]); });
}

NamedProjectRead readNamedProject(const QStringList& lines, NamedProject& project) {
    NamedProjectRead read;
    read.ComSetup = readNamedComSetup(lines, project.ComSetup);
    if (read.ComSetup.ok()) read.Monitor = readNamedMonitor(lines, project);
    if (read.ComSetup.ok() && read.Monitor.ok()) read.Trend = readNamedTrend(lines, project);
    if (read.ComSetup.ok() && read.Monitor.ok() && read.Trend.ok())
        read.QuickSetup = readNamedQuickSetup(lines, project.QuickSetup);
    for (const SectionRead* section : {&read.ComSetup, &read.Monitor, &read.Trend, &read.QuickSetup})
        if (!section->ok()) read.error = section->error;
    return read;
}

}  // namespace kelvane
