// What a line can do to a reply, one row a kind, for the tests that try each of them at each place.
#pragma once

#include <QtGlobal>
#include <cstdlib>
#include <string>
#include <vector>

#include "drive/line_model.h"

namespace kelvane {

struct Harm {
    const char* name;
    drive::LineFault fault;
    int ms = 0;      // how late, how long the pause
    int pieces = 2;  // of a reply in pieces

    void setOn(drive::LineOptions& line) const {
        line.lateUs = line.pieceGapUs = line.secondUs = qint64(ms) * 1000;
        line.pieces = pieces;
    }
};

inline void PrintTo(const Harm& harm, std::ostream* out) { *out << harm.name; }

inline std::vector<Harm> lateReplies() {
    using enum drive::LineFault;
    return {{"200 ms late", Late, 200},  {"600 ms late", Late, 600}, {"1.12 s late", Late, 1120},
            {"1.15 s late", Late, 1150}, {"1.3 s late", Late, 1300}, {"1.6 s late", Late, 1600},
            {"1.95 s late", Late, 1950}, {"2.9 s late", Late, 2900}, {"3 s late", Late, 3000}};
}

inline std::vector<Harm> brokenReplies() {
    using enum drive::LineFault;
    return {{"doubled at once", Doubled, 0},
            {"doubled after 3 ms", Doubled, 3},
            {"doubled after 30 ms", Doubled, 30},
            {"two pieces, 50 ms", InPieces, 50},
            {"two pieces, 150 ms", InPieces, 150},
            {"two pieces, 200 ms", InPieces, 200},
            {"two pieces, 500 ms", InPieces, 500},
            {"two pieces, 1 s", InPieces, 1000},
            {"three pieces, 50 ms", InPieces, 50, 3},
            {"three pieces, 200 ms", InPieces, 200, 3},
            {"three pieces, 450 ms", InPieces, 450, 3},
            {"three pieces, 1 s", InPieces, 1000, 3}};
}

// They hold up the replies behind them.
inline std::vector<Harm> lateCopies() {
    using enum drive::LineFault;
    return {{"doubled after 300 ms", Doubled, 300}, {"doubled after 1.2 s", Doubled, 1200}};
}

inline std::vector<Harm> plainHarms() {
    using enum drive::LineFault;
    return {{"lost", Silent}, {"damaged", BadCheck}, {"cut short", CutShort}, {"refused", Exception}};
}

inline std::vector<Harm> operator+(std::vector<Harm> a, const std::vector<Harm>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// KELVANE_ADVERSARY=full tries every case instead of a sample of them.
inline bool everyCase() {
    const char* wanted = std::getenv("KELVANE_ADVERSARY");
    return wanted && std::string(wanted) == "full";
}

}  // namespace kelvane
