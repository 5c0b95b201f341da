// The way of the Tab key through controls that were not made in the order in which they are seen.
#pragma once

#include <QList>
#include <QWidget>

namespace kelvane {

inline void tabThrough(const QList<QWidget*>& controls) {
    for (qsizetype i = 1; i < controls.size(); ++i) QWidget::setTabOrder(controls[i - 1], controls[i]);
}

// From the first control of the window on. Qt does not turn a circle that is right but for its beginning, and
// passes over a window that takes no focus.
inline void tabThroughFromStart(QWidget& window, const QList<QWidget*>& controls) {
    const Qt::FocusPolicy policy = window.focusPolicy();
    window.setFocusPolicy(Qt::TabFocus);
    tabThrough(QList<QWidget*>{&window} + controls);
    window.setFocusPolicy(policy);
}

}  // namespace kelvane
