// A StringGridView whose cells may be typed into where the grid's own rule allows it: double click, F2, Enter
// or just typing opens the cell, Enter ends it and goes down, Delete empties it. The grid tells what was
// typed.
#pragma once

#include "ui/string_grid_view.h"

namespace kelvane {

class EditableGridView : public StringGridView {
    Q_OBJECT
   public:
    explicit EditableGridView(QWidget* parent = nullptr);

    // What becomes of a cell's text at each key; without a rule it stays as it was typed.
    std::function<QString(int column, const QString& text)> tidy;

   Q_SIGNALS:
    void left();  // the focus went elsewhere, not into one of its own cells

   protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

   private:
    void editCell(int column, int row);
};

}  // namespace kelvane
