// The trend's part in project files and in identification.
#pragma once

#include <array>

#include "base/project_section.h"
#include "catalogue/identification.h"
#include "diagnostics/trend/trend_session.h"

namespace kelvane {

// The trend window in default.prj. [0] is channel 1.
struct TrendSection {
    std::array<bool, 8> ChVrPowerButton{};
    std::array<int, 8> ChComboBox{};  // selected index, -1 for none
    bool operator==(const TrendSection&) const = default;
};

// A drive that was recognised, or another language, fills boxes and Status tab.
void followIdentification(TrendSession& session, DriveIdentification& identification);

// Each switch and each box as by hand.
void takeTrendSection(TrendSession& session, const TrendSection& section);
TrendSection trendSection(const TrendSession& session);

void writeTrendSection(SectionWriter& out, const TrendSection& section);
SectionRead readTrendSection(const QStringList& lines, TrendSection& section);

// Of a named project: selected indexes and pen widths.
void takeTrendBoxes(TrendSession& session, const std::array<int, 8>& ChComboBox,
                    const std::array<int, 8>& ChannelWidth);
std::array<int, 8> channelWidths(const TrendSession& session);

void writeNamedTrend(SectionWriter& out, const std::array<int, 8>& ChComboBox,
                     const std::array<int, 8>& ChannelWidth);
SectionRead readNamedTrend(const QStringList& lines, std::array<int, 8>& ChComboBox,
                           std::array<int, 8>& ChannelWidth);

}  // namespace kelvane
