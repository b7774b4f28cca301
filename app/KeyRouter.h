#ifndef SONAVIA_APP_KEYROUTER_H
#define SONAVIA_APP_KEYROUTER_H

#include <QObject>

#include <functional>
#include <vector>

class QKeyEvent;
class QTreeWidget;
class QWidget;
struct RecordingSession;

/// Which key does what, for the widget that has the focus. The window filters the events of the whole
/// application and hands each to handle(), which acts on a key press once and takes it away from the widget.
///
/// While a spectrogram is computed the keys do nothing. An open editor keeps all of its keys. Auto-repeat
/// moves through a list but does not repeat anything else. GUI thread.
class KeyRouter : public QObject
{
    Q_OBJECT

public:
    using Command = std::function<void()>;

    /// The keys of a file list. A command that is left out leaves its key to the list.
    struct ListKeys
    {
        Command previous;    ///< Left
        Command next;        ///< Right
        Command load;        ///< Return, Enter
        Command editComment; ///< F2
        Command remove;      ///< Delete
        Command accept;      ///< Ctrl with Return or Enter
        /// "<A>" to "<Z>", from the letter alone or with Shift. False leaves the letter to the list.
        std::function<bool(const QString& shortcut)> assign;
    };

    /// Acts inside `window` only, not in dialogs above it. Owns nothing.
    KeyRouter(QWidget& window, const RecordingSession& session, QObject* parent = nullptr);

    void addList(QTreeWidget& list, const ListKeys& keys);
    /// Return or Enter, the same with Ctrl, and Delete.
    void addClassTree(QTreeWidget& tree, const Command& assign, const Command& activate,
                      const Command& remove);
    /// Space, whatever has the focus. A focused button is therefore pressed with Return or Enter.
    void setPlayPause(const Command& command);

    /// Whether the event was a key that acted or that was to be ignored: it must not go any further.
    bool handle(QObject* watched, QEvent* event);

private:
    struct Key
    {
        QWidget* widget; // null: any
        int code;
        Qt::KeyboardModifiers modifiers;
        bool repeats;
        Command command;
    };
    struct Letters
    {
        QWidget* widget;
        std::function<bool(const QString& shortcut)> command;
    };

    void add(QWidget* widget, int code, const Command& command, bool repeats = false,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool press(QWidget* widget, const QKeyEvent& event);
    static bool pressButton(QWidget* widget, const QKeyEvent& event, Qt::KeyboardModifiers modifiers);
    bool pressLetter(const QWidget* widget, const QKeyEvent& event, Qt::KeyboardModifiers modifiers);

    QWidget& m_window;
    const RecordingSession& m_session;
    std::vector<Key> m_keys;
    std::vector<Letters> m_letters;
};

#endif
