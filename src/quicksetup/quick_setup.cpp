#include "quicksetup/quick_setup.h"

#include "catalogue/parameter_record.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int PolesSlot = 7;
constexpr int HighestWord = 0xFFFF;
constexpr int LowestWord = -0x8000;

std::optional<int> valueOf(const QString& text, int places) {
    bool ok = false;
    const int value = ScaleDecimalText(text, places).toInt(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

int numberOf(quint16 word, bool isSigned) { return isSigned ? static_cast<qint16>(word) : word; }

// Slots that every family fills, used or not.
bool filledAnyway(int slot) {
    constexpr SlotRange Anyway[] = {{2, 3}, {5, 6}, {8, 14}, {18, 23}, {25, 26}, {33, 37}};
    return std::ranges::any_of(Anyway,
                               [=](SlotRange range) { return slot >= range.first && slot <= range.last; });
}

bool isList(int slot) { return quickSlot(slot).control == SlotControl::List; }

}  // namespace

QuickSetup::QuickSetup(RequestScheduler& link, const Voice& voice) : m_link(link), m_voice(voice) {
    for (QSlot& slot : Slot) slot.SlotReadCommand = CmdSkip;
    connect(&link, &RequestScheduler::statusDecoded, this, &QuickSetup::takeModel);
}

// ---- The drive ----

void QuickSetup::Initial() {
    const FamilySetup* family = familySetup(m_link.DriveStatus.DriveFamily);
    if (!family) return;
    if (m_family && m_family != family) {
        m_model.reset();
        forgetValues();
    }
    m_family = family;
    buildSlots();
    Q_EMIT rebuilt();
}

void QuickSetup::buildSlots() {
    for (int slot = 1; slot <= SlotCount; ++slot) {
        QSlot& q = at(slot);
        q.SlotAddress = slotAddress(slot, m_family->DriveFamily);
        const QString words = slot >= m_family->oneWordFrom ? QStringLiteral("0001") : QStringLiteral("0004");
        q.SlotReadCommand =
            q.SlotAddress.isEmpty() ? CmdSkip : QStringLiteral("FF03") % q.SlotAddress % words;
    }
}

// The model is known only when the status poll runs.
void QuickSetup::takeModel() {
    const quint8 model = m_link.DriveStatus.DriveIdCode;
    if (m_model == model) return;
    if (m_model) {
        forgetValues();
        Q_EMIT controlsFilled();
    }
    m_model = model;
}

void QuickSetup::forgetValues() {
    for (QSlot& q : Slot) {
        QSlot blank;
        blank.SlotAddress = q.SlotAddress;
        blank.SlotReadCommand = q.SlotReadCommand;
        q = blank;
    }
    m_projectTaken = false;
    m_beforeTyping.reset();
}

int QuickSetup::usedCount() const {
    int count = 0;
    for (int slot = 1; slot <= SlotCount; ++slot) count += used(slot);
    return count;
}

int QuickSetup::itemCount(int slot) const {
    return m_family ? static_cast<int>(slotChoices(*m_family, slot).size()) : 0;
}

void QuickSetup::takeWords(int slot, const std::array<quint16, 20>& ReadWords, bool answered) {
    QSlot& q = at(slot);
    const bool isSigned = signedOf(m_family->DriveFamily, ReadWords[3]);
    q.SlotValue = numberOf(ReadWords[0], isSigned);
    q.origin = answered ? ValueOrigin::Drive : ValueOrigin::Neighbour;
    if (answered) q.held = q.SlotValue;
    // One word alone was asked for: what limits and decimals stand there are an earlier slot's.
    if (slot >= m_family->oneWordFrom) return;
    q.SlotMax = numberOf(ReadWords[1], isSigned);
    q.SlotMin = numberOf(ReadWords[2], isSigned);
    q.SlotDecimals = static_cast<quint8>(kelvane::placesOf(m_family->DriveFamily, ReadWords[3]));
}

// Kept: some controls are filled whether the family has them or not.
void QuickSetup::fillControls() {
    for (int slot = 1; slot <= SlotCount; ++slot)
        if (used(slot) || filledAnyway(slot)) fillControl(slot);
    m_beforeTyping.reset();
    Q_EMIT controlsFilled();
}

void QuickSetup::fillControl(int slot) {
    QSlot& q = at(slot);
    if (isList(slot)) {
        // A value beyond the list selects nothing and stays what it is.
        q.ItemIndex = q.SlotValue >= 0 && q.SlotValue < itemCount(slot) ? q.SlotValue : -1;
    } else {
        q.text = InsertDecimalPoint(QString::number(q.SlotValue), placesOf(slot));
    }
}

int QuickSetup::placesOf(int slot) const {
    return quickSlot(slot).control == SlotControl::Whole ? 0 : at(slot).SlotDecimals;
}

// ---- The project ----

void QuickSetup::takeProject(const std::array<QString, SlotCount + 1>& SlotFileValue) {
    m_projectTaken = true;
    for (int slot = 1; slot <= SlotCount; ++slot) {
        at(slot).SlotFileValue = SlotFileValue[static_cast<size_t>(slot)];
        takeFileValue(slot);
    }
}

// An empty text counts as 0; a box in which nothing was chosen has no value to give.
void QuickSetup::takeFileValue(int slot) {
    QSlot& q = at(slot);
    const bool empty = q.SlotFileValue.isEmpty();
    const std::optional<int> value = empty ? 0 : withoutSeparatorToInt(q.SlotFileValue);
    if (!value || (isList(slot) && *value < 0)) return;
    q.SlotValue = *value;
    q.origin = empty ? ValueOrigin::EmptyProject : ValueOrigin::Project;
}

bool QuickSetup::LoadParaFromFile() {
    if (m_projectTaken)
        for (int slot = 1; slot <= SlotCount; ++slot) takeFileValue(slot);
    bool all = true;
    for (int slot = 1; slot <= SlotCount && all; ++slot) {
        QSlot& q = at(slot);
        if (!used(slot) && !filledAnyway(slot)) continue;
        if (isList(slot)) {
            const int index = q.SlotFileValue.toInt(&all);
            if (all) q.ItemIndex = index >= 0 && index < itemCount(slot) ? index : -1;
        } else {
            q.text = q.SlotFileValue;
        }
    }
    m_beforeTyping.reset();
    Q_EMIT controlsFilled();
    return all;
}

QString QuickSetup::controlText(int slot) const {
    return isList(slot) ? QString::number(at(slot).ItemIndex) : at(slot).text;
}

// ---- The person's hand ----

void QuickSetup::chooseItem(int slot, int index) {
    if (index < 0 || index >= itemCount(slot)) return;
    at(slot).ItemIndex = index;
    setByPerson(slot, index);
}

void QuickSetup::setByPerson(int slot, int value) {
    QSlot& q = at(slot);
    if (q.SlotValue != value || isList(slot)) q.origin = ValueOrigin::Person;
    q.SlotValue = value;
    Q_EMIT slotChanged(slot);
}

void QuickSetup::typeText(int slot, const QString& text) {
    QSlot& q = at(slot);
    q.text = text;
    if (slot != PolesSlot) return;
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok) return;
    if (!m_beforeTyping) m_beforeTyping = q.SlotValue;
    setByPerson(slot, value);
}

void QuickSetup::refuse(int slot, Message message) {
    m_voice.person.tell(m_voice.lang.MsgStr(message), QStringLiteral("Error"), BoxIcon::Stop);
    // Slot 7 has stored what was typed; the value before it is the old one.
    if (slot == PolesSlot && m_beforeTyping) at(slot).SlotValue = *m_beforeTyping;
    fillControl(slot);
    Q_EMIT slotChanged(slot);
}

void QuickSetup::ProcessLabeledEditKeyPress(int slot) {
    const std::optional<int> value = valueOf(at(slot).text, placesOf(slot));
    value ? setByPerson(slot, *value) : refuse(slot, Message::ValueNotLegal);
    m_beforeTyping.reset();
}

bool QuickSetup::leaveEdit(int slot) {
    QSlot& q = at(slot);
    const std::optional<int> value = valueOf(q.text, placesOf(slot));
    const bool tooSmall = value && *value < q.SlotMin;
    const bool tooLarge = value && !tooSmall && *value > q.SlotMax;
    if (!value || tooSmall || tooLarge) {
        refuse(slot, tooSmall   ? Message::ValueTooSmall
                     : tooLarge ? Message::ValueTooLarge
                                : Message::ValueNotLegal);
    } else {
        q.text = InsertDecimalPoint(QString::number(*value), placesOf(slot));
    }
    const bool accepted = value && !tooSmall && !tooLarge;
    ProcessLabeledEditKeyPress(slot);
    return accepted;
}

void QuickSetup::buildWriteCommands() {
    for (int slot = 1; slot <= SlotCount; ++slot) {
        QSlot& q = at(slot);
        if (!used(slot)) continue;
        q.SlotHexValue = IntToBaseStr(q.SlotValue, 16, 4);
        q.SlotWriteCommand = QStringLiteral("FF06") % q.SlotAddress % q.SlotHexValue;
    }
}

void QuickSetup::written(int slot) {
    at(slot).held = at(slot).SlotValue;
    Q_EMIT slotChanged(slot);
}

// ---- What a person should know ----

bool QuickSetup::changed(int slot) const {
    return used(slot) && at(slot).held && *at(slot).held != at(slot).SlotValue;
}

bool QuickSetup::outsideLimits(int slot) const {
    const QSlot& q = at(slot);
    if (isList(slot)) return false;
    return q.held && (q.SlotValue < q.SlotMin || q.SlotValue > q.SlotMax);
}

QString QuickSetup::doubtOf(int slot) const {
    const QSlot& q = at(slot);
    if (!used(slot)) return {};
    // Kept: the last slot is read but its answer is not taken.
    if (slot == SlotCount && q.origin == ValueOrigin::Unknown) return tr("Not taken over from the drive");
    if (q.origin == ValueOrigin::Unknown) return tr("No value is known");
    if (q.origin == ValueOrigin::Neighbour) return tr("Not answered: value of the one before");
    if (q.origin == ValueOrigin::EmptyProject) return tr("Empty in the project file");
    if (q.SlotValue > HighestWord || q.SlotValue < LowestWord)
        return tr("Too large: %1 is written").arg(shownValue(slot, q.SlotValue & HighestWord));
    if (outsideLimits(slot)) return tr("Outside its limits, %1").arg(limitsText(slot));
    return {};
}

QString QuickSetup::shownValue(int slot, int value) const {
    if (!isList(slot)) {
        const QString unit = m_family ? slotUnit(*m_family, slot) : QString();
        return QString(InsertDecimalPoint(QString::number(value), placesOf(slot)) % QLatin1Char(' ') % unit)
            .trimmed();
    }
    const ChoiceList items = m_family ? slotChoices(*m_family, slot) : ChoiceList();
    if (value < 0 || value >= static_cast<int>(items.size())) return QString::number(value);
    const std::string_view item = items[static_cast<size_t>(value)];
    return QString::fromLatin1(item.data(), static_cast<qsizetype>(item.size()));
}

QString QuickSetup::limitsText(int slot) const {
    const QSlot& q = at(slot);
    if (isList(slot) || (q.SlotMin == 0 && q.SlotMax == 0)) return {};
    return tr("%1 to %2")
        .arg(InsertDecimalPoint(QString::number(q.SlotMin), placesOf(slot)), shownValue(slot, q.SlotMax));
}

}  // namespace kelvane
