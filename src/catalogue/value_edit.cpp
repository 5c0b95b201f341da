#include "catalogue/value_edit.h"

#include "link/number_text.h"

namespace kelvane {

namespace {

int limitOf(const QString& text) { return withoutSeparatorToInt(text).value_or(0); }

InputVerdict refuse(ValueEdit& edit, Operator& person, const QString& text, const char* title,
                    InputVerdict verdict) {
    edit.Text = edit.InputOldText;
    person.box(text, QString::fromLatin1(title), BoxIcon::Stop, BoxButtons::Ok);
    return verdict;
}

}  // namespace

ValueEdit valueEditOf(const ValueTexts& texts) {
    ValueEdit edit;
    edit.PrInforVrLabel = texts.number % QStringLiteral(": ") % texts.name % QStringLiteral(" (") %
                          texts.min % u' ' % texts.between % u' ' % texts.max % QStringLiteral(" )");
    edit.UnitVrLabel = texts.unit;
    edit.InputOldText = texts.value;
    edit.Text = edit.InputOldText;
    edit.InputDot = texts.places;
    edit.InputDefault = limitOf(texts.defaultValue);
    edit.InputMin = limitOf(texts.min);
    edit.InputMax = limitOf(texts.max);
    edit.fromList = edit.InputDot == 0 && edit.InputMax < 10 && edit.InputMin >= 0;
    return edit;
}

std::optional<QString> askValue(const ValueTexts& texts, Operator& person) {
    ValueEdit edit = valueEditOf(texts);
    person.editValue(edit);
    return edit.InputAccepted ? std::optional<QString>(edit.Text) : std::nullopt;
}

QStringList inputItems(const ValueEdit& edit) {
    if (!edit.fromList) return {};
    QStringList items;
    for (int value = edit.InputMin; value <= edit.InputMax; ++value) items << QString::number(value);
    return items;
}

int inputItemIndex(const ValueEdit& edit) {
    const std::optional<int> value = withoutSeparatorToInt(edit.InputOldText);
    if (!value || *value < edit.InputMin || *value > edit.InputMax) return -1;
    return *value - edit.InputMin;
}

InputKey inputKey(QChar key) {
    constexpr char16_t Backspace = 8;
    constexpr char16_t Enter = 13;
    const char16_t code = key.unicode();
    if (code == Enter) return InputKey::Check;
    const bool digit = code >= u'0' && code <= u'9';
    return digit || code == u'-' || code == u'.' || code == u',' || code == Backspace ? InputKey::Type
                                                                                      : InputKey::Drop;
}

InputVerdict CheckInputValue(ValueEdit& edit, Operator& person, const LangTable& lang) {
    // Kept: the two refusals of an illegal text bear different titles.
    if (edit.Text.isEmpty())
        return refuse(edit, person, lang.MsgStr(Message::ValueNotLegal), "Error", InputVerdict::Stay);
    bool ok = false;
    const int v = ScaleDecimalText(edit.Text, edit.InputDot).toInt(&ok);
    if (!ok)
        return refuse(edit, person, lang.MsgStr(Message::ValueNotLegal), "Error Message",
                      InputVerdict::SelectAll);
    if (v < edit.InputMin)
        return refuse(edit, person, lang.MsgStr(Message::ValueTooSmall), "Error", InputVerdict::SelectAll);
    if (v > edit.InputMax)
        return refuse(edit, person, lang.MsgStr(Message::ValueTooLarge), "Error", InputVerdict::SelectAll);
    edit.InputAccepted = true;
    edit.Text = InsertDecimalPoint(QString::number(v), edit.InputDot);
    return InputVerdict::Close;
}

}  // namespace kelvane
