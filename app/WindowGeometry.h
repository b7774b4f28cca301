#ifndef SONAVIA_APP_WINDOWGEOMETRY_H
#define SONAVIA_APP_WINDOWGEOMETRY_H

class QMainWindow;
class SettingsStore;

/// The window's place on the screen over sessions. It is restored when the first recording is shown, not
/// before: the first window comes up at the form's size, and closing it without a recording changes nothing.
class WindowGeometry
{
public:
    /// Owns nothing.
    WindowGeometry(QMainWindow& window, SettingsStore& settings) : m_window(window), m_settings(settings) {}

    /// Applies the stored place the first time it is called; the middle of the screen where none is stored or
    /// no screen shows it.
    void restoreOnce();
    /// Stores the place, unless nothing was ever restored.
    void save();

private:
    QMainWindow& m_window;
    SettingsStore& m_settings;
    bool m_firstStart = true;
};

#endif
