// Looks that a person expects to last: window places, splitters, recent files, the last folder. They live in
// one ui-state.ini in the program's folder; deleting it changes nothing else.
#pragma once

#include <QSettings>

#include "base/kept_looks.h"

class QSplitter;
class QWidget;

namespace kelvane {

class UiState final : public KeptLooks {
   public:
    // What lies at path and is no file is left alone; looks then last for this run only.
    explicit UiState(const QString& path);

    void restoreWindow(QWidget& window);
    void keepWindow(const QWidget& window);
    QString text(const QString& key) const override { return m_settings.value(key).toString(); }
    void setText(const QString& key, const QString& text) override { m_settings.setValue(key, text); }
    QStringList list(const QString& key) const override { return m_settings.value(key).toStringList(); }
    void setList(const QString& key, const QStringList& list) override { m_settings.setValue(key, list); }

   private:
    QSettings m_settings;
};

}  // namespace kelvane
