// TInputForm, where a technician edits the command that com setup's test sends.
#pragma once

#include <QDialog>

#include "link/com_setup.h"

class QLineEdit;

namespace kelvane {

class TInputForm : public QDialog {
    Q_OBJECT
   public:
    explicit TInputForm(ComSetup& setup, QWidget* parent = nullptr);

   protected:
    void showEvent(QShowEvent* event) override;

   private:
    void OKTransparentButtonClick();
    ComSetup& m_setup;
    QLineEdit* InputEdit;
};

}  // namespace kelvane
