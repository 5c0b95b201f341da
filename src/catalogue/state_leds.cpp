#include "catalogue/state_leds.h"

#include <array>

namespace kelvane {

namespace {

// A pair of lamps that tells a change under way: bits 0-1 for RUN over STOP, bits 3-4 for REV over FWD.
struct LedPair {
    StateLed changed;
    StateLed rest;
};
constexpr StateLed Off{};
constexpr StateLed On{true, false};
constexpr StateLed Flashing{true, true};
constexpr std::array<LedPair, 4> pairs{{{Off, On}, {Flashing, On}, {On, Flashing}, {On, Off}}};

bool bit(quint32 word, int number) { return word >> number & 1; }
StateLed steady(bool on) { return on ? On : Off; }

StateLeds sources(quint32 word) {
    StateLeds leds;
    leds.frequencyFromLink = bit(word, 8);
    leds.EXT = steady(bit(word, 9));
    leds.PU = steady(bit(word, 10));
    return leds;
}

}  // namespace

StateLeds codedStateLeds(quint32 word) {
    StateLeds leds = sources(word);
    const LedPair& run = pairs[word & 3];
    const LedPair& turn = pairs[word >> 3 & 3];
    leds.RUN = run.changed;
    leds.STOP = run.rest;
    leds.JOG = steady(bit(word, 2));
    leds.REV = turn.changed;
    leds.FWD = turn.rest;
    return leds;
}

StateLeds plainStateLeds(quint32 word) {
    StateLeds leds = sources(word);
    leds.RUN = steady(bit(word, 0));
    leds.STOP = steady(bit(word, 1));
    leds.JOG = steady(bit(word, 2));
    leds.FWD = steady(bit(word, 3));
    leds.REV = steady(bit(word, 4));
    return leds;
}

}  // namespace kelvane
