// The value editor without its window: what it is given for a parameter that is given in texts, which keys it
// takes, and its check of the typed text. Table, write list, quick setup, keypad, PID and tuning edit by it.
#pragma once

#include <QChar>
#include <QStringList>
#include <optional>

#include "base/operator.h"
#include "localisation/lang_table.h"

namespace kelvane {

// A parameter as a window shows it. The numbers are texts with their decimal point.
struct ValueTexts {
    QString number = {};  // "02-05"
    QString name = {};
    QString unit = {};
    QString value = {};
    QString defaultValue = {};
    QString min = {};
    QString max = {};
    int places = 0;                         // digits behind the point
    QString between = QStringLiteral("~");  // of min and max in the editor's first line
};

ValueEdit valueEditOf(const ValueTexts& texts);

// Runs the editor: the new text, or nothing when it was left without one.
std::optional<QString> askValue(const ValueTexts& texts, Operator& person);

// Items of InputComboBox and the one that is selected at first (Data less InputMin; -1 when it is none of
// them).
QStringList inputItems(const ValueEdit& edit);
int inputItemIndex(const ValueEdit& edit);

// Keys of InputEdit.
enum class InputKey { Type, Check, Drop };
InputKey inputKey(QChar key);

// Check of edit.Text. Close: the text is accepted and brought to its places. Otherwise a box has said why,
// the old text is back, and SelectAll asks for it to be selected.
enum class InputVerdict { Close, Stay, SelectAll };
InputVerdict CheckInputValue(ValueEdit& edit, Operator& person, const LangTable& lang);

}  // namespace kelvane
