// TInitialForm, the wait notice while the drive is being identified or a window reads its first values. The
// link's notice record opens it (through whoever starts the wait) and closes it.
#pragma once

#include "link/request_scheduler.h"
#include "shell/wait_form.h"

class QLabel;
class QProgressBar;

namespace kelvane {

class TInitialForm : public WaitForm {
    Q_OBJECT
   public:
    explicit TInitialForm(RequestScheduler& link, QWidget* parent = nullptr);

    // How far a wait has come that knows its length; 0 of 0 hides the bar.
    void showProgress(int done, int total);

   protected:
    void reject() override;  // only where the notice may be left

   private:
    void showNotice();
    RequestScheduler& m_link;
    QProgressBar* m_progress;
    QLabel* m_trouble;
    QWidget* m_leave;
};

}  // namespace kelvane
