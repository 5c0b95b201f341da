// What a person enters on the keypad: the choice and the value of a parameter, and the frequency.
#include "catalogue/parameter_record.h"
#include "catalogue/value_edit.h"
#include "diagnostics/keypad/keypad.h"
#include "diagnostics/keypad/keypad_families.h"
#include "diagnostics/keypad/keypad_tasks.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int FrequencyDecimals = 2;
const QString ErrorMessage = QStringLiteral("Error Message");

}  // namespace

// ---- Parameter ----

void Keypad::SelPrComboBoxChange(int ItemIndex) {
    screen.SelPrComboBoxItemIndex = ItemIndex;
    if (ItemIndex < 0 || static_cast<size_t>(ItemIndex) >= ParamAddressList.size()) return;
    ParamInfoShown = false;
    m_recordStale = false;
    m_read.ReadDone = 0;
    m_link.ParamRead.ReadDone = 0;
    // Of entries that were only passed, nobody waits for the record.
    m_link.dropWaiting(ParameterTask, m_recordCommand);
    m_recordCommand = QStringLiteral("FF03") % ParamAddressList[static_cast<size_t>(ItemIndex)].address %
                      QString::fromLatin1(keypadFamily(m_link.DriveStatus.DriveFamily).recordLength);
    m_link.push(ParameterTask, m_recordCommand);
    tell();
}

void Keypad::DataVrLabelDblClick() {
    // Limits and places on show must be those of the chosen parameter.
    if (!ParamInfoShown || screen.DataVrLabel.isEmpty() || !mayCommand()) return;
    if (screen.LockImageVisible) {
        m_person.tell(m_lang.MsgStr(Message::ParameterNotSettable), QStringLiteral("Warning Message"),
                      BoxIcon::Exclamation);
        return;
    }
    const QString asked = m_recordCommand;
    const std::optional<QString> text = askValue(textsOnShow(), m_person);
    const std::optional<QString> word = text ? registerWordOf(*text) : std::nullopt;
    if (!word) return;
    const BoxAnswer answer = m_person.box(m_lang.MsgStr(Message::WriteParameter), QStringLiteral("Cofirm"),
                                          BoxIcon::Question, BoxButtons::OkCancel);
    // Meanwhile the line may have gone, and another drive may have come.
    const bool sameParameter = mayCommand() && ParamInfoShown && m_recordCommand == asked;
    if (answer == BoxAnswer::Ok && sameParameter) writeValue(*word);
}

ValueTexts Keypad::textsOnShow() const {
    const bool tellsDefault = keypadFamily(m_link.DriveStatus.DriveFamily).tellsDefault;
    return {.number = screen.PrNumVrLabel,
            .name = screen.PrNameLabel,
            .unit = screen.UnitVrLabel,
            .value = screen.DataVrLabel,
            .defaultValue = tellsDefault ? screen.DefLabel : screen.DataVrLabel,
            .min = screen.MinLabel,
            .max = screen.MaxLabel,
            .places = ParamDecimals,
            .between = QStringLiteral("-")};
}

void Keypad::writeValue(const QString& word) {
    WriteValueText = word;
    const QString& address = ParamAddressList[static_cast<size_t>(screen.SelPrComboBoxItemIndex)].address;
    m_link.pushCommand(WriteTask, QStringLiteral("FF06") % address % WriteValueText);
    SelPrComboBoxChange(screen.SelPrComboBoxItemIndex);
}

void Keypad::forgetRecord() {
    for (QString* text : {&screen.PrNumVrLabel, &screen.PrNameLabel, &screen.DataVrLabel, &screen.DefLabel,
                          &screen.MinLabel, &screen.MaxLabel, &screen.UnitVrLabel})
        text->clear();
}

// ---- Frequency ----

void Keypad::InputEditEnter() {
    Q_EMIT selectInputWanted();
    if (!mayCommand()) return;
    bool ok = false;
    const int value = ScaleDecimalText(screen.InputEdit, FrequencyDecimals).toInt(&ok);
    if (screen.InputEdit.isEmpty() || !ok) return refuseFrequency(Message::ValueNotLegal);
    if (value < 0) return refuseFrequency(Message::ValueTooSmall);
    // Kept: with a maximum of 0, as long as the drive has given none, only 0 passes.
    if (value > screen.FreqScrollBarMax) return refuseFrequency(Message::ValueTooLarge);
    sendFrequency(value);
}

void Keypad::refuseFrequency(Message message) {
    screen.InputEdit = screen.displayVrLabel;
    tell();
    m_person.tell(m_lang.MsgStr(message), ErrorMessage);
    Q_EMIT selectInputWanted();
}

// The timer comes back with the first status after the drive's answer, so that an older one does not
// overwrite what was entered.
void Keypad::sendFrequency(int value) {
    ScrollPending = false;
    ScrollTicks = 0;
    GetDataTimer.setEnabled(false);
    m_link.DriveStatus.KeypadDataDue = 0;
    m_link.pushCommand(FrequencyTask, QStringLiteral("FF062001") % IntToBaseStr(value, 16, 4));
}

void Keypad::FreqScrollBarScroll(int Position) {
    if (!mayCommand()) return;
    screen.FreqScrollBarPosition = Position;
    screen.InputEdit = screen.displayVrLabel =
        InsertDecimalPoint(QString::number(Position), FrequencyDecimals);
    ScrollPending = true;
    ScrollTicks = 0;
    tell();
}

}  // namespace kelvane
