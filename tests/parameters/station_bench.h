// The Parameter window's session on line with a practice drive on a hand-driven clock, as the shell leaves
// it.
#pragma once

#include "base/manual_tick_clock.h"
#include "catalogue/identification.h"
#include "drive/parameter_data.h"
#include "drive/practice_port.h"
#include "parameters/parameter_session.h"

namespace kelvane {

struct StationBench {
    static drive::LineOptions line() {
        drive::LineOptions options{.mode = drive::LineMode::Rtu};
        options.wire = {.Baud = 38400, .DataBits = 8};
        return options;
    }

    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    LangTable lang = LangTable::builtInEnglish();
    drive::PracticeStation station;
    RequestScheduler link;
    GroupNameTable names;
    DriveIdentification identification;
    ParameterSession session;

    StationBench(Operator& asked, Family family, const QString& programFolder = {})
        : station(clock, drive::familyData(family), line()),
          link({clock, wall, asked, station.port, lang}),
          identification(link, names, {asked, lang}),
          session(link, clock, names, {asked, lang}, {.programFolder = programFolder, .wallClock = &wall}) {
        station.port.setSettings(line().wire);
        link.ComMode = 1;
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = 5;
        link.Initial();
        link.TxTimer.setEnabled(true);
        runUntil([this] { return link.DriveStatus.DriveReady == 1; });
        link.prelude();
        link.ActiveFunction = OwnerParameter;
        station.port.clearTranscript();
        session.opened();
    }
    bool runUntil(const std::function<bool()>& done) { return clock.advanceUntil(done, 600 * 1000); }
    void readTable() {
        session.reader.ReadDriveTransparentButtonClick();
        ASSERT_TRUE(runUntil([this] { return !session.progress.shown; }));
    }
};

}  // namespace kelvane
