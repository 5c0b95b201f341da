// TProgressForm, the dialog over every long work: what is done now, how far it is, and Cancel. It shows the
// engine's record and stands as long as that says so; the one who works goes on ticking under it.
#pragma once

#include <QDialog>

#include "parameters/dialogs/progress_dialog.h"

class QLabel;
class QProgressBar;

namespace kelvane {

class TransparentButton;

class TProgressForm : public QDialog {
    Q_OBJECT
   public:
    explicit TProgressForm(ProgressDialog& progress, QWidget* parent = nullptr);

   protected:
    // The close box and Escape are Cancel: only the engine closes this window.
    void reject() override { m_progress.CancelTransparentButtonClick(); }

   private:
    void build();
    void showRecordSoon();
    void showRecord();
    void follow(bool shown);

    ProgressDialog& m_progress;
    bool m_showing = false;  // the record will be shown
    TransparentButton* TransparentButton1;
    QLabel* InfoLabel;
    QLabel* ParaLabel;
    QLabel* CountLabel;
    QLabel* LeftLabel;
    QProgressBar* ReadingProgressBar;
    TransparentButton* CancelTransparentButton;
};

}  // namespace kelvane
