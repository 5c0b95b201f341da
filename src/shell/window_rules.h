// The rules by which windows open and take the link: what a window needs, what is stopped before it, and what
// goes on after it. Each window's rule stands in its row of the window table; the shell asks before it shows
// a window and says when it has closed.
#pragma once

#include <QObject>

#include "link/request_scheduler.h"
#include "localisation/voice.h"

namespace kelvane {

inline constexpr quint8 OwnerKeypad = 0;  // owns no link
inline constexpr quint8 OwnerNone = 255;  // a dialog that another window opens

enum class OffLineBox : quint8 {
    NotNeeded,
    OnLineFirst,
    QuickSetup
};  // the box of a window that needs on line

struct WindowRule {
    quint8 ActiveFunction = OwnerNone;  // while it is open
    OffLineBox offLine = OffLineBox::NotNeeded;
    bool beside = false;       // shown beside the others; owns no link
    bool prelude = false;      // stop the link and empty the queues
    bool stopsKeypad = false;  // the keypad's timer off
    bool closesKeypad = false;
    bool marksRead = false;         // ReadDone 1
    bool marksWritten = false;      // WriteDone 1
    bool tail = false;              // restart the poll afterwards, also when it was refused (with prelude)
    bool endsKeypadSource = false;  // a keypad that was read as the drive rests when the window has closed

    bool ownsLink() const { return ActiveFunction != OwnerNone && !beside; }

    // Windows with a tail send for themselves; under the others the poll goes on.
    bool takesLine() const { return tail; }
};

class WindowRules : public QObject {
    Q_OBJECT
   public:
    WindowRules(RequestScheduler& link, const Voice& voice) : m_link(link), m_voice(voice) {}

    // True when the window may be shown; everything that stands before it has then been done.
    bool begin(const WindowRule& rule);
    // The window has closed.
    void finished(const WindowRule& rule);
    // Com setup took the line to rest under an open window; it has it again.
    void giveBack(const WindowRule& rule);

   Q_SIGNALS:
    void closeKeypad();
    void stopKeypad();                     // its timer
    void focusWanted(int ActiveFunction);  // ShowFocusForm

   private:
    bool refusedOffLine(const WindowRule& rule);
    RequestScheduler& m_link;
    const Voice m_voice;
};

}  // namespace kelvane
