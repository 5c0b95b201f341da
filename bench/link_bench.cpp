// kelvane-link-bench: how close the link comes to what the wire allows, and what it costs. Reads parameters
// one by one over a paced line, polls, rests, and loses the other end; prints tables and ends with 1 when a
// bound is missed.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

#include "link_bench_peers.h"
#include "link_bench_tool.h"

namespace {

using namespace kelvane;
using namespace kelvane::bench;

struct Bounds {
    int Baud;
    double rtu;    // of limit + 3.5 characters; 0 where nothing is asked
    double ascii;  // of the bare loop
};
constexpr Bounds ReadBounds[] = {{9600, 1.03, 1.02}, {19200, 0, 0}, {38400, 0, 0}, {115200, 1.10, 1.05}};
constexpr double PollingPercent = 2;
constexpr double OffLinePercent = 0.1;
constexpr double LossPercent = 2;
constexpr double ClosedWithinMs = 1000;

struct Plan {
    int count = 200;
    int runs = 3;
    QString only;  // rows whose name has this in it
    QStringList tables;
};

int missed = 0;

const char* verdict(double value, double bound) {
    if (bound <= 0) return "";
    if (value <= bound) return "  within";
    ++missed;
    return "  MISSED";
}

void keepBest(SideResult& best, const SideResult& run) {
    const int failures = best.failures + run.failures;
    const double cpu =
        best.usPerExchange > 0 ? std::min(best.cpuUsPerExchange, run.cpuUsPerExchange) : run.cpuUsPerExchange;
    if (best.usPerExchange <= 0 || run.usPerExchange < best.usPerExchange) best = run;
    best.cpuUsPerExchange = cpu;
    best.failures = failures;
}

void measureReading(const Plan& plan, const LineCase& line, const Bounds& bounds) {
    const bool rtu = line.mode == LinkMode::Rtu;
    const std::vector<quint16> registers = parametersToRead(plan.count);
    SideResult tool;
    SideResult peer;
    for (int run = 0; run < plan.runs; ++run) {
        const DriveProcess drive(line);
        keepBest(peer, rtu ? readByLibmodbus(line, drive.device(), registers)
                           : readByTermios(line, drive.device(), registers));
        keepBest(tool, ToolSide(line, drive.device()).read(registers));
        if (!tool.error.isEmpty() || !peer.error.isEmpty()) {
            std::printf("%s  %s %s\n", qPrintable(line.name()), qPrintable(tool.error),
                        qPrintable(peer.error));
            ++missed;
            return;
        }
    }
    const double limit = double(line.limitUs() + line.silenceUs());
    const double ofLimit = tool.usPerExchange / limit;
    const double ofPeer = tool.usPerExchange / peer.usPerExchange;
    std::printf("%s %9.3f %9.3f %-9s %9.3f %8.4f %8.4f %8.0f %8.0f %6d", qPrintable(line.name()),
                limit / 1000, tool.usPerExchange / 1000, rtu ? "libmodbus" : "termios",
                peer.usPerExchange / 1000, ofLimit, ofPeer, tool.cpuUsPerExchange, peer.cpuUsPerExchange,
                tool.failures + peer.failures);
    const double bound = rtu ? bounds.rtu : bounds.ascii;
    if (bound > 0) std::printf("  %s <= %.2f", rtu ? "of limit" : "of peer", bound);
    std::printf("%s\n", verdict(rtu ? ofLimit : ofPeer, bound));
    if (tool.failures > 0) ++missed;
    std::fflush(stdout);
}

void measureReading(const Plan& plan) {
    std::printf(
        "Reading %d parameters one by one; best of %d runs a row, ms an exchange, CPU in us an exchange.\n"
        "Limit: both frames on the wire and %.0f ms turnaround, in RTU 3.5 characters (1.75 ms above\n"
        "19200 baud) of silence on top.\n\n",
        plan.count, plan.runs, double(TurnaroundUs) / 1000);
    std::printf("%-12s %9s %9s %-9s %9s %8s %8s %8s %8s %6s\n", "line", "limit", "tool", "peer", "ms",
                "of limit", "of peer", "tool CPU", "peer CPU", "failed");
    for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
        for (const Bounds& bounds : ReadBounds) {
            const LineCase line{mode, bounds.Baud};
            if (line.name().contains(plan.only)) measureReading(plan, line, bounds);
        }
}

// Least share of a core over several windows of time: what other programs do to the caches is not ours.
double cpuPercentOver(int ms, int runs) {
    double least = 100;
    for (int run = 0; run < runs; ++run) {
        const double cpuBefore = cpuUs();
        const double before = nowUs();
        runFor(ms);
        least = std::min(least, (cpuUs() - cpuBefore) / (nowUs() - before) * 100);
    }
    return least;
}

void measureResting(const LineCase& line, const QString& flow, int runs) {
    const DriveProcess drive(line, flow);
    ToolSide tool(line, drive.device());
    int polls = 0;
    QObject::connect(&tool.link, &RequestScheduler::statusDecoded, &tool.link, [&polls] { ++polls; });
    tool.poll();
    runFor(500);
    polls = 0;
    const double on = cpuPercentOver(10000, runs);
    std::printf("%s  %-6s  polling 10 s: %6.3f %%, %d polls%s\n", qPrintable(line.name()), qPrintable(flow),
                on, polls / runs, verdict(on, PollingPercent));
    tool.offLine();
    runFor(100);
    const double off = cpuPercentOver(5000, runs);
    std::printf("%s  %-6s  off line 5 s: %6.3f %%%s\n", qPrintable(line.name()), qPrintable(flow), off,
                verdict(off, OffLinePercent));
    std::fflush(stdout);
}

// Bytes one by one wake the tool as often as can be; an adapter's buffer hands over eight at a time.
void measureResting(int runs) {
    std::printf("\nCPU of the link without windows, share of a core; best of %d runs.\n\n", runs);
    for (const char* flow : {"single", "fifo"})
        for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
            measureResting({mode, 9600}, QLatin1String(flow), runs);
}

void pointTo(const QString& path, const QString& device) {
    QFile::remove(path);
    QFile::link(device, path);
}

void measureLoss(const LineCase& line) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("device"));
    DriveProcess first(line);
    pointTo(path, first.device());
    ToolSide tool(line, path);
    int polls = 0;
    QObject::connect(&tool.link, &RequestScheduler::statusDecoded, &tool.link, [&polls] { ++polls; });
    tool.poll();
    runFor(1000);
    tool.history.clear();
    const int before = polls;
    const double cpuBefore = cpuUs();
    const double lostAt = nowUs();
    first.vanish();
    const bool closed = runUntil([&] { return !tool.port.Open(); }, 5000, 1);
    const double closedMs = (nowUs() - lostAt) / 1000;
    runFor(3000);
    const double percent = (cpuUs() - cpuBefore) / (nowUs() - lostAt) * 100;
    const QString told = tool.history.value(0);
    const DriveProcess second(line);
    pointTo(path, second.device());
    const double backAt = nowUs();
    const int polled = polls;
    const bool again = runUntil([&] { return polls > polled; }, 20000, 5);
    std::printf(
        "\n%s  %d polls, then the other end goes away: closed %s after %.1f ms%s, CPU %.3f %% over 3 s%s,\n"
        "              history \"%s\",\n"
        "              back on the same path: %s after %.0f ms\n",
        qPrintable(line.name()), before, closed ? "" : "NOT", closedMs, verdict(closedMs, ClosedWithinMs),
        percent, verdict(percent, LossPercent), qPrintable(told.mid(told.indexOf(QLatin1String(" > ")) + 3)),
        again ? "polls" : "NO POLL", (nowUs() - backAt) / 1000);
    if (!again || told.isEmpty()) ++missed;
    tool.offLine();
}

// Whatever the baud rate, the adapter and the drive's pace, a drive that answers is never declared silent and
// its replies are never cut, also while the port holds back the rest of a reply.
void measureMatrix(int count) {
    std::printf(
        "\nReading %d parameters on every line: bytes singly, in eights and in packets, answered after 2 and "
        "20 ms.\n\n",
        count);
    const std::vector<quint16> registers = parametersToRead(count);
    for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
        for (const int Baud : {1200, 9600, 38400, 115200}) {
            const LineCase line{mode, Baud};
            int failures = 0;
            QStringList told;
            for (const char* flow : {"single", "fifo", "usb"})
                for (const char* turnaround : {"2", "20"}) {
                    const DriveProcess drive(line, QLatin1String(flow),
                                             {QStringLiteral("--turnaround"), QLatin1String(turnaround)});
                    ToolSide tool(line, drive.device());
                    failures += tool.read(registers).failures;
                    told += tool.history;
                }
            missed += failures > 0 || !told.isEmpty();
            std::printf("%s  6 lines, %d failures, history: %s\n", qPrintable(line.name()), failures,
                        told.isEmpty() ? "nothing" : qPrintable(told.join(QLatin1String("; "))));
            std::fflush(stdout);
        }
}

Plan readPlan() {
    QCommandLineParser parser;
    parser.addHelpOption();
    const auto option = [&](const char* name, const char* text, const char* value, const char* preset) {
        parser.addOption(
            {QLatin1String(name), QLatin1String(text), QLatin1String(value), QLatin1String(preset)});
    };
    option("count", "Parameters a run (200).", "number", "200");
    option("runs", "Runs a row; the best one counts (3).", "number", "3");
    option("only", "Only the reading rows whose name holds this text.", "text", "");
    option("tables", "Which tables (reading,rest,loss,matrix).", "names", "reading,rest,loss,matrix");
    parser.process(*QCoreApplication::instance());
    Plan plan;
    plan.count = std::max(1, parser.value(QStringLiteral("count")).toInt());
    plan.runs = std::max(1, parser.value(QStringLiteral("runs")).toInt());
    plan.only = parser.value(QStringLiteral("only"));
    plan.tables = parser.value(QStringLiteral("tables")).split(QLatin1Char(','));
    return plan;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const Plan plan = readPlan();
    if (plan.tables.contains(QStringLiteral("reading"))) measureReading(plan);
    if (plan.tables.contains(QStringLiteral("rest"))) measureResting(plan.runs);
    if (plan.tables.contains(QStringLiteral("loss")))
        for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii}) measureLoss({mode, 9600});
    if (plan.tables.contains(QStringLiteral("matrix"))) measureMatrix(10);
    if (missed > 0) std::printf("\n%d bounds missed.\n", missed);
    return missed > 0 ? 1 : 0;
}
