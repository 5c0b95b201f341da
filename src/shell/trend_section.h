// The trend's part in project files and in identification: what the tool hands to its session and takes from
// it.
#pragma once

#include "catalogue/identification.h"
#include "diagnostics/trend/trend_session.h"
#include "shell/project_file.h"

namespace kelvane {

// A drive that was recognised, or another language, fills boxes and Status tab.
void followIdentification(TrendSession& session, DriveIdentification& identification);

// Each switch and each box as by hand.
void takeTrendSection(TrendSession& session, const TrendSection& section);
TrendSection trendSection(const TrendSession& session);

// Of a named project.
void takeTrendBoxes(TrendSession& session, const std::array<int, 8>& ChComboBox,
                    const std::array<int, 8>& ChannelWidth);
std::array<int, 8> channelWidths(const TrendSession& session);

}  // namespace kelvane
