// Everything of the tool that runs without a window: ports, link, com setup, identification, presence,
// language and project. One instance lives for the whole run; windows show its engines. Tests build it on a
// hand-driven clock with practice ports.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "base/program_folder.h"
#include "base/whole_file.h"
#include "catalogue/identification.h"
#include "commissioning/auto_tuning.h"
#include "commissioning/pid_control.h"
#include "console/advance_console.h"
#include "diagnostics/faults/fault_history.h"
#include "diagnostics/keypad/keypad.h"
#include "diagnostics/monitor/monitor_session.h"
#include "diagnostics/trend/trend_session.h"
#include "link/com_setup.h"
#include "link/port_directory.h"
#include "link/port_presence.h"
#include "link/request_scheduler.h"
#include "link/routed_port.h"
#include "localisation/language_file.h"
#include "parameters/parameter_session.h"
#include "quicksetup/quick_setup_flow.h"
#include "shell/manuals.h"
#include "shell/project_file.h"
#include "shell/window_rules.h"

namespace kelvane {

// What the tool stands on; all of it outlives the tool.
struct ToolSite {
    TickClock& clock;
    const WallClock& wallClock;
    Operator& person;
    const ProgramFolder& folder;
    Language& language;
    RoutedPort::Factory makePort;
    RoutedPort::Factory makeSetupPort = makePort;  // com setup's own, with flow settings of its own
};

class Tool : public QObject {
    Q_OBJECT
   public:
    explicit Tool(const ToolSite& site);

    ToolSite site;
    Voice voice;
    PortDirectory ports;
    RoutedPort linkPort;
    RoutedPort setupPort;
    RequestScheduler link;
    ComSetup comSetup;
    GroupNameTable groupNames;
    DriveIdentification identification;
    PortPresence presence;
    PortWatcher watcher;
    WindowRules rules;
    AdvanceConsole console;
    ParameterSession parameters;
    PidControl pid;
    AutoTuning autoTuning;
    TrendSession trend;
    MonitorSession monitor;
    FaultHistory faults;
    Keypad keypad;
    QuickSetup quickSetup;
    QuickSetupFlow quickSetupFlow;

    // Values of default.prj that belong to windows; a window takes its section when it is built and puts it
    // back before a save.
    DefaultProject defaults;
    NamedProject named;
    QString statusPanel0;  // last file action

    // Family of the practice drive behind the chosen port number; only while that is a practice port and the
    // link is Off Line.
    bool practiceChosen() const;
    bool mayChoosePractice() const { return practiceChosen() && !link.Lamp.onLine(); }
    Family practiceFamily() const;
    void choosePracticeFamily(Family family);
    // Makes the practice drive of a family trip; set by whoever owns the practice drives.
    std::function<void(Family)> tripPracticeDrive;
    bool mayRaiseFault() const { return practiceChosen() && link.Lamp.onLine() && tripPracticeDrive; }
    void raiseFault();

    DocumentViewer viewer;                    // set by whoever knows the desktop
    void OpenSoftwareUserManual(int number);  // 1 to 10
    void UserManualClick();

    // File > Open and File > Save.
    void OpenTransparentButtonClick();
    void SaveTransparentButtonClick();
    // default.prj; a write error at the end never stops the closing, it is returned for the history.
    FileResult SaveProject();
    // The main window closes.
    void FormClose();
    bool chooseLanguage(quint8 index);

   Q_SIGNALS:
    void panel0Changed();
    void projectOpened();  // named was read: windows take their sections
    void projectWanted();  // windows put their values into defaults and named
    void languageChanged();
    void practiceChanged();

   private:
    void loadDefaultProject();
    void takeComSetup(const ComSetupSection& section, int taken);
    void takeComSetupAtRest(const ComSetupSection& section, int taken);
    void takeHeldComSetup();
    ComSetupSection comSetupSection() const;
    NamedProject projectToSave() const;
    void followPort();
    void sayOnLine();
    PortSettings setComSetupForKeypad(const ComSetupChoice& choice);

    struct HeldComSetup {
        ComSetupSection section;
        int taken = 0;  // values of it, 0: nothing waits
    };
    bool m_onLineSaid = false;
    HeldComSetup m_held;  // of a project that was opened while on line
};

}  // namespace kelvane
