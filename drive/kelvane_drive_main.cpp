// kelvane-drive: a practice drive on a pseudo-terminal, for anyone who has no drive at hand and for the tests
// of the real port. Ends well on an interrupt, on a request to terminate and, if asked, when its input ends.
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <cstdio>

#include "base/qt_tick_clock.h"
#include "drive/drive_arguments.h"
#include "drive/pty_end.h"

namespace {

using namespace kelvane;
using namespace kelvane::drive;

std::array<int, 2> signalPipe{-1, -1};

extern "C" void onSignal(int) {
    const char note = 1;
    // Nothing can be done about a full pipe: the program is then on its way out already.
    if (::write(signalPipe[1], &note, 1) < 0) return;
}

bool watchSignals(QSocketNotifier& notifier) {
    QObject::connect(&notifier, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    struct sigaction action {};
    action.sa_handler = onSignal;
    return ::sigaction(SIGINT, &action, nullptr) == 0 && ::sigaction(SIGTERM, &action, nullptr) == 0;
}

void quitAtEof(QSocketNotifier& notifier) {
    QObject::connect(&notifier, &QSocketNotifier::activated, [] {
        std::array<char, 256> buffer;
        if (::read(STDIN_FILENO, buffer.data(), buffer.size()) <= 0) QCoreApplication::quit();
    });
}

void setChances(FaultPlan& faults, const DriveArguments& arguments) {
    faults.setSeed(arguments.seed);
    faults.setChance(LineFault::Silent, arguments.losePercent);
    faults.setChance(LineFault::BadCheck, arguments.corruptPercent);
    faults.setChance(LineFault::Late, arguments.latePercent);
    if (arguments.plannedAt > 0) faults.failAt(arguments.plannedAt, arguments.planned);
}

int serve(const DriveArguments& arguments) {
    QtTickClock clock;
    PracticeDrive drive(familyData(arguments.family), arguments.drive);
    LineModel line(drive, arguments.line);
    setChances(line.faults(), arguments);
    PtyEnd end(clock, line);
    if (!end.open()) {
        std::fprintf(stderr, "kelvane-drive: %s\n", qPrintable(end.error()));
        return 1;
    }
    std::printf("%s\n", qPrintable(end.devicePath()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kelvane-drive"));
    const DriveArguments arguments = readArguments(QCoreApplication::arguments());
    if (!arguments.error.isEmpty()) {
        std::fprintf(stderr, "kelvane-drive: %s\nTry kelvane-drive --help.\n", qPrintable(arguments.error));
        return 2;
    }
    if (arguments.helpWanted) {
        std::printf("%s", qPrintable(arguments.helpText));
        return 0;
    }
    if (::pipe(signalPipe.data()) != 0) return 1;
    QSocketNotifier signalled(signalPipe[0], QSocketNotifier::Read);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    input.setEnabled(arguments.untilEof);
    quitAtEof(input);
    if (!watchSignals(signalled)) return 1;
    return serve(arguments);
}
