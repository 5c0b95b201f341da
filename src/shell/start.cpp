#include "shell/start.h"

#include <QApplication>

#include "base/qt_tick_clock.h"
#include "link/number_text.h"
#include "link/qt_com_port.h"
#include "link/tcp_com_port.h"
#include "localisation/startup_language.h"
#include "shell/change_language.h"
#include "shell/document_viewer.h"
#include "shell/logo_form.h"
#include "shell/practice_drives.h"
#include "shell/single_instance.h"
#include "shell/ui_state.h"
#include "shell/windows.h"
#include "ui/screen_room.h"
#include "ui/tool_style.h"

namespace kelvane {

namespace {

void comeForward(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

RoutedPort::Factory portFactory(PracticeDrives& practice, const PortFlow& flow) {
    return [&practice, flow](const PortTarget& target) -> std::unique_ptr<TApdComPort> {
        if (target.kind == PortTarget::Kind::Practice) return practice.makePort(target.family);
        if (target.kind == PortTarget::Kind::Gateway)
            return std::make_unique<TcpComPort>(target.host, target.tcpPort);
        return std::make_unique<QtComPort>(target.devicePath, flow);
    };
}

// Without a turn of the loop the screen would not show a window while the next ones are made.
void letScreenFollow() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

// More than half of the way to a running tool are the windows that nobody has asked for yet.
void showEarly(TMainForm& mainForm, const LangTable& table) {
    ChangeLanguage(table, {&mainForm});
    fitIntoScreen(mainForm, mainForm);
    mainForm.show();
    letScreenFollow();
}

}  // namespace

int runTool(QApplication& app) {
    SingleInstance instance;
    if (instance.start() == SingleInstance::Start::Second) return 0;

    QApplication::setStyle(new ToolStyle);
    const ProgramFolder folder = ProgramFolder::ofApplication();
    Language language;
    ShellOperator person(language.table);
    DecimalSep = findDecimalSep();
    startLanguage(language, folder.findData(QStringLiteral("default.prj")),
                  folder.findData(QStringLiteral("Language file")), person);
    TLogoForm logo;
    logo.show();
    logo.repaint();
    letScreenFollow();

    QtTickClock clock;
    SystemWallClock wallClock;
    PracticeDrives practice(clock);
    Tool tool({clock, wallClock, person, folder, language, portFactory(practice, LinkPortFlow),
               portFactory(practice, SetupPortFlow)});
    tool.tripPracticeDrive = [&practice](Family family) { practice.raiseFault(family); };
    tool.viewer = desktopViewer();
    UiState looks(folder.file(QStringLiteral("ui-state.ini")));
    person.lastFolder = looks.text(QStringLiteral("lastFolder"));
    TMainForm mainForm(tool);
    looks.restoreWindow(mainForm);
    showEarly(mainForm, language.table);
    Windows windows(tool, mainForm, &person, looks);
    looks.restoreWindow(windows.parameterForm);
    looks.restoreWindow(windows.form<TKeypadForm>());
    QObject::connect(&mainForm, &TMainForm::closed, [&] {
        looks.keepWindow(mainForm);
        looks.keepWindow(windows.parameterForm);
        looks.keepWindow(windows.form<TKeypadForm>());
        looks.setText(QStringLiteral("lastFolder"), person.lastFolder);
        // Not quit(), which asks every window and takes no for an answer; this also ends a question left
        // open.
        QCoreApplication::exit();
    });
    QObject::connect(&instance, &SingleInstance::raiseWanted, [&] { comeForward(mainForm); });
    logo.close();
    for (const QString& complaint : tool.ports.complaints()) tool.link.ShowHistoryMsg(complaint);
    for (const QString& problem : {folder.error(), instance.problem()})
        if (!problem.isEmpty()) tool.link.ShowHistoryMsg(problem);
    return app.exec();
}

}  // namespace kelvane
