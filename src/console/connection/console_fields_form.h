// Fields of the console's pages that take certain keys only, and raise letters as they are typed.
#pragma once

#include <QLineEdit>
#include <QRegularExpressionValidator>

#include "ui/named.h"

namespace kelvane {

inline void upperAsTyped(QLineEdit* edit) {
    QObject::connect(edit, &QLineEdit::textEdited, edit, [edit](const QString& text) {
        if (text == text.toUpper()) return;
        const int cursor = edit->cursorPosition();
        edit->setText(text.toUpper());
        edit->setCursorPosition(cursor);
    });
}

// keys is a regular expression for the whole text; other keys are dropped.
inline QLineEdit* keyedEdit(const char* name, const QString& keys, QWidget* parent, int characters = 6) {
    auto* edit = named<QLineEdit>(name, parent);
    edit->setValidator(new QRegularExpressionValidator(QRegularExpression(keys), edit));
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * (characters + 3));
    upperAsTyped(edit);
    return edit;
}

}  // namespace kelvane
