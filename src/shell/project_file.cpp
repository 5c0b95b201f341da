#include "shell/project_file.h"

#include "base/text_8bit.h"

namespace kelvane {

QByteArray defaultProjectBytes(const DefaultProject& project) {
    SectionWriter out;
    out.line(QStringLiteral("[Language]"));
    out.line("LangID=", project.LanguageIndex);
    out.line();
    writeComSetupSection(out, project.ComSetup);
    out.line();
    writeTrendSection(out, project.Trend);
    out.line();
    writeMonitorSection(out, project.Monitor);
    return out.bytes();
}

QByteArray namedProjectBytes(const NamedProject& project) {
    SectionWriter out;
    out.line(QStringLiteral("[Language]"));
    out.line("Language = ", project.LanguageIndex);
    out.line();
    writeNamedComSetup(out, project.ComSetup);
    out.line();
    writeNamedMonitor(out, project.Monitor, project.MeterType);
    out.line();
    writeNamedTrend(out, project.ChComboBox, project.ChannelWidth);
    out.line();
    out.line(QStringLiteral("[Parameter Form]"));
    out.line();
    writeQuickSetupSection(out, project.QuickSetup);
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

NamedProjectRead readNamedProject(const QStringList& lines, NamedProject& project) {
    NamedProjectRead read;
    read.ComSetup = readNamedComSetup(lines, project.ComSetup);
    if (read.ComSetup.ok()) read.Monitor = readNamedMonitor(lines, project.Monitor, project.MeterType);
    if (read.ComSetup.ok() && read.Monitor.ok())
        read.Trend = readNamedTrend(lines, project.ChComboBox, project.ChannelWidth);
    if (read.ComSetup.ok() && read.Monitor.ok() && read.Trend.ok())
        read.QuickSetup = readQuickSetupSection(lines, project.QuickSetup);
    for (const SectionRead* section : {&read.ComSetup, &read.Monitor, &read.Trend, &read.QuickSetup})
        if (!section->ok()) read.error = section->error;
    return read;
}

}  // namespace kelvane
