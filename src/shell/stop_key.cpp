#include "shell/stop_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace kelvane {

StopKey::StopKey() { QApplication::instance()->installEventFilter(this); }

void StopKey::add(QWidget& window, std::function<bool()> ready, std::function<void()> press) {
    m_stops.push_back({&window, std::move(ready), std::move(press)});
}

// The window in which the person is; else the one that was added last, as windows that take the line close
// the keypad.
const StopKey::Stop* StopKey::onTop() const {
    const Stop* found = nullptr;
    for (const Stop& stop : m_stops) {
        if (!stop.window || !stop.window->isVisible() || !stop.ready()) continue;
        found = &stop;
        if (stop.window->isActiveWindow()) break;
    }
    return found;
}

void StopKey::press() {
    if (const Stop* stop = onTop()) stop->press();
}

// Before any window sees it, also while a box or an open list has the keys. The same press comes to several
// objects on its way; the first takes it.
bool StopKey::eventFilter(QObject*, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::ShortcutOverride) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Key || key.modifiers() != Qt::NoModifier) return false;
    event->accept();
    if (press && !key.isAutoRepeat()) this->press();
    return true;
}

}  // namespace kelvane
