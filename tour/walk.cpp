// Main window, com setup, language, project.
#include "tour/walk.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileInfo>
#include <QPlainTextEdit>

namespace kelvane::tour {

namespace {

constexpr int SearchMs = 60000;

}  // namespace

Walk::Walk(Stage& stage, Script& script, Answers& answers, Family family, const QString& fileFolder)
    : m_stage(stage),
      m_script(script),
      m_answers(answers),
      m_hand(script, answers),
      m_windows(*stage.windows),
      m_main(m_windows.mainForm),
      m_parameters(m_windows.parameterForm),
      m_table(stage.tool->parameters.driveTable.grid),
      m_drive(stage.practice.driveOf(family)),
      m_family(family),
      m_fileFolder(fileFolder) {}

void Walk::run() {
    start();
    choosePracticeDrive();
    testWithWrongSettings();
    autoDetect();
    goOnLine();
    lookAtIdentity();
    openParameters();
    readDrive();
    pickGroup();
    findInTable();
    editValue();
    undoAndRedo();
    writeSelect();
    writeWhileRunning();
    compareWithDefaults();
    saveAndRead(QStringLiteral("TXT"), "TxtAbLED", QStringLiteral(".txt"));
    saveAndRead(QStringLiteral("CSV"), "CsvAbLED", QStringLiteral(".CSV"));
    saveAndRead(QStringLiteral("EXCEL"), "ExcelAbLED", QStringLiteral(".xls"));
    compareWithFile();
    hideColumn();
    print();
    closeTab();
    closeParameters();
    recordTrend();
    saveTrend();
    watchMeters();
    controlByPid();
    tuneMotor();
    changeLanguage();
    saveProject();
    exit();
}

void Walk::check(bool right, const QString& wrong) {
    if (!right) m_script.fail(wrong);
}

QString Walk::file(const QString& name) const { return QDir(m_fileFolder).filePath(name); }

void Walk::start() {
    m_script.step(QStringLiteral("Start"));
    m_main.show();
    m_hand.waitForWindow(m_main, true);
    check(m_hand.text(m_main, "ComStatusAbLED") == QLatin1String("Off Line"),
          QStringLiteral("the lamp is not off line"));
    m_script.keepPicture(m_main, QStringLiteral("start"));
}

void Walk::choosePracticeDrive() {
    const QString name = QString::fromLatin1(familyName(m_family));
    m_script.step(QStringLiteral("Options menu: practice drive ") + name);
    m_hand.choose(m_main, {QStringLiteral("OptionsMenu"), QStringLiteral("PracticeDriveMenu")},
                  qPrintable(QStringLiteral("Practice") + name), QStringLiteral("practice-drive"));
    m_hand.waitFor(QStringLiteral("the name of the drive in the status line"),
                   [&] { return m_hand.text(m_main, "PracticePanel").contains(name); });
}

void Walk::testWithWrongSettings() {
    m_script.step(QStringLiteral("Com setup: Test with settings that are not the drive's"));
    TComSetupForm& setup = m_windows.comSetupForm;
    m_hand.click(m_main, "ComSetupTransparentButton");
    m_hand.waitForWindow(setup, true);
    m_script.keepPicture(setup, QStringLiteral("com-setup"));
    m_answers.expectBox(QStringLiteral("Communication Time-Out !!"), QMessageBox::Ok,
                        QStringLiteral("time-out"));
    m_hand.click(setup, "TestButton");
    m_hand.waitForAnswers();
    check(m_hand.find<QAbstractButton>(setup, "FailAbLED").isChecked(),
          QStringLiteral("the lamp Fail is dark"));
}

void Walk::autoDetect() {
    m_script.step(QStringLiteral("Com setup: Auto-Detect"));
    TComSetupForm& setup = m_windows.comSetupForm;
    m_hand.click(setup, "AutoDetectRadioButton");
    m_answers.expectBox(QStringLiteral("Communication Auto-Detect success !!"), QMessageBox::Ok);
    m_hand.click(setup, "TestButton");
    m_hand.waitForWindow(m_windows.connectForm, true);
    m_hand.pause(300);
    m_script.keepPicture(m_windows.connectForm, QStringLiteral("auto-detect"));
    m_hand.waitForAnswers(SearchMs);
    const auto baud = m_hand.find<QWidget>(setup, "BaudComboBox").property("currentText").toString();
    check(baud == QString::number(PracticeBaud), QStringLiteral("it found a baud rate of ") + baud);
    m_script.keepPicture(setup, QStringLiteral("com-setup-found"));
}

void Walk::goOnLine() {
    m_script.step(QStringLiteral("Com setup: Accept, on line"));
    m_answers.expectBox(QStringLiteral("Do you want to On - Line now ?"), QMessageBox::Yes,
                        QStringLiteral("on-line-question"));
    m_hand.click(m_windows.comSetupForm, "OKBitBtn");
    m_hand.waitForAnswers();
    m_hand.waitForWindow(m_windows.comSetupForm, false);
    m_hand.waitFor(
        QStringLiteral("lamp On Line"),
        [this] {
            return m_hand.text(m_main, "ComStatusAbLED") == QLatin1String("On Line") &&
                   !m_windows.initialForm.isVisible();
        },
        SearchMs);
}

void Walk::lookAtIdentity() {
    m_script.step(QStringLiteral("Identity of the drive, history"));
    m_hand.waitFor(QStringLiteral("the drive's labels"), [this] {
        return m_hand.text(m_main, "DriveVrLabel").contains(QLatin1String(familyName(m_family))) &&
               !m_hand.text(m_main, "RatedCurrentVrLabel").isEmpty();
    });
    m_hand.pause(500);
    check(!m_hand.find<QPlainTextEdit>(m_main, "MessageMemo").toPlainText().isEmpty(),
          QStringLiteral("the history is empty"));
    m_script.keepPicture(m_main, QStringLiteral("on-line"));
}

void Walk::changeLanguage() {
    m_script.step(QStringLiteral("Options menu: Russian, and English again"));
    const QStringList menus{QStringLiteral("OptionsMenu"), QStringLiteral("SetupLanguage")};
    const QString english = m_hand.text(m_main, "ExitTransparentButton");
    m_hand.choose(m_main, menus, "Russian", QStringLiteral("languages"));
    check(m_hand.text(m_main, "ExitTransparentButton") != english,
          QStringLiteral("the button Exit is still English"));
    m_hand.pause(100);
    m_script.keepPicture(m_main, QStringLiteral("russian-main"));
    m_hand.click(m_main, "ParameterTransparentButton");
    m_hand.waitForWindow(m_parameters, true);
    m_hand.pause(100);
    m_script.keepPicture(m_parameters, QStringLiteral("russian-parameters"));
    m_hand.click(m_parameters, "ExitTransparentButton");
    m_hand.waitForWindow(m_parameters, false);
    m_hand.choose(m_main, menus, "English");
    check(m_hand.text(m_main, "ExitTransparentButton") == english,
          QStringLiteral("English did not come back"));
}

void Walk::saveProject() {
    m_script.step(QStringLiteral("File menu: save a project"));
    const QString path = file(QStringLiteral("project.prj"));
    m_answers.expectFile(path, QStringLiteral("save-project"));
    m_hand.choose(m_main, {QStringLiteral("FilesMenu")}, "FileSaveItem");
    m_hand.waitForAnswers();
    check(QFileInfo(path).size() > 0, QStringLiteral("there is no ") + path);
    check(m_hand.text(m_main, "StatusLinePanel0").contains(QStringLiteral("project.prj")),
          QStringLiteral("the status line does not tell of it"));
}

void Walk::exit() {
    m_script.step(QStringLiteral("Exit"));
    m_hand.click(m_main, "ExitTransparentButton");
    m_hand.waitForWindow(m_main, false);
    check(m_stage.tool->link.port().Open() == false, QStringLiteral("the port is still open"));
}

}  // namespace kelvane::tour
