// TInitialForm, the wait notice while the drive is being identified or a window reads its first values. The
// link's notice record opens it (through whoever starts the wait) and closes it.
#pragma once

#include "link/request_scheduler.h"
#include "shell/wait_form.h"

class QProgressBar;

namespace kelvane {

class TransparentButton;

class TInitialForm : public WaitForm {
    Q_OBJECT
   public:
    explicit TInitialForm(RequestScheduler& link, QWidget* parent = nullptr);

    // How far a wait has come whose owner can end it: the bar, and the button by which a person leaves. 0 of
    // 0: none of them.
    void showProgress(int done, int total);

   Q_SIGNALS:
    void leaveWanted();

   protected:
    void reject() override;  // Escape

   private:
    void showNotice();
    RequestScheduler& m_link;
    QProgressBar* m_progress;
    TransparentButton* m_stop;
};

}  // namespace kelvane
