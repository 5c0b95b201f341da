// Rated voltage, current and power of every model, one file a family, indexed by DriveIdCode. A decimal point
// is stored as "."; an entry that is not filled is empty, "---" marks a code that is known not to exist. Read
// by model_tables only.
#pragma once

#include <array>
#include <cstddef>

namespace kelvane {

struct ModelTexts {
    const char* RatedVoltage = "";
    const char* RatedCurrent = "";
    const char* Power = "";  // kilowatts, then horsepower in parentheses
};

struct ModelRow {
    std::size_t DriveIdCode;
    ModelTexts texts;
};

// A family's table from its filled rows, in rising order of their codes.
template <std::size_t Length, std::size_t Rows>
consteval std::array<ModelTexts, Length> modelTable(const ModelRow (&rows)[Rows]) {
    std::array<ModelTexts, Length> table{};
    std::size_t next = 0;
    for (const ModelRow& row : rows) {
        if (row.DriveIdCode < next || row.DriveIdCode >= Length)
            throw "code out of order or behind the table";
        table[row.DriveIdCode] = row.texts;
        next = row.DriveIdCode + 1;
    }
    return table;
}

extern const std::array<ModelTexts, 60> RowanModels;
extern const std::array<ModelTexts, 10> AspenModels;
extern const std::array<ModelTexts, 140> LarchModels;
extern const std::array<ModelTexts, 10> HazelModels;
extern const std::array<ModelTexts, 40> TiliaModels;
extern const std::array<ModelTexts, 40> OsierModels;
extern const std::array<ModelTexts, 40> WillowModels;
extern const std::array<ModelTexts, 40> YarrowModels;
extern const std::array<ModelTexts, 40> SorrelModels;

}  // namespace kelvane
