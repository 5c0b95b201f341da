// Saving a table or a comparison: which one, in which format, under which name, and the writing. A list of
// steps that goes on when a question has its answer. Button, menu and the closing of a tab start it; owned by
// the session.
#pragma once

#include <QObject>

#include "parameters/files/file_work.h"
#include "parameters/files/table_choices.h"

namespace kelvane {

class TableSaver : public QObject {
    Q_OBJECT
   public:
    // Both outlive the saver.
    TableSaver(const FileWork& work, const TableChoices& choices) : m_work(work), m_choices(choices) {}

    QByteArray SaveMemo;  // text of the last file, also when its dialog was cancelled

    void SaveTransparentButtonClick() { save(ParameterTab::None, {}); }
    // The same with a table selected at first. then runs once a file is written.
    void save(ParameterTab preselected, const std::function<void()>& then);

   Q_SIGNALS:
    void saved(const QString& path, ParameterTab tab);
    void notSaved();  // a box has said why

   private:
    struct Job {
        ParameterTab tab = ParameterTab::None;
        TableFileKind kind = TableFileKind::Text;
    };
    std::vector<ParameterTab> savable() const;
    bool hasSomething(const std::vector<ParameterTab>& tabs);
    bool run(const Job& job);
    std::optional<QString> askName(const Job& job);
    bool saveText(const Job& job);
    bool saveSpreadsheet(const Job& job);
    QByteArray textOf(const Job& job);
    FileResult writeSheets(ParameterTab tab, const QString& path);
    bool told(const QString& path, ParameterTab tab, const FileResult& result);
    const ParameterTable& table(ParameterTab tab) const;
    bool RparaAbLED(ParameterTab tab) const;

    const FileWork& m_work;
    const TableChoices& m_choices;
};

// Tabs that are visible, in their order.
std::vector<ParameterTab> openTabs(const ParameterScreen& screen);
// False when no tab is visible: a box has said so.
bool anyTabOpen(const ParameterScreen& screen, Operator& person);

}  // namespace kelvane
