// A window that only code closes: it has no close box and Escape does nothing. Base of the wait notice and of
// the link failure question, which their engines open and close.
#pragma once

#include <QDialog>

namespace kelvane {

class WaitForm : public QDialog {
    Q_OBJECT
   public:
    WaitForm(const QString& title, QWidget* parent);  // application-modal

   protected:
    void reject() override {}
};

}  // namespace kelvane
