// Quick Setup's values: the 40 slots of the connected drive's family, what their controls show, and the rules
// by which a person's hand changes them. Knows no line: quick_setup_flow.h reads and writes the slots. Owned
// by the tool; the window shows it.
#pragma once

#include <QObject>
#include <array>
#include <optional>

#include "link/request_scheduler.h"
#include "localisation/voice.h"
#include "quicksetup/family_setup.h"
#include "quicksetup/quick_slots.h"

namespace kelvane {

// Marker instead of a read command: the family has no such parameter.
inline const QString CmdSkip = QStringLiteral("cmdSkip");

// Where a slot's value comes from, which decides how far a person may trust it.
enum class ValueOrigin : quint8 {
    Unknown,       // nothing has given it a value yet
    Drive,         // read
    Neighbour,     // its read was not answered: it took the words of the slot before
    Project,       // of the project file
    EmptyProject,  // the project has an empty text there, which counts as 0
    Person,
};

struct QSlot {
    QString SlotAddress;       // four hexadecimal digits, or empty
    QString SlotReadCommand;   // command string or cmdSkip
    QString SlotWriteCommand;  // built by OK
    QString SlotHexValue;      // four digits
    int SlotValue = 0;         // raw: 60.00 is 6000
    int SlotMax = 0;           // limits, raw
    int SlotMin = 0;
    quint8 SlotDecimals = 0;
    QString SlotFileValue;  // text of an edit, index of a box

    // What the slot's control shows.
    QString text;        // edits
    int ItemIndex = -1;  // boxes; -1 for none

    std::optional<int> held;  // what the drive is known to hold
    ValueOrigin origin = ValueOrigin::Unknown;
};

class QuickSetup : public QObject {
    Q_OBJECT
   public:
    QuickSetup(RequestScheduler& link, const Voice& voice);

    // Slots count from 1; [0] and those above 40 are not used.
    std::array<QSlot, 50> Slot;

    // A drive has been identified: registers, lists, labels and units of its family.
    void Initial();
    // nullptr before the first drive.
    const FamilySetup* family() const { return m_family; }
    bool used(int slot) const { return !at(slot).SlotAddress.isEmpty(); }
    int usedCount() const;
    // Items of a slot's list; a list that the family has not is empty.
    int itemCount(int slot) const;

    // The words of a read: value, maximum, minimum, attribute word. answered: they came for this slot.
    void takeWords(int slot, const std::array<quint16, 20>& ReadWords, bool answered);
    void fillControls();

    // A project was opened: all slots get its values. [0] is not used.
    void takeProject(const std::array<QString, SlotCount + 1>& SlotFileValue);
    // Takes the project's values again and shows them. False when a box's is no number: the controls before
    // it are filled.
    bool LoadParaFromFile();
    bool projectTaken() const { return m_projectTaken; }
    // The drive has taken the slot's value.
    void written(int slot);
    // What the controls show, as a project keeps it.
    QString controlText(int slot) const;

    // ---- The person's hand
    void chooseItem(int slot, int index);
    void typeText(int slot, const QString& text);
    // Enter in an edit. Kept: it commits without a look at the limits.
    void ProcessLabeledEditKeyPress(int slot);
    // The edit is left. False when the text was refused; the value before it is back.
    bool leaveEdit(int slot);

    // Builds the commands of all used slots.
    void buildWriteCommands();

    // ---- What a person should know
    bool changed(int slot) const;  // differs from what the drive is known to hold
    bool outsideLimits(int slot) const;
    // Why a person should look twice before the slot's value is written; empty when nothing speaks against
    // it.
    QString doubtOf(int slot) const;
    QString shownValue(int slot, int value) const;  // with decimals and unit, or the item's text
    QString limitsText(int slot) const;             // empty where none are known

   Q_SIGNALS:
    void rebuilt();              // family, lists, labels, units
    void controlsFilled();       // all controls
    void slotChanged(int slot);  // one control or its mark

   private:
    QSlot& at(int slot) { return Slot[static_cast<size_t>(slot)]; }
    const QSlot& at(int slot) const { return Slot[static_cast<size_t>(slot)]; }
    void buildSlots();
    void takeModel();
    void forgetValues();
    void fillControl(int slot);
    void takeFileValue(int slot);
    void setByPerson(int slot, int value);
    int placesOf(int slot) const;
    void refuse(int slot, Message message);

    RequestScheduler& m_link;
    const Voice m_voice;
    const FamilySetup* m_family = nullptr;
    std::optional<quint8> m_model;  // DriveIdCode of the drive that the values belong to
    bool m_projectTaken = false;
    std::optional<int> m_beforeTyping;  // slot 7's value before it was typed over
};

}  // namespace kelvane
