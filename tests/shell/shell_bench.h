// The whole tool on the bench: real windows and engines over practice drives, on a hand-driven clock, with a
// scripted operator and a program folder of its own.
#pragma once

#include <QTemporaryDir>

#include "base/manual_tick_clock.h"
#include "base/whole_file.h"
#include "bench/scripted_operator.h"
#include "shell/practice_drives.h"
#include "shell/windows.h"

namespace kelvane {

struct ShellBench {
    QTemporaryDir dir;
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    ScriptedOperator person;
    ProgramFolder folder;
    Language language;
    PracticeDrives practice{clock};
    LooksInMemory looks;
    std::unique_ptr<Tool> tool;
    std::unique_ptr<TMainForm> mainForm;
    std::unique_ptr<Windows> windows;

    // project is the content of default.prj, which lies at a path from the program's folder; without one the
    // practice drive is chosen all the same.
    explicit ShellBench(const QByteArray& project = {}, const QString& at = "default.prj")
        : folder(ProgramFolder::decide(programs(), programs())) {
        if (!project.isEmpty()) writeWhole(folder.file(at), project);
        language.table = LangTable::builtInEnglish();
        language.LanguageIndex = 4;
        tool = std::make_unique<Tool>(
            ToolSite{clock, wall, person, folder, language, [this](const PortTarget& target) {
                         std::unique_ptr<TApdComPort> port;
                         if (target.kind == PortTarget::Kind::Practice)
                             port = practice.makePort(target.family);
                         return port;
                     }});
        tool->tripPracticeDrive = [this](Family family) { practice.raiseFault(family); };
        mainForm = std::make_unique<TMainForm>(*tool);
        windows = std::make_unique<Windows>(*tool, *mainForm, nullptr, looks);
        mainForm->show();
        if (project.isEmpty()) {
            tool->comSetup.ComPortComboBoxChange("20");
            tool->comSetup.copySettingsToLink();
        }
    }

    // With the folder of installed data beside it.
    QString programs() const {
        for (const char* made : {"bin", "share/kelvane"}) QDir(dir.path()).mkpath(made);
        return dir.filePath("bin");
    }
    template <class T>
    T* find(const char* name, QWidget* in = nullptr) {
        T* found =
            (in ? in : static_cast<QWidget*>(mainForm.get()))->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QString text(const char* name) { return find<QWidget>(name)->property("text").toString(); }
    void press(const char* name, QWidget& in) { find<QAbstractButton>(name, &in)->click(); }
    drive::PracticePort& port() { return *dynamic_cast<drive::PracticePort*>(tool->linkPort.behind()); }
    void trigger(const char* action) { find<QAction>(action)->trigger(); }
    // As a technician does it: com setup, Test, Accept, Yes.
    void goOnLine(Family family = Family::Larch) {
        tool->choosePracticeFamily(family);
        windows->openComSetup();
        tool->comSetup.TestButtonClick();
        clock.advance(400);
        person.expectBox("Do you want to On - Line now ?", "Cofirm", BoxAnswer::Yes);
        tool->comSetup.OKBitBtnClick();
        clock.advanceUntil([this] { return tool->link.DriveStatus.DriveReady == 1; }, 20000);
    }
};

}  // namespace kelvane
