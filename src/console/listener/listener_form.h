// The "Monitor" page of the console: what the listener heard, and how it cuts lines.
#pragma once

#include <QWidget>

#include "console/advance_console.h"

class QActionGroup;
class QDialog;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;

namespace kelvane {

class EditableGridView;
class TimedMemo;
class TransparentButton;

class ListenerForm : public QWidget {
    Q_OBJECT
   public:
    explicit ListenerForm(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();

   Q_SIGNALS:
    void comSetupWanted();

   private:
    QWidget* buildTools();
    QWidget* buildCutting();
    void addLengthMenu();
    void buildFindDialog();
    void showLines();
    void fitBreakGrid();
    void explain();
    void search();
    void findNext();
    void save();
    void chooseFont();

    AdvanceConsole& m_console;
    PortListener& m_listener;
    TickTimer m_refresh;
    qint64 m_shownLines = 0;  // of the listener's addedLines()
    TransparentButton* RUNmonitorTransparentButton;
    TransparentButton* STOPmonitorTransparentButton;
    TransparentButton* SearchTransparentButton;
    TransparentButton* MprotocolTransparentButton;
    QRadioButton* AutoBreakChRadioButton;
    QRadioButton* LengthLimitRadioButton;
    EditableGridView* BreakAdvStringGrid;
    QLineEdit* WordCntLabeledEdit;
    TimedMemo* RxMemo;
    QPlainTextEdit* RxExplainMemo;
    QLabel* RxNoticeLabel;
    QActionGroup* m_lengths;
    QDialog* FindDialog1;
    QLineEdit* FindEdit;
};

}  // namespace kelvane
