// What the second state word of a drive (2101h, with some families 2119h) says by lamps: the one decoding for
// keypad, trend, PID and console.
#pragma once

#include <QtGlobal>

namespace kelvane {

struct StateLed {
    bool on = false;
    bool flashing = false;  // only while on
    bool operator==(const StateLed&) const = default;
};

struct StateLeds {
    StateLed RUN;
    StateLed STOP;
    StateLed JOG;
    StateLed FWD;
    StateLed REV;
    StateLed EXT;  // the frequency comes from a terminal
    StateLed PU;
    bool frequencyFromLink = false;
    bool operator==(const StateLeds&) const = default;
};

// Two bits each for run and direction, one each for the rest: the word that the status poll keeps.
StateLeds codedStateLeds(quint32 word);
// One bit a lamp, none flashes: 2101h of the families that have their coded word at 2119h.
StateLeds plainStateLeds(quint32 word);

}  // namespace kelvane
