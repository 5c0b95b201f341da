// The script of a tour: says each step and its time on the standard output, keeps numbered pictures of
// windows, and ends the program with exit code 1 when a step fails. A failed step may stand under the loops
// of several open boxes, which nothing would answer any more, so it does not try to come back.
#pragma once

#include <QElapsedTimer>
#include <QString>

class QWidget;

namespace kelvane::tour {

class Script {
   public:
    // Pictures go to the folder, which exists; pictures of an earlier tour in it are removed.
    explicit Script(const QString& pictureFolder);

    void step(const QString& text);
    [[noreturn]] void fail(const QString& why);
    // The window under a strip with its title, menus that are open over it included.
    void keepPicture(QWidget& window, const QString& name);
    void finish();

   private:
    void endStep();
    QString m_folder;
    QString m_text;
    int m_step = 0;
    int m_picture = 0;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceStep;
};

}  // namespace kelvane::tour
