#include "tour/stage.h"

#include "link/number_text.h"
#include "localisation/startup_language.h"

namespace kelvane::tour {

drive::LineOptions Stage::line() {
    drive::LineOptions line = PracticeDrives::usualLine();
    line.wire.Baud = PracticeBaud;
    return line;
}

Stage::Stage(const QString& programFolder)
    : folder(ProgramFolder::decide(programFolder, programFolder)),
      practice(clock, line()),
      looks(folder.file(QStringLiteral("ui-state.ini"))) {
    DecimalSep = findDecimalSep();
    startLanguage(language, folder.findData(QStringLiteral("default.prj")),
                  folder.findData(QStringLiteral("Language file")), person);
    tool = std::make_unique<Tool>(
        ToolSite{clock, wallClock, person, folder, language, [this](const PortTarget& target) {
                     std::unique_ptr<TApdComPort> port;
                     if (target.kind == PortTarget::Kind::Practice) port = practice.makePort(target.family);
                     return port;
                 }});
    tool->tripPracticeDrive = [this](Family family) { practice.raiseFault(family); };
    mainForm = std::make_unique<TMainForm>(*tool);
    windows = std::make_unique<Windows>(*tool, *mainForm, &person, looks);
}

}  // namespace kelvane::tour
