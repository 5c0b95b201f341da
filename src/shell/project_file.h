// Project files, the plain texts that keep the user's setup: default.prj, written silently at exit and read
// at start by several windows, each its own section, and the named .prj of File > Open and Save. The two are
// kept apart: other section names, other keys, readers of their own. Writers give all bytes of a file;
// readers are positional and take a file as projectLines(). The shell moves the records to and from its
// windows.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <array>

namespace kelvane {

// Texts of com setup's boxes, as they stand.
struct ComSetupSection {
    QString ComPortComboBox = QStringLiteral("1");
    QString ModeComboBox = QStringLiteral("ASCII");
    QString BaudComboBox = QStringLiteral("9600");
    QString DataBitsComboBox = QStringLiteral("7");
    QString ParityComboBox = QStringLiteral("N");
    QString StopBitsComboBox = QStringLiteral("2");
    bool operator==(const ComSetupSection&) const = default;
};

// Item of ParityComboBox for a letter: "N" 0, "E" 1, anything else 2.
int parityItemIndex(const QString& letter);

// The trend window in default.prj. [0] is channel 1.
struct TrendSection {
    std::array<bool, 8> ChVrPowerButton{};
    std::array<int, 8> ChComboBox{};  // selected index, -1 for none
    bool operator==(const TrendSection&) const = default;
};

// Selected indexes of the monitor's boxes, -1 for none.
struct MonitorSection {
    int ComboBox1st = 0;
    int ComboBox2nd = 0;
    int VrMeterComboBox = 0;
    int Ch1ComboBox = 0;
    bool operator==(const MonitorSection&) const = default;
};

inline constexpr quint8 EnglishLanguageIndex = 4;

struct DefaultProject {
    quint8 LanguageIndex = EnglishLanguageIndex;
    ComSetupSection ComSetup;
    TrendSection Trend;
    MonitorSection Monitor;
    bool operator==(const DefaultProject&) const = default;
};

// Quick Setup's file record. Slots count from 1; [0] is not used.
struct QuickSetupSection {
    static constexpr int SlotCount = 40;
    QString DriveVrLabel;
    QString VersionVrLabel;
    QString HPVrLabel;
    QString RatedVoltageVrLabel;
    QString RatedCurrentVrLabel;
    std::array<QString, SlotCount + 1> SlotFileValue;  // text of an edit, index of a box
    std::array<int, SlotCount + 1> SlotValue{};  // the text as a number without point; set by the reader only
    bool operator==(const QuickSetupSection&) const = default;
};

struct NamedProject {
    quint8 LanguageIndex = EnglishLanguageIndex;  // written, never read
    ComSetupSection ComSetup;
    MonitorSection Monitor;
    int MeterType = 1;
    std::array<int, 8> ChComboBox{};  // selected index of the trend's boxes, -1 for none
    std::array<int, 8> ChannelWidth{1, 1, 1, 1, 1, 1, 1, 1};  // pen widths of AbTrend1's channels
    QuickSetupSection QuickSetup;
    bool operator==(const NamedProject&) const = default;
};

// Bytes of a whole file, every line with CR LF.
QByteArray defaultProjectBytes(const DefaultProject& project);
QByteArray namedProjectBytes(const NamedProject& project);

// Lines of a file without their ends (CR LF, LF or CR).
QStringList projectLines(const QByteArray& bytes);

// How the reading of a section went. A line that is missing or cannot be read ends it: what came before is in
// force in the record, the rest of the record is as it was.
struct SectionRead {
    bool found = false;
    int taken = 0;  // values in force, in the order of the file
    QString error;  // plain words for a person, empty when all was read
    bool ok() const { return error.isEmpty(); }
};

// Sections of default.prj. A record whose section does not exist stays as it was.
SectionRead readComSetupSection(const QStringList& lines, ComSetupSection& section);
SectionRead readTrendSection(const QStringList& lines, TrendSection& section);
SectionRead readMonitorSection(const QStringList& lines, MonitorSection& section);

// A named file: com setup, monitor, trend, Quick Setup, in this order; the first error ends the reading with
// what was read in force. Which sections were there tells which windows run their handlers.
struct NamedProjectRead {
    SectionRead ComSetup;
    SectionRead Monitor;
    SectionRead Trend;
    SectionRead QuickSetup;
    QString error;  // of the section that ended the reading
    bool ok() const { return error.isEmpty(); }
};
NamedProjectRead readNamedProject(const QStringList& lines, NamedProject& project);

}  // namespace kelvane
