// Monitor, PID control and auto tuning, over a motor that moves.
#include "commissioning/auto_tuning_form.h"
#include "commissioning/pid_form.h"
#include "diagnostics/monitor/monitor_form.h"
#include "tour/walk.h"

namespace kelvane::tour {

namespace {

constexpr int MotorMs = 30000;
constexpr int ReadMs = 30000;
constexpr double ShortTuning = 1;  // s

}  // namespace

void Walk::watchMeters() {
    m_script.step(QStringLiteral("Monitor: watch a motor on the meters"));
    auto& monitor = m_windows.form<TMonitorForm>();
    m_hand.click(m_main, "MonitorTransparentButton");
    m_hand.waitForWindow(monitor, true);
    m_hand.click(monitor, "StartVrPowerButton");
    m_drive.motor().setCommandHz(45);
    m_drive.motor().run();
    m_hand.waitFor(
        QStringLiteral("the dial to show 45 Hz"),
        [&] { return m_stage.tool->monitor.VrMeter.Position == 45; }, MotorMs);
    m_script.keepPicture(monitor, QStringLiteral("monitor"));
    m_hand.click(monitor, "ExitTransparentButton");
    m_hand.waitForWindow(monitor, false);
}

// The motor that the Monitor left running is stopped from here.
void Walk::controlByPid() {
    if (pidFamily(static_cast<quint8>(m_family)).ParamCount() == 0) return;
    m_script.step(QStringLiteral("PID Control: read, look at the guide, stop the drive"));
    auto& pid = m_windows.form<TPIDForm>();
    m_hand.choose(m_main, {QStringLiteral("DiagnosticMenu")}, "PIDControl");
    m_hand.waitFor(
        QStringLiteral("the PID parameters"), [&] { return pid.isVisible(); }, ReadMs);
    m_hand.click(pid, "Case4AbLED");
    m_hand.waitFor(
        QStringLiteral("the RUN lamp"), [&] { return m_stage.tool->pid.leds.RUN.on; }, ReadMs);
    m_script.keepPicture(pid, QStringLiteral("pid"));
    m_hand.click(pid, "STOPTransparentButton");
    m_hand.waitFor(
        QStringLiteral("the motor to stand"), [&] { return !m_drive.motor().running(); }, MotorMs);
    m_hand.click(pid, "ExitTransparentButton");
    m_hand.waitForWindow(pid, false);
}

void Walk::tuneMotor() {
    const TuneFamily* family = tuneFamily(static_cast<quint8>(m_family));
    if (!family || !*family->commandRegister) return;
    m_script.step(QStringLiteral("Auto Tuning: let the drive measure the motor"));
    auto& tuning = m_windows.form<TAutoTuningForm>();
    m_drive.options().tuneSeconds = ShortTuning;
    m_hand.choose(m_main, {QStringLiteral("DiagnosticMenu")}, "AutoTuning");
    m_hand.waitFor(
        QStringLiteral("the motor's parameters"), [&] { return tuning.isVisible(); }, ReadMs);
    const int standing = family->turningEntry == 1 ? 2 : 1;
    const QStringList entries = tuneTexts(m_stage.language.table, family->hasTwoMotors()).entries;
    m_hand.chooseText(tuning, "TuneParaComboBox", entries[standing]);
    m_answers.expectBox(QStringLiteral("Auto Tuning Finish !!"), QMessageBox::Ok);
    m_hand.click(tuning, "TuneTransparentButton");
    m_script.keepPicture(tuning, QStringLiteral("auto-tuning"));
    m_hand.waitForAnswers();
    m_hand.waitFor(
        QStringLiteral("the new values"),
        [&] { return m_stage.tool->autoTuning.enabled.buttons && !m_windows.initialForm.isVisible(); },
        ReadMs);
    m_hand.click(tuning, "ExitTransparentButton");
    m_hand.waitForWindow(tuning, false);
}

}  // namespace kelvane::tour
