#include "shell/practice_drives.h"

#include <array>

namespace kelvane {

drive::LineOptions PracticeDrives::usualLine() {
    drive::LineOptions line;  // ASCII 9600 7, N, 2
    line.flow = drive::ByteFlow::Fifo;
    return line;
}

PracticeDrives::Station& PracticeDrives::station(Family family) {
    std::unique_ptr<Station>& place = m_stations[family];
    if (!place) place = std::make_unique<Station>(family, m_line);
    return *place;
}

std::unique_ptr<TApdComPort> PracticeDrives::makePort(Family family) {
    return std::make_unique<drive::PracticePort>(m_clock, station(family).line);
}

void PracticeDrives::raiseFault(Family family) {
    constexpr std::array<uint8_t, 6> faults{5, 1, 14, 3, 6, 2};  // motor overload first
    driveOf(family).motor().injectFault(faults[m_raised++ % faults.size()]);
}

}  // namespace kelvane
