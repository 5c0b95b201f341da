// A window takes its width from its content and would cut a longer title.
#pragma once

#include <QFontMetrics>
#include <QWidget>

namespace kelvane {

// Room for the title of a window, in the bold face and beside the buttons that window managers give it.
inline int titleWidth(const QWidget& window) {
    QFont face = window.font();
    face.setBold(true);
    const QFontMetrics bold(face);
    return bold.horizontalAdvance(window.windowTitle()) + 10 * bold.height();
}

}  // namespace kelvane
