// Trends of a million records and more: repaint against a packaged plotting library, one step of a running
// recording, scope files against cat and against one whole write, memory, and how all of it grows. Each line
// says what was measured, against what, and what it may be at most. The last column is the verdict; the exit
// code counts failures.
//
//   kelvane-trend-bench [repaint] [step] [file] [growth]     all when none is named
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QBoxLayout>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/manual_tick_clock.h"
#include "bench/cpu_time.h"
#include "bench/trend_bench_peer.h"
#include "diagnostics/trend/scope_file.h"
#include "diagnostics/trend/trend_recorder.h"
#include "ui/trend_overview.h"
#include "ui/trend_plot.h"

using namespace kelvane;

namespace {

constexpr QSize PlotSize(1110, 600);  // a thousand columns
int failures = 0;

void report(const char* what, double value, const char* unit, double most) {
    const bool ok = value <= most;
    failures += !ok;
    std::printf("%-58s %10.3f %-10s at most %8.3f   %s\n", what, value, unit, most, ok ? "ok" : "TOO MUCH");
    std::fflush(stdout);
}

// The best of some runs, in ms.
template <class Work>
double best(int runs, Work work) {
    double least = 1e300;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        least = std::min(least, double(timer.nsecsElapsed()) / 1e6);
    }
    return least;
}

// Motor curves with noise, eight channels of different shape.
TrendRecord sample(qint64 i) {
    const double t = double(i) / 100;
    TrendRecord record{45000 + double(i) / 864000, {}};
    for (size_t c = 0; c < record.Ch.size(); ++c)
        record.Ch[c] =
            quint16(3000 + 2500 * std::sin(t / double(c + 1)) + double((i * 7919 + qint64(c) * 131) % 97));
    return record;
}

void fill(TrendData& data, qint64 count) {
    data.channels.resize(TrendChannelRoom);
    for (size_t c = 0; c < data.channels.size(); ++c) {
        data.channels[c].DigitalTo = 6600;
        data.channels[c].ValueTo = 66;
        data.channels[c].color = 0x4080FF + quint32(c) * 0x101010;
    }
    TrendRecord* room = data.records.roomFor(count);
    if (!room) std::exit(2);
    for (qint64 i = 0; i < count; ++i) room[i] = sample(i);
    data.records.grown(count);
}

double paintMs(TrendPlot& plot) {
    const double before = cpuMs();
    plot.grab();
    return cpuMs() - before;
}

double ourRepaint(TrendPlot& plot) {
    double least = 1e300;
    for (int i = 0; i < 5; ++i) {
        plot.lookChanged();
        least = std::min(least, paintMs(plot));
    }
    return least;
}

void repaint() {
    {
        // Letters and lines that every first paint of a program waits for.
        TrendData none;
        fill(none, 1000);
        TrendPlot plot(none);
        plot.resize(PlotSize);
        ourRepaint(plot);
    }
    for (const qint64 count : {qint64(1000000), qint64(10000000)}) {
        TrendData data;
        fill(data, count);
        double ours = 0;
        double first = 1e300;
        // As often as the peer, and each time with records that have no index yet.
        for (int round = 0; round < 3; ++round) {
            TrendData fresh;
            fresh.channels = data.channels;
            TrendRecord* room = fresh.records.roomFor(count);
            if (!room) std::exit(2);
            std::ranges::copy(data.records.all(), room);
            fresh.records.grown(count);
            TrendPlot plot(fresh);
            plot.resize(PlotSize);
            plot.show();
            plot.fit();
            first = std::min(first, paintMs(plot));
            ours = ourRepaint(plot);
        }
        const double theirs = qCustomPlotRepaintMs(data, PlotSize);
        std::printf("full repaint of %lld records x 8: %.2f ms, the first %.2f ms, QCustomPlot %.2f ms\n",
                    static_cast<long long>(count), ours, first, theirs);
        const bool million = count == 1000000;
        const double most = million ? 0.25 : 0.1;
        report(
            million ? "full repaint, 10^6 x 8, of QCustomPlot's" : "full repaint, 10^7 x 8, of QCustomPlot's",
            ours / theirs, "", most);
        // With the canvas and the index, which are made then, of the peer's later ones.
        report("the first one, of QCustomPlot's later ones", first / theirs, "", most);
    }
}

// Plots as in the window, with the overview strip, one record at a time on the screen.
void step() {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    TrendRecorder recorder(clock, wall, TrendChannelRoom);
    fill(recorder.data, 1000000);
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* plot = new TrendPlot(recorder.data);
    auto* strip = new TrendOverview(recorder.data, *plot);
    column->addWidget(plot, 1);
    column->addWidget(strip);
    window.resize(PlotSize);
    window.show();
    plot->setFlow(true);
    QObject::connect(&recorder, &TrendRecorder::OnInterval, plot, [plot] { plot->recordsGrew(); });
    QCoreApplication::processEvents();
    recorder.SetStartRecording(true);
    QCoreApplication::processEvents();
    constexpr int Steps = 500;
    const double before = cpuMs();
    for (int i = 0; i < Steps; ++i) {
        for (int c = 1; c <= TrendChannelRoom; ++c)
            recorder.Channel(c).Digit = quint16(1000 + 37 * c * (i % 100));
        clock.advance(100);
        if (i % 10 == 0) strip->refresh();
        QCoreApplication::processEvents();
    }
    report("one step of a recording, 10^6 records behind it", (cpuMs() - before) / Steps, "ms of a core", 2);
}

// Processor time: files are in the cache, and nobody else's work counts.
double catMs(const QString& path) {
    const auto spent = [] {
        rusage usage{};
        ::getrusage(RUSAGE_CHILDREN, &usage);
        return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
               double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
    };
    const QByteArray command = "cat '" + path.toLocal8Bit() + "' > /dev/null";
    const double before = spent();
    if (std::system(command.constData()) != 0) std::exit(2);
    return spent() - before;
}

double wholeWriteMs(const QString& path, const TrendRecords& records) {
    const auto all = records.all();
    return best(1, [&] {
        QFile::remove(path);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) std::exit(2);
        if (file.write(reinterpret_cast<const char*>(all.data()), qint64(all.size_bytes())) < 0) std::exit(2);
        ::fsync(file.handle());
    });
}

double loadMs(const QString& path) {
    const double before = cpuMs();
    TrendRecords records;
    if (!loadScopeFile(path, records).ok) std::exit(2);
    return cpuMs() - before;
}

qint64 residentBytes() {
    QFile statm("/proc/self/statm");
    statm.open(QIODevice::ReadOnly);
    return statm.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

struct Times {
    double load = 1e300;
    double save = 1e300;
    double cat = 1e300;
    double whole = 1e300;
    double repaint = 0;
    double bytes = 0;
};

// Ours and the peers' turn by turn, so that a busy machine is busy for both; the best of each.
Times timesOf(qint64 count, const QString& path) {
    Times times;
    TrendData data;
    fill(data, count);
    for (int round = 0; round < 5; ++round) {
        times.save = std::min(times.save, best(1, [&] {
                                  if (!saveScopeFile(path, data.records).ok) std::exit(2);
                              }));
        times.whole = std::min(times.whole, wholeWriteMs(path + ".whole", data.records));
    }
    for (int round = 0; round < 9; ++round) {
        times.load = std::min(times.load, loadMs(path));
        times.cat = std::min(times.cat, catMs(path));
    }
    times.bytes = double(data.records.bytesHeld());
    TrendPlot plot(data);
    plot.resize(PlotSize);
    plot.show();
    plot.fit();
    times.repaint = ourRepaint(plot);
    return times;
}

void file() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("run.trd");
    constexpr qint64 Count = 10000000;
    const Times times = timesOf(Count, path);
    TrendRecords records;
    const qint64 before = residentBytes();
    static_cast<void>(loadScopeFile(path, records));
    const double loaded = double(residentBytes() - before) / Count;
    std::printf("10^7 records: load %.0f ms, cat %.0f ms, save %.0f ms, one whole write %.0f ms\n",
                times.load, times.cat, times.save, times.whole);
    report("load of 10^7 records, of cat's", times.load / times.cat, "", 2);
    report("save of 10^7 records, of one whole write's", times.save / times.whole, "", 1.3);
    report("resident memory a record after the load, of 24 bytes", loaded / 24, "", 1.05);
    for (qint64 i = 0; i < 3000000; ++i)
        if (!records.append(sample(i))) std::exit(2);
    static_cast<void>(records.extremes(0, records.size()));
    report("memory a record while recording, held, of 24 bytes",
           double(records.bytesHeld()) / double(records.size()) / 24, "", 1.7);
    report("memory a record while recording, resident, of 24 bytes",
           double(residentBytes() - before) / double(records.size()) / 24, "", 1.7);
}

void growth() {
    const QTemporaryDir folder;
    const Times few = timesOf(100000, folder.filePath("few.trd"));
    const Times many = timesOf(10000000, folder.filePath("many.trd"));
    report("10^7 records of 10^5: load", many.load / few.load, "times", 110);
    report("10^7 records of 10^5: save", many.save / few.save, "times", 110);
    report("10^7 records of 10^5: repaint", many.repaint / few.repaint, "times", 110);
    report("10^7 records of 10^5: memory", many.bytes / few.bytes, "times", 110);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Memory is fresh at every load, as it is at the first one of a run of the tool.
    ::mallopt(M_MMAP_THRESHOLD, 1 << 20);
    QApplication app(argc, argv);
    const QStringList named = QCoreApplication::arguments().mid(1);
    const auto wanted = [&](const char* part) {
        return named.isEmpty() || named.contains(QLatin1String(part));
    };
    if (wanted("repaint")) repaint();
    if (wanted("step")) step();
    if (wanted("file")) file();
    if (wanted("growth")) growth();
    return failures;
}
