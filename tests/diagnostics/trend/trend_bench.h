// A trend session over an identified drive whose status words the test sets, on a hand-driven clock.
#pragma once

#include <QTemporaryDir>

#include "bench/link_bench.h"
#include "diagnostics/trend/trend_session.h"

namespace kelvane {

struct TrendSessionBench : SchedulerBench {
    QTemporaryDir dir;
    TrendSession session{{clock, wall, link, person, dir.filePath("journal")}};

    explicit TrendSessionBench(Family family = Family::Larch) {
        recognise(family);
        link.setLamp(LampState::OffLine);
    }

    // A drive has said who it is.
    void recognise(Family family) {
        beOnLine(family);
        session.InitialDrive(identification.itemList);
    }
    void goOnLine() { link.setLamp(LampState::OnLine); }
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
