// TPIDForm, the PID window: parameters, block diagram of the family, state lamps, RUN and STOP, and a guide.
#pragma once

#include <QDialog>
#include <array>

#include "commissioning/pid_control.h"
#include "ui/lamp.h"

class QLabel;

namespace kelvane {

class PictureBox;
class PidGuide;
class StringGridView;
class TransparentButton;

class TPIDForm : public QDialog {
    Q_OBJECT
   public:
    TPIDForm(PidControl& pid, TickClock& clock, QWidget* parent = nullptr);

    void done(int result) override;

   protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

   private:
    QLayout* buildButtons();
    QLayout* buildLamps();
    QWidget* buildDiagrams();
    TransparentButton* button(const char* name, int iconNumber, const QString& text, const QString& hint,
                              void (PidControl::*click)());
    void showEngine();
    QString statusText() const;
    void editRow(int row);
    void selectRows();

    PidControl& m_pid;
    StringGridView* ParaAdvStringGrid;
    std::array<AbLED*, 5> m_lamps{};  // RUN, STOP, JOG, FWD, REV
    std::array<PictureBox*, 7> m_diagrams{};
    LampFlasher m_flasher;
    PidGuide* m_guide;
    QLabel* m_status;
};

}  // namespace kelvane
