#include "tests/support/TemporarySettings.h"

#include <QCoreApplication>
#include <QSettings>

TemporarySettings::TemporarySettings()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    QCoreApplication::setOrganizationName(QStringLiteral("Fennmoor"));
    QCoreApplication::setApplicationName(QStringLiteral("Sonavia"));
    clear();
}

void TemporarySettings::clear()
{
    QSettings settings;
    settings.clear();
    settings.sync();
}
