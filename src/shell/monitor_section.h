// The meters' part in project files and in identification: what the tool hands to their session and takes
// from it.
#pragma once

#include "catalogue/identification.h"
#include "diagnostics/monitor/monitor_session.h"
#include "shell/project_file.h"

namespace kelvane {

// A drive that was recognised, or another language, fills the item boxes.
void followIdentification(MonitorSession& session, DriveIdentification& identification);

// Each box as by hand.
void takeMonitorSection(MonitorSession& session, const MonitorSection& section);
MonitorSection monitorSection(const MonitorSession& session);

}  // namespace kelvane
