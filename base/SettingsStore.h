#ifndef SONAVIA_BASE_SETTINGSSTORE_H
#define SONAVIA_BASE_SETTINGSSTORE_H

#include "base/BackgroundSettings.h"
#include "base/SettingKeys.h"

#include <QRect>
#include <QVariant>

/// The per-user settings store with typed access by SettingKey.
///
/// Reads and writes the store that the application's organization and application name select, so construct
/// it after these are set. Values are read on every use: two stores of one process see each other's writes at
/// once. A value that does not convert reads as its type's zero, as QVariant converts it. Values reach the
/// disk in the background, a second after a change. Keep one alive for as long as settings change:
/// each object writes the file when it goes. GUI thread only.
class SettingsStore
{
public:
    template <typename T>
    T value(const SettingKey<T>& key) const
    {
        return m_settings.value(QLatin1String(key.name), QVariant(key.fallback)).template value<T>();
    }
    QString value(const SettingKey<QString>& key) const;

    template <typename T>
    void setValue(const SettingKey<T>& key, const T& value)
    {
        store(key.name, QVariant(value));
    }

    bool contains(const char* name) const { return m_settings.contains(QLatin1String(name)); }

    /// The window's normal geometry; `fallback` where none has been stored.
    QRect geometry(const QRect& fallback) const;
    void setGeometry(const QRect& geometry);

private:
    void store(const char* name, const QVariant& value);

    BackgroundSettings m_settings;
};

#endif
