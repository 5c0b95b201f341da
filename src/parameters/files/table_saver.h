// Saving a table or a comparison: which one, in which format, under which name, and the writing. A list of
// steps that goes on when a question has its answer. Button, menu and the closing of a tab start it; owned by
// the Parameter window.
#pragma once

#include "parameters/files/table_choices.h"
#include "parameters/parameter_session.h"
#include "spreadsheet/spreadsheet_application.h"

namespace kelvane {

// Captions of the tabs, as the choice of a table shows them.
QString tabCaptionInEnglish(ParameterTab tab);

class TableSaver {
   public:
    // All of them outlive the saver.
    TableSaver(ParameterSession& session, const TableChoices& choices, const SpreadsheetBackend& spreadsheet)
        : m_session(session), m_choices(choices), m_spreadsheet(spreadsheet) {}

    QByteArray SaveMemo;  // text of the last file, also when its dialog was cancelled

    void SaveTransparentButtonClick() { save(ParameterTab::None, {}); }
    // The same with a table selected at first. then runs at the end, but not when writing failed.
    void save(ParameterTab preselected, const std::function<void()>& then);

    std::function<QString(ParameterTab)> tabCaption = tabCaptionInEnglish;
    std::function<void()> pumpMessages;  // draws the progress dialog; may be empty

   private:
    struct Job {
        ParameterTab tab = ParameterTab::None;
        TableFileKind kind = TableFileKind::Text;
    };
    std::vector<ParameterTab> savable() const;
    bool hasSomething(const std::vector<ParameterTab>& tabs);
    bool run(const Job& job);
    bool saveText(const Job& job);
    bool saveSpreadsheet(const Job& job);
    QByteArray textOf(const Job& job);
    FileResult writeSheets(ParameterTab tab, const QString& path);
    bool told(const FileResult& result);
    const ParameterTable& table(ParameterTab tab) const;
    bool RparaAbLED(ParameterTab tab) const;
    Operator& person() { return m_session.bench.link.operatorAsked(); }

    ParameterSession& m_session;
    const TableChoices& m_choices;
    const SpreadsheetBackend& m_spreadsheet;
};

// Tabs that are visible, in their order.
std::vector<ParameterTab> openTabs(const ParameterScreen& screen);
// False when no tab is visible: a box has told so.
bool anyTabOpen(const ParameterScreen& screen, Operator& person);

}  // namespace kelvane
