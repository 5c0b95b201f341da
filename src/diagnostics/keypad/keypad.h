// The software keypad behind TKeypadForm: a copy of the drive's own keypad. It shows what the link has
// stored, sends what a hand on the real keypad would cause, walks through the parameters and writes one, and
// shows faults and link errors. It goes on while its window is closed: the fault texts of the whole program
// come from here.
#pragma once

#include <QObject>
#include <vector>

#include "base/operator.h"
#include "base/tick_clock.h"
#include "catalogue/value_edit.h"
#include "diagnostics/keypad/keypad_screen.h"
#include "diagnostics/keypad/parameter_entries.h"
#include "link/request_scheduler.h"
#include "localisation/lang_table.h"

namespace kelvane {

class Keypad : public QObject {
    Q_OBJECT
   public:
    // All of them outlive the keypad.
    Keypad(RequestScheduler& link, TickClock& clock, Operator& person, const LangTable& lang);

    KeypadScreen screen;
    qint8 KeypadPage = 0;  // 0 F, 1 H, 2 U, 3 A, 4 summary
    quint8 KeypadStartMode = 0;
    std::vector<ParameterEntry> ParamAddressList;
    bool ComboFilled = false;
    quint8 ParamDecimals = 0;
    bool ParamInfoShown = true;
    QString WriteValueText;  // four hexadecimal digits
    bool KeypadActive = false;
    bool ScrollPending = false;
    quint16 ScrollTicks = 0;
    quint16 BlinkTicks = 0;
    quint8 MaxFreqTicks = 9;
    quint8 FlashTicks = 0;
    bool FreqFromLink = false;
    bool JogHeld = false;
    TickTimer GetDataTimer;
    TickTimer FlashTimer;  // runs only while a lamp blinks or the drive is being identified

    // ---- Keys. Nothing leaves while they are hidden or another window has the line to itself.
    void ModeTransparentButtonClick();
    void PROGTransparentButtonClick();
    void RUNTransparentButtonClick();
    void STOPTransparentButtonClick();
    void DIRTransparentButtonClick();
    void LeftArrowTransparentButtonClick();
    void JOGTransparentButtonMouseDown();
    void JOGTransparentButtonMouseUp();
    void PUTransparentButtonClick() {}
    bool mayCommand() const;

    // ---- Parameter page
    void SelPrComboBoxChange(int ItemIndex);
    void DataVrLabelDblClick();

    // ---- Frequency: Enter in InputEdit, whose text is in screen.InputEdit, and a person's hand on the
    // slider
    void InputEditEnter();
    void FreqScrollBarScroll(int Position);  // 0.01 Hz

    // ---- Line
    // The drive is asked who it is: com setup went on line.
    void showIdentification();
    void FormShow();
    // Another window takes the line, or the program ends. A frequency that was not sent yet is not sent
    // later.
    void rest();

   Q_SIGNALS:
    void changed();            // screen differs from before
    void selectInputWanted();  // the whole text of InputEdit is to be selected

   private:
    // What the link tells.
    void listen();
    void timedOut();
    void refused(quint8 task, quint8 code);
    void answered(quint8 task, const QString& command);
    void statusDecoded();
    void cycleEnded();
    void initialRun();
    void identificationEnded();
    void goOn();
    void storeRatedWords(const QByteArray& RxData);
    void storeFaultText(const QByteArray& RxData);
    void showRefusal(const QString& text);

    // Ticks.
    void GetDataTimerTimer();
    void FlashTimerTimer();
    void followFlashing();

    // Refresh.
    void ProcessLEDstatus(DriveStatusRecord status, ParamReadRecord read);
    void askFaultText(DriveStatusRecord& status);
    void showErrors(const DriveStatusRecord& status);
    void showParameter(const DriveStatusRecord& status, const ParamReadRecord& read);
    void fillCombo(const DriveStatusRecord& status);
    void showPage(const DriveStatusRecord& status);
    void showUserDisplay(const DriveStatusRecord& status);
    void showLeds(quint32 stateWord);
    void showEditing(bool visible);
    void setPageLeds(bool F, bool H, bool U);

    void ask(quint8 task, const QString& command);
    void readUserDisplay();
    void readMaxFreq();
    void sendFrequency(int value);
    void refuseFrequency(Message message);
    ValueTexts textsOnShow() const;
    void writeValue(const QString& word);
    void readAgain();
    void forgetRecord();
    bool isReading(const QString& command) const;
    void endRefusal() { m_refusal = {}; }
    void tell();

    // A refusal of what a person asked for: shown with its text for a while.
    struct Refusal {
        bool awaitsText = false;
        QString text;
        int ticksLeft = 0;
        bool shown() const { return ticksLeft > 0; }
    };

    RequestScheduler& m_link;
    Operator& m_person;
    const LangTable& m_lang;
    KeypadScreen m_told;
    Refusal m_refusal;
    ParamReadRecord m_read;      // answer to m_recordCommand, with ReadDone until it is shown
    QString m_recordCommand;     // read of the chosen parameter
    QString m_faultTextCommand;  // pushed at every tick
    quint8 m_listFamily = 0;     // of ParamAddressList
    bool m_recordStale = false;  // another window may have written the parameter since
    bool m_jogSeen = false;      // bit 2, since JOG was pressed
    bool m_faultReadInHand = false;
    bool m_pollOwed = false;  // a fault text was asked for in vain
};

}  // namespace kelvane
