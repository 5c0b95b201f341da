#include "shell/parameter_windows.h"

#include <QCoreApplication>

#include "shell/windows.h"

namespace kelvane {

namespace {

// What saving, comparing and printing ask in windows of their own.
void offerChoices(Windows& w) {
    TableChoices& choices = w.tool.parameters.choices;
    choices.chooseTab = [&w](const QString& title, const std::vector<ParameterTab>& tabs, int selected,
                             const TableChoices::ThenTab& then) {
        QStringList captions;
        for (const ParameterTab tab : tabs) captions << w.parameterForm.tabCaption(tab);
        w.selParaPrintForm.ask(
            title, captions, selected, [tabs, captions, then](std::optional<QString> chosen) {
                const qsizetype index = chosen ? captions.indexOf(*chosen) : -1;
                then(index < 0 ? std::nullopt
                               : std::optional<ParameterTab>(tabs[static_cast<size_t>(index)]));
            });
    };
    choices.chooseFormat = [&w](const TableChoices::ThenKind& then) { w.selFileFormatForm.ask(then); };
    choices.chooseCompareKind = [&w](const QStringList& items, const TableChoices::ThenIndex& then) {
        w.selCompKindForm.ask(items, [items, then](std::optional<QString> chosen) {
            then(chosen ? std::optional<int>(items.indexOf(*chosen)) : std::nullopt);
        });
    };
}

}  // namespace

std::unique_ptr<QWidget> makeParameterForm(Windows& w) {
    return std::make_unique<TParameterForm>(w.tool.parameters, w.looks);
}

std::unique_ptr<QWidget> makeProgress(Windows& w) {
    return std::make_unique<TProgressForm>(w.tool.parameters.progress);
}

std::unique_ptr<QWidget> makeWriteCheck(Windows& w) {
    return std::make_unique<TWriteCheckForm>(w.tool.parameters);
}

std::unique_ptr<QWidget> makeInputValue(Windows& w) {
    return std::make_unique<TInputValueForm>(w.tool.site.person, w.tool.site.language.table);
}

std::unique_ptr<QWidget> makeReport(Windows& w) { return std::make_unique<TReportForm>(w.tool.site.person); }

std::unique_ptr<QWidget> makeSelGroupLoad(Windows& w) {
    return std::make_unique<TSelGroupLoadForm>(w.tool.parameters.reader);
}

std::unique_ptr<QWidget> makeWriteCheckErrRecord(Windows& w) {
    return std::make_unique<TWriteCheckErrRecordForm>(w.tool.parameters.writer);
}

void wireParameterForm(Windows& w, QWidget&) {
    ParameterSession& session = w.tool.parameters;
    session.progress.pump = [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); };
    session.site.openComSetup = [&w](std::function<void()> then) { w.openComSetup(std::move(then)); };
    QObject::connect(&session.keypad, &KeypadSource::passwordWanted, &w,
                     [&w] { w.showModal(w.passwordForm); });
    QObject::connect(&w.passwordForm, &TPasswordForm::keypadReadEnabled, &session.keypad,
                     &KeypadSource::enable);
    QObject::connect(&w.parameterForm, &TParameterForm::reportWanted, &w, [&w](const Report& report) {
        w.reportForm.setReport(report);
        w.showModal(w.reportForm);
    });
    offerChoices(w);
}

void wireSelParaSource(Windows& w, QWidget&) {
    ParameterSession& session = w.tool.parameters;
    QObject::connect(&session, &ParameterSession::sourceLit, &w.selParaSourceForm,
                     &TSelParaSourceForm::light);
    QObject::connect(&session, &ParameterSession::writeSourceWanted, &w, [&w](const QString& VrLabel1) {
        w.selParaSourceForm.ask(VrLabel1, [&w](std::optional<TableSide> side) {
            if (side) w.tool.parameters.writeSourceChosen(*side);
        });
    });
}

void openParameterForm(Windows& w, QWidget& form) {
    w.tool.parameters.opened();
    w.showModal(form);
}

}  // namespace kelvane
