#include "console/panel/series_tables.h"

#include <algorithm>

namespace kelvane {

namespace {

using Units = std::array<const char*, SeriesRows>;

constexpr Units CommonUnits{nullptr, nullptr, "Hz", "Hz", "A", "V", "V"};

// The common units with more behind them: {row, unit}, rows from 1.
struct UnitAt {
    int row;
    const char* unit;
};
consteval Units withUnits(Units units, std::initializer_list<UnitAt> more) {
    for (const UnitAt& at : more) units.at(static_cast<size_t>(at.row - 1)) = at.unit;
    return units;
}
constexpr Units NoVoltUnits{nullptr, nullptr, "Hz", "Hz", "A"};
constexpr Units PowerUnits = withUnits(CommonUnits, {{16, "KW"}});

constexpr std::array<SeriesTable, SeriesCount> tables{{
    {.command = "FF0321000010",  // Rowan
     .rows = 16,
     .units = withUnits(CommonUnits, {{15, "Hz"}, {16, "Hz"}}),
     .decimals = {0, 0, 2, 2, 1, 1, 1, 0, 0, 0, 1, 2, 0, 1, 2, 2},
     .codedStatus = false},
    {.command = "FF032100000B",  // Aspen
     .rows = 11,
     .units = CommonUnits,
     .decimals = {0, 0, 2, 2, 2, 0, 2, 0, 0, 0, 2},
     .codedStatus = true},
    {.command = "FF0321000010",  // Larch
     .rows = 16,
     .units = PowerUnits,
     .decimals = {0, 0, 2, 2, 1, 1, 1, 0, 0, 0, 1, 1, 0, 0, 0, 2},
     .codedStatus = false},
    {.command = "FF032100000B",  // Hazel
     .rows = 11,
     .units = CommonUnits,
     .decimals = {0, 0, 2, 2, 1},
     .codedStatus = true},
    {.command = "FF0321000010",  // Tilia
     .rows = 16,
     .units = PowerUnits,
     .decimals = {0, 0, 2, 2, 2, 1, 1, 0, 0, 0, 1, 1, 0, 0, 0, 2},
     .codedStatus = true},
    {.command = "FF032100000E",  // Osier
     .rows = 14,
     .units = CommonUnits,
     .decimals = {0, 0, 2, 2, 1, 1, 1, 2, 2, 1, 2, 2, 0, 0},
     .codedStatus = true},
    {.command = "FF032100000B",  // Willow
     .rows = 11,
     .units = withUnits(NoVoltUnits, {{9, "V"}, {10, "V"}}),
     .decimals = {0, 0, 2, 2, 1, 0, 0, 0, 1, 1, 1},
     .codedStatus = true},
    // Kept: Yarrow's command reads 14 registers of its 16 rows.
    {.command = "FF032100000E",
     .rows = 16,
     .units = withUnits(NoVoltUnits, {{9, "V"}, {10, "V"}, {13, "V"}, {14, "mA"}, {16, "kW"}}),
     .decimals = {0, 0, 2, 2, 1, 0, 2, 0, 1, 1, 1, 0, 1, 1, 0, 2},
     .codedStatus = false},
    {.command = "FF0321000010",  // Sorrel
     .rows = 16,
     .units = PowerUnits,
     .decimals = {0, 0, 2, 2, 2, 1, 1, 0, 0, 0, 1, 1, 0, 0, 0, 2},
     .codedStatus = false},
}};

constexpr int Willow = 6;
constexpr int WillowFirstRow = 6;
constexpr std::array<const char*, 6> WillowNames{"Reserved",         "Reserved",
                                                 "Reserved",         "DC-BUS Voltage U",
                                                 "Output Voltage E", "Display temperature of IGBT"};

// Keys of the trend window's texts that name the registers 2100h to 2106h.
constexpr std::array<int, 7> TrendLabels{7, 8, 14, 15, 16, 17, 18};

}  // namespace

const SeriesTable& seriesTable(int index) {
    return tables[static_cast<size_t>(std::clamp(index, 0, SeriesCount - 1))];
}

bool codedStatus(int index) { return index >= SeriesCount || seriesTable(index).codedStatus; }

QStringList seriesItems(int BrandVariant) {
    if (BrandVariant == 1) return {QStringLiteral("Quince series"), QStringLiteral("Others")};
    if (BrandVariant == 2) return {QStringLiteral("Juniper series"), QStringLiteral("Others")};
    return {QStringLiteral("Rowan series"),  QStringLiteral("Aspen series"),  QStringLiteral("Larch series"),
            QStringLiteral("Hazel series"),  QStringLiteral("Tilia series"),  QStringLiteral("Osier series"),
            QStringLiteral("Willow series"), QStringLiteral("Yarrow series"), QStringLiteral("Sorrel series"),
            QStringLiteral("Others")};
}

std::array<QString, SeriesRows> seriesNames(int index, const LangTable& lang) {
    std::array<QString, SeriesRows> names;
    const TextGroup& labels = lang.form(FormSection::Trend).Label;
    for (size_t i = 0; i < TrendLabels.size(); ++i) names[i] = labels.at(TrendLabels[i]);
    // Kept: the sets of names have a gap where the box has none, so Yarrow has none and Sorrel those of
    // another.
    const LangTable::TypeNames typeNames = lang.typeSet(index);
    std::copy(typeNames.begin(), typeNames.end(), names.begin() + TrendLabels.size());
    if (index == Willow)
        for (size_t i = 0; i < WillowNames.size(); ++i)
            names[static_cast<size_t>(WillowFirstRow - 1) + i] = QString::fromLatin1(WillowNames[i]);
    return names;
}

}  // namespace kelvane
