#include "commissioning/pid_control.h"

namespace kelvane {

namespace {

const QString RunCommand = QStringLiteral("FF0620000002");
const QString StopCommand = QStringLiteral("FF0620000001");
// Kept: the coded state word, of all families.
const QString StateCommand = QStringLiteral("FF0321190001");

}  // namespace

PidControl::PidControl(const CommissioningSite& site)
    : line(site),
      RdTimer(site.clock, site.link),
      WrTimer(site.clock, site.link),
      MonitorTimer(site.clock, site.link),
      m_site(site) {
    for (RequestChain* chain : {&RdTimer, &WrTimer, &MonitorTimer}) line.setUp(*chain);
    RdTimer.next = [this] { return stopBefore(&PidControl::nextRead); };
    RdTimer.answered = [this](const LinkRequest& request) {
        if (request.command != StopCommand) storeRead();
    };
    WrTimer.next = [this] { return stopBefore(&PidControl::nextWrite); };
    WrTimer.answered = [this](const LinkRequest& request) {
        if (request.command != StopCommand) rows.ParaAdvStringGrid.setEdited(ParamRow, false);
    };
    RdTimer.ended = WrTimer.ended = [this] { watch(); };
    MonitorTimer.mayAsk = [this] {
        return !line.waitShown() && line.standing == CommissioningLink::Standing::No && line.isFree();
    };
    MonitorTimer.next = [this] { return nextOfMonitor(); };
    connect(&line, &CommissioningLink::changed, this, &PidControl::changed);
    // Left before its end, a read or write goes no further; RUN and STOP work again.
    connect(&line, &CommissioningLink::waitLeft, this, [this] { watch(); });
    connect(&line, &CommissioningLink::wentToRest, this, [this] {
        stopTimers();
        RunRequest = RequestSent;
        leds = {};
        Q_EMIT changed();
    });
}

void PidControl::opened() {
    const PidFamily& pid = family();
    rows.setCount(pid.ParamCount());
    int row = 0;
    for (const ListedParameter& parameter : pid.parameters)
        rows.setAddress(++row, QLatin1String(parameter.number), QLatin1String(parameter.modbus));
    leds = {};
    RunRequest = RequestSent;
    line.open();
    startReading();
}

// A STOP whose answer nobody awaits any more is sent again.
void PidControl::stopTimers() {
    if (stopIsUnanswered() && line.standing == CommissioningLink::Standing::No) RunRequest = StopPressed;
    RdTimer.stop();
    WrTimer.stop();
    MonitorTimer.stop();
}

// STOP does not wait for the end of a read or write: it goes between two rows, and the sweep goes on behind
// it.
std::optional<LinkRequest> PidControl::stopBefore(std::optional<LinkRequest> (PidControl::*next)()) {
    if (RunRequest != StopPressed) return (this->*next)();
    RunRequest = RequestSent;
    return line.write(StopCommand);
}

// A RUN that could not be sent must not start the motor when a later read brings the line to life again.
void PidControl::dropUnsentRun() {
    if (RunRequest == RunPressed) RunRequest = RequestSent;
}

// ---- Reading ----

void PidControl::ReadTransparentButtonClick() {
    if (line.refusesOffLine()) return;
    dropUnsentRun();
    line.startAnew();
    startReading();
}

void PidControl::startReading() {
    stopTimers();
    ParamRow = 0;
    RdTimer.start();
    line.showWait();
    Q_EMIT changed();
}

std::optional<LinkRequest> PidControl::nextRead() {
    if (ParamRow >= ParamCount()) return std::nullopt;
    ++ParamRow;
    return line.read(ParameterTask,
                     QStringLiteral("FF03") % rows.registerText(ParamRow) % QStringLiteral("000F"));
}

void PidControl::storeRead() {
    const bool tilia = line.DriveFamily() == static_cast<quint8>(Family::Tilia);
    rows.store(ParamRow, m_site.link.ParamRead, line.DriveFamily(),
               tilia ? ParameterRows::Signs::ByAttribute : ParameterRows::Signs::Never);
}

// ---- Writing ----

void PidControl::WriteTransparentButtonClick() {
    if (line.refusesOffLine()) return;
    dropUnsentRun();
    line.startAnew();
    stopTimers();
    ParamRow = 0;
    WrTimer.start();
    line.showWait();
    Q_EMIT changed();
}

// All rows are written, changed or not, but for those without a number.
std::optional<LinkRequest> PidControl::nextWrite() {
    while (ParamRow < ParamCount()) {
        ++ParamRow;
        if (const auto word = rows.word(ParamRow))
            return line.write(QStringLiteral("FF06") % rows.registerText(ParamRow) % *word);
    }
    return std::nullopt;
}

void PidControl::ParaAdvStringGridDblClickCell(int row) { rows.edit(row, m_site.person); }

// ---- Running and watching ----

void PidControl::RUNTransparentButtonClick() {
    if (!line.refusesOffLine()) RunRequest = RunPressed;
}

void PidControl::STOPTransparentButtonClick() {
    if (!line.refusesOffLine()) RunRequest = StopPressed;
}

void PidControl::watch() {
    stopTimers();
    line.closeWait();
    MonitorTimer.start();
    Q_EMIT changed();
}

std::optional<LinkRequest> PidControl::nextOfMonitor() {
    if (RunRequest == RunPressed || RunRequest == StopPressed) {
        const bool run = RunRequest == RunPressed;
        RunRequest = RequestSent;
        return line.write(run ? RunCommand : StopCommand);
    }
    showLeds();
    return line.read(GeneralTask, StateCommand);
}

void PidControl::showLeds() {
    const StateLeds now = codedStateLeds(m_site.link.ParamRead.ReadWords[0]);
    if (now == leds) return;
    leds = now;
    Q_EMIT changed();
}

// Pressed and not sent yet, or sent and not answered: its exchange ends with the window.
bool PidControl::stopIsUnanswered() const {
    const auto isOut = [](const RequestChain* chain) {
        return chain->out() && chain->out()->command == StopCommand;
    };
    return RunRequest == StopPressed || isOut(&RdTimer) || isOut(&WrTimer) || isOut(&MonitorTimer);
}

void PidControl::FormClose() {
    if (!line.isOpen()) return;
    const bool stopLeaves = stopIsUnanswered() && m_site.link.Lamp.onLine();
    stopTimers();
    if (stopLeaves) m_site.link.pushCommand(StopTask, StopCommand);
    if (leds.RUN.on)
        m_site.link.ShowHistoryMsg(QStringLiteral("PID Control was closed while the drive was running"));
    RunRequest = RequestSent;
    line.close();
    rows.clear();
}

}  // namespace kelvane
