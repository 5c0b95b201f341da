#include "quicksetup/quick_setup_flow.h"

namespace kelvane {

namespace {

QString numberOf(const QString& label) { return label.section(QLatin1Char(' '), 0, 0); }

}  // namespace

QuickSetupFlow::QuickSetupFlow(QuickSetup& quick, RequestScheduler& link, TickClock& clock,
                               const Voice& voice)
    : RDTimer(clock, link), WRTimer(clock, link), m_quick(quick), m_link(link), m_voice(voice) {
    RDTimer.next = [this] { return nextRead(); };
    RDTimer.answered = [this](const LinkRequest&) { Q_EMIT progressed(); };
    RDTimer.ended = [this] { endReading(); };
    WRTimer.next = [this] { return nextWrite(); };
    WRTimer.answered = [this](const LinkRequest&) {
        if (m_outcome[static_cast<size_t>(m_askedSlot)] == Outcome::Sent)
            setOutcome(m_askedSlot, Outcome::Unanswered);
        Q_EMIT progressed();
    };
    WRTimer.ended = [this] { endWriting(); };
    for (RequestChain* chain : {&RDTimer, &WRTimer}) {
        chain->mayAsk = [this] { return m_link.idle(); };
        chain->alsoAnswered = [this, chain] { return noAnswerComes(*chain); };
    }
    connect(&link, &RequestScheduler::answered, this, &QuickSetupFlow::onAnswered);
    connect(&link, &RequestScheduler::refused, this, &QuickSetupFlow::onRefused);
    connect(&link, &RequestScheduler::initialRun, this, &QuickSetupFlow::onInitialRun);
    // A person has closed the notice.
    connect(&link, &RequestScheduler::changed, this, [this] {
        if (waiting() && !m_link.Notice.TInitialFormShown) leaveWait();
    });
    connect(&link, &RequestScheduler::statusDecoded, this, [this] { endLastWrite(Outcome::Unanswered); });
}

// The request was dropped: a length or function error, a refusal without a text, or Ignore.
bool QuickSetupFlow::noAnswerComes(const RequestChain& chain) const {
    return chain.waitsForNothing() && m_link.TaskQueue.empty();
}

void QuickSetupFlow::goTo(WizardState state) {
    m_state = state;
    const bool waits = waiting();
    m_link.Notice.TInitialFormShown = m_link.Notice.waitMayBeLeft = waits;
    m_link.Notice.waitTrouble.clear();
    Q_EMIT progressed();
    m_link.notifyChanged();
}

int QuickSetupFlow::slotsDone() const {
    int done = 0;
    for (int slot = 1; slot < SlotIndex; ++slot) done += m_quick.used(slot);
    return done;
}

// ---- Opening ----

void QuickSetupFlow::chooseSource(SettingsSource source) {
    m_source = source;
    if (source == SettingsSource::Drive) return startReading();
    goTo(WizardState::Editing);
    if (!m_quick.LoadParaFromFile())
        m_voice.person.tell(QStringLiteral("Parameter value Not correct !!"),
                            QStringLiteral("Warning Message"), BoxIcon::Exclamation);
    Q_EMIT wizardWanted();
}

void QuickSetupFlow::closed() {
    RDTimer.stop();
    WRTimer.stop();
    if (m_state != WizardState::Closed) goTo(WizardState::Closed);
}

void QuickSetupFlow::giveUpOpening() {
    goTo(WizardState::Closed);
    Q_EMIT openingGivenUp();
}

// The wizard goes first: a window manager hands the keyboard of the wait notice to the window below it, and
// may lose it when that one goes too.
void QuickSetupFlow::endWizard() { Q_EMIT wizardDone(); }

// ---- Reading ----

void QuickSetupFlow::startReading() {
    SlotIndex = 1;
    m_goodReply = false;
    m_quick.Slot[SlotCount].origin = ValueOrigin::Unknown;
    goTo(WizardState::Reading);
    RDTimer.start();
}

// The words of the last read belong to the slot before. A slot that the family has not passes without a
// request and leaves the words to the next one, harmlessly, for it is never shown. A slot whose read was not
// answered gets the words of the slot before it, and is marked.
std::optional<LinkRequest> QuickSetupFlow::nextRead() {
    for (;;) {
        if (SlotIndex > 1) m_quick.takeWords(SlotIndex - 1, m_link.ParamRead.ReadWords, m_goodReply);
        if (SlotIndex == SlotCount) return {};
        const int slot = SlotIndex++;
        if (!m_quick.used(slot)) continue;
        m_goodReply = false;
        return LinkRequest{GeneralTask, m_quick.Slot[static_cast<size_t>(slot)].SlotReadCommand,
                           Awaits::ReadDone};
    }
}

// Kept: the last slot is asked for, but nobody waits for its answer, so it shows and writes the value left
// from earlier.
void QuickSetupFlow::endReading() {
    if (m_quick.used(SlotCount)) m_link.request(GeneralTask, m_quick.Slot[SlotCount].SlotReadCommand);
    m_quick.fillControls();
    goTo(WizardState::Editing);
    Q_EMIT wizardWanted();
}

// ---- Writing ----

// The link may have gone to rest under the open wizard.
bool QuickSetupFlow::mayWrite() {
    if (m_link.owner().is(OwnerQuickSetup)) return true;
    m_voice.person.tell(m_voice.lang.MsgStr(Message::OnLineFirst), QStringLiteral("Warning Message"));
    return false;
}

void QuickSetupFlow::OkBitBtnClick() {
    if (m_state != WizardState::Editing || !mayWrite()) return;
    const BoxAnswer answer =
        m_voice.person.boxOverPanel(m_voice.lang.MsgStr(Message::WriteSettings), QStringLiteral("Cofirm"),
                                    BoxIcon::Question, BoxButtons::YesNoOrLeave, panel());
    if (m_state != WizardState::Editing) return;
    if (answer == BoxAnswer::No) return endWizard();
    if (answer != BoxAnswer::Yes) return;  // left: back to the slots
    if (mayWrite()) startWriting();
}

void QuickSetupFlow::startWriting() {
    m_quick.buildWriteCommands();
    m_outcome.fill(Outcome::NotSent);
    SlotIndex = 1;
    goTo(WizardState::Writing);
    WRTimer.start();
}

std::optional<LinkRequest> QuickSetupFlow::nextWrite() {
    while (SlotIndex < SlotCount) {
        const int slot = SlotIndex++;
        if (!m_quick.used(slot)) continue;
        m_askedSlot = slot;
        setOutcome(slot, Outcome::Sent);
        return LinkRequest{WriteTask, m_quick.Slot[static_cast<size_t>(slot)].SlotWriteCommand,
                           Awaits::WriteDone};
    }
    return {};
}

// Kept: the last slot is written without waiting for its answer; it leaves before the poll goes on.
void QuickSetupFlow::endWriting() {
    m_lastWriteOpen = m_quick.used(SlotCount);
    if (m_lastWriteOpen) {
        setOutcome(SlotCount, Outcome::Sent);
        m_link.request(WriteTask, m_quick.Slot[SlotCount].SlotWriteCommand);
    } else {
        reportWriting();
    }
    endWizard();
}

void QuickSetupFlow::setOutcome(int slot, Outcome outcome) {
    m_outcome[static_cast<size_t>(slot)] = outcome;
    if (outcome == Outcome::Written) m_quick.written(slot);
}

void QuickSetupFlow::endLastWrite(Outcome outcome) {
    if (!std::exchange(m_lastWriteOpen, false)) return;
    setOutcome(SlotCount, outcome);
    reportWriting();
}

QString QuickSetupFlow::writeReport() const {
    QStringList missing;
    for (int slot = 1; slot <= SlotCount; ++slot) {
        const Outcome outcome = m_outcome[static_cast<size_t>(slot)];
        if (!m_quick.used(slot) || outcome == Outcome::Written) continue;
        const QString why = outcome == Outcome::Refused   ? QStringLiteral("refused")
                            : outcome == Outcome::NotSent ? QStringLiteral("not sent")
                                                          : QStringLiteral("no answer");
        missing +=
            numberOf(slotLabel(*m_quick.family(), slot)) % QStringLiteral(" (") % why % QLatin1Char(')');
    }
    if (missing.isEmpty()) return {};
    return QStringLiteral("Quick Setup: %1 of %2 settings were not written: %3")
        .arg(missing.size())
        .arg(m_quick.usedCount())
        .arg(missing.join(QStringLiteral(", ")));
}

void QuickSetupFlow::reportWriting() {
    const QString report = writeReport();
    if (!report.isEmpty()) m_link.ShowHistoryMsg(report);
}

// ---- What the link tells ----

void QuickSetupFlow::onAnswered(quint8 task) {
    if (task == GeneralTask && RDTimer.waiting()) m_goodReply = true;
    if (task != WriteTask) return;
    if (WRTimer.waiting()) setOutcome(m_askedSlot, Outcome::Written);
    endLastWrite(Outcome::Written);
}

void QuickSetupFlow::onRefused(quint8 task) {
    if (task != WriteTask) return;
    if (WRTimer.waiting()) setOutcome(m_askedSlot, Outcome::Refused);
    endLastWrite(Outcome::Refused);
}

// A link that goes to rest answers no more.
void QuickSetupFlow::onInitialRun() {
    leaveWait();
    endLastWrite(Outcome::Unanswered);
    RDTimer.stop();
    WRTimer.stop();
    if (m_state == WizardState::Reading) giveUpOpening();
    if (m_state != WizardState::Writing) return;
    reportWriting();
    endWizard();
}

void QuickSetupFlow::leaveWait() {
    const WizardState left = m_state;
    if (!waiting()) return;
    RDTimer.stop();
    WRTimer.stop();
    m_link.prelude();  // what is out is nobody's any more
    if (left == WizardState::Reading) return giveUpOpening();
    const QString report = writeReport();
    reportWriting();
    endWizard();
    if (!report.isEmpty())
        m_voice.person.tell(report, QStringLiteral("Warning Message"), BoxIcon::Exclamation);
}

// ---- What OK would change ----

std::vector<SettingChange> QuickSetupFlow::changes() const {
    std::vector<SettingChange> list;
    for (int slot = 1; slot <= SlotCount; ++slot) {
        const QSlot& q = m_quick.Slot[static_cast<size_t>(slot)];
        const QString remark = m_quick.doubtOf(slot);
        if (!m_quick.used(slot) || (q.held == q.SlotValue && remark.isEmpty())) continue;
        list.push_back({.label = slotLabel(*m_quick.family(), slot),
                        .before = q.held ? m_quick.shownValue(slot, *q.held) : QString(),
                        .after = m_quick.shownValue(slot, q.SlotValue),
                        .remark = remark});
    }
    return list;
}

BoxPanel QuickSetupFlow::panel() const {
    BoxPanel panel;
    panel.header = {tr("Setting"), tr("In the drive"), tr("To be written"), tr("Remark")};
    panel.withoutRows =
        tr("Nothing differs from what was read. All %1 settings are written.").arg(m_quick.usedCount());
    for (const SettingChange& change : changes()) {
        const QString before = change.before.isEmpty() ? tr("not read") : change.before;
        panel.rows += {change.label, before, change.after, change.remark};
        panel.doubtful |= !change.remark.isEmpty();
    }
    return panel;
}

}  // namespace kelvane
