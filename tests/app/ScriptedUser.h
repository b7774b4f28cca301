#ifndef SONAVIA_TESTS_APP_SCRIPTEDUSER_H
#define SONAVIA_TESTS_APP_SCRIPTEDUSER_H

#include <QObject>
#include <QPointer>
#include <QStringList>

class QMenu;
class QWidget;

/// Somebody who works each menu and modal dialog that comes up by the next line of a script. A line holds one
/// or several of these, separated by ";":
///
///     click Yes               a button, by its text without "&"
///     choose Unassign/class 1 an entry of a menu
///     path /some/folder       in a file dialog
///     Myo\tm\n                anything else is typed: text, Tab and Return
///
/// A dialog that no line is left for is closed.
class ScriptedUser : public QObject
{
public:
    ScriptedUser();

    void will(const QStringList& lines) { m_script += lines; }
    /// No line is left and nothing is open.
    bool isDone() const;
    /// The texts of the message boxes since the last call.
    QStringList takeTold();
    /// What could not be done, and dialogs that nobody expected, since the last call.
    QString takeFaults();

    static void type(QWidget& window, const QString& keys);

private:
    void look();
    void work(QWidget& widget, const QString& line);
    void click(const QWidget& dialog, const QString& text);
    void choose(QMenu& menu, const QString& path);

    QStringList m_script;
    QStringList m_told;
    QStringList m_faults;
    QPointer<QWidget> m_served; // the last one that a line was used on
};

#endif
