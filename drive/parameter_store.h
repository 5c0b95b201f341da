// The parameters of a practice drive: the family's rows with their present values. Owns the values, gives the
// words of a record and judges writes. Owned by the register map.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "drive/drive_texts.h"
#include "drive/family_traits.h"
#include "drive/parameter_data.h"

namespace kelvane::drive {

class ParameterStore {
   public:
    // The rows that data points to must outlive the store.
    ParameterStore(const FamilyData& data, const FamilyTraits& traits);

    // Ordinary groups are 0 to groupCount() - 1; the reserved group bears groupCount() itself.
    int groupCount() const { return int(m_data.groups.size()) - 1; }
    // 16 characters; nothing when there is no such group.
    std::optional<QByteArray> groupName(int group) const;
    // Highest parameter number of a group, which is one less than their count.
    std::optional<uint16_t> highestNumber(int group) const;

    bool has(uint16_t reg) const { return find(reg).has_value(); }
    std::optional<uint16_t> word(uint16_t reg) const;
    // Words of the whole record: value, maximum, minimum, attribute and, where the family has them, default,
    // name and unit. Empty when there is no such parameter.
    std::vector<uint16_t> record(uint16_t reg) const;
    // Value with its decimal point placed; fallback when there is no such parameter.
    double number(uint16_t reg, double fallback) const;
    int value(uint16_t reg, int fallback) const;

    // Judges and, when nothing stands against it, stores a word.
    Refusal write(uint16_t reg, uint16_t word, bool running);
    // Stores within the row's limits without judging: what the drive itself finds out.
    void setValue(uint16_t reg, int value);

   private:
    struct Place {
        size_t group;
        size_t number;
    };
    std::optional<Place> find(uint16_t reg) const;
    const ParamRow& rowAt(Place place) const { return m_data.groups[place.group].rows[place.number]; }
    int& valueAt(Place place) { return m_values[place.group][place.number]; }
    int valueAt(Place place) const { return m_values[place.group][place.number]; }
    uint16_t attribute(const ParamRow& row) const;

    FamilyData m_data;
    const FamilyTraits& m_traits;
    std::vector<std::vector<int>> m_values;
};

}  // namespace kelvane::drive
