// The life of the wizard over the line: where its values come from, reading them slot by slot, and writing
// them back in one sweep. Two chains of requests; the windows show its state and go on at its signals. Owned
// by the tool.
#pragma once

#include <QStringList>
#include <vector>

#include "link/request_chain.h"
#include "quicksetup/quick_setup.h"

namespace kelvane {

enum class SettingsSource : quint8 { Drive, Project };

enum class WizardState : quint8 { Closed, ChoosingSource, Reading, Editing, Writing };

// A line of what OK is about to change.
struct SettingChange {
    QString label;
    QString before;  // empty where it is not known
    QString after;
    QString remark;  // empty, or why a person should look twice
};

class QuickSetupFlow : public QObject {
    Q_OBJECT
   public:
    QuickSetupFlow(QuickSetup& quick, RequestScheduler& link, TickClock& clock, const Voice& voice);

    quint8 SlotIndex = 1;
    RequestChain RDTimer;
    RequestChain WRTimer;
    WizardState state() const { return m_state; }
    bool waiting() const { return m_state == WizardState::Reading || m_state == WizardState::Writing; }
    SettingsSource source() const { return m_source; }

    // ---- The steps of an opening, in their order
    void opened() { m_state = WizardState::ChoosingSource; }
    void chooseSource(SettingsSource source);
    // OK of the wizard: asks, and writes on Yes.
    void OkBitBtnClick();
    // The wizard has gone, or never came.
    void closed();

    // A person does not want to wait any longer: what is out is nobody's. Nothing while nothing is waited
    // for.
    void leaveWait();
    int slotsDone() const;  // of usedCount(), while reading or writing

    // What OK would change, and what it would write although nobody can vouch for it.
    std::vector<SettingChange> changes() const;

   Q_SIGNALS:
    void wizardWanted();    // values are in its controls
    void openingGivenUp();  // the read was left or the link went to rest: no wizard
    void wizardDone();      // close it
    void progressed();      // slotsDone() or state() changed

   private:
    enum class Outcome : quint8 { NotSent, Sent, Written, Refused, Unanswered };

    void startReading();
    std::optional<LinkRequest> nextRead();
    void endReading();
    void startWriting();
    std::optional<LinkRequest> nextWrite();
    void endWriting();
    void setOutcome(int slot, Outcome outcome);
    void endLastWrite(Outcome outcome);
    void reportWriting();
    QString writeReport() const;

    void onAnswered(quint8 task);
    void onRefused(quint8 task);
    void onInitialRun();
    bool noAnswerComes(const RequestChain& chain) const;
    bool mayWrite();
    void goTo(WizardState state);
    void giveUpOpening();
    void endWizard();
    BoxPanel panel() const;

    QuickSetup& m_quick;
    RequestScheduler& m_link;
    const Voice m_voice;
    WizardState m_state = WizardState::Closed;
    SettingsSource m_source = SettingsSource::Drive;
    bool m_goodReply = false;  // to the last read
    int m_askedSlot = 0;       // of the last write
    std::array<Outcome, SlotCount + 1> m_outcome{};
    bool m_lastWriteOpen = false;  // slot 40's, which nobody waits for
};

}  // namespace kelvane
