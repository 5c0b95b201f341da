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
    ParameterSession session;

    StationBench(Operator& asked, Family family, const QString& programFolder = {})
        : station(clock, drive::familyData(family), line()),
          link({clock, wall, asked, station.port, lang}),
          session(link, clock, names, {asked, lang}, {.programFolder = programFolder, .wallClock = &wall}) {
        link.Initial();
        link.emptyQueues();
        station.port.setSettings(line().wire);
        link.ComMode = 1;
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = 5;
        link.ActiveFunction = OwnerParameter;
        link.ParamRead.fixedParaName = fixedParaName;
        link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        link.Labels = {QString::fromLatin1(familyName(family)), "2.05", "150A", "460V", "75 ( 100 )"};
        DriveStatusRecord& status = link.DriveStatus;
        status.DriveReady = 1;
        status.DriveFamily = static_cast<quint8>(family);
        const auto& groups = drive::familyData(family).groups;
        status.GroupCount = static_cast<quint8>(groups.size() - 1);
        for (size_t G = 0; G < groups.size(); ++G) {
            status.GroupParamCount[G] = static_cast<quint16>(groups[G].rows.size() - 1);
            names.storeReportedName(status.DriveFamily, static_cast<int>(G),
                                    QString::fromStdString(std::string(groups[G].name)));
        }
        link.notifyChanged();
        session.opened();
    }
    bool runUntil(const std::function<bool()>& done) { return clock.advanceUntil(done, 600 * 1000); }
    void readTable() {
        session.reader.ReadDriveTransparentButtonClick();
        ASSERT_TRUE(runUntil([this] { return !session.progress.shown; }));
    }
};

}  // namespace kelvane
