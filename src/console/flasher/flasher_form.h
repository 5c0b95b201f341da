// The hidden "Flasher" page of the console: an S-record file that goes out line by line.
#pragma once

#include <QWidget>

#include "console/advance_console.h"

class QPlainTextEdit;
class QProgressBar;

namespace kelvane {

class TransparentButton;

class FlasherForm : public QWidget {
    Q_OBJECT
   public:
    explicit FlasherForm(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();

   Q_SIGNALS:
    void comSetupWanted();
    void timeOutWanted(TimeOutTag tag);

   private:
    void showFile();
    void showSent();
    AdvanceConsole& m_console;
    TransparentButton* LoadFileTransparentButton;
    TransparentButton* SendFileTransparentButton;
    TransparentButton* STOPflashTransparentButton;
    TransparentButton* FprotocolTransparentButton;
    TransparentButton* FtimeoutTransparentButton;
    QPlainTextEdit* FileMemo;
    QPlainTextEdit* FmonitorMemo;
    QProgressBar* Gauge1;
    QStringList m_shown;
    qsizetype m_sentShown = 0;  // characters of FmonitorMemo
};

}  // namespace kelvane
