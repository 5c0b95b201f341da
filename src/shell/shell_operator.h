// The person at the machine for real: boxes, file dialogs, the link failure form and the value editor, each
// run to its answer. The one place of the tool that waits in a loop of its own.
#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <functional>

#include "base/operator.h"
#include "localisation/lang_table.h"

namespace kelvane {

class TMessageForm;

class ShellOperator final : public Operator {
   public:
    explicit ShellOperator(const LangTable& lang) : m_lang(lang) {}

    BoxAnswer box(const QString& text, const QString& title, BoxIcon icon, BoxButtons buttons) override;
    BoxAnswer boxOverPanel(const QString& text, const QString& title, BoxIcon icon, BoxButtons buttons,
                           const BoxPanel& panel) override;
    std::optional<QString> openFile(const QString& filter) override;
    std::optional<QString> saveFile(const QString& filter, const QString& suffix) override;
    LinkAnswer linkFailure(const QString& ErrNameVrLabel, bool ignoreShown) override;
    void editValue(ValueEdit& edit) override;

    // The forms behind the last two questions, set when they exist.
    TMessageForm* messageForm = nullptr;
    std::function<QDialog*(ValueEdit& edit)> prepareValueEditor;
    QString lastFolder;  // of the file dialogs

   private:
    BoxAnswer ask(QMessageBox& message, BoxButtons buttons, const BoxPanel* panel = nullptr) const;
    QString adviceFor(const QString& text) const;
    struct ChosenFile {
        QString path;
        qsizetype filter = 0;
    };
    std::optional<ChosenFile> askFile(QFileDialog::AcceptMode mode, const QString& filter);
    void keepKind(const QString& path);
    QString kindToBeginWith(const QStringList& nameFilters) const;
    const LangTable& m_lang;
    QStringList m_lastKinds;  // suffixes of opened and saved files, the last one first
};

// A name with what saveFile() puts behind it.
QString withSuffix(const QString& name, const QString& suffix);

// "Text(*.txt)|*.txt|All(*.*)|*.*" as the name filters of a dialog: every first part.
QStringList nameFilters(const QString& filter);

}  // namespace kelvane
