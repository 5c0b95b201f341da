#include "shell/ui_state.h"

#include <QFileInfo>
#include <QSplitter>
#include <QWidget>

namespace kelvane {

namespace {

QString key(const QObject& object, const char* what) {
    return object.objectName() % QLatin1Char('/') % QLatin1String(what);
}

// Reading a pipe would wait for whoever writes into it.
QString usable(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile() ? QString() : path;
}

}  // namespace

UiState::UiState(const QString& path) : m_settings(usable(path), QSettings::IniFormat) {}

void UiState::restoreWindow(QWidget& window) {
    const QSize designed = window.size();
    window.restoreGeometry(m_settings.value(key(window, "geometry")).toByteArray());
    // A damaged file may leave nothing to take hold of.
    if (window.size() != window.size().expandedTo(window.minimumSizeHint()) || window.size().isEmpty())
        window.resize(designed);
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
