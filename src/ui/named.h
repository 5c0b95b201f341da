// Widgets with their object name, by which language table, tests and outside tools find them, and the labels
// that go with them. Every form builds its controls with these.
#pragma once

#include <QLabel>
#include <QObject>
#include <QTextDocument>
#include <utility>

namespace kelvane {

// named<QLineEdit>("InputEdit", this): a new Control with its name.
template <class Control, class... Arguments>
Control* named(const char* name, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)...);
    control->setObjectName(QLatin1String(name));
    return control;
}

// A label that shows its text as it is, mark-up and all.
inline QLabel* plainLabel(const char* name, const QString& text = {}, QWidget* parent = nullptr) {
    auto* label = named<QLabel>(name, text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

// The caption of a field: its mnemonic and what a screen reader says lead to the field.
inline QLabel* captionFor(QWidget* field, const char* name, const QString& text, QWidget* parent = nullptr) {
    QLabel* label = plainLabel(name, text, parent);
    label->setBuddy(field);
    return label;
}

// A text of a file or a drive as a hint, which would take what looks like mark-up for mark-up.
inline QString plainHint(const QString& text) {
    return Qt::mightBeRichText(text) ? QStringLiteral("<p>") + text.toHtmlEscaped() : text;
}

}  // namespace kelvane
