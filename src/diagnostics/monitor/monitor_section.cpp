#include "diagnostics/monitor/monitor_section.h"

namespace kelvane {

namespace {

// In the order of the files.
constexpr int MonitorIndexes::*MonitorFields[] = {&MonitorIndexes::ComboBox1st, &MonitorIndexes::ComboBox2nd,
                                                  &MonitorIndexes::VrMeterComboBox,
                                                  &MonitorIndexes::Ch1ComboBox};
constexpr const char* NamedMonitorKeys[] = {
    "Meter1stIndex = ", "Meter2ndIndex = ", "Meter3rdIndex = ", "TrendIndex    = "};

}  // namespace

void followIdentification(MonitorSession& session, DriveIdentification& identification) {
    QObject::connect(&identification, &DriveIdentification::itemNamesChanged, &session,
                     [&session, &identification] { session.takeItemNames(identification.itemList); });
    QObject::connect(&identification, &DriveIdentification::familyKnown, &session,
                     [&session, &identification] { session.InitialDrive(identification.itemList); });
}

void writeMonitorSection(SectionWriter& out, const MonitorIndexes& section) {
    out.line(QStringLiteral("[Monitor Form]"));
    for (int i = 0; i < 4; ++i)
        out.line(QStringLiteral("ComboBox%1=%2").arg(i + 1).arg(section.*MonitorFields[i]));
}

void writeNamedMonitor(SectionWriter& out, const MonitorIndexes& section, int MeterType) {
    out.line(QStringLiteral("[Monitor Form]"));
    for (int i = 0; i < 4; ++i) out.line(NamedMonitorKeys[i], section.*MonitorFields[i]);
    out.line("Meter1stkind  = ", MeterType);
    out.line("Meter2ndkind  = ", MeterType);
}

SectionRead readMonitorSection(const QStringList& lines, MonitorIndexes& section) {
    return readSection(
        lines, "[Monitor Form]", firstLines(4), CutAtEqualSign,
        [&](int place, const QString& value) { return takeNumber(value, section.*MonitorFields[place]); });
}

SectionRead readNamedMonitor(const QStringList& lines, MonitorIndexes& section, int& MeterType) {
    return readSection(lines, "[Monitor Form]", firstLines(6), 16, [&](int place, const QString& value) {
        if (place < 4) return takeNumber(value, section.*MonitorFields[place]);
        return takeNumber(value, MeterType);  // Kept: two lines for one field, the second wins
    });
}

}  // namespace kelvane
