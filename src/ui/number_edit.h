// NumberEdit, the edit of a value with decimals: takes digits, "-", ".", "," and drops everything else, typed
// or pasted. Enter is its own and presses no button.
#pragma once

#include <QLineEdit>

namespace kelvane {

class NumberEdit : public QLineEdit {
    Q_OBJECT
   public:
    explicit NumberEdit(QWidget* parent = nullptr);

   Q_SIGNALS:
    void entered();  // Enter; the text has been selected
    void left();     // a person went elsewhere in the program; not to another one, and not to a box of ours

   protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace kelvane
