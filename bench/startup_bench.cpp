// First paint of the whole program against an empty Widgets program, in one run: each is started many times in
// turn, and ends at the first paint of its main window. Prints both medians, their ratio and the memory.
#include <sys/resource.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPaintEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "shell/start.h"

namespace {

class EndAtFirstPaint : public QObject {
   public:
    explicit EndAtFirstPaint(const char* windowName) : m_name(QString::fromLatin1(windowName)) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint || watched->objectName() != m_name) return false;
        static_cast<QWidget*>(watched)->removeEventFilter(this);
        rusage used{};
        getrusage(RUSAGE_SELF, &used);
        std::printf("%ld\n", used.ru_maxrss);
        std::fflush(stdout);
        std::_Exit(0);
    }

   private:
    QString m_name;
};

int runChild(int argc, char** argv, bool tool) {
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kelvane"));
    EndAtFirstPaint end(tool ? "TMainForm" : "empty");
    app.installEventFilter(&end);
    if (tool) return kelvane::runTool(app);
    QMainWindow window;
    window.setObjectName(QStringLiteral("empty"));
    window.show();
    return app.exec();
}

struct Started {
    double ms = 0;
    long rssKb = 0;
};

Started startOnce(const QString& program, const QString& what) {
    QElapsedTimer clock;
    QProcess child;
    clock.start();
    child.start(program, {what});
    if (!child.waitForFinished(5000)) qFatal("%s does not come to its first paint", qPrintable(what));
    return {static_cast<double>(clock.nsecsElapsed()) / 1e6, child.readAllStandardOutput().trimmed().toLong()};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc > 1) return runChild(argc, argv, QByteArray(argv[1]) == "tool");
    constexpr int Rounds = 15;
    std::vector<double> tool;
    std::vector<double> empty;
    long rss = 0;
    const QString program = QString::fromLocal8Bit(argv[0]);
    for (int round = 0; round < Rounds; ++round) {
        empty.push_back(startOnce(program, QStringLiteral("empty")).ms);
        const Started started = startOnce(program, QStringLiteral("tool"));
        tool.push_back(started.ms);
        rss = std::max(rss, started.rssKb);
    }
    std::printf("first paint, median of %d: empty %.1f ms, tool %.1f ms, ratio %.2f (bound 3); memory %.1f MB (bound 60)\n",
                Rounds, median(empty), median(tool), median(tool) / median(empty), static_cast<double>(rss) / 1024);
    return 0;
}
