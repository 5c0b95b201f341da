// TProgressForm, the dialog over every long work: what is done now, how far it is, and Cancel. It shows the
// engine's record and stands as long as that says so; the one who works goes on ticking under it. It appears
// for work that takes longer than a moment: a window that comes and goes at once takes the keyboard with it.
// Until then the window below hears nothing, as if it stood already.
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
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void build();
    void showRecordSoon();
    void showRecord();
    void follow(bool shown);
    void appear();

    static constexpr int AppearsAfterMs = 300;
    ProgressDialog& m_progress;
    TickTimer m_appearing;
    QWidget* m_below = nullptr;  // deaf until the dialog appears
    bool m_showing = false;      // the record will be shown
    TransparentButton* TransparentButton1;
    QLabel* InfoLabel;
    QLabel* ParaLabel;
    QLabel* CountLabel;
    QLabel* LeftLabel;
    QProgressBar* ReadingProgressBar;
    QLabel* NoAnswerLabel;
    TransparentButton* StopWaitingTransparentButton;
    TransparentButton* CancelTransparentButton;
};

}  // namespace kelvane
