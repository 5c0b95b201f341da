#include "catalogue/family_profiles.h"

#include <algorithm>

namespace kelvane {

namespace {

constexpr std::array<const char*, 3> FormatOfDecimals{"##0", "##0.0", "##0.00"};

consteval std::array<const char*, StatusItemRoom> formatsOf(std::array<quint8, StatusItemRoom> decimals) {
    std::array<const char*, StatusItemRoom> formats{};
    for (std::size_t k = 0; k < StatusItemRoom; ++k) formats[k] = FormatOfDecimals.at(decimals[k]);
    return formats;
}

consteval std::array<quint8, StatusItemRoom> scalesOf(std::array<quint8, StatusItemRoom> decimals) {
    constexpr std::array<quint8, 3> Scales{0, 10, 100};
    for (quint8& item : decimals) item = Scales.at(item);
    return decimals;
}

consteval ListEntry common(quint8 number, quint8 item) {
    return {false, static_cast<quint8>(number - 1), item};
}
consteval ListEntry own(quint8 number, quint8 item) { return {true, static_cast<quint8>(number - 1), item}; }

// The common names, then the family's, in item order.
constexpr std::array<ListEntry, 14> PlainList{
    common(1, 0), common(2, 1), common(3, 2), common(4, 3), common(5, 4), own(1, 5),  own(2, 6),
    own(3, 7),    own(4, 8),    own(5, 9),    own(6, 10),   own(7, 11),   own(8, 12), own(9, 13)};
// Items 3 to 5 of Willow have no entry.
constexpr std::array<ListEntry, 6> WillowList{common(1, 0), common(2, 1), common(3, 2),
                                              common(4, 6), common(5, 7), own(1, 8)};
constexpr std::array<ListEntry, 14> YarrowList{common(1, 0), common(2, 1), common(3, 2), own(1, 3), own(2, 4),
                                               own(3, 5),    common(4, 6), common(5, 7), own(4, 8), own(5, 9),
                                               own(6, 10),   own(7, 11),   own(8, 12),   own(9, 13)};

constexpr std::span<const ListEntry> plainList(std::size_t items) {
    return std::span(PlainList).first(items);
}

// Status items by family, in item order.
struct ItemRow {
    quint8 StatusWordCount;
    std::array<quint8, StatusItemRoom> StatusDecimals;
    std::array<const char*, StatusItemRoom> StatusUnit;
};

// clang-format off
constexpr ItemRow RowanItems{14,
    {2, 2, 1, 1, 1, 0, 0, 0, 1, 2, 0, 1, 2, 2},
    {"Hz", "Hz", "A", "V", "V", "", "", "", "", "", "", "", "Hz", "Hz", "", ""}};
constexpr ItemRow AspenItems{9,
    {2, 2, 2, 0, 2, 0, 0, 0, 2},
    {"Hz", "Hz", "A", "V", "V", "", "", "Sec", "", "", "", "", "", "", "", ""}};
constexpr ItemRow LarchItems{14,
    {2, 2, 1, 1, 1, 0, 0, 0, 1, 1, 0, 0, 0, 2},
    {"Hz", "Hz", "A", "V", "V", "", "", "", "", "N-M", "RPM", "", "", "KW", "", ""}};
constexpr ItemRow HazelItems{9,
    {2, 2, 1, 0, 0, 0, 0, 0, 0},
    {"Hz", "Hz", "A", "V", "V", "", "", "", "", "", "", "", "", "", "", ""}};
constexpr ItemRow TiliaItems{14,
    {2, 2, 2, 1, 1, 0, 0, 0, 1, 1, 0, 0, 0, 2},
    {"Hz", "Hz", "A", "Vdc", "Vac", "", "", "", "", "N-M", "RPM", "", "", "kW", "", ""}};
constexpr ItemRow OsierItems{12,
    {2, 2, 1, 1, 1, 2, 2, 1, 2, 2, 0, 0},
    {"Hz", "Hz", "A", "V", "V", "", "", "", "%", "", "", "", "", "", "", ""}};
constexpr ItemRow WillowItems{9,
    {2, 2, 1, 0, 0, 0, 1, 1, 1},
    {"Hz", "Hz", "A", "", "", "", "V", "V", "", "", "", "", "", "", "", ""}};
constexpr ItemRow YarrowItems{14,
    {2, 2, 1, 0, 2, 0, 1, 1, 1, 0, 1, 1, 0, 2},
    {"Hz", "Hz", "A", "", "", "", "V", "V", "", "", "V", "mA", "", "kw", "", ""}};
constexpr ItemRow SorrelItems = TiliaItems;
// clang-format on

// What a family allows.
struct TraitRow {
    bool groupNamesFromDrive;
    bool AutoTuningEnabled;
    bool PIDControlEnabled;
};

consteval FamilyProfile profileOf(Family family, const ItemRow& items, std::span<const ListEntry> itemList,
                                  TraitRow traits) {
    const bool interrupted = itemList.size() < items.StatusWordCount;
    return {.DriveFamily = family,
            .DriveVrLabel = familyName(family),
            .StatusWordCount = items.StatusWordCount,
            .StatusScale = scalesOf(items.StatusDecimals),
            .StatusDecimals = items.StatusDecimals,
            .StatusUnit = items.StatusUnit,
            .StatusFormat = formatsOf(items.StatusDecimals),
            .itemList = itemList,
            .infoRows = static_cast<quint8>(interrupted ? itemList.size() : 7),
            .infoTwoColumns = !interrupted,
            .groupNamesFromDrive = traits.groupNamesFromDrive,
            .AutoTuningEnabled = traits.AutoTuningEnabled,
            .PIDControlEnabled = traits.PIDControlEnabled};
}

// Kept: Aspen's item 8 has two decimals, a scale of 10 and the format of none.
consteval FamilyProfile withPlainFormat(FamilyProfile profile, std::size_t item) {
    profile.StatusFormat.at(item) = FormatOfDecimals[0];
    profile.StatusScale.at(item) = 10;
    return profile;
}

constexpr std::array<FamilyProfile, 9> Profiles{
    profileOf(Family::Rowan, RowanItems, plainList(14), {false, true, true}),
    withPlainFormat(profileOf(Family::Aspen, AspenItems, plainList(9), {false, false, true}), 8),
    profileOf(Family::Larch, LarchItems, plainList(14), {true, true, true}),
    profileOf(Family::Hazel, HazelItems, plainList(9), {false, false, false}),
    profileOf(Family::Tilia, TiliaItems, plainList(14), {true, true, true}),
    profileOf(Family::Osier, OsierItems, plainList(12), {true, false, true}),
    profileOf(Family::Willow, WillowItems, WillowList, {true, true, true}),
    profileOf(Family::Yarrow, YarrowItems, YarrowList, {true, false, true}),
    profileOf(Family::Sorrel, SorrelItems, plainList(14), {true, true, false}),
};

static_assert(std::ranges::all_of(Profiles, [](const FamilyProfile& profile) {
    return profile.itemList.size() <= profile.StatusWordCount &&
           std::ranges::all_of(profile.itemList, [&](const ListEntry& entry) {
               return entry.item < profile.StatusWordCount &&
                      entry.name < (entry.ofFamily ? FamilyNameCount : CommonNameCount);
           });
}));

QString nameAt(std::span<const QString> names, std::size_t index) {
    return index < names.size() ? names[index] : QString();
}

constexpr int ClearedColumns = 8;  // 0 to 7
constexpr int LastClearedRow = 6;
constexpr int RowsPerColumn = 7;

}  // namespace

const FamilyProfile* familyProfile(quint8 DriveFamily) {
    const auto found =
        std::ranges::find(Profiles, static_cast<Family>(DriveFamily), &FamilyProfile::DriveFamily);
    return found == Profiles.end() ? nullptr : &*found;
}

QStringList itemNames(const FamilyProfile& profile, std::span<const QString> common,
                      std::span<const QString> ofFamily) {
    QStringList names;
    for (const ListEntry& entry : profile.itemList)
        names += nameAt(entry.ofFamily ? ofFamily : common, entry.name);
    return names;
}

int itemOfListIndex(const FamilyProfile& profile, int listIndex) {
    if (listIndex < 0 || static_cast<std::size_t>(listIndex) >= profile.itemList.size()) return -1;
    return profile.itemList[static_cast<std::size_t>(listIndex)].item;
}

std::vector<InfoCell> infoGridCells(const FamilyProfile& profile, const QStringList& names) {
    std::vector<InfoCell> cells;
    // Kept: row 7 is not cleared, so Willow, which does not write it, leaves there what a former drive had.
    for (int row = 1; row <= LastClearedRow; ++row)
        for (int column = 0; column < ClearedColumns; ++column) cells.push_back({column, row, {}});
    const int entries = profile.infoTwoColumns ? 2 * RowsPerColumn : profile.infoRows;
    for (int entry = 0; entry < entries; ++entry) {
        const int column = entry < RowsPerColumn ? 0 : 4;
        const int row = 1 + entry % RowsPerColumn;
        const int item = itemOfListIndex(profile, entry);
        const char* unit = item < 0 ? "" : profile.StatusUnit[static_cast<std::size_t>(item)];
        cells.push_back({column, row, item < 0 ? QString() : names.value(entry)});
        cells.push_back({column + 2, row, QString::fromLatin1(unit)});
    }
    return cells;
}

}  // namespace kelvane
