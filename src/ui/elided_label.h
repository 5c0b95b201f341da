// A label for texts that may be longer than its room: text() keeps the whole, the middle is left out on the
// screen, and the whole is its hint.
#pragma once

#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

#include "ui/named.h"

namespace kelvane {

class ElidedLabel : public QLabel {
   public:
    explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) { setTextFormat(Qt::PlainText); }

    void setText(const QString& text) {
        QLabel::setText(text);
        setToolTip(plainHint(text));
    }
    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 8, QLabel::minimumSizeHint().height()};
    }

   protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
        style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                              shown, foregroundRole());
    }
};

}  // namespace kelvane
