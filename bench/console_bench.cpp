// kelvane-console-bench: the Advance console on a paced line. A command list of 20 rows runs at 115200 baud,
// and the listener hears ten minutes of it without pause. Ends with 1 when a bound is missed: a reply in a
// wrong row, a counter that is not exact, memory that grows, a run that lasts longer than its waits, or more
// than a tenth of a core for listening. Where other programs take the processor from the line's other end for
// longer than T1, a reply is cut, as it would be on a wire; that is counted by itself.
#include <unistd.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

#include "console/advance_console.h"
#include "drive/parameter_data.h"
#include "link_bench_tool.h"
#include "tests/bench/stub_port.h"

namespace {

using namespace kelvane;
using namespace kelvane::bench;

constexpr int Rows = 20;
constexpr int StepMs = 10;      // between two looks at whether the next row may go
constexpr double Bound = 1.25;  // of what the waits of one row add up to
constexpr double GrowthMb = 4;  // over the second half of a run
constexpr int ListenedS = 600;
constexpr double CoreShare = 0.10;
int missed = 0;

const char* verdict(bool within) {
    missed += !within;
    return within ? "" : "  MISSED";
}

double residentMb() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return file.readLine().split(' ').value(1).toDouble() * double(::sysconf(_SC_PAGESIZE)) / 1e6;
}

// ---- The command list over a pseudo terminal ----

struct ListSide : ToolSide {
    QTemporaryDir folder;
    QtComPort setupPort{QString()};
    ComSetup comSetup{link, setupPort, clock, {person, lang}};
    AdvanceConsole console{{link, comSetup, clock, wall, {person, lang}, folder.path()}};
    std::vector<quint16> registers = parametersToRead(Rows);
    std::vector<QString> seen = std::vector<QString>(Rows + 1);
    std::vector<QString> rightReplies = std::vector<QString>(Rows + 1);
    int wrongRows = 0;
    int replies = 0;
    int cut = 0;  // the line paused for longer than T1 within a reply; its rest may spoil the next one
    bool restIsDue = false;
    int unexplained = 0;  // failures of any other kind
    double heardUs = 0;

    ListSide(const LineCase& line, const QString& device) : ToolSide(line, device) {
        beReady();
        link.ActiveFunction = OwnerAdvance;
        QObject::connect(&link.Console, &ConsoleExchange::replied, &console, [this] { look(); });
        QObject::connect(&link.Console, &ConsoleExchange::lineCompleted, &console, [this] { judgeLine(); });
        port.OnTriggerAvail = [this, inner = port.OnTriggerAvail](int count) {
            heardUs = nowUs();
            inner(count);
        };
        for (int row = 1; row <= Rows; ++row) {
            if (row > 1) console.list.addRow();
            console.list.CmdAdvStringGrid.setCell(
                CommandList::CommandColumn, row,
                QString::asprintf("FF03%04X%04X", registers[size_t(row - 1)], RecordWords));
        }
    }
    int rowAwaited() const { return console.list.CurrentRow == 0 ? Rows : console.list.CurrentRow; }
    void judgeLine() {
        const ConsoleRecord& record = console.record();
        const QString came = record.topLine.section(QStringLiteral("Receive > "), -1);
        const QString& right = rightReplies[size_t(rowAwaited())];
        const bool behindCut = std::exchange(restIsDue, false);
        if (record.topLineColour != ConsolePurple) return;
        const double silentMs = (nowUs() - heardUs) / 1000;
        restIsDue = right.startsWith(came);
        const bool paused =
            silentMs >= console.settings().TimeOut1 && (restIsDue || (behindCut && came.endsWith(right)));
        ++(paused ? cut : unexplained);
        if (cut + unexplained <= 5)
            std::printf("  row %d after %.1f ms of silence: %s\n", rowAwaited(), silentMs, qPrintable(came));
    }
    // Each row's parameter has a value and texts of its own, which the first pass must bring as well.
    void look() {
        const int row = rowAwaited();
        rightReplies[size_t(row)] = link.Rx.RxLogText;
        const QString data = console.list.CmdAdvStringGrid.cell(CommandList::DataColumn, row);
        QString& before = seen[size_t(row)];
        if (before.isEmpty()) before = data;
        const quint16 at = registers[size_t(row - 1)];
        const auto& parameter = drive::familyData(Family::Larch).groups[at >> 8].rows[at & 0xFF];
        const int value = data.left(4).toInt(nullptr, 16);
        wrongRows += data != before || value != static_cast<quint16>(parameter.value);
        ++replies;
    }
    bool run(int repeats, const std::function<void()>& halfway) {
        console.RepeatLabeledEdit = QString::number(repeats);
        console.showConnectionPage(ConnectionPage::B);
        console.RepeatLabeledEdit = QString::number(repeats);
        console.RUNTransparentButtonClick();
        bool halfSeen = false;
        return runUntil(
            [&] {
                if (!halfSeen && replies >= Rows * repeats / 2) {
                    halfSeen = true;
                    halfway();
                }
                return !console.running() && console.traffic.free();
            },
            Rows * repeats * 500, 100);
    }
};

void measureList(const LineCase& line, int repeats) {
    const DriveProcess drive(line);
    if (!drive.running()) return void(std::printf("no drive%s\n", verdict(false)));
    ListSide side(line, drive.device());
    double halfMb = 0;
    const double cpu = cpuUs();
    const double start = nowUs();
    const bool ended = side.run(repeats, [&] { halfMb = residentMb(); });
    const double us = (nowUs() - start) / (Rows * repeats);
    const ConsoleRecord& record = side.console.record();
    const double waitsUs = double(line.limitUs()) + 1000.0 * (side.console.settings().TimeOut1 + StepMs);
    const bool exact = ended && side.wrongRows == 0 && side.unexplained == 0 &&
                       record.errorRecords == side.cut && record.totalRecords == Rows * repeats &&
                       side.replies + record.errorRecords + record.timeoutRecords == Rows * repeats;
    const double grown = residentMb() - halfMb;
    std::printf(
        "%s list %d x %d: %d sent, %d errors (%d cut by the line), %d time-outs, %d in a wrong row%s\n",
        qPrintable(line.name()), Rows, repeats, record.totalRecords, record.errorRecords, side.cut,
        record.timeoutRecords, side.wrongRows, verdict(exact));
    std::printf("  %.2f ms a row, its waits %.2f ms, ratio %.3f%s, %.0f us of processor time\n", us / 1000,
                waitsUs / 1000, us / waitsUs, verdict(us <= waitsUs * Bound),
                (cpuUs() - cpu) / (Rows * repeats));
    std::printf("  log %zu lines of at most %d%s, memory %.1f MB, %+.1f MB in the second half%s\n",
                side.console.log.lines().size(), ConsoleLog::Room,
                verdict(side.console.log.lines().size() <= size_t(ConsoleLog::Room)), residentMb(), grown,
                verdict(grown <= GrowthMb));
    std::fflush(stdout);
}

// ---- The listener on simulated bytes ----

struct Cutting {
    const char* name;
    LinkMode mode;
    bool byBreak;
    int bytesPerLine;
};

QByteArray hearable(const Cutting& cutting, qint64 from, qint64 count) {
    QByteArray bytes(count, Qt::Uninitialized);
    for (qint64 i = 0; i < count; ++i) {
        const qint64 place = (from + i) % cutting.bytesPerLine;
        const bool last = place == cutting.bytesPerLine - 1;
        bytes[i] = char(last ? '\n' : 'a' + place % 26);
    }
    return bytes;
}

void measureListener(const Cutting& cutting) {
    QTemporaryDir folder;
    QtTickClock clock;
    SystemWallClock wall;
    PatientOperator person;
    LangTable lang = LangTable::builtInEnglish();
    StubPort port;
    StubPort setupPort;
    RequestScheduler link({clock, wall, person, port, lang});
    ComSetup comSetup(link, setupPort, clock, {person, lang});
    AdvanceConsole console({link, comSetup, clock, wall, {person, lang}, folder.path()});
    link.ActiveFunction = OwnerAdvance;
    link.ComMode = static_cast<quint8>(cutting.mode);
    console.showPage(ConsolePage::Monitor);
    PortListener& listener = console.listener;
    listener.AutoBreakChRadioButtonChecked = cutting.byBreak;
    listener.setBreakLength(1);
    listener.setBreakCells({QStringLiteral("0A")});
    listener.WordCntLabeledEdit = QString::number(cutting.bytesPerLine);
    listener.RUNmonitorTransparentButtonClick();

    const PortSettings line{.ComNumber = 4, .Baud = 115200, .DataBits = 8, .StopBits = 1};
    const qint64 all = qint64(ListenedS) * 1000000 / line.wireTimeUs(1);
    const qint64 burst = 16000 / line.wireTimeUs(1);
    double halfMb = 0;
    double us = 0;
    for (qint64 heard = 0; heard < all; heard += burst) {
        if (halfMb == 0 && heard >= all / 2) halfMb = residentMb();
        const QByteArray bytes = hearable(cutting, heard, burst);
        const double before = cpuUs();
        port.arrive(bytes);
        us += cpuUs() - before;
    }
    const double grown = residentMb() - halfMb;
    listener.STOPmonitorTransparentButtonClick();
    const qint64 rest = all % burst == 0 ? all : (all / burst + 1) * burst;
    const qint64 lines = (rest + cutting.bytesPerLine - 1) / cutting.bytesPerLine;
    const double share = us / (ListenedS * 1e6);
    // A break byte begins its line, so the last one of all may stand alone.
    const bool whole = listener.addedLines() >= lines && listener.addedLines() <= lines + 1;
    std::printf("listener %-14s %lld bytes: %lld lines, %lld gone%s, %.4f of a core%s, %+.1f MB%s\n",
                cutting.name, rest, listener.addedLines(), listener.goneLines(), verdict(whole), share,
                verdict(share <= CoreShare), grown, verdict(grown <= GrowthMb));
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("repeats"), QStringLiteral("Passes of the command list."),
                      QStringLiteral("n"), QStringLiteral("30")});
    parser.addHelpOption();
    parser.process(app);
    std::printf("Console: at most %.2f of a row's waits, %.2f of a core for listening.\n", Bound, CoreShare);
    for (const Cutting& cutting :
         {Cutting{"RTU by length", LinkMode::Rtu, false, 20},
          Cutting{"RTU by break", LinkMode::Rtu, true, 20}, Cutting{"ASCII", LinkMode::Ascii, false, 40}})
        measureListener(cutting);
    for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
        measureList({mode, 115200}, parser.value(QStringLiteral("repeats")).toInt());
    return missed > 0;
}
