// What a screen has for a window.
#pragma once

#include <QScreen>
#include <QWidget>

namespace kelvane {

// With room for the frame, which nobody knows before the window is there.
inline QRect roomOn(const QScreen& screen) {
    constexpr int Frame = 8;
    constexpr int Title = 40;
    return screen.availableGeometry().adjusted(Frame, Title, -Frame, -Frame);
}

// No larger than the screen of a window, itself or another.
inline void fitIntoScreen(QWidget& window, const QWidget& near) {
    const QSize room = roomOn(*near.screen()).size();
    const QSize fitting = window.size().boundedTo(room).expandedTo(window.minimumSizeHint().boundedTo(room));
    if (!window.isMaximized() && fitting != window.size()) window.resize(fitting);
}

}  // namespace kelvane
