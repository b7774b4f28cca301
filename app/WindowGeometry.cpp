#include "app/WindowGeometry.h"

#include "base/SettingsStore.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

namespace {

constexpr QSize defaultSize(750, 500);

QRect defaultGeometry()
{
    QRect place({}, defaultSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        place.moveCenter(screen->availableGeometry().center());
    return place;
}

} // namespace

void WindowGeometry::restoreOnce()
{
    if (!m_firstStart)
        return;
    m_firstStart = false;
    m_window.centralWidget()->setMinimumSize(defaultSize);
    m_window.setGeometry(m_settings.geometry(defaultGeometry()));
    if (m_settings.value(SettingKeys::maximized))
        m_window.showMaximized();
}

void WindowGeometry::save()
{
    if (m_firstStart)
        return;
    m_settings.setGeometry(m_window.normalGeometry());
    m_settings.setValue(SettingKeys::maximized, m_window.isMaximized());
}
