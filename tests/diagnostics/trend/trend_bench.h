// A trend session over a scheduler whose status words the test sets, on a hand-driven clock.
#pragma once

#include <QTemporaryDir>

#include "bench/link_bench.h"
#include "catalogue/family_profiles.h"
#include "diagnostics/trend/trend_session.h"

namespace kelvane {

struct TrendSessionBench : SchedulerBench {
    QTemporaryDir dir;
    TrendSession session{{clock, wall, link, person, dir.filePath("journal")}};

    explicit TrendSessionBench(Family family = Family::Larch) { recognise(family); }

    // As identification does when a drive has named its family.
    void recognise(Family family) {
        DriveStatusRecord& status = link.DriveStatus;
        status.DriveFamily = static_cast<quint8>(family);
        const FamilyProfile* profile = familyProfile(status.DriveFamily);
        writeStatusItems(*profile, status);
        session.InitialDrive(
            itemNames(*profile, lang.commonItemNames, lang.familyItemNames(status.DriveFamily)));
    }
    void goOnLine() {
        link.Lamp.ComStatusAbLED = "On Line";
        link.DriveStatus.DriveReady = 1;
    }
    void setItem(int k, quint32 word) { link.DriveStatus.StatusWords[static_cast<size_t>(k + 2)] = word; }
    // One tick of the window with these words.
    void tick() { session.ProcessScopeData(link.DriveStatus); }
    void record(int count) { clock.advance(100 * count); }
    qint64 total() const { return session.AbTrend1.TotalRecords(); }
    ValueAtCursor at(qint64 record) const {
        const TrendRecord& found = session.AbTrend1.data.records[record];
        return {true, record, found.Time, found.Ch, {}};
    }
};

}  // namespace kelvane
