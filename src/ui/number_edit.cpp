#include "ui/number_edit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QValidator>

namespace kelvane {

namespace {

bool belongsToNumber(QChar c) {
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('-') ||
           c == QLatin1Char('.') || c == QLatin1Char(',');
}

class DropOthers : public QValidator {
   public:
    using QValidator::QValidator;
    State validate(QString& input, int& pos) const override {
        QString kept;
        int keptPos = pos;
        for (qsizetype i = 0; i < input.size(); ++i) {
            if (belongsToNumber(input[i])) {
                kept += input[i];
            } else if (i < pos) {
                --keptPos;
            }
        }
        input = kept;
        pos = keptPos;
        return Acceptable;
    }
};

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) { setValidator(new DropOthers(this)); }

void NumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QLineEdit::keyPressEvent(event);
    event->accept();
    selectAll();
    Q_EMIT entered();
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
        reason == Qt::MenuBarFocusReason)
        return;
    Q_EMIT left();
}

}  // namespace kelvane
