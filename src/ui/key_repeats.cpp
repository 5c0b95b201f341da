#include "ui/key_repeats.h"

#include <QCoreApplication>

namespace kelvane {

KeyRepeats::KeyRepeats() { QCoreApplication::instance()->installEventFilter(this); }

bool KeyRepeats::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.isAutoRepeat()) return false;
    if (event->type() == QEvent::KeyRelease) {
        m_scanCode = key.nativeScanCode();
        m_timestamp = key.timestamp();
        return false;
    }
    const bool repeated =
        key.timestamp() != 0 && key.timestamp() == m_timestamp && key.nativeScanCode() == m_scanCode;
    if (!repeated) return false;
    QKeyEvent marked(key.type(), key.key(), key.modifiers(), key.nativeScanCode(), key.nativeVirtualKey(),
                     key.nativeModifiers(), key.text(), true, static_cast<quint16>(key.count()),
                     key.device());
    marked.setTimestamp(key.timestamp());
    QCoreApplication::sendEvent(watched, &marked);
    event->setAccepted(marked.isAccepted());
    return true;
}

}  // namespace kelvane
