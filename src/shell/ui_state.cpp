#include "shell/ui_state.h"

#include <QSplitter>
#include <QWidget>

namespace kelvane {

namespace {

QString key(const QObject& object, const char* what) {
    return object.objectName() % QLatin1Char('/') % QLatin1String(what);
}

}  // namespace

void UiState::restoreWindow(QWidget& window) {
    window.restoreGeometry(m_settings.value(key(window, "geometry")).toByteArray());
    for (QSplitter* splitter : window.findChildren<QSplitter*>())
        if (!splitter->objectName().isEmpty())
            splitter->restoreState(m_settings.value(key(*splitter, "state")).toByteArray());
}

void UiState::keepWindow(const QWidget& window) {
    m_settings.setValue(key(window, "geometry"), window.saveGeometry());
    for (const QSplitter* splitter : window.findChildren<QSplitter*>())
        if (!splitter->objectName().isEmpty())
            m_settings.setValue(key(*splitter, "state"), splitter->saveState());
}

}  // namespace kelvane
