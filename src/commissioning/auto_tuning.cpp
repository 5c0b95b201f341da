#include "commissioning/auto_tuning.h"

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint8 SelectorRow = 13;
const QString StopCommand = QStringLiteral("FF0620000001");
constexpr quint8 SelectorFirst = 255;  // the selector is read before the rows, since it decides them

}  // namespace

AutoTuning::AutoTuning(const CommissioningSite& site)
    : line(site),
      sequence(site, line),
      RdTimer(site.clock, site.link),
      WrTimer(site.clock, site.link),
      m_site(site),
      m_motorChain(site.clock, site.link) {
    for (RequestChain* chain : {&RdTimer, &WrTimer, &m_motorChain}) line.setUp(*chain);
    RdTimer.next = [this] { return nextRead(); };
    RdTimer.answered = [this](const LinkRequest&) { storeRead(); };
    RdTimer.ended = [this] { readEnded(); };
    WrTimer.next = [this] { return nextWrite(); };
    WrTimer.answered = [this](const LinkRequest&) { rows.ParaAdvStringGrid.setEdited(TuneRow, false); };
    WrTimer.ended = [this] { startReading(0); };
    m_motorChain.next = [this] { return nextOfMotor(); };
    m_motorChain.ended = [this] { startReading(SelectorFirst); };
    sequence.ended = [this] { startReading(0); };
    sequence.speedRead = [this] { Q_EMIT speedRead(sequence.speed); };
    connect(&line, &CommissioningLink::changed, this, [this] {
        // A motor that the drive refuses to take leaves the table of the one that it has.
        if (line.standing == CommissioningLink::Standing::Refused && m_motorChain.running())
            startReading(SelectorFirst);
        Q_EMIT changed();
    });
    connect(&line, &CommissioningLink::waitLeft, this, &AutoTuning::waitLeft);
    connect(&line, &CommissioningLink::wentToRest, this, &AutoTuning::wentToRest);
}

void AutoTuning::opened() {
    const TuneFamily* tune = family();
    rows.setCount(tune ? tune->TuneRowCount() : 0);
    SelectorData.clear();
    fillTable();
    enabled = {};
    TuneParaComboBoxItemIndex = 0;
    stopped = Stopped::No;
    line.open();
    startReading(tune && tune->hasTwoMotors() ? SelectorFirst : quint8(0));
    line.showWait();
    Q_EMIT motorChanged();
}

void AutoTuning::fillTable() {
    const TuneFamily* tune = family();
    if (!tune) return;
    const bool second = tune->hasTwoMotors() && motorKnown() && !firstMotor();
    int row = 0;
    for (const ListedParameter& parameter : tune->motors[second])
        rows.setAddress(++row, QLatin1String(parameter.number), QLatin1String(parameter.modbus));
}

// Behind the last row stands the command register, and far behind it the motor selector.
QString AutoTuning::registerOf(int row) const {
    if (row <= TuneRowCount()) return rows.registerText(row);
    if (row == SelectorRow) return QLatin1String(MotorSelectorRegister);
    return family() ? QLatin1String(family()->commandRegister) : QString();
}

void AutoTuning::stopTimers() {
    RdTimer.stop();
    WrTimer.stop();
    m_motorChain.stop();
    sequence.stop();
}

// ---- Reading ----

void AutoTuning::ReadTransparentButtonClick() {
    if (line.refusesOffLine()) return;
    stopped = Stopped::No;
    line.startAnew();
    startReading(0);
    line.showWait();
}

void AutoTuning::startReading(quint8 firstRow) {
    stopTimers();
    const bool waits = firstRow != SelectorFirst;
    if (waits) enabled.buttons = false;
    TuneRow = firstRow;
    RdTimer.start();
    if (waits && !line.waitShown()) line.showWait();
    Q_EMIT changed();
}

// Kept: the command register behind the last row is read too.
std::optional<LinkRequest> AutoTuning::nextRead() {
    if (TuneRow == SelectorFirst) {
        TuneRow = SelectorRow;
    } else {
        do {
            if (TuneRow > TuneRowCount()) return std::nullopt;
            ++TuneRow;
        } while (registerOf(TuneRow) == QLatin1String(NoRegister) || registerOf(TuneRow).isEmpty());
    }
    return line.read(ParameterTask, QStringLiteral("FF03") % registerOf(TuneRow) % QStringLiteral("000F"));
}

void AutoTuning::storeRead() {
    if (TuneRow != SelectorRow) {
        rows.store(TuneRow, m_site.link.ParamRead, line.DriveFamily(), ParameterRows::Signs::Never);
        return;
    }
    SelectorData = QString::number(m_site.link.ParamRead.ReadField[0]);
    TuneRow = 0;
    fillTable();
    Q_EMIT motorChanged();
}

void AutoTuning::readEnded() {
    enabled.buttons = enabled.entry = true;
    line.closeWait();
    Q_EMIT changed();
}

// Left before its end, a read or write goes no further.
void AutoTuning::waitLeft() {
    stopTimers();
    readEnded();
}

void AutoTuning::wentToRest() {
    stopTimers();
    enabled.buttons = enabled.entry = true;
    Q_EMIT changed();
}

// ---- Writing ----

void AutoTuning::WriteTransparentButtonClick() {
    if (line.refusesOffLine()) return;
    line.startAnew();
    stopTimers();
    enabled.buttons = false;
    TuneRow = 0;
    WrTimer.start();
    line.showWait();
    Q_EMIT changed();
}

std::optional<LinkRequest> AutoTuning::nextWrite() {
    while (TuneRow < TuneRowCount()) {
        ++TuneRow;
        if (registerOf(TuneRow) == QLatin1String(NoRegister)) continue;
        if (const auto word = rows.word(TuneRow))
            return line.write(QStringLiteral("FF06") % registerOf(TuneRow) % *word);
    }
    return std::nullopt;
}

void AutoTuning::ParaAdvStringGridDblClickCell(int row) {
    if (rows.text(ParameterRows::PrNo, row) != QLatin1String(NoParameter)) rows.edit(row, m_site.person);
}

// ---- Motor ----

// Kept: left without OK, the dialog sends the old value again, and everything is read anew. A value that the
// drive has not yet given is not sent.
void AutoTuning::motorSelFormClosed(std::optional<int> chosen) {
    if (chosen) SelectorData = QString::number(*chosen);
    if (line.refusesOffLine()) return;
    line.startAnew();
    stopTimers();
    m_motorSent = false;
    m_motorChain.start();
    Q_EMIT changed();
}

std::optional<LinkRequest> AutoTuning::nextOfMotor() {
    if (std::exchange(m_motorSent, true) || !motorKnown()) return std::nullopt;
    return line.write(QStringLiteral("FF06") % QLatin1String(MotorSelectorRegister) %
                      IntToBaseStr(SelectorData.toInt(), 16, 4));
}

// ---- Tuning ----

void AutoTuning::TuneParaComboBoxChange(int index) {
    TuneParaComboBoxItemIndex = index;
    enabled.TuneTransparentButtonEnabled = index > 0;
    Q_EMIT changed();
}

void AutoTuning::TuneTransparentButtonClick() {
    const TuneFamily* tune = family();
    if (TuneParaComboBoxItemIndex <= 0 || !tune || line.refusesOffLine()) return;
    if (TuneParaComboBoxItemIndex == tune->turningEntry &&
        m_site.person.box(m_site.lang.MsgStr(Message::MotorWillRun), QStringLiteral("Caution"),
                          BoxIcon::Exclamation, BoxButtons::OkCancel) != BoxAnswer::Ok)
        return;
    // The question may have stood for long.
    if (!line.isOpen() || family() != tune || line.refusesOffLine()) return;
    stopTimers();
    line.startAnew();
    enabled = {.buttons = false, .TuneTransparentButtonEnabled = false, .entry = false};
    stopped = Stopped::No;
    sequence.start(*tune, TuneParaComboBoxItemIndex);
    Q_EMIT changed();
}

void AutoTuning::stopDrive() {
    if (!line.isOpen() || line.refusesOffLine()) return;
    const bool modeLeft = sequence.modeIsSet() && line.standing != CommissioningLink::Standing::Refused;
    if (sequence.running()) {
        sequence.watchUntilStopped();
        if (stopped == Stopped::No) stopped = modeLeft ? Stopped::BeforeRun : Stopped::Run;
        enabled.buttons = enabled.entry = true;
        m_site.link.ShowHistoryMsg(QStringLiteral("Auto Tuning was stopped"));
    }
    m_site.link.pushCommand(StopTask, StopCommand);
    Q_EMIT changed();
}

bool AutoTuning::mayClose() {
    if (!sequence.leavesDriveTuning()) return true;
    QString text = tr("The drive goes on tuning when this window is closed.");
    if (sequence.modeIsSet() && line.standing != CommissioningLink::Standing::Refused)
        text += QLatin1Char('\n') %
                tr("Its tuning command is set: the next RUN from anywhere starts the tuning.");
    return m_site.person.yes(text % QLatin1Char('\n') % tr("Close the window?"), QStringLiteral("Caution"),
                             BoxIcon::Exclamation);
}

void AutoTuning::FormClose() {
    if (!line.isOpen()) return;
    if (sequence.leavesDriveTuning())
        m_site.link.ShowHistoryMsg(
            QStringLiteral("Auto Tuning was closed during a run: the drive goes on by itself"));
    stopTimers();
    line.close();
    enabled = {.buttons = true, .TuneTransparentButtonEnabled = true, .entry = true};
    rows.clear();
    Q_EMIT changed();
}

}  // namespace kelvane
