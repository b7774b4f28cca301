#ifndef SONAVIA_BASE_BACKGROUNDSETTINGS_H
#define SONAVIA_BASE_BACKGROUNDSETTINGS_H

#include <QBasicTimer>
#include <QSettings>
#include <QThreadPool>

/// The per-user settings that the application's organization and application name select, written to disk
/// where nobody waits. QSettings alone does that in the thread of its owner and until the disk has it, which
/// takes longer than a key press may.
///
/// A value set is seen at once by every QSettings of the process. Call writeSoon() after setting it. What is
/// not written yet is written when the object goes.
class BackgroundSettings : public QSettings
{
public:
    BackgroundSettings() = default;
    ~BackgroundSettings() override;

    /// Has the values written within about a second.
    void writeSoon();

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void write();

    QBasicTimer m_timer;
    QThreadPool m_writer;
};

#endif
