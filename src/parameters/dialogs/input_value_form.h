// TInputValueForm, the value editor of tables, keypad and PID: one value within its limits, typed or chosen.
// It edits the record that it was prepared with; the shell shows it and waits for its end.
#pragma once

#include <QDialog>

#include "base/operator.h"
#include "localisation/lang_table.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace kelvane {

class TransparentButton;
class VrLabel;

class TInputValueForm : public QDialog {
    Q_OBJECT
   public:
    TInputValueForm(Operator& person, const LangTable& lang, QWidget* parent = nullptr);

    // Fills the window and gives it to be shown. edit is written until the window has closed; InputAccepted
    // is set only by a value that passed the check.
    QDialog* prepare(ValueEdit& edit);

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void build();
    void acceptChosen();
    void OKTransparentButtonClick();
    void check();

    Operator& m_person;
    const LangTable& m_lang;
    ValueEdit* m_edit = nullptr;
    VrLabel* PrInforVrLabel;
    VrLabel* UnitVrLabel;
    QLabel* ValueLabel;
    QLineEdit* InputEdit;
    QComboBox* InputComboBox;
    TransparentButton* OKTransparentButton;
    TransparentButton* CancelTransparentButton;
};

}  // namespace kelvane
