// The PID and auto tuning engines on line with a practice drive, and the steps by which the windows open and
// close them.
#pragma once

#include "bench/on_line_bench.h"
#include "commissioning/auto_tuning.h"
#include "commissioning/pid_control.h"

namespace kelvane {

struct CommissioningStand : OnLineBench {
    explicit CommissioningStand(Family family, drive::LineMode mode = drive::LineMode::Ascii)
        : OnLineBench({.family = family, .mode = mode, .Baud = 38400}) {
        credits.compareState = false;
        goOnLine();
        awaitPolls(2);
        station.port.clearTranscript();
    }

    // What the shell does before and behind a window that owns the link.
    void begin(LinkOwner owner) {
        link.ActiveFunction = owner;
        link.ParamRead.ReadDone = link.ParamRead.WriteDone = 1;
    }
    template <class Engine>
    void close(Engine& engine) {
        engine.FormClose();
        link.tail();
    }
    bool idle(const CommissioningLink& line, qint64 maxMs = 120000) {
        return clock.advanceUntil([&] { return !line.waitShown(); }, maxMs);
    }
    // Frames since the last call, with what is not asked for left out.
    QStringList frames(const QString& without = {}) {
        QStringList all = transcript();
        station.port.clearTranscript();
        if (!without.isEmpty()) all.removeAll(without);
        return all;
    }
    int value(int reg) { return station.drive.parameters().value(uint16_t(reg), -1); }
};

inline const QString PidState = QStringLiteral("FF0321190001");

}  // namespace kelvane
