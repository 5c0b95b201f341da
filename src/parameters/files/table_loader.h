// Loading a parameter file of any format into the table from file, or a saved comparison into its tab.
// Button, menu, tree, folder browser, recent files and files dropped on the window start it; owned by the
// Parameter window. A file that cannot be read leaves everything as it was.
#pragma once

#include "parameters/files/table_file.h"
#include "parameters/parameter_session.h"
#include "spreadsheet/spreadsheet_application.h"

namespace kelvane {

class TableLoader {
   public:
    // Both outlive the loader.
    TableLoader(ParameterSession& session, const SpreadsheetBackend& spreadsheet)
        : m_session(session), m_spreadsheet(spreadsheet) {}

    quint8 OpenFromBrowser = 0;  // 1 while a file of the folder browser is loaded: no dialog opens

    // Asks for a file.
    void ReadFileTransparentButtonClick();
    // Double click in the folder browser.
    void LsFilelistViewDblClick(const QString& path);
    // A file that is known already. True when it is shown.
    bool load(const QString& path);

    std::function<void(const QString& path)> loaded;     // it is shown
    std::function<void(const QString& path)> notLoaded;  // a box has told why
    std::function<void()> pumpMessages;                  // draws the progress dialog; may be empty

   private:
    bool show(const QString& path);
    LoadedFile read(const QString& path, TableFileKind kind);
    LoadedFile readSheets(const QString& path);
    bool apply(const LoadedFile& file, const QString& path);
    Operator& person() { return m_session.bench.link.operatorAsked(); }

    ParameterSession& m_session;
    const SpreadsheetBackend& m_spreadsheet;
};

}  // namespace kelvane
