#include "link_bench_peers.h"

#include <fcntl.h>
#include <modbus.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>

namespace kelvane::bench {

namespace {

constexpr int SilentMs = 1000;

template <class Exchange>
SideResult timed(const std::vector<quint16>& registers, Exchange exchange) {
    SideResult result;
    const double cpuBefore = cpuUs();
    const double before = nowUs();
    for (const quint16 reg : registers)
        if (!exchange(reg)) ++result.failures;
    const auto exchanges = static_cast<double>(registers.size());
    result.usPerExchange = (nowUs() - before) / exchanges;
    result.cpuUsPerExchange = (cpuUs() - cpuBefore) / exchanges;
    return result;
}

speed_t speedOf(int Baud) {
    switch (Baud) {
        case 19200: return B19200;
        case 38400: return B38400;
        case 115200: return B115200;
        default: return B9600;
    }
}

class RawDevice {
   public:
    RawDevice(const QString& path, int Baud)
        : m_file(::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY)) {
        termios line{};
        if (::tcgetattr(m_file, &line) != 0) return;
        ::cfmakeraw(&line);
        ::cfsetspeed(&line, speedOf(Baud));
        line.c_cflag |= CSTOPB;
        m_open = ::tcsetattr(m_file, TCSANOW, &line) == 0;
    }
    ~RawDevice() {
        if (m_file >= 0) ::close(m_file);
    }
    bool isOpen() const { return m_open; }
    // Length of the reply up to its line end, 0 when it does not come.
    size_t ask(const QByteArray& frame) {
        if (::write(m_file, frame.constData(), size_t(frame.size())) != frame.size()) return 0;
        std::array<char, 256> reply;
        size_t length = 0;
        pollfd waiting{m_file, POLLIN, 0};
        while (length < reply.size() && ::poll(&waiting, 1, SilentMs) > 0) {
            const ssize_t count = ::read(m_file, reply.data() + length, reply.size() - length);
            if (count <= 0) return 0;
            length += static_cast<size_t>(count);
            if (reply[length - 1] == '\n') return length;
        }
        return 0;
    }

   private:
    int m_file;
    bool m_open = false;
};

}  // namespace

SideResult readByLibmodbus(const LineCase& line, const QString& device,
                           const std::vector<quint16>& registers) {
    const std::unique_ptr<modbus_t, decltype(&modbus_free)> bus(
        modbus_new_rtu(device.toLocal8Bit().constData(), line.Baud, 'N', 8, 2), modbus_free);
    if (!bus || modbus_set_slave(bus.get(), PeerAddress) != 0 || modbus_connect(bus.get()) != 0)
        return {.error = QString::fromLatin1(modbus_strerror(errno))};
    modbus_set_response_timeout(bus.get(), SilentMs / 1000, 0);
    std::array<uint16_t, RecordWords> words;
    const SideResult result = timed(registers, [&](quint16 reg) {
        return modbus_read_registers(bus.get(), reg, RecordWords, words.data()) == RecordWords;
    });
    modbus_close(bus.get());
    return result;
}

SideResult readByTermios(const LineCase& line, const QString& device, const std::vector<quint16>& registers) {
    RawDevice raw(device, line.Baud);
    if (!raw.isOpen()) return {.error = QStringLiteral("%1 cannot be opened").arg(device)};
    constexpr size_t ReplyLength = 11 + 4 * RecordWords;
    return timed(registers, [&](quint16 reg) {
        const QString command = QString::asprintf("FF03%04X%04X", reg, RecordWords);
        return raw.ask(buildFrame(LinkMode::Ascii, command, FrameCheck::Standard).wire) == ReplyLength;
    });
}

}  // namespace kelvane::bench
