#include "base/SettingsStore.h"

QString SettingsStore::value(const SettingKey<QString>& key) const
{
    return m_settings.value(QLatin1String(key.name), QString::fromLatin1(key.fallback)).toString();
}

QRect SettingsStore::geometry(const QRect& fallback) const
{
    return m_settings.value(QLatin1String(SettingKeys::geometry), fallback).toRect();
}

void SettingsStore::setGeometry(const QRect& geometry)
{
    store(SettingKeys::geometry, geometry);
}

void SettingsStore::store(const char* name, const QVariant& value)
{
    m_settings.setValue(QLatin1String(name), value);
    m_settings.writeSoon();
}
