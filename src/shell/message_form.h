// TMessageForm, the question after the fifth time-out: send again, leave the request out, or take the link
// down. The shell's operator asks it and waits for answered().
#pragma once

#include "base/operator.h"
#include "shell/wait_form.h"

class QLabel;
class QPushButton;

namespace kelvane {

class TMessageForm : public WaitForm {
    Q_OBJECT
   public:
    explicit TMessageForm(QWidget* parent = nullptr);

    // Shows the question; Ignore is offered only when ignoreShown.
    void ask(const QString& text, bool ignoreShown);

   Q_SIGNALS:
    void answered(kelvane::LinkAnswer LinkAction);  // the window is closed already

   private:
    QPushButton* addButton(const char* name, const QString& caption, const QString& hint,
                           LinkAnswer LinkAction);
    QLabel* ErrNameVrLabel;
    QPushButton* RetryBitBtn;
    QPushButton* IgnoreBitBtn;
    QPushButton* AbortBitBtn;
};

}  // namespace kelvane
