// Ends the program when the window of a name is painted for the first time, and prints the memory it had
// then.
#pragma once

#include <sys/resource.h>

#include <QEvent>
#include <QObject>
#include <QString>
#include <cstdio>
#include <cstdlib>

namespace kelvane::bench {

// An event filter of the application. A window's children are painted with it, so what comes after the paint
// events is the end.
class EndAtFirstPaint : public QObject {
   public:
    explicit EndAtFirstPaint(const char* windowName) : m_name(QString::fromLatin1(windowName)) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool paint = event->type() == QEvent::Paint;
        if (m_painted && !paint) end();
        m_painted = m_painted || (paint && watched->objectName() == m_name);
        return false;
    }

   private:
    [[noreturn]] static void end() {
        rusage used{};
        getrusage(RUSAGE_SELF, &used);
        std::printf("%ld\n", used.ru_maxrss);
        std::fflush(stdout);
        std::_Exit(0);
    }
    QString m_name;
    bool m_painted = false;
};

}  // namespace kelvane::bench
