// TAutoTuningForm, the auto tuning window: what to see to before, the motor's data, the choice of a test, and
// the speed while the drive measures.
#pragma once

#include <QDialog>

#include "commissioning/auto_tuning.h"
#include "commissioning/tune_texts.h"

class QComboBox;
class QLabel;

namespace kelvane {

class DialMeter;
class StringGridView;
class TransparentButton;

class TAutoTuningForm : public QDialog {
    Q_OBJECT
   public:
    TAutoTuningForm(AutoTuning& tuning, const LangTable& lang, QWidget* parent = nullptr);

    void done(int result) override;

   Q_SIGNALS:
    void motorSelFormWanted(int marked);

   protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

   private:
    TransparentButton* button(const char* name, int iconNumber, const QString& text, const QString& hint);
    QLayout* buildAdvice();
    QLayout* buildButtons();
    QWidget* buildTest();
    void fillEntries();
    void choose(int index);
    void showEngine();
    QString statusText() const;
    QString stoppedText() const;
    void editRow(int row);

    AutoTuning& m_tuning;
    const LangTable& m_lang;
    TuneTexts m_texts;
    StringGridView* ParaAdvStringGrid;
    QComboBox* TuneParaComboBox;
    QLabel* TuneDesLabel;
    DialMeter* SpeedAb120Meter;
    QLabel* Motor1Image;
    QLabel* Motor2Image;
    TransparentButton* TuneTransparentButton;
    TransparentButton* MotorSelTransparentButton;
    TransparentButton* ReadTransparentButton;
    TransparentButton* WriteTransparentButton;
    TransparentButton* ExitTransparentButton;
    QLabel* m_status;
};

}  // namespace kelvane
