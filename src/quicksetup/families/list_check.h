// Compile-time checks of the choice lists: a slip of the pen does not compile.
#pragma once

#include <cstddef>

#include "quicksetup/family_setup.h"

namespace kelvane {

constexpr bool hasNumber(std::string_view item) {
    const auto digit = [&](size_t i) { return item[i] >= '0' && item[i] <= '9'; };
    return item.size() > 4 && digit(0) && digit(1) && item[2] == ':' && item[3] == ' ' && item[4] != ' ' &&
           item.back() != ' ';
}

constexpr int numberOf(std::string_view item) { return (item[0] - '0') * 10 + (item[1] - '0'); }

// Two digits, ": " and a text; no text twice.
consteval bool itemsAreWell(ChoiceList list) {
    for (size_t i = 0; i < list.size(); ++i) {
        if (!hasNumber(list[i])) return false;
        for (size_t k = 0; k < i; ++k)
            if (list[k].substr(4) == list[i].substr(4)) return false;
    }
    return true;
}

// Every item bears the number of its position.
consteval bool numbersCount(ChoiceList list) {
    for (size_t i = 0; i < list.size(); ++i)
        if (!hasNumber(list[i]) || numberOf(list[i]) != static_cast<int>(i)) return false;
    return true;
}

consteval bool isWell(ChoiceList list, size_t size) {
    return list.size() == size && itemsAreWell(list) && numbersCount(list);
}

// Sizes of S1para1, S1para2, S1para4, S3para1, S3para2, S3para3, outputs, inputMode, inputs.
consteval bool listsAreWell(const ChoiceLists& lists, const std::array<size_t, 9>& sizes) {
    return isWell(lists.S1para1, sizes[0]) && isWell(lists.S1para2, sizes[1]) &&
           isWell(lists.S1para4, sizes[2]) && lists.S3para1.size() == sizes[3] &&
           itemsAreWell(lists.S3para1) && isWell(lists.S3para2, sizes[4]) &&
           isWell(lists.S3para3, sizes[5]) && isWell(lists.outputs, sizes[6]) &&
           isWell(lists.inputMode, sizes[7]) && isWell(lists.inputs, sizes[8]);
}

}  // namespace kelvane
