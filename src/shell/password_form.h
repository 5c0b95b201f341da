// TPasswordForm, the door to two hidden functions: in the main window to the editing of captions, in the
// Parameter window to reading from a keypad. ActiveFunction tells which is meant.
#pragma once

#include <QDialog>

#include "link/request_scheduler.h"
#include "localisation/voice.h"

class QLineEdit;

namespace kelvane {

class TPasswordForm : public QDialog {
    Q_OBJECT
   public:
    TPasswordForm(RequestScheduler& link, const Voice& voice, QWidget* parent = nullptr);

   Q_SIGNALS:
    void languageEnabled();
    void keypadReadEnabled();

   protected:
    void done(int result) override;

   private:
    void enterPressed();
    RequestScheduler& m_link;
    const Voice m_voice;
    QLineEdit* PasswordEdit;
};

}  // namespace kelvane
