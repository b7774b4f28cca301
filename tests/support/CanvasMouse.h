#ifndef SONAVIA_TESTS_SUPPORT_CANVASMOUSE_H
#define SONAVIA_TESTS_SUPPORT_CANVASMOUSE_H

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

/// A mouse and a keyboard for one widget, with positions in its pixels. Unlike those of Qt Test, its moves
/// tell which buttons and modifiers are held down.
class CanvasMouse
{
public:
    explicit CanvasMouse(QWidget* widget) : m_widget(widget) {}

    void press(const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        m_held = button;
        m_modifiers = modifiers;
        send(QEvent::MouseButtonPress, at, button);
    }
    void move(const QPoint& to) { send(QEvent::MouseMove, to, Qt::NoButton); }
    void release(const QPoint& at)
    {
        const Qt::MouseButton button = m_held;
        m_held = Qt::NoButton;
        send(QEvent::MouseButtonRelease, at, button);
        m_modifiers = {};
    }

    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = {})
    {
        move(from);
        press(from, Qt::LeftButton, modifiers);
        move((from + to) / 2);
        move(to);
        release(to);
    }
    void click(const QPoint& at, Qt::MouseButton button)
    {
        press(at, button);
        release(at);
    }

    void key(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(m_widget, &event);
    }

private:
    void send(QEvent::Type type, const QPoint& at, Qt::MouseButton button)
    {
        QMouseEvent event(type, at, m_widget->mapToGlobal(at), button, m_held, m_modifiers);
        QApplication::sendEvent(m_widget, &event);
    }

    QWidget* m_widget;
    Qt::MouseButton m_held = Qt::NoButton;
    Qt::KeyboardModifiers m_modifiers;
};

#endif
