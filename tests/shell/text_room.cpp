#include "shell/text_room.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabWidget>
#include <algorithm>
#include <optional>

#include "ui/drawing.h"
#include "ui/elided_label.h"
#include "ui/item_box.h"
#include "ui/mnemonic.h"
#include "ui/panel_key.h"
#include "ui/path_label.h"
#include "ui/readable_colours.h"

namespace kelvane {

namespace {

// What a text takes and what there is, in pixels; a text of several lines by its height.
struct Room {
    int wanted;
    int there;
};

Room ofLabel(const QLabel& label) {
    const QRect room =
        label.contentsRect().adjusted(label.margin(), label.margin(), -label.margin(), -label.margin());
    const int flags = label.buddy() ? Qt::TextShowMnemonic : 0;
    if (!label.wordWrap()) return {label.fontMetrics().size(flags, label.text()).width(), room.width()};
    const QRect lines = label.fontMetrics().boundingRect(QRect(0, 0, room.width(), 10000),
                                                         flags | Qt::TextWordWrap, label.text());
    return {lines.height(), room.height()};
}

Room ofChoices(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const QRect field =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    int widest = 0;
    for (int i = 0; i < box.count(); ++i)
        widest = std::max(widest, box.fontMetrics().horizontalAdvance(box.itemText(i)));
    return {widest, field.width()};
}

Room ofTabs(const QTabBar& bar) {
    int end = 0;
    for (int i = 0; i < bar.count(); ++i)
        if (bar.isTabVisible(i)) end = bar.tabRect(i).right();
    return {end, bar.width()};
}

Room ofMenus(const QMenuBar& bar) {
    int end = 0;
    for (const QAction* menu : bar.actions())
        if (menu->isVisible()) end = std::max(end, bar.actionGeometry(const_cast<QAction*>(menu)).right());
    return {end, bar.width()};
}

// A style makes a button wider than its text needs.
Room ofButton(const QPushButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRect inside = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    const int icon = button.icon().isNull() ? 0 : button.iconSize().width() + 4;
    return {captionWidth(button.fontMetrics(), button.text()) + icon, inside.width()};
}

std::optional<Room> roomOf(const QWidget& control) {
    if (dynamic_cast<const ElidedLabel*>(&control) || qobject_cast<const PathLabel*>(&control)) return {};
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return ofLabel(*label);
    if (dynamic_cast<const ItemBox*>(&control)) return {};
    if (const auto* box = qobject_cast<const QComboBox*>(&control)) return ofChoices(*box);
    if (const auto* tabs = qobject_cast<const QTabBar*>(&control)) return ofTabs(*tabs);
    if (const auto* menus = qobject_cast<const QMenuBar*>(&control)) return ofMenus(*menus);
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return Room{captionWidth(group->fontMetrics(), group->title()), group->width() - 10};
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control))
        return Room{edit->fontMetrics().horizontalAdvance(edit->placeholderText()), edit->width() - 8};
    if (const auto* key = qobject_cast<const PanelKey*>(&control))
        return Room{captionWidth(key->fontMetrics(), key->text()), key->width()};
    if (const auto* button = qobject_cast<const QPushButton*>(&control)) return ofButton(*button);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control);
        button && !button->text().isEmpty())
        return Room{button->sizeHint().width(), button->width()};
    return {};
}

bool scrolls(const QWidget& control, const QWidget& window) {
    for (const QWidget* around = control.parentWidget(); around && around != &window;
         around = around->parentWidget())
        if (qobject_cast<const QAbstractScrollArea*>(around)) return true;
    return false;
}

void walkPages(QWidget& part, const std::function<void()>& look) {
    const auto pagers = part.findChildren<QTabWidget*>();
    const auto inFront = [&](const QTabWidget* pager) {
        for (const QWidget* around = pager->parentWidget(); around && around != &part;
             around = around->parentWidget())
            if (qobject_cast<const QTabWidget*>(around)) return false;
        return true;
    };
    bool paged = false;
    for (QTabWidget* pager : pagers) {
        if (!inFront(pager) || !pager->isVisible()) continue;
        paged = true;
        const QSignalBlocker quiet(pager);
        const int before = pager->currentIndex();
        for (int page = 0; page < pager->count(); ++page) {
            if (!pager->isTabVisible(page)) continue;
            pager->setCurrentIndex(page);
            QApplication::processEvents();
            walkPages(*pager->widget(page), look);
        }
        pager->setCurrentIndex(before);
    }
    if (!paged) look();
}

}  // namespace

QString nameOf(const QWidget& control) {
    return control.objectName().isEmpty() ? QString::fromLatin1(control.metaObject()->className())
                                          : control.objectName();
}

bool isInSight(const QWidget& control, const QWidget& window) {
    return control.isVisible() && control.window() == &window;
}

void onEveryPage(QWidget& window, const std::function<void()>& look) { walkPages(window, look); }

QStringList cutTexts(const QWidget& window) {
    QStringList cut;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!isInSight(*control, window)) continue;
        const std::optional<Room> room = roomOf(*control);
        if (!room) continue;
        const QString text = control->property("text").toString() + control->property("title").toString();
        if (room->wanted > room->there)
            cut << QStringLiteral("%1 wants %2 and has %3: %4")
                       .arg(nameOf(*control))
                       .arg(room->wanted)
                       .arg(room->there)
                       .arg(text);
        if (!control->parentWidget()->rect().contains(control->geometry()) && !scrolls(*control, window))
            cut << QStringLiteral("%1 is cut by %2: %3")
                       .arg(nameOf(*control), nameOf(*control->parentWidget()), text);
    }
    return cut;
}

QStringList paleTexts(const QWidget& window) {
    QStringList pale;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (!isInSight(*label, window) || label->text().isEmpty() || !label->isEnabled()) continue;
        if (dynamic_cast<const Drawing*>(label->parentWidget())) continue;  // has a ground of its own
        const double seen = contrast(label->palette().color(label->foregroundRole()),
                                     label->palette().color(label->backgroundRole()));
        if (seen < 4.5) pale << QStringLiteral("%1 %2: %3").arg(nameOf(*label)).arg(seen).arg(label->text());
    }
    return pale;
}

}  // namespace kelvane
