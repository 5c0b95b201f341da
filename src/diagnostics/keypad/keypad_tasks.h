// Task codes that the keypad alone pushes, beside RUN, STOP, DIR and JOG (link/request_queues.h), and the
// parameter tasks, which it shares with other windows.
#pragma once

#include <QString>

namespace kelvane {

inline constexpr quint8 UserDisplayTask = 7;
inline constexpr quint8 LeftArrowTask = 8;
inline constexpr quint8 MaxFreqTask = 9;
inline constexpr quint8 FrequencyTask = 10;
inline constexpr quint8 ParamReadTask = 12;
inline constexpr quint8 ParamWriteTask = 13;
inline constexpr quint8 FaultTextTask = 14;
inline constexpr quint8 ExceptionTextTask = 15;

}  // namespace kelvane
