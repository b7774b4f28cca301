#include "app/KeyRouter.h"

#include "recordings/RecordingSession.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTreeWidget>

namespace {

bool isEditor(const QWidget* widget)
{
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
           (combo && combo->isEditable());
}

} // namespace

KeyRouter::KeyRouter(QWidget& window, const RecordingSession& session, QObject* parent)
    : QObject(parent), m_window(window), m_session(session)
{}

void KeyRouter::addList(QTreeWidget& list, const ListKeys& keys)
{
    add(&list, Qt::Key_Left, keys.previous, true);
    add(&list, Qt::Key_Right, keys.next, true);
    add(&list, Qt::Key_F2, keys.editComment);
    add(&list, Qt::Key_Delete, keys.remove);
    for (const int enter : {Qt::Key_Return, Qt::Key_Enter}) {
        add(&list, enter, keys.load);
        add(&list, enter, keys.accept, false, Qt::ControlModifier);
    }
    if (keys.assign)
        m_letters.push_back({&list, keys.assign});
}

void KeyRouter::addClassTree(QTreeWidget& tree, const Command& assign, const Command& activate,
                             const Command& remove)
{
    for (const int code : {Qt::Key_Return, Qt::Key_Enter}) {
        add(&tree, code, assign);
        add(&tree, code, activate, false, Qt::ControlModifier);
    }
    add(&tree, Qt::Key_Delete, remove);
}

void KeyRouter::setPlayPause(const Command& command)
{
    add(nullptr, Qt::Key_Space, command);
}

void KeyRouter::add(QWidget* widget, int code, const Command& command, bool repeats,
                    Qt::KeyboardModifiers modifiers)
{
    if (command)
        m_keys.push_back({widget, code, modifiers, repeats, command});
}

bool KeyRouter::handle(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    // A press comes to the window's QWindow first, then to the focused widget and, until somebody takes it,
    // to its parents. It counts at the widget that it is meant for and ends there.
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != &m_window || isEditor(widget) || isEditor(QApplication::focusWidget()))
        return false;
    return press(widget, *static_cast<QKeyEvent*>(event));
}

bool KeyRouter::press(QWidget* widget, const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    for (const Key& key : m_keys) {
        if (key.code != event.key() || key.modifiers != modifiers || (key.widget && key.widget != widget))
            continue;
        if (!m_session.busy && (key.repeats || !event.isAutoRepeat()))
            key.command();
        return true;
    }
    return pressButton(widget, event, modifiers) || pressLetter(widget, event, modifiers);
}

bool KeyRouter::pressButton(QWidget* widget, const QKeyEvent& event, Qt::KeyboardModifiers modifiers)
{
    auto* button = qobject_cast<QAbstractButton*>(widget);
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!button || !enter || modifiers != Qt::NoModifier)
        return false;
    if (!event.isAutoRepeat())
        button->click();
    return true;
}

bool KeyRouter::pressLetter(const QWidget* widget, const QKeyEvent& event, Qt::KeyboardModifiers modifiers)
{
    if (event.key() < Qt::Key_A || event.key() > Qt::Key_Z || (modifiers & ~Qt::ShiftModifier))
        return false;
    for (const Letters& letters : m_letters) {
        if (letters.widget != widget)
            continue;
        if (m_session.busy || event.isAutoRepeat())
            return true;
        return letters.command(QStringLiteral("<%1>").arg(QChar(event.key())));
    }
    return false;
}
