// ui-state.ini of any content: windows come up somewhere on the screen, and texts and lists are taken as they
// are.
#include <QApplication>
#include <QMainWindow>
#include <QSplitter>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "base/whole_file.h"
#include "shell/ui_state.h"

using namespace kelvane;

namespace {

QApplication& application() {
    static int argc = 1;
    static char name[] = "fuzz_ui_state";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

// A window with a splitter, as the main window has.
struct Window : QMainWindow {
    Window() {
        setObjectName(QStringLiteral("TMainForm"));
        auto* splitter = new QSplitter;
        splitter->setObjectName(QStringLiteral("MainSplitter"));
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        setCentralWidget(splitter);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    application();
    static const QTemporaryDir folder;
    static Window window;
    const QString path = folder.filePath(QStringLiteral("ui-state.ini"));
    if (!writeWhole(path, QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))).ok)
        return 0;
    UiState state(path);
    state.restoreWindow(window);
    if (window.size().isEmpty()) std::abort();
    state.text(QStringLiteral("lastFolder"));
    state.list(QStringLiteral("recentFiles"));
    return 0;
}

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    if (index != 0) return false;
    application();
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ui-state.ini"));
    {
        Window window;
        window.resize(800, 600);
        UiState state(path);
        state.keepWindow(window);
        state.setText(QStringLiteral("lastFolder"), QStringLiteral("/home/anna/drives"));
        state.setList(QStringLiteral("recentFiles"),
                      {QStringLiteral("/a/b.xls"), QStringLiteral("c, d.txt")});
    }
    const QByteArray file = readWhole(path).bytes;
    bytes->assign(file.begin(), file.end());
    return !file.isEmpty();
}
