// kelvane-quick-setup-bench: Quick Setup's two sweeps on a real line, every family, with the bare scheduler
// that sends the same commands on the same line in the same run. Ends with 1 when a bound is missed.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <cstdio>

#include "link_bench_tool.h"
#include "quicksetup/quick_setup_flow.h"

namespace {

using namespace kelvane;
using namespace kelvane::bench;

constexpr double Bound = 1.05;
constexpr int SweepLimitMs = 60000;
int missed = 0;

struct SetupSide : ToolSide {
    QuickSetup quick{link, {person, lang}};
    QuickSetupFlow flow{quick, link, clock, {person, lang}};

    const Family family;

    SetupSide(const LineCase& line, const QString& device, Family driveFamily)
        : ToolSide(line, device), family(driveFamily) {
        beReadyForASweep();
    }
    // Each sweep begins with a link that knows nothing of the line. What it remembers of replies to other
    // registers would make the second of two sweeps more careful than the first.
    void beReadyForASweep() {
        beReady();
        link.DriveStatus.DriveFamily = static_cast<quint8>(family);
        link.ActiveFunction = OwnerQuickSetup;
        quick.Initial();
        port.open();
        runFor(20);
    }
    QStringList commands(bool writing) const {
        QStringList all;
        for (int slot = 1; slot <= SlotCount; ++slot)
            if (quick.used(slot))
                all += writing ? quick.Slot[size_t(slot)].SlotWriteCommand
                               : quick.Slot[size_t(slot)].SlotReadCommand;
        return all;
    }
    // Until the last command's reply is in, which the sweep itself does not wait for.
    double sweepUs(const std::function<void()>& begin, qsizetype exchanges) {
        beReadyForASweep();
        int ended = 0;
        QEventLoop loop;
        const auto counting = QObject::connect(&link, &RequestScheduler::cycleEnded, &loop, [&] {
            if (!link.inHand() && ++ended >= exchanges) loop.quit();  // else it is sent again
        });
        const double before = nowUs();
        QTimer::singleShot(SweepLimitMs, &loop, &QEventLoop::quit);
        begin();
        loop.exec();
        QObject::disconnect(counting);
        return nowUs() - before;
    }
    double readUs() {
        return sweepUs([this] { flow.chooseSource(SettingsSource::Drive); }, commands(false).size());
    }
    double writeUs() {
        return sweepUs([this] { flow.OkBitBtnClick(); }, commands(true).size());
    }
    double bareUs(quint8 task, const QStringList& list) {
        qsizetype next = 0;
        const auto ask = [&] {
            if (!link.inHand() && next < list.size()) link.request(task, list[next++]);
        };
        const auto chain = QObject::connect(&link, &RequestScheduler::cycleEnded, &link, ask);
        const double us = sweepUs(ask, list.size());
        QObject::disconnect(chain);
        return us;
    }
};

void report(const char* what, double sweep, double bare, qsizetype exchanges) {
    const bool within = sweep <= bare * Bound;
    missed += !within;
    std::printf("  %s %2d: %8.1f ms, bare %8.1f ms, ratio %.3f%s", what, int(exchanges), sweep / 1000,
                bare / 1000, sweep / bare, within ? "" : "  MISSED");
}

void measure(const LineCase& line, Family family, int runs) {
    double best[4] = {0, 0, 0, 0};
    qsizetype exchanges = 0;
    const auto keep = [&](int place, double us) {
        if (best[place] == 0 || us < best[place]) best[place] = us;
    };
    for (int run = 0; run < runs; ++run) {
        const DriveProcess drive(
            line, QStringLiteral("single"),
            {QStringLiteral("--family"), QString::fromLatin1(familyName(family)).toLower()});
        SetupSide side(line, drive.device(), family);
        exchanges = side.commands(false).size();
        // What goes first meets a drive that has just started, so they take turns.
        const auto takeTurns = [run](const std::function<void()>& sweep, const std::function<void()>& bare) {
            (run % 2 ? sweep : bare)();
            (run % 2 ? bare : sweep)();
        };
        takeTurns([&] { keep(0, side.readUs()); }, [&] { keep(1, side.bareUs(20, side.commands(false))); });
        side.quick.buildWriteCommands();
        takeTurns([&] { keep(2, side.writeUs()); }, [&] { keep(3, side.bareUs(13, side.commands(true))); });
    }
    std::printf("%s %-7s", qPrintable(line.name()), familyName(family));
    report("read", best[0], best[1], exchanges);
    report("write", best[2], best[3], exchanges);
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("runs"), QStringLiteral("Runs a row, the best counts."),
                      QStringLiteral("n"), QStringLiteral("2")});
    parser.addOption({QStringLiteral("baud"), QStringLiteral("This baud rate alone."), QStringLiteral("n")});
    parser.addHelpOption();
    parser.process(app);
    std::printf("Sweeps of Quick Setup, best of some runs; at most %.2f of the bare scheduler.\n", Bound);
    for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
        for (const int baud : {9600, 115200}) {
            if (parser.isSet("baud") && parser.value("baud").toInt() != baud) continue;
            for (const Family family : AllFamilies)
                measure({mode, baud}, family, parser.value("runs").toInt());
        }
    return missed > 0;
}
