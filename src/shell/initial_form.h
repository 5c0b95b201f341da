// TInitialForm, the wait notice while the drive is being identified or a window reads its first values. The
// link's notice record opens it (through whoever starts the wait) and closes it. A wait that does not end can
// be left: after five seconds the notice says what it waits for and offers a way out, which for
// identification is Initial; who waits for something else says so at once (waitMayBeLeft) and sees the notice
// go.
#pragma once

#include "link/request_scheduler.h"
#include "shell/wait_form.h"

class QLabel;
class QProgressBar;

namespace kelvane {

class TransparentButton;

class TInitialForm : public WaitForm {
    Q_OBJECT
   public:
    TInitialForm(RequestScheduler& link, TickClock& clock, QWidget* parent = nullptr);

    // How far a wait has come that knows its length; 0 of 0 hides the bar.
    void showProgress(int done, int total);

   Q_SIGNALS:
    void left();  // by the person; the wait's own end has run

   protected:
    void reject() override;

   private:
    void follow();
    void offerToLeave(bool offered);
    void leave();
    RequestScheduler& m_link;
    QProgressBar* m_progress;
    TickTimer m_patience;
    QLabel* m_trouble;  // what the owner of the wait has to say
    QLabel* m_waitsFor;
    TransparentButton* m_stop;
};

}  // namespace kelvane
