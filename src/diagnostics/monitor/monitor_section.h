// The meters' part in project files and in identification.
#pragma once

#include "base/project_section.h"
#include "catalogue/identification.h"
#include "diagnostics/monitor/monitor_session.h"

namespace kelvane {

// A drive that was recognised, or another language, fills the item boxes.
void followIdentification(MonitorSession& session, DriveIdentification& identification);

void writeMonitorSection(SectionWriter& out, const MonitorIndexes& section);  // default.prj
void writeNamedMonitor(SectionWriter& out, const MonitorIndexes& section, int MeterType);
SectionRead readMonitorSection(const QStringList& lines, MonitorIndexes& section);
SectionRead readNamedMonitor(const QStringList& lines, MonitorIndexes& section, int& MeterType);

}  // namespace kelvane
