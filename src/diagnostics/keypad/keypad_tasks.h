// Task codes that the keypad alone pushes, beside RUN, STOP, DIR and JOG (link/request_queues.h).
#pragma once

#include <QString>

namespace kelvane {

inline constexpr quint8 UserDisplayTask = 7;
inline constexpr quint8 LeftArrowTask = 8;
inline constexpr quint8 MaxFreqTask = 9;
inline constexpr quint8 FrequencyTask = 10;
inline constexpr quint8 FaultTextTask = 14;

}  // namespace kelvane
