#ifndef SONAVIA_TESTS_SUPPORT_MESSAGEBOXWATCH_H
#define SONAVIA_TESTS_SUPPORT_MESSAGEBOXWATCH_H

#include <QStringList>
#include <QTimer>

/// Presses the default button of every message box that comes up while it lives, and keeps what the boxes
/// said.
class MessageBoxWatch
{
public:
    MessageBoxWatch();

    /// What was shown since the last call, one line each: "icon|title|text".
    QStringList takeShown();

private:
    void answer();

    QTimer m_timer;
    QStringList m_shown;
};

#endif
