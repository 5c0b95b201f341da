// TInitialForm, the wait notice while the drive is being identified or a window reads its first values. The
// link's notice record opens it (through whoever starts the wait) and closes it.
#pragma once

#include "link/request_scheduler.h"
#include "shell/wait_form.h"

class QLabel;

namespace kelvane {

class TInitialForm : public WaitForm {
    Q_OBJECT
   public:
    explicit TInitialForm(RequestScheduler& link, QWidget* parent = nullptr);

   protected:
    void reject() override;  // only where the notice may be left

   private:
    void showNotice();
    RequestScheduler& m_link;
    QLabel* m_trouble;
    QWidget* m_leave;
};

}  // namespace kelvane
