// The five lamps of a drive's state, decoded from its coded state word (register 2119h, or 2101h of the
// families that code it there). Trend, PID control and whoever else shows the state read it; the windows
// paint it.
#pragma once

#include <QtGlobal>

namespace kelvane {

struct LedState {
    bool on = false;
    bool flashing = false;
    bool operator==(const LedState&) const = default;
};

struct StateLeds {
    LedState RUN;
    LedState STOP;
    LedState JOG;
    LedState FWD;
    LedState REV;
    bool operator==(const StateLeds&) const = default;
};

// Bits 0-1: 0 stopped, 1 stopping, 2 standby, 3 running. Bits 3-4: 0 forward, 1 turning to reverse, 2 turning
// to forward, 3 reverse. Bit 2: jogging. What is on its way flashes.
constexpr StateLeds stateLeds(quint32 stateWord) {
    constexpr LedState Off{};
    constexpr LedState On{.on = true};
    constexpr LedState Flashing{.on = true, .flashing = true};
    struct Pair {
        LedState first;   // RUN, REV
        LedState second;  // STOP, FWD
    };
    constexpr Pair ByBits[] = {{Off, On}, {Flashing, On}, {On, Flashing}, {On, Off}};
    const Pair run = ByBits[stateWord & 3];
    const Pair turn = ByBits[stateWord >> 3 & 3];
    return {.RUN = run.first,
            .STOP = run.second,
            .JOG = stateWord & 4 ? On : Off,
            .FWD = turn.second,
            .REV = turn.first};
}

}  // namespace kelvane
