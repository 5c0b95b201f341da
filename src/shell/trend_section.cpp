#include "shell/trend_section.h"

#include <algorithm>

namespace kelvane {

void followIdentification(TrendSession& session, DriveIdentification& identification) {
    const auto takeNames = [&session, &identification] {
        for (const InfoCell& cell : identification.infoCells)
            session.InfoAdvStringGrid.setCell(cell.column, cell.row, cell.text);
        session.takeItemNames(identification.itemList);
    };
    QObject::connect(&identification, &DriveIdentification::itemNamesChanged, &session, takeNames);
    QObject::connect(&identification, &DriveIdentification::familyKnown, &session,
                     [&session, &identification] { session.InitialDrive(identification.itemList); });
}

void takeTrendSection(TrendSession& session, const TrendSection& section) {
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        const auto i = static_cast<size_t>(c - 1);
        session.ChVrPowerButtonClick(c, section.ChVrPowerButton[i]);
        session.ChComboBoxCloseUp(c, section.ChComboBox[i]);
    }
}

TrendSection trendSection(const TrendSession& session) {
    TrendSection section;
    for (size_t i = 0; i < section.ChComboBox.size(); ++i) {
        section.ChVrPowerButton[i] = session.ChVrPowerButton[i + 1];
        section.ChComboBox[i] = session.ChComboBox[i + 1];
    }
    return section;
}

void takeTrendBoxes(TrendSession& session, const std::array<int, 8>& ChComboBox,
                    const std::array<int, 8>& ChannelWidth) {
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        const auto i = static_cast<size_t>(c - 1);
        session.AbTrend1.Channel(c).penWidth = std::clamp(ChannelWidth[i], 1, 5);
        session.ChComboBoxCloseUp(c, ChComboBox[i]);
    }
}

std::array<int, 8> channelWidths(const TrendSession& session) {
    std::array<int, 8> widths{};
    for (size_t i = 0; i < widths.size(); ++i) widths[i] = session.AbTrend1.data.channels[i].penWidth;
    return widths;
}

}  // namespace kelvane
