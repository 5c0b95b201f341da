#include "ui/transparent_button.h"

#include <QKeyEvent>
#include <QPainter>

#include "ui/icons.h"
#include "ui/mnemonic.h"
#include "ui/named.h"

namespace kelvane {

TransparentButton::TransparentButton(QWidget* parent) : TransparentButton({}, {}, parent) {}

TransparentButton::TransparentButton(const QIcon& icon, const QString& text, QWidget* parent, Layout layout)
    : QToolButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setIcon(icon);
    setText(text);
    setLayout(layout);
}

void TransparentButton::setText(const QString& text) {
    if (text == this->text()) return;
    const bool spokenAsShown = accessibleName() == withoutMnemonic(this->text());
    const QKeySequence own = shortcut() == QKeySequence::mnemonic(this->text()) ? QKeySequence() : shortcut();
    QToolButton::setText(text);
    if (!own.isEmpty()) setShortcut(own);
    if (spokenAsShown) setAccessibleName(withoutMnemonic(text));
    updateGeometry();
}

void TransparentButton::setLayout(Layout layout) {
    const bool over = layout == Layout::IconOver;
    setToolButtonStyle(over ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
    setAutoRaise(over);
    setIconSize(over ? QSize(32, 32) : QSize(20, 20));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    updateGeometry();
}

QSize TransparentButton::sizeHint() const {
    QSize hint = QToolButton::sizeHint();
    const int textWidth = captionWidth(fontMetrics(), text());
    const bool beside = toolButtonStyle() == Qt::ToolButtonTextBesideIcon && !icon().isNull();
    hint.setWidth(std::max(hint.width(), textWidth + (beside ? iconSize().width() + 4 : 0) + 14));
    if (!autoRaise()) hint.setHeight(std::max(hint.height(), fontMetrics().height() + 14));
    return hint;
}

// A button with a frame of its own looks much the same pressed, on a dark ground above all.
void TransparentButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (!isChecked() || autoRaise()) return;
    QPainter(this).fillRect(QRect(4, height() - 4, width() - 8, 2), palette().brush(QPalette::Highlight));
}

void TransparentButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat()) return click();
    QToolButton::keyPressEvent(event);
}

TransparentButton* framedButton(const char* name, Icon which, const QString& text, QWidget* parent,
                                const QString& hint) {
    auto* button =
        named<TransparentButton>(name, icon(which), text, parent, TransparentButton::Layout::IconLeft);
    button->setToolTip(hint);
    return button;
}

}  // namespace kelvane
