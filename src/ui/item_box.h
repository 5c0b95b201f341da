// A list of names that may be longer than its room: the name shown ends in dots, its hint and the open list
// have it whole.
#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolTip>
#include <algorithm>

#include "ui/named.h"

namespace kelvane {

class ItemBox : public QComboBox {
   public:
    using QComboBox::QComboBox;

    void showPopup() override {
        const int scroll = count() > maxVisibleItems() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
        view()->setMinimumWidth(std::max(width(), view()->sizeHintForColumn(0) + scroll + 2 * Gap));
        QComboBox::showPopup();
    }

   protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip || shown() == currentText()) return QComboBox::event(event);
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainHint(currentText()), this);
        return true;
    }
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        option.currentText = shown();
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }

   private:
    static constexpr int Gap = 4;
    QString shown() const {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect field =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        return fontMetrics().elidedText(currentText(), Qt::ElideRight, field.width() - Gap);
    }
};

}  // namespace kelvane
