#include "tour/script.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace kelvane::tour {

namespace {

constexpr int SmallestFile = 0;
const QColor StripColour(0x35, 0x4F, 0x63);

void say(const QString& text) {
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout);
}

QString seconds(qint64 ms) { return QString::number(double(ms) / 1000, 'f', 1) + QStringLiteral(" s"); }

void drawMenus(QPainter& painter, const QWidget& window, int strip) {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (qobject_cast<QMenu*>(top) && top->isVisible())
            painter.drawPixmap(window.mapFromGlobal(top->pos()) + QPoint(0, strip), top->grab());
}

}  // namespace

Script::Script(const QString& pictureFolder) : m_folder(pictureFolder) {
    QDir folder(m_folder);
    for (const QString& old : folder.entryList({QStringLiteral("[0-9][0-9]-*.png")}, QDir::Files))
        folder.remove(old);
    m_sinceStart.start();
}

void Script::step(const QString& text) {
    endStep();
    m_text = text;
    m_sinceStep.start();
    say(QStringLiteral("%1. %2").arg(++m_step, 2).arg(text, -66));
}

void Script::endStep() {
    if (m_step > 0) say(seconds(m_sinceStep.elapsed()).rightJustified(7) + QLatin1Char('\n'));
}

void Script::fail(const QString& why) {
    say(QStringLiteral("FAILED\nStep %1, %2: %3\n").arg(m_step).arg(m_text, why));
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->isVisible() && !qobject_cast<QMenu*>(top)) keepPicture(*top, QStringLiteral("failed"));
    say(QStringLiteral("Pictures of the open windows lie in %1\n").arg(QDir::toNativeSeparators(m_folder)));
    std::_Exit(EXIT_FAILURE);
}

void Script::keepPicture(QWidget& window, const QString& name) {
    const QPixmap inside = window.grab();
    const int strip = window.fontMetrics().height() * 3 / 2;
    QPixmap picture(inside.width(), inside.height() + strip);
    picture.fill(StripColour);
    QPainter painter(&picture);
    painter.setPen(Qt::white);
    painter.setFont(window.font());
    painter.drawText(QRect(strip / 2, 0, picture.width() - strip, strip), Qt::AlignVCenter,
                     window.windowTitle());
    painter.drawPixmap(0, strip, inside);
    drawMenus(painter, window, strip);
    painter.end();
    const QString file = QStringLiteral("%1-%2.png").arg(++m_picture, 2, 10, QLatin1Char('0')).arg(name);
    if (!picture.save(QDir(m_folder).filePath(file), "PNG", SmallestFile) && name != QLatin1String("failed"))
        fail(QStringLiteral("the picture %1 could not be written").arg(file));
}

void Script::finish() {
    endStep();
    say(QStringLiteral("All %1 steps done in %2; %3 pictures.\n")
            .arg(m_step)
            .arg(seconds(m_sinceStart.elapsed()))
            .arg(m_picture));
}

}  // namespace kelvane::tour
