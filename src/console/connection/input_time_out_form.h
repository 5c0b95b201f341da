// TInputTimeOutForm: one of the console's two time-outs, by Tag, in milliseconds.
#pragma once

#include <QDialog>

#include "console/advance_console.h"

class QLineEdit;

namespace kelvane {

class TInputTimeOutForm : public QDialog {
    Q_OBJECT
    Q_PROPERTY(int Tag READ Tag)
   public:
    explicit TInputTimeOutForm(AdvanceConsole& console, QWidget* parent = nullptr);
    int Tag() const { return static_cast<int>(m_tag); }
    void prepare(TimeOutTag tag);  // preloads the edit

   private:
    void OKBitBtnClick();
    AdvanceConsole& m_console;
    TimeOutTag m_tag = TimeOutTag::First;
    QLineEdit* TimeOutEdit;
};

}  // namespace kelvane
