#include "tests/app/ScriptedUser.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTimer>
#include <QWindow>
#include <QtTest>

#include <utility>

namespace {

QString plain(QString text)
{
    return text.remove('&');
}

QWidget* above()
{
    QWidget* widget = QApplication::activePopupWidget();
    return widget ? widget : QApplication::activeModalWidget();
}

} // namespace

ScriptedUser::ScriptedUser()
{
    look();
}

bool ScriptedUser::isDone() const
{
    return m_script.isEmpty() && !above();
}

QStringList ScriptedUser::takeTold()
{
    return std::exchange(m_told, {});
}

QString ScriptedUser::takeFaults()
{
    return std::exchange(m_faults, {}).join(' ');
}

void ScriptedUser::look()
{
    // Anew each time: a timer that fires does not fire again within the event loop of a dialog it brought up.
    QTimer::singleShot(20, this, &ScriptedUser::look);
    QWidget* widget = above();
    if (!widget || widget == m_served || qobject_cast<QProgressDialog*>(widget))
        return;
    m_served = widget;
    if (const auto* box = qobject_cast<QMessageBox*>(widget))
        m_told.append(box->text());
    if (!m_script.isEmpty()) {
        work(*widget, m_script.takeFirst());
        return;
    }
    m_faults.append("unexpected: " + widget->windowTitle() + ' ' + m_told.value(m_told.size() - 1));
    widget->close();
}

void ScriptedUser::work(QWidget& widget, const QString& line)
{
    const QPointer<QWidget> open(&widget);
    for (const QString& part : line.split(';')) {
        if (!open)
            return;
        const QString argument = part.section(' ', 1);
        if (part.startsWith("click "))
            click(widget, argument);
        else if (auto* menu = qobject_cast<QMenu*>(&widget))
            choose(*menu, argument);
        else if (part.startsWith("path ")) {
            widget.findChild<QLineEdit*>("fileNameEdit")->setText(argument);
            QMetaObject::invokeMethod(&widget, "accept");
        } else
            type(widget, part);
    }
}

void ScriptedUser::click(const QWidget& dialog, const QString& text)
{
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        if (plain(button->text()) == text && button->isEnabled()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    m_faults.append("no button " + text);
}

void ScriptedUser::choose(QMenu& menu, const QString& path)
{
    const QString name = path.section('/', 0, 0);
    for (QAction* action : menu.actions()) {
        if (plain(action->text()) != name || !action->isEnabled())
            continue;
        menu.setActiveAction(action); // opens a submenu
        if (action->menu())
            choose(*action->menu(), path.section('/', 1));
        else
            QTest::keyClick(&menu, Qt::Key_Return);
        return;
    }
    m_faults.append("no entry " + name);
    menu.close();
}

void ScriptedUser::type(QWidget& window, const QString& keys)
{
    for (const QChar& key : keys) {
        if (key == '\t')
            QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        else if (key == '\n')
            QTest::keyClick(window.windowHandle(), Qt::Key_Return);
        else
            QTest::keyClick(window.windowHandle(), key.toLatin1());
    }
}
