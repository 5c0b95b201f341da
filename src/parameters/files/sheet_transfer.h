// Spreadsheet form of a table or a comparison, made and read by the operations of a spreadsheet application:
// "Drive Info" and a sheet a group (Rowan: one sheet "Parameter"), or one sheet with the comparison. Called
// by the save and load actions of the parameter window.
#pragma once

#include <functional>

#include "base/operator.h"
#include "parameters/files/table_file.h"
#include "spreadsheet/spreadsheet_application.h"

namespace kelvane {

// What the progress dialog shows; may pump the window system's events. Both may be empty.
struct TransferProgress {
    std::function<void(const QString& InfoLabel)> info;
    std::function<void(const QString& ParaLabel)> para;  // once a parameter row
};

// Asked before any dialog: tells the operator when there is no spreadsheet application.
bool spreadsheetPresent(const SpreadsheetBackend& backend, Operator& person);

// Saves under path as it stands; on an error nothing is written and the application is left.
FileResult saveTableSheets(SpreadsheetApplication& application, const QString& path,
                           const ParameterTable& table, bool RparaAbLED, const TransferProgress& progress);
FileResult saveComparisonSheet(SpreadsheetApplication& application, const QString& path,
                               const ComparisonSheet& sheet, const TransferProgress& progress);

// before: see readTableText. Errors: a file that is no workbook, a first sheet without the number of groups,
// a group without a sheet, a comparison without its row count.
LoadedFile loadSheets(SpreadsheetApplication& application, const QString& path, const TableIdentity& before,
                      const TransferProgress& progress);

}  // namespace kelvane
