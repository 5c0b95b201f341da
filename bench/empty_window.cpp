// The peer of the startup benchmark: an empty Widgets program that ends at the first paint of its window.
#include <QApplication>
#include <QMainWindow>

#include "end_at_first_paint.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    kelvane::bench::EndAtFirstPaint end("empty");
    app.installEventFilter(&end);
    QMainWindow window;
    window.setObjectName(QStringLiteral("empty"));
    window.show();
    return app.exec();
}
