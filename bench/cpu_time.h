// Processor time of this program: on a busy machine a paint takes as much of it as on a quiet one.
#pragma once

#include <ctime>

namespace kelvane {

inline double cpuMs() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

}  // namespace kelvane
