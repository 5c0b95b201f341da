// What the tool is measured against on the same line: libmodbus in RTU and a bare loop on the device in
// ASCII.
#pragma once

#include "link_bench_line.h"

namespace kelvane::bench {

SideResult readByLibmodbus(const LineCase& line, const QString& device,
                           const std::vector<quint16>& registers);
SideResult readByTermios(const LineCase& line, const QString& device, const std::vector<quint16>& registers);

}  // namespace kelvane::bench
