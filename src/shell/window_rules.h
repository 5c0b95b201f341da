// The rules by which windows open and take the link, as one table: what a window needs, what is stopped
// before it, and what goes on after it. The shell asks before it shows a window and tells when it has closed.
#pragma once

#include <QObject>
#include <span>

#include "link/request_scheduler.h"

namespace kelvane {

inline constexpr quint8 OwnerKeypad = 0;  // shown beside the others; owns no link

struct WindowRule {
    quint8 ActiveFunction;  // while it is open
    bool needsOnLine = false;
    int offLineMessage = 0;  // message number of the box when it is not
    const char* offLineTitle = "Cofirm";
    bool prelude = false;      // stop the link and empty the queues
    bool stopsKeypad = false;  // the keypad's timer off
    bool closesKeypad = false;
    bool marksRead = false;     // ReadDone 1
    bool marksWritten = false;  // WriteDone 1
    bool tail = false;          // restart the poll afterwards, also when it was refused (with prelude)
};

std::span<const WindowRule> windowRules();
const WindowRule* windowRule(quint8 ActiveFunction);

class WindowRules : public QObject {
    Q_OBJECT
   public:
    explicit WindowRules(RequestScheduler& link) : m_link(link) {}

    // True when the window may be shown; everything that stands before it has then been done.
    bool begin(quint8 ActiveFunction);
    // The window has closed.
    void finished(quint8 ActiveFunction);

   Q_SIGNALS:
    void closeKeypad();
    void focusWanted(int ActiveFunction);  // ShowFocusForm

   private:
    bool refusedOffLine(const WindowRule& rule);
    RequestScheduler& m_link;
};

}  // namespace kelvane
