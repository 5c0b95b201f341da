#include "link/link_records.h"

namespace kelvane {

LampRecord lampOnLine(LinkMode mode, const PortSettings& line) {
    LampRecord lamp;
    lamp.green = true;
    lamp.ComStatusAbLED = QStringLiteral("On Line");
    lamp.mainPanel1 = QStringLiteral("%1 %2 < %3, %4, %5 >")
                          .arg(mode == LinkMode::Rtu ? QStringLiteral("RTU") : QStringLiteral("ASCII"))
                          .arg(line.Baud)
                          .arg(line.DataBits)
                          .arg(parityLetter(line.Parity))
                          .arg(line.StopBits);
    lamp.parameterPanel1 = QStringLiteral("On - Line");
    return lamp;
}

}  // namespace kelvane
