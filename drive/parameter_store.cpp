#include "drive/parameter_store.h"

#include <algorithm>
#include <cmath>

namespace kelvane::drive {

namespace {

constexpr uint16_t RunSetBit = 0x0002;
constexpr uint16_t ReadOnlyBit = 0x0008;
constexpr uint16_t SignedBit = 0x0080;

void appendText(std::vector<uint16_t>& words, const QByteArray& text) {
    for (qsizetype i = 0; i + 1 < text.size(); i += 2) {
        words.push_back(uint16_t(uint8_t(text[i]) << 8 | uint8_t(text[i + 1])));
    }
}

}  // namespace

ParameterStore::ParameterStore(const FamilyData& data, const FamilyTraits& traits)
    : m_data(data), m_traits(traits) {
    for (const GroupRows& group : m_data.groups) {
        auto& values = m_values.emplace_back();
        for (const ParamRow& row : group.rows) values.push_back(row.value);
    }
}

std::optional<ParameterStore::Place> ParameterStore::find(uint16_t reg) const {
    constexpr size_t PidGroup = 10;
    const bool again = m_traits.pidGroupAgain != 0 && reg >> 8 == m_traits.pidGroupAgain;
    const size_t group = again ? PidGroup : reg >> 8;
    const size_t number = reg & 0xFF;
    if (group >= m_data.groups.size() || number >= m_data.groups[group].rows.size()) return {};
    return Place{group, number};
}

std::optional<QByteArray> ParameterStore::groupName(int group) const {
    if (group < 0 || group > groupCount()) return {};
    return padded(m_data.groups[size_t(group)].name, 16);
}

std::optional<uint16_t> ParameterStore::highestNumber(int group) const {
    if (group < 0 || group > groupCount()) return {};
    return uint16_t(std::max<size_t>(m_data.groups[size_t(group)].rows.size(), 1) - 1);
}

uint16_t ParameterStore::attribute(const ParamRow& row) const {
    unsigned bits = 0;
    if (row.flags & RunSet) bits |= RunSetBit;
    if (row.flags & ReadOnly) bits |= ReadOnlyBit;
    if (row.flags & Signed) bits |= SignedBit;
    if (m_traits.family == Family::Aspen) return uint16_t(bits | (row.dot ? 1u : 0u));
    return uint16_t(bits | unsigned(row.dot & 3) << 8);
}

std::optional<uint16_t> ParameterStore::word(uint16_t reg) const {
    const auto place = find(reg);
    if (!place) return {};
    return uint16_t(valueAt(*place));
}

std::vector<uint16_t> ParameterStore::record(uint16_t reg) const {
    const auto place = find(reg);
    if (!place) return {};
    const ParamRow& row = rowAt(*place);
    std::vector<uint16_t> words{uint16_t(valueAt(*place)), uint16_t(row.max), uint16_t(row.min),
                                attribute(row)};
    if (m_traits.recordWords <= 4) return words;
    words.push_back(uint16_t(row.defaultValue));
    appendText(words, padded(row.name, 16));
    appendText(words, padded(row.unit, 4));
    return words;
}

double ParameterStore::number(uint16_t reg, double fallback) const {
    const auto place = find(reg);
    return place ? valueAt(*place) / std::pow(10.0, rowAt(*place).dot) : fallback;
}

int ParameterStore::value(uint16_t reg, int fallback) const {
    const auto place = find(reg);
    return place ? valueAt(*place) : fallback;
}

Refusal ParameterStore::write(uint16_t reg, uint16_t word, bool running) {
    const auto place = find(reg);
    if (!place) return Refusal::UnknownRegister;
    const ParamRow& row = rowAt(*place);
    if (row.flags & ReadOnly) return Refusal::ReadOnly;
    if (running && !(row.flags & RunSet)) return Refusal::WhileRunning;
    const int value = row.flags & Signed ? int16_t(word) : int(word);
    if (value < row.min || value > row.max) return Refusal::OutOfRange;
    valueAt(*place) = value;
    return Refusal::None;
}

void ParameterStore::setValue(uint16_t reg, int value) {
    const auto place = find(reg);
    if (place)
        valueAt(*place) =
            std::clamp(value, rowAt(*place).min, std::max(rowAt(*place).min, rowAt(*place).max));
}

}  // namespace kelvane::drive
