// TProgressForm without its widgets: what the dialog says, its bar and its cancel mark. One for the whole
// program; whoever works behind it shows it, steps it and closes it. The link knows whether it shows, since
// that decides what a failure does.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "base/tick_clock.h"
#include "link/request_scheduler.h"

namespace kelvane {

// Button that started the work; the dialog shows its glyph.
enum class ProgressGlyph { ReadDrive, ReadFile, Save };

class ProgressDialog : public QObject {
    Q_OBJECT
   public:
    ProgressDialog(RequestScheduler& link, TickClock& clock) : m_link(link), m_clock(clock) {}

    const QString Caption = QStringLiteral("Processing");
    QString InfoLabel;
    QString ParaLabel;
    int width = 400;
    int maximum = 0;   // of ReadingProgressBar
    int position = 0;  // never past the maximum
    ProgressGlyph glyph = ProgressGlyph::ReadDrive;
    bool cancelMark = false;  // of CancelTransparentButton
    QString noAnswer;         // why nothing comes any more; StopWaitingTransparentButton is shown with it
    bool shown = false;
    int count = 0;  // parameters done
    int total = 0;  // parameters to do
    // Draws what is due, for work that keeps the event loop waiting. Set by the window; may be empty.
    std::function<void()> pump;

    TickClock& clock() const { return m_clock; }
    // Shows the dialog with its bar at 0 and no cancel mark.
    void show(const QString& info, int barMaximum, int parameters, int dialogWidth);
    void showAgain();  // after a question that stood over it
    void close();
    void setPosition(int barPosition);
    void parameterDone(const QString& text);  // counts one and shows its text
    // Cancel, and the close box: sets the mark, nothing else.
    void CancelTransparentButtonClick();
    // The work waits for an answer that is not coming: says so and offers the way out. Empty: it goes on.
    void tellNoAnswer(const QString& text);
    void StopWaitingTransparentButtonClick();
    // Estimate from the time that was needed so far; -1 as long as there is none.
    qint64 msLeft() const;

   Q_SIGNALS:
    void changed();
    void shownChanged(bool shown);
    void cancelled();
    void stopWaiting();

   private:
    void setShown(bool on);

    RequestScheduler& m_link;
    TickClock& m_clock;
    qint64 m_startedUs = 0;
};

}  // namespace kelvane
