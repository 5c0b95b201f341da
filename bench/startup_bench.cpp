// First paint of the whole program against an empty Widgets program, in one run: each is started many times
// in turn, and ends when its main window has been painted. Prints the medians of both, of the ratio of each
// pair, and the memory.
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "end_at_first_paint.h"

#include "shell/start.h"

namespace {

int runTool(int argc, char** argv) {
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kelvane"));
    kelvane::bench::EndAtFirstPaint end("TMainForm");
    app.installEventFilter(&end);
    return kelvane::runTool(app);
}

struct Started {
    double ms = 0;
    long rssKb = 0;
};

Started startOnce(const QString& program, const QStringList& arguments) {
    QElapsedTimer clock;
    QProcess child;
    clock.start();
    child.start(program, arguments);
    if (!child.waitForFinished(5000)) qFatal("%s does not come to its first paint", qPrintable(program));
    return {static_cast<double>(clock.nsecsElapsed()) / 1e6,
            child.readAllStandardOutput().trimmed().toLong()};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc > 1) return runTool(argc, argv);
    constexpr int Rounds = 31;
    std::vector<double> tool;
    std::vector<double> empty;
    std::vector<double> ratio;  // of each pair: a machine has slow and quick moments
    long rss = 0;
    for (int round = 0; round < Rounds; ++round) {
        empty.push_back(startOnce(QStringLiteral(EMPTY_WINDOW_PROGRAM), {}).ms);
        const Started started = startOnce(QString::fromLocal8Bit(argv[0]), {QStringLiteral("tool")});
        tool.push_back(started.ms);
        ratio.push_back(started.ms / empty.back());
        rss = std::max(rss, started.rssKb);
    }
    std::printf(
        "first paint, median of %d: empty %.1f ms, tool %.1f ms, ratio %.2f (bound 3); memory %.1f MB (bound "
        "60)\n",
        Rounds, median(empty), median(tool), median(ratio), static_cast<double>(rss) / 1024);
    return 0;
}
