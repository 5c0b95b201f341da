// serial_ports.txt of any content: every line is taken or complained about, and every number leads somewhere.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "link/port_directory.h"

using namespace kelvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const PortDirectory directory = PortDirectory::fromText(QString::fromUtf8(bytes));
    for (int number = FirstComNumber; number <= LastComNumber; ++number) {
        const PortTarget target = directory.target(number);
        if (target.kind == PortTarget::Kind::Nothing) std::abort();
        if (target.kind == PortTarget::Kind::Device && !target.devicePath.startsWith(QLatin1Char('/')))
            std::abort();
        if (target.kind == PortTarget::Kind::Gateway && (target.host.isEmpty() || target.tcpPort == 0))
            std::abort();
    }
    for (const QString& complaint : directory.complaints())
        if (!complaint.startsWith(QLatin1String("serial_ports.txt line "))) std::abort();
    return 0;
}

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    if (index != 0) return false;
    const QByteArray file =
        "# number=device\n5=/dev/serial/by-id/usb-adapter\r\n 19 = practice:Tilia # "
        "workshop\n20=/dev/null\n6=tcp:[::1]:502\n";
    bytes->assign(file.begin(), file.end());
    return true;
}
