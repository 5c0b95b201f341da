// What saving and loading work on: the tables that are open, the dialog that shows how far they are, and whom
// they ask. Owned by the session.
#pragma once

#include "base/operator.h"
#include "parameters/dialogs/progress_dialog.h"
#include "parameters/files/comparison.h"
#include "parameters/parameter_screen.h"
#include "spreadsheet/spreadsheet_application.h"

namespace kelvane {

struct FileWork {
    ParameterTable& driveTable;
    ParameterTable& fileTable;
    ComparisonSheet& comparison;
    const ParameterScreen& screen;
    const quint8& DriveTableComplete;
    ProgressDialog& progress;
    const TickClock& clock;
    Operator& person;
    const LangTable& lang;
    SpreadsheetBackend spreadsheet;
};

}  // namespace kelvane
