// Page "B" of the console: the command list.
#pragma once

#include <QWidget>

#include "console/advance_console.h"

namespace kelvane {

class EditableGridView;

class CommandListPage : public QWidget {
    Q_OBJECT
   public:
    explicit CommandListPage(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();
    int currentRow() const;  // -1 when there is none

   private:
    AdvanceConsole& m_console;
    EditableGridView* CmdAdvStringGrid;
};

}  // namespace kelvane
