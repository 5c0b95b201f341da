// Project files, the plain texts that keep the user's setup: default.prj, written silently at exit and read
// at start by several windows, each its own section, and the named .prj of File > Open and Save. The two are
// kept apart: other section names, other keys, readers of their own. Writers give all bytes of a file;
// readers are positional and take a file as projectLines(). Each section is read and written by the engine
// that owns it.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <array>

#include "diagnostics/monitor/monitor_section.h"
#include "diagnostics/trend/trend_section.h"
#include "link/com_setup_section.h"
#include "quicksetup/quick_setup_section.h"

namespace kelvane {

inline constexpr quint8 EnglishLanguageIndex = 4;

struct DefaultProject {
    quint8 LanguageIndex = EnglishLanguageIndex;
    ComSetupSection ComSetup;
    TrendSection Trend;
    MonitorIndexes Monitor;
    bool operator==(const DefaultProject&) const = default;
};

struct NamedProject {
    quint8 LanguageIndex = EnglishLanguageIndex;  // written, never read
    ComSetupSection ComSetup;
    MonitorIndexes Monitor;
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
