// kelvane-icons DRAWING FOLDER NAME SIZE...: renders an SVG into FOLDER/SIZExSIZE/NAME.png. Run by the build,
// so that there is one drawing and no pictures of it under version control. Exit code 1 when anything fails.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

bool render(QSvgRenderer& drawing, const QString& folder, const QString& name, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    const QString sizeFolder = QStringLiteral("%1/%2x%2").arg(folder).arg(size);
    return QDir().mkpath(sizeFolder) &&
           image.save(QStringLiteral("%1/%2.png").arg(sizeFolder, name), "PNG", 0);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QSvgRenderer drawing(arguments.value(1));
    bool good = drawing.isValid() && arguments.size() > 4;
    for (qsizetype i = 4; good && i < arguments.size(); ++i)
        good = arguments[i].toInt() > 0 && render(drawing, arguments[2], arguments[3], arguments[i].toInt());
    if (!good) std::fputs("The icons could not be rendered.\n", stderr);
    return good ? 0 : 1;
}
