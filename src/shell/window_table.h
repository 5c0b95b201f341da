// The table of windows: one row a window, in the order of their creation. Main window, rules of opening,
// language and census read it. A row without a factory is a window that is not built yet: its button and menu
// item are there and disabled.
#pragma once

#include <QWidget>
#include <memory>
#include <span>

#include "shell/window_rules.h"
#include "ui/icons.h"

namespace kelvane {

class Windows;

// What the main window shows of a window that a person opens from there.
struct WindowEntry {
    int place = 0;  // order of the buttons and of the menu items; 0: neither button nor item
    const char* button = nullptr;
    const char* caption = "";  // of the button, and of the menu item unless it has one of its own
    const char* hint = "";
    const char* menu = nullptr;
    const char* menuItem = nullptr;
    const char* menuCaption = nullptr;
    Icon icon = Icon::Count_;
    Qt::Key key = Qt::Key_unknown;
    bool DriveLabelsRecord::*offered = nullptr;  // the families that have it switch it on; null: always
    bool visible = true;
};

struct WindowRow {
    const char* form;  // class and object name
    // Makes the form from what windows has and from the forms of the rows above.
    std::unique_ptr<QWidget> (*make)(Windows& windows) = nullptr;
    // Connects it with others, when all exist.
    void (*wire)(Windows& windows, QWidget& form) = nullptr;
    WindowRule rule = {};
    WindowEntry entry = {};
    // Shows it, when the rule has let it open; in steps where something comes before it. Null: modally.
    void (*open)(Windows& windows, QWidget& form) = nullptr;

    bool built() const { return make != nullptr; }
};

std::span<const WindowRow> windowTable();
const WindowRow* windowRow(quint8 ActiveFunction);  // null for a number that no window has
const WindowRow* windowRow(const QString& form);
std::span<const WindowRow* const> windowEntries();  // rows with button or menu item, by their place

}  // namespace kelvane
