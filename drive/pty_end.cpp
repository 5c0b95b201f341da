#include "drive/pty_end.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace kelvane::drive {

namespace {

struct Speed {
    speed_t code;
    int baud;
};
constexpr auto Speeds = std::to_array<Speed>({
    {B1200, 1200},
    {B2400, 2400},
    {B4800, 4800},
    {B9600, 9600},
    {B19200, 19200},
    {B38400, 38400},
    {B57600, 57600},
    {B115200, 115200},
});

int baudOf(speed_t code) {
    const auto row = std::ranges::find(Speeds, code, &Speed::code);
    return row == Speeds.end() ? 0 : row->baud;
}

}  // namespace

PtyEnd::PtyEnd(TickClock& clock, LineModel& line)
    : m_clock(clock), m_line(line), m_alarm(clock.makeAlarm([this] { due(); })) {}

PtyEnd::~PtyEnd() { shut(); }

void PtyEnd::shut() {
    m_alarm->disarm();
    m_readable.reset();
    if (m_slave >= 0) ::close(m_slave);
    if (m_master >= 0) ::close(m_master);
    m_slave = m_master = -1;
}

bool PtyEnd::fail(const char* what) {
    m_error = QString::fromLatin1(what) + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errno));
    shut();
    return false;
}

bool PtyEnd::open() {
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_master < 0) return fail("No pseudo-terminal could be made");
    if (::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
        return fail("The pseudo-terminal stays locked");
    std::array<char, 128> name{};
    if (::ptsname_r(m_master, name.data(), name.size()) != 0) return fail("The pseudo-terminal has no name");
    m_path = QString::fromLocal8Bit(name.data());
    m_slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_slave < 0) return fail("The device of the pseudo-terminal cannot be opened");
    if (!makeRaw()) return fail("The device of the pseudo-terminal cannot be set up");
    m_readable = std::make_unique<QSocketNotifier>(m_master, QSocketNotifier::Read);
    QObject::connect(m_readable.get(), &QSocketNotifier::activated, m_readable.get(), [this] { readHost(); });
    return true;
}

// Raw, at the drive's own speed until a program sets another one.
bool PtyEnd::makeRaw() {
    termios settings{};
    if (::tcgetattr(m_slave, &settings) != 0) return false;
    ::cfmakeraw(&settings);
    const auto row = std::ranges::find(Speeds, m_line.options().wire.Baud, &Speed::baud);
    ::cfsetspeed(&settings, row == Speeds.end() ? B9600 : row->code);
    return ::tcsetattr(m_slave, TCSANOW, &settings) == 0;
}

// A pseudo-terminal keeps the speed that a program sets; of the other settings it forgets some, so they count
// as the drive's own.
PortSettings PtyEnd::hostSettings() const {
    PortSettings host = m_line.options().wire;
    termios settings{};
    if (::tcgetattr(m_slave, &settings) == 0) host.Baud = baudOf(::cfgetospeed(&settings));
    return host;
}

void PtyEnd::readHost() {
    std::array<char, 1024> buffer;
    const ssize_t count = ::read(m_master, buffer.data(), buffer.size());
    if (count <= 0) return;
    m_line.send(QByteArray(buffer.data(), qsizetype(count)), hostSettings(), m_clock.nowUs());
    schedule();
}

void PtyEnd::due() {
    m_line.advanceTo(m_clock.nowUs());
    writeHost(m_line.takeArrived());
    if (m_line.unplugged()) {
        m_error = QStringLiteral("Unplugged.");
        shut();
        return;
    }
    schedule();
}

// What does not fit is lost, as on a line without flow control.
void PtyEnd::writeHost(const QByteArray& bytes) {
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(m_master, bytes.data() + written, size_t(bytes.size() - written));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return;
        written += count;
    }
}

void PtyEnd::schedule() {
    const qint64 dueUs = m_line.nextDueUs();
    if (dueUs >= 0) m_alarm->arm(std::max<qint64>(0, dueUs - m_clock.nowUs()));
}

}  // namespace kelvane::drive
