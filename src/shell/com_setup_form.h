// TComSetupForm, Communication Setup: port, mode and line settings, by hand or by the walk; test and accept.
// It shows the record of ComSetup and passes the hand on; the shell opens it after ComSetup::mayOpen().
#pragma once

#include <QDialog>

#include "link/com_setup.h"
#include "link/port_directory.h"

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace kelvane {

class AbLED;

class TComSetupForm : public QDialog {
    Q_OBJECT
   public:
    TComSetupForm(ComSetup& setup, const PortDirectory& ports, QWidget* parent = nullptr);

   Q_SIGNALS:
    void inputFormWanted();  // the command of the test is to be edited

   protected:
    void showEvent(QShowEvent* event) override;
    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    using BoxHandler = void (ComSetup::*)(const QString& text);
    QLabel* addText(const char* name, const QString& text);
    QComboBox* addBox(const char* name, const QStringList& items, BoxHandler handler);
    void buildPort(QGroupBox* group);
    void buildProtocol(QGroupBox* group);
    void buildTest(QGridLayout* steps);
    void connectHand();
    void showRecord();
    void showBoxes();
    QString advice() const;
    void describePort();
    void fitToText();

    ComSetup& m_setup;
    const PortDirectory& m_ports;
    QLabel* PortInfoLabel;
    QLabel* PortErrorLabel;
    QComboBox* ComPortComboBox;
    QComboBox* ModeComboBox;
    QComboBox* BaudComboBox;
    QComboBox* DataBitsComboBox;
    QComboBox* ParityComboBox;
    QComboBox* StopBitsComboBox;
    QRadioButton* ManualRadioButton;
    QRadioButton* AutoDetectRadioButton;
    QPushButton* TestButton;
    QPushButton* OKBitBtn;
    AbLED* SuccessAbLED;
    AbLED* FailAbLED;
};

}  // namespace kelvane
