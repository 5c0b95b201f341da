#include "shell/quick_setup_windows.h"

#include <QCoreApplication>

#include "quicksetup/qs_source_form.h"
#include "quicksetup/quick_setup_form.h"
#include "shell/windows.h"

namespace kelvane {

namespace {

// Languages that have the pictures with Chinese captions.
bool isChinese(quint8 LanguageIndex) { return LanguageIndex == 1 || LanguageIndex == 2; }

QString sourceText(const Tool& tool) {
    if (tool.quickSetupFlow.source() == SettingsSource::Drive)
        return QCoreApplication::translate("kelvane::TQuickSetupForm", "Values read from the drive");
    if (!tool.quickSetup.projectTaken())
        return QCoreApplication::translate("kelvane::TQuickSetupForm", "No project file was opened");
    const QString& drive = tool.named.QuickSetup.DriveVrLabel;
    return QCoreApplication::translate("kelvane::TQuickSetupForm", "Values of the project file%1")
        .arg(drive.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(drive));
}

void showWait(Windows& w) {
    const QuickSetupFlow& flow = w.tool.quickSetupFlow;
    if (flow.waiting()) {
        w.initialForm.showProgress(flow.slotsDone(), w.tool.quickSetup.usedCount());
    } else {
        w.initialForm.showProgress(0, 0);
    }
}

}  // namespace

std::unique_ptr<QWidget> makeQuickSetup(Windows& w) {
    return std::make_unique<TQuickSetupForm>(w.tool.quickSetup, w.tool.quickSetupFlow);
}

void wireQuickSetup(Windows& w, QWidget& form) {
    auto& wizard = static_cast<TQuickSetupForm&>(form);
    QuickSetupFlow& flow = w.tool.quickSetupFlow;
    QObject::connect(&flow, &QuickSetupFlow::progressed, &w, [&w] { showWait(w); });
    QObject::connect(&flow, &QuickSetupFlow::openingGivenUp, &w, &Windows::openingGivenUp);
    QObject::connect(&flow, &QuickSetupFlow::wizardWanted, &w, [&w, &wizard] {
        wizard.setSourceText(sourceText(w.tool));
        w.showModal(wizard);
    });
    QObject::connect(&wizard, &QDialog::finished, &flow, &QuickSetupFlow::closed);
    // Wait notice and wizard go in one; a window manager that hands the focus from one to the other loses it.
    QObject::connect(&wizard, &QDialog::finished, &w, [&w] { w.mainForm.activateWindow(); });
    const auto followLanguage = [&w, &wizard] {
        wizard.setChinese(isChinese(w.tool.site.language.LanguageIndex));
    };
    QObject::connect(&w.tool, &Tool::languageChanged, &wizard, followLanguage);
    followLanguage();
}

void wireQSsource(Windows& w, QWidget& form) {
    auto& source = static_cast<TQSsourceForm&>(form);
    QObject::connect(&source, &TQSsourceForm::chosen, &w.tool.quickSetupFlow, &QuickSetupFlow::chooseSource);
    QObject::connect(&source, &TQSsourceForm::cancelled, &w, [&w] {
        w.tool.quickSetupFlow.closed();
        w.openingGivenUp();
    });
}

void openQuickSetup(Windows& w, QWidget&) {
    w.tool.quickSetupFlow.opened();
    w.showModal(w.form<TQSsourceForm>());
}

}  // namespace kelvane
