// TErrHistoryForm, the list of faults of this run of the program: to look at, copy, save and clear.
#pragma once

#include <QDialog>

#include "diagnostics/faults/fault_history.h"

namespace kelvane {

class StringGridView;
class TransparentButton;

class TErrHistoryForm : public QDialog {
    Q_OBJECT
   public:
    explicit TErrHistoryForm(FaultHistory& history, QWidget* parent = nullptr);

   protected:
    void showEvent(QShowEvent* event) override;

   private:
    TransparentButton* button(const char* name, int iconNumber, const QString& text, const QString& hint);
    void copy();
    void showCount();

    FaultHistory& m_history;
    StringGridView* ErrorAdvStringGrid;
    TransparentButton* m_copy;
    TransparentButton* m_save;
};

}  // namespace kelvane
