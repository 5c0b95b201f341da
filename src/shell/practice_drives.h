// The built-in practice drives of the tool: one a family, made when it is first asked for, on a line that is
// paced like a real one. Every port that leads to a family shares its drive, so what was written to it stays.
#pragma once

#include <map>
#include <memory>

#include "base/tick_clock.h"
#include "drive/practice_port.h"

namespace kelvane {

class PracticeDrives {
   public:
    // Settings that the drives are set to: as com setup is on a first start.
    static drive::LineOptions usualLine();

    explicit PracticeDrives(TickClock& clock, const drive::LineOptions& line = usualLine())
        : m_clock(clock), m_line(line) {}

    std::unique_ptr<TApdComPort> makePort(Family family);
    drive::PracticeDrive& driveOf(Family family) { return station(family).drive; }
    drive::LineModel& lineOf(Family family) { return station(family).line; }

   private:
    struct Station {
        Station(Family family, const drive::LineOptions& options)
            : drive(drive::familyData(family), {.workingLoad = true}), line(drive, options) {}
        drive::PracticeDrive drive;
        drive::LineModel line;
    };
    Station& station(Family family);
    TickClock& m_clock;
    drive::LineOptions m_line;
    std::map<Family, std::unique_ptr<Station>> m_stations;
};

}  // namespace kelvane
