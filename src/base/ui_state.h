// Looks that a person expects to last: window places, splitters, recent files, the last folder. One file of the
// program's folder holds them; losing it changes nothing else. The shell hands it to the windows.
#pragma once

#include <QSettings>
#include <QVariant>

namespace kelvane {

class UiState {
   public:
    virtual ~UiState() = default;
    virtual QVariant value(const QString& key) const = 0;  // invalid when there is none
    virtual void setValue(const QString& key, const QVariant& value) = 0;
};

// ui-state.ini.
class IniUiState final : public UiState {
   public:
    explicit IniUiState(const QString& path) : m_settings(path, QSettings::IniFormat) {}
    QVariant value(const QString& key) const override { return m_settings.value(key); }
    void setValue(const QString& key, const QVariant& value) override { m_settings.setValue(key, value); }

   private:
    QSettings m_settings;
};

// For tests, and where no file can be kept.
class MemoryUiState final : public UiState {
   public:
    QVariant value(const QString& key) const override { return m_values.value(key); }
    void setValue(const QString& key, const QVariant& value) override { m_values.insert(key, value); }

   private:
    QVariantMap m_values;
};

}  // namespace kelvane
