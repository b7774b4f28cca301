#include "app/WindowGeometry.h"

#include "base/SettingsStore.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

#include <algorithm>

namespace {

constexpr QSize defaultSize(750, 500);

QRect defaultGeometry()
{
    QRect place({}, defaultSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        place.moveCenter(screen->availableGeometry().center());
    return place;
}

/// A window whose screen has gone would come up where nobody can see it.
bool isOnAScreen(const QRect& place)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.cbegin(), screens.cend(), [&place](const QScreen* screen) {
        return screen->availableGeometry().intersects(place);
    });
}

} // namespace

void WindowGeometry::restoreOnce()
{
    if (!m_firstStart)
        return;
    m_firstStart = false;
    m_window.centralWidget()->setMinimumSize(defaultSize);
    const QRect place = m_settings.geometry(defaultGeometry());
    m_window.setGeometry(isOnAScreen(place) ? place : defaultGeometry());
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
