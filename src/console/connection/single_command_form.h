// The command page of the console: one command from fields, any text as it stands, and the words of the last
// read.
#pragma once

#include <QWidget>

#include "console/advance_console.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace kelvane {

class StringGridView;
class TransparentButton;

class SingleCommandPage : public QWidget {
    Q_OBJECT
   public:
    explicit SingleCommandPage(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();

   private:
    QWidget* buildFixed();
    QWidget* buildAny();
    void sendAny(bool byEnter);

    AdvanceConsole& m_console;
    QLineEdit* IDLabeledEdit;
    QComboBox* OptionComboBox;
    QLineEdit* AddressLabeledEdit;
    QLabel* DataLabel;
    QLineEdit* DataLabeledEdit;
    QToolButton* ChangeHDButton;
    TransparentButton* SendFixTransparentButton;
    QLineEdit* InputDataEdit;
    TransparentButton* SendAnyTransparentButton;
    QComboBox* InputDataComboBox;
    StringGridView* RxAdvStringGrid;
};

}  // namespace kelvane
