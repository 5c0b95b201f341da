// The tool as the tour walks through it: the real windows, operator and clock, a program folder of its own,
// and a practice drive on a line that is not set as com setup is on a first start, so that it has to be
// found.
#pragma once

#include <QString>

#include "base/qt_tick_clock.h"
#include "shell/practice_drives.h"
#include "shell/ui_state.h"
#include "shell/windows.h"

namespace kelvane::tour {

inline constexpr int PracticeBaud = 38400;

class Stage {
   public:
    // programFolder exists and holds default.prj.
    explicit Stage(const QString& programFolder);

    ProgramFolder folder;
    Language language;
    ShellOperator person{language.table};
    QtTickClock clock;
    SystemWallClock wallClock;
    PracticeDrives practice;
    UiState looks;
    std::unique_ptr<Tool> tool;
    std::unique_ptr<TMainForm> mainForm;
    std::unique_ptr<Windows> windows;

   private:
    static drive::LineOptions line();
};

}  // namespace kelvane::tour
