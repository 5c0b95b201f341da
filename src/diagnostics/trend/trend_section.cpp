#include "diagnostics/trend/trend_section.h"

#include <algorithm>

namespace kelvane {

namespace {

constexpr int ChannelCount = 8;
// Line +9 of the section in default.prj is the empty line.
constexpr int TrendOffsets[] = {1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 14, 15, 16, 17};

QString channelKey(int channel, const char* rest) {
    return QStringLiteral("Ch") % QString::number(channel + 1) % QLatin1String(rest);
}

QString commaList(const std::array<int, ChannelCount>& values) {
    QStringList texts;
    for (const int value : values) texts += QString::number(value);
    return texts.join(QLatin1Char(','));
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

}  // namespace

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

void writeTrendSection(SectionWriter& out, const TrendSection& section) {
    out.line(QStringLiteral("[Trend Form]"));
    for (int c = 0; c < ChannelCount; ++c)
        out.line(channelKey(c, "VrPowerButton=") %
                 QLatin1String(section.ChVrPowerButton[c] ? "True" : "False"));
    out.line();
    for (int c = 0; c < ChannelCount; ++c)
        out.line(channelKey(c, "ComboBox=") % QString::number(section.ChComboBox[c]));
}

SectionRead readTrendSection(const QStringList& lines, TrendSection& section) {
    return readSection(lines, "[Trend Form]", TrendOffsets, CutAtEqualSign,
                       [&](int place, const QString& value) {
                           if (place < ChannelCount)
                               return takeBoolean(value, section.ChVrPowerButton[place]);
                           return takeNumber(value, section.ChComboBox[place - ChannelCount]);
                       });
}

void writeNamedTrend(SectionWriter& out, const std::array<int, 8>& ChComboBox,
                     const std::array<int, 8>& ChannelWidth) {
    out.line(QStringLiteral("[Trend Form]"));
    out.line("ChannelIndex = ", commaList(ChComboBox));
    // Kept: channel 1's width stands for all eight.
    std::array<int, ChannelCount> widths{};
    widths.fill(ChannelWidth[0]);
    out.line("ChannelWidth = ", commaList(widths));
}

SectionRead readNamedTrend(const QStringList& lines, std::array<int, 8>& ChComboBox,
                           std::array<int, 8>& ChannelWidth) {
    return readSection(lines, "[Trend Form]", firstLines(2), 15, [&](int place, const QString& value) {
        return takeChannels(value, place == 0 ? ChComboBox : ChannelWidth);
    });
}

}  // namespace kelvane
