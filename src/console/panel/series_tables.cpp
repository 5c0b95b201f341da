#include "console/panel/series_tables.h"

#include <algorithm>

#include "catalogue/family_profiles.h"
#include "link/number_text.h"

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

struct Series {
    Family family;
    Units units = CommonUnits;
    bool codedStatus = true;
    int registersRead = 0;  // by the command; 0: one a row
};

constexpr std::array<Series, SeriesCount> series{{
    {.family = Family::Rowan,
     .units = withUnits(CommonUnits, {{15, "Hz"}, {16, "Hz"}}),
     .codedStatus = false},
    {.family = Family::Aspen},
    {.family = Family::Larch, .units = PowerUnits, .codedStatus = false},
    {.family = Family::Hazel},
    {.family = Family::Tilia, .units = PowerUnits},
    {.family = Family::Osier},
    {.family = Family::Willow, .units = withUnits(NoVoltUnits, {{9, "V"}, {10, "V"}})},
    // Kept: Yarrow's command reads 14 registers of its 16 rows.
    {.family = Family::Yarrow,
     .units = withUnits(NoVoltUnits, {{9, "V"}, {10, "V"}, {13, "V"}, {14, "mA"}, {16, "kW"}}),
     .codedStatus = false,
     .registersRead = 14},
    {.family = Family::Sorrel, .units = PowerUnits, .codedStatus = false},
}};

const Series& seriesAt(int index) {
    return series[static_cast<size_t>(std::clamp(index, 0, SeriesCount - 1))];
}

constexpr int StateWords = 2;  // rows before the items
constexpr int Willow = 6;
constexpr int WillowFirstRow = 6;
constexpr std::array<const char*, 6> WillowNames{"Reserved",         "Reserved",
                                                 "Reserved",         "DC-BUS Voltage U",
                                                 "Output Voltage E", "Display temperature of IGBT"};

// Keys of the trend window's texts that name the registers 2100h to 2106h.
constexpr std::array<int, 7> TrendLabels{7, 8, 14, 15, 16, 17, 18};

}  // namespace

SeriesTable seriesTable(int index) {
    const Series& row = seriesAt(index);
    const FamilyProfile& profile = *familyProfile(static_cast<quint8>(row.family));
    SeriesTable table{.command = {}, .rows = profile.StatusWordCount + StateWords, .units = row.units};
    table.command =
        QStringLiteral("FF032100") % IntToBaseStr(row.registersRead ? row.registersRead : table.rows, 16, 4);
    std::copy_n(profile.StatusDecimals.begin(), profile.StatusWordCount, table.decimals.begin() + StateWords);
    return table;
}

bool codedStatus(int index) { return index >= SeriesCount || seriesAt(index).codedStatus; }

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
