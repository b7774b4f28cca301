#include "base/BackgroundSettings.h"

#include <QEvent>

namespace {

constexpr int delay = 1000; // ms; changes come in groups

} // namespace

BackgroundSettings::~BackgroundSettings()
{
    m_writer.waitForDone(); // the base class writes the rest
}

void BackgroundSettings::writeSoon()
{
    if (!m_timer.isActive())
        m_timer.start(delay, this);
}

bool BackgroundSettings::event(QEvent* event)
{
    if (event->type() == QEvent::UpdateRequest)
        return true; // the base class would write now and wait for the disk
    return QSettings::event(event);
}

void BackgroundSettings::timerEvent(QTimerEvent* /*event*/)
{
    m_timer.stop();
    write();
}

void BackgroundSettings::write()
{
    // Another object with the same names has the same values; an object of its own belongs to the other
    // thread.
    m_writer.start([organization = organizationName(), application = applicationName()] {
        QSettings(organization, application).sync();
    });
}
