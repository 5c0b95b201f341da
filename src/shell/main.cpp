#include <QApplication>

#include "shell/start.h"
#include "ui/icons.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kelvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.30"));
    QGuiApplication::setDesktopFileName(QStringLiteral("kelvane"));
    QGuiApplication::setWindowIcon(kelvane::applicationIcon());
    return kelvane::runTool(app);
}
