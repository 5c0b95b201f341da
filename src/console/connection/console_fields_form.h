// Fields of the console's pages that take certain keys only, and raise letters as they are typed.
#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QShortcut>

#include "ui/named.h"

namespace kelvane {

// Of the header of a page's data column.
inline const QString FormatHint =
    QStringLiteral("A click on the header of the data, or Ctrl+H, changes between hexadecimal and decimal");

// a to z raised; other letters as they are.
inline QString raised(QString text) {
    for (QChar& c : text)
        if (c >= QLatin1Char('a') && c <= QLatin1Char('z')) c = c.toUpper();
    return text;
}

// Raises before anybody hears of the text, so that what is sent is what the field shows.
class RaisingValidator final : public QRegularExpressionValidator {
   public:
    using QRegularExpressionValidator::QRegularExpressionValidator;
    State validate(QString& text, int& cursor) const override {
        text = raised(text);
        return QRegularExpressionValidator::validate(text, cursor);
    }
};

inline void raiseAsTyped(QLineEdit* edit, const QString& keys = QStringLiteral(".*")) {
    edit->setValidator(new RaisingValidator(QRegularExpression(keys), edit));
}

// Of RUN and STOP one can be pressed; the focus goes with it, so that a hand on the keys finds it.
inline void takeTurns(QWidget* RUN, QWidget* STOP, bool free) {
    QWidget* on = free ? RUN : STOP;
    QWidget* off = free ? STOP : RUN;
    on->setEnabled(true);
    if (off->hasFocus()) on->setFocus();
    off->setEnabled(false);
}

// F5 and Shift+F5 press them while their page is seen. What is still being typed is taken first, as by a
// click.
inline void addRunKeys(QAbstractButton* RUN, QAbstractButton* STOP, QWidget* page) {
    QObject::connect(new QShortcut(Qt::Key_F5, page), &QShortcut::activated, RUN, [RUN] {
        RUN->setFocus();
        RUN->click();
    });
    QObject::connect(new QShortcut(Qt::SHIFT | Qt::Key_F5, page), &QShortcut::activated, STOP,
                     &QAbstractButton::click);
}

// keys is a regular expression for the whole text; other keys are dropped.
inline QLineEdit* keyedEdit(const char* name, const QString& keys, QWidget* parent, int characters = 6) {
    auto* edit = named<QLineEdit>(name, parent);
    raiseAsTyped(edit, keys);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * (characters + 3));
    return edit;
}

}  // namespace kelvane
