// The register tables of page "A" by drive series: how many registers are read with which command, and each
// one's name, unit and decimals. They are those of the status poll of the family; units are the page's own.
// The series is what a person picked, whatever drive is connected.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "localisation/lang_table.h"

namespace kelvane {

inline constexpr int SeriesRows = 16;  // the longest table
inline constexpr int SeriesCount = 9;  // "Others" comes behind them

struct SeriesTable {
    QString command;
    int rows;
    std::array<const char*, SeriesRows> units;  // by row - 1; null for none
    std::array<quint8, SeriesRows> decimals{};
};

// index 0 to 8.
SeriesTable seriesTable(int index);
// The state word of a series, "Others" (9) included, tells run and direction in two bits each.
bool codedStatus(int index);

// Items of SelDriveComboBox: nine series and "Others", or two under the brand variants 1 and 2.
QStringList seriesItems(int BrandVariant);
// Table that an item of the box stands for.
inline int tableIndexOf(int item, int BrandVariant) { return BrandVariant == 0 ? item : item + 4; }

// Names of rows 1 to 16 of a table, by row - 1; empty where the language has none.
std::array<QString, SeriesRows> seriesNames(int index, const LangTable& lang);

}  // namespace kelvane
